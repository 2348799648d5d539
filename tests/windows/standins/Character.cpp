#include "windows/standins/Character.h"
#include <algorithm>
#include <iterator>

namespace standins {
namespace {

constexpr HRESULT BadCharacterID = static_cast<HRESULT>(0x80042002), NoSuchAnimation = static_cast<HRESULT>(0x80042003),
                  EngineNotFound = static_cast<HRESULT>(0x80042013), NotQueued = static_cast<HRESULT>(0x80042101),
                  NoRequest = static_cast<HRESULT>(0x80042102), OthersRequest = static_cast<HRESULT>(0x80042103);
constexpr std::int16_t ShownByThisClient = 4, HiddenByThisClient = 3, MovedByThisClient = 2;

struct CProperty {
    const char* name;
    DISPID id;
    char type;
    bool writable;
    const char* initial;
};

constexpr CProperty Properties[] = {
    {"Visible", 2, 'b', false, "False"},
    {"Left", 3, 'n', false, "0"},
    {"Top", 4, 'n', false, "0"},
    {"Height", 5, 'n', false, "128"},
    {"Width", 6, 'n', false, "128"},
    {"Speed", 10, 'l', false, "150"},
    {"Pitch", 11, 'l', false, "100"},
    {"Name", 24, 's', true, ""},
    {"Description", 28, 's', true, ""},
    {"IdleOn", 29, 'b', true, "True"},
    {"MoveCause", 32, 'n', false, "0"},
    {"VisibilityCause", 33, 'n', false, "0"},
    {"HasOtherClients", 34, 'b', false, "0"},
    {"SoundEffectsOn", 35, 'b', true, "True"},
    {"ExtraData", 36, 's', false, ""},
    {"AutoPopupMenu", 38, 'b', true, "True"},
    {"Active", 41, 'n', false, "2"},
    {"LanguageID", 43, 'l', true, "1033"},
    {"SRModeID", 46, 's', true, ""},
    {"TTSModeID", 47, 's', false, "{CA141FD0-AC7F-11D1-97A3-006008273002}"},
    {"GUID", 49, 's', false, ""},
    {"OriginalHeight", 50, 'n', false, "128"},
    {"OriginalWidth", 51, 'n', false, "128"},
    {"Version", 53, 's', false, "2.0"},
    {"SRStatus", 55, 'l', false, "0"},
};

constexpr CProperty BalloonProperties[] = {
    {"Balloon.Enabled", 1, 'b', false, "True"},       {"Balloon.FontName", 4, 's', true, "MS Sans Serif"},
    {"Balloon.FontSize", 5, 'l', true, "8"},          {"Balloon.ForeColor", 7, 'l', false, "0"},
    {"Balloon.BackColor", 8, 'l', false, "14811135"}, {"Balloon.BorderColor", 9, 'l', false, "0"},
    {"Balloon.FontBold", 10, 'b', false, "False"},    {"Balloon.FontItalic", 11, 'b', false, "False"},
    {"Balloon.FontStrikethru", 12, 'b', false, "0"},  {"Balloon.FontUnderline", 13, 'b', false, "0"},
    {"Balloon.Visible", 14, 'b', true, "False"},      {"Balloon.FontCharSet", 15, 'n', true, "0"},
    {"Balloon.Style", 16, 'l', false, "35913741"},  // 2 lines of 36 characters, shown, hides itself, paced.
};

constexpr CProperty CommandProperties[] = {
    {"Commands.Caption", 3, 's', true, ""},       {"Commands.Voice", 4, 's', true, ""},
    {"Commands.Visible", 5, 'b', true, "True"},   {"Commands.DefaultCommand", 16, 's', true, ""},
    {"Commands.VoiceCaption", 22, 's', true, ""},
};

CValue Initial(const CProperty& property)
{
    CValue value{std::string(property.initial)};
    value.ConvertTo(TypeOf(property.type));
    return value;
}

template <std::size_t Count> void FillIn(CValues& values, const CProperty (&properties)[Count])
{
    for (const CProperty& property : properties)
        values[property.name] = Initial(property);
}

std::int16_t Short(const CValue& value) { return static_cast<std::int16_t>(value.Number()); }

// Properties that are simply kept.
class CKeeper : public CAutomationObject {
public:
    CKeeper(std::shared_ptr<CCharacterState> state, const std::string& path)
        : CAutomationObject(state->scene, path), m_state(std::move(state))
    {
    }

protected:
    template <std::size_t Count> void Keep(const CProperty (&properties)[Count])
    {
        for (const CProperty& property : properties) {
            const std::string full = property.name;
            const std::string name = full.substr(full.rfind('.') + 1);
            CValue& value = State().values[full];
            if (property.writable)
                Variable(name.c_str(), property.id, property.type, value);
            else
                ReadOnly(name.c_str(), property.id, property.type, [&value] { return value; });
        }
    }
    void BeforeCall(const CMember&) override { RequireAlive(State()); }
    CCharacterState& State() const { return *m_state; }
    const std::shared_ptr<CCharacterState>& Shared() const { return m_state; }

    // Turns a property that is only read so far into one that a client writes, too.
    void Writable(const char* name, DISPID id, char type, const char* key, Putter put)
    {
        CValue& value = State().values[key];
        Replace(
            name, id, type, [&value] { return value; }, std::move(put));
    }

private:
    void Replace(const char* name, DISPID id, char type, Getter get, Putter put)
    {
        Forget(id);
        ReadWrite(name, id, type, std::move(get), std::move(put));
    }
    std::shared_ptr<CCharacterState> m_state;
};

std::string PathOf(const CCharacterState& state) { return "Character[" + state.id + "]"; }

class CCharacter final : public CKeeper {
public:
    explicit CCharacter(const std::shared_ptr<CCharacterState>& state) : CKeeper(state, PathOf(*state))
    {
        Keep(Properties);
        AddPlace();
        AddSpeechMode();
        AddRequests();
        AddStops();
        AddRest();
    }

private:
    void AddPlace()
    {
        Writable("Left", 3, 'n', "Left",
                 [this](const CValue& value) { State().MoveTo(Short(value), Short(State().values["Top"])); });
        Writable("Top", 4, 'n', "Top",
                 [this](const CValue& value) { State().MoveTo(Short(State().values["Left"]), Short(value)); });
        Writable("Height", 5, 'n', "Height", [this](const CValue& value) { Resize("Height", value); });
        Writable("Width", 6, 'n', "Width", [this](const CValue& value) { Resize("Width", value); });
    }
    void Resize(const char* side, const CValue& value)
    {
        State().values[side] = value;
        State().RaiseLater("Size", {State().values["Width"], State().values["Height"]});
    }
    void AddSpeechMode()
    {
        Writable("TTSModeID", 47, 's', "TTSModeID", [this](const CValue& value) {
            const std::string wanted = value.Text();
            const auto& voices = Scene().voices;
            if (std::none_of(voices.begin(), voices.end(),
                             [&](const CVoice& voice) { return SameName(voice.modeID, wanted); }))
                throw CComFailure{EngineNotFound};
            State().values["TTSModeID"] = value;
        });
    }
    void AddRequests()
    {
        Callable("Play", 13, "s", 'd', [this](const CCall& call) { return Play(call.Text(0)); });
        Callable("Speak", 15, "VV", 'd', [this](const CCall& call) { return Speak(call); });
        Callable("Think", 52, "V", 'd', [this](const CCall&) { return Queue(Audible("Think")); });
        Callable("GestureAt", 17, "nn", 'd', [this](const CCall&) { return Queue(Audible("GestureAt")); });
        Callable("MoveTo", 18, "nnV", 'd', [this](const CCall& call) { return Move(call); });
        Callable("Hide", 19, "V", 'd', [this](const CCall&) {
            return Queue(MakeRequest("Hide", {}, [state = Shared()] { state->SetShown(false, HiddenByThisClient); }));
        });
        Callable("Show", 20, "V", 'd', [this](const CCall&) {
            return Queue(MakeRequest("Show", [state = Shared()] { state->SetShown(true, ShownByThisClient); }));
        });
        Callable("Interrupt", 21, "d", 'd', [this](const CCall&) { return Queue(MakeRequest("Interrupt")); });
        Callable("Wait", 22, "d", 'd', [this](const CCall&) { return Queue(MakeRequest("Wait")); });
        Callable("Get", 27, "ssV", 'd', [this](const CCall&) { return Queue(MakeRequest("Get")); });
    }
    CValue Queue(const RequestRef& request) { return CValue(State().queue->Add(request).Get()); }
    RequestRef Audible(const char* kind)
    {
        RequestRef request = MakeRequest(kind);
        request->failsWhenHidden = true;
        return request;
    }
    CValue Play(const std::string& animation)
    {
        const auto& names = Scene().animations;
        const bool known =
            std::any_of(names.begin(), names.end(), [&](const auto& name) { return SameName(name, animation); });
        return known ? Queue(Audible("Play")) : Refuse("Play", NoSuchAnimation);
    }
    // A request that fails at the call itself.
    CValue Refuse(const char* kind, HRESULT code)
    {
        const auto client = State().client.lock();
        if (!client || client->raiseRequestErrors)
            throw CComFailure{code};
        return CValue(State().queue->Ended(kind, Failed, code).Get());
    }
    CValue Speak(const CCall& call)
    {
        if (call.Omitted(0) && call.Omitted(1))
            return Refuse("Speak", E_INVALIDARG);
        RequestRef request = Audible("Speak");
        request->start = [state = Shared()] { state->Raise("BalloonShow", {}); };
        request->finish = [state = Shared()] { state->Raise("BalloonHide", {}); };
        return Queue(request);
    }
    CValue Move(const CCall& call)
    {
        RequestRef request = MakeRequest("MoveTo");
        request->failsWhenHidden = call.Number(2, 1000) != 0;
        request->start = [state = Shared(), left = Short(call[0]), top = Short(call[1])] { state->MoveTo(left, top); };
        return Queue(request);
    }
    void AddStops()
    {
        Callable("Stop", 14, "V", ' ', [this](const CCall& call) {
            if (call.Omitted(0))
                State().queue->Stop([](const CRequest& request) { return !RunsShowOrHide(request); });
            else
                StopOne(call[0].Object());
            return CValue();
        });
        Callable("StopAll", 31, "V", ' ', [this](const CCall& call) {
            const std::string types = call.Omitted(0) ? "" : call.Text(0);
            State().queue->Stop([&](const CRequest& request) { return types.empty() || IsOfTypes(request, types); });
            return CValue();
        });
    }
    static bool RunsShowOrHide(const CRequest& request)
    {
        return request.status == InProgress && (request.kind == "Show" || request.kind == "Hide");
    }
    static bool IsOfTypes(const CRequest& request, const std::string& types)
    {
        const std::string kind = request.kind == "MoveTo" ? "Move" : request.kind;
        return types.find(kind) != std::string::npos;
    }
    void StopOne(IDispatch* object)
    {
        const RequestRef wanted = RequestBehind(object);
        if (!wanted)
            throw CComFailure{NoRequest};
        if (!State().queue->Holds(*wanted))
            throw CComFailure{wanted->status == Pending || wanted->status == InProgress ? OthersRequest : NotQueued};
        State().queue->Stop([&](const CRequest& request) { return &request == wanted.get(); });
    }
    void AddRest()
    {
        ReadOnly("Balloon", 23, 'd', [this] { return CValue(NewBalloon(Shared()).Get()); });
        ReadOnly("Commands", 25, 'd', [this] { return CValue(NewCommands(Shared()).Get()); });
        ReadOnly("AnimationNames", 54, 'd',
                 [this] { return CValue(NewNames(SharedScene(), Path() + ".AnimationNames", Scene().animations).Get()); });
        Callable("Activate", 26, "V", 'b', [](const CCall&) { return CValue(true); });
        Callable("ShowPopupMenu", 37, "nn", 'b', [](const CCall&) { return CValue(true); });
        Callable("Listen", 42, "b", 'b', [](const CCall&) { return CValue(false); });
    }
};

class CBalloon final : public CKeeper {
public:
    explicit CBalloon(const std::shared_ptr<CCharacterState>& state) : CKeeper(state, PathOf(*state) + ".Balloon")
    {
        Keep(BalloonProperties);
        Writable("Style", 16, 'l', "Balloon.Style", [this](const CValue& value) {
            const auto style = static_cast<std::uint32_t>(value.Number());
            const std::uint32_t characters = style >> 16 & 0xFF, lines = style >> 24;
            if (characters < 8 || lines < 1 || lines > 128)
                throw CComFailure{E_INVALIDARG};
            State().values["Balloon.Style"] = value;
        });
        ReadOnly("NumberOfLines", 2, 'l', [this] { return CValue(static_cast<std::int32_t>(Style() >> 24)); });
        ReadOnly("CharsPerLine", 3, 'l', [this] { return CValue(static_cast<std::int32_t>(Style() >> 16 & 0xFF)); });
    }

private:
    std::uint32_t Style() const { return static_cast<std::uint32_t>(State().values.At("Balloon.Style").Number()); }
};

class CCommand final : public CAutomationObject {
public:
    CCommand(const CCharacterState& owner, std::shared_ptr<CCommandState> state)
        : CAutomationObject(owner.scene, PathOf(owner) + ".Commands.Command[" + state->name + "]"), m_state(std::move(state))
    {
        Variable("Voice", 1, 's', m_state->values["Voice"]);
        Variable("Caption", 2, 's', m_state->values["Caption"]);
        Variable("Confidence", 3, 'l', m_state->values["Confidence"]);
        Variable("ConfidenceText", 4, 's', m_state->values["ConfidenceText"]);
        Variable("Enabled", 5, 'b', m_state->values["Enabled"]);
        Variable("Visible", 6, 'b', m_state->values["Visible"]);
        Variable("VoiceCaption", 8, 's', m_state->values["VoiceCaption"]);
    }

private:
    std::shared_ptr<CCommandState> m_state;
};

class CCommands final : public CKeeper {
public:
    explicit CCommands(const std::shared_ptr<CCharacterState>& state) : CKeeper(state, PathOf(*state) + ".Commands")
    {
        Keep(CommandProperties);
        ReadOnly("Count", 2, 'l', [this] { return CValue(static_cast<std::int32_t>(State().commands.size())); });
        Indexed("Item", 0, "s", 'd', [this](const CCall& call) { return Object(Find(call.Text(0))); });
        Indexed("Command", 15, "s", 'd', [this](const CCall& call) { return Object(Find(call.Text(0))); });
        Callable("Add", 10, "sVVVV", 'd', [this](const CCall& call) { return Add(call, 1); });
        Callable("Insert", 11, "ssVVVVV", 'd', [this](const CCall& call) { return Add(call, 3); });
        Callable("Remove", 13, "s", ' ', [this](const CCall& call) { return Remove(call.Text(0)); });
        Callable("RemoveAll", 14, "", ' ', [this](const CCall&) {
            State().commands.clear();
            return CValue();
        });
    }

private:
    using Command = std::shared_ptr<CCommandState>;
    std::vector<Command>::iterator Place(const std::string& name)
    {
        auto& commands = State().commands;
        return std::find_if(commands.begin(), commands.end(), [&](const Command& one) { return SameName(one->name, name); });
    }
    Command Find(const std::string& name)
    {
        const auto place = Place(name);
        if (place == State().commands.end())
            throw CComFailure{static_cast<HRESULT>(0x80042006)};
        return *place;
    }
    CValue Object(const Command& command) { return CValue(CRef<IDispatch>::Adopt(new CCommand(State(), command)).Get()); }
    CValue Add(const CCall& call, std::size_t first)
    {
        if (Place(call.Text(0)) != State().commands.end())
            throw CComFailure{static_cast<HRESULT>(0x80042007)};
        const auto command = std::make_shared<CCommandState>();
        command->name = call.Text(0);
        command->values["Caption"] = CValue(call.Text(first));
        command->values["Voice"] = CValue(call.Text(first + 1));
        command->values["Enabled"] = CValue(call.Truth(first + 2, true));
        command->values["Visible"] = CValue(call.Truth(first + 3, true));
        State().commands.push_back(command);
        return Object(command);
    }
    CValue Remove(const std::string& name)
    {
        Find(name);
        State().commands.erase(Place(name));
        return CValue();
    }
};

}

CCharacterState::CCharacterState(const std::shared_ptr<CClient>& owner, std::string characterID, std::string name)
    : scene(owner->scene), client(owner), id(std::move(characterID)), queue(std::make_shared<CQueue>(scene, owner))
{
    FillIn(values, Properties);
    FillIn(values, BalloonProperties);
    FillIn(values, CommandProperties);
    values["Name"] = CValue(name);
    for (const auto& [property, value] : scene->initialValues)
        values.Set(property, value);
    queue->hidden = [this] { return !values["Visible"].Truth(); };
}

void CCharacterState::Raise(const char* event, std::vector<CValue> arguments)
{
    arguments.insert(arguments.begin(), CValue(id));
    if (const auto owner = client.lock())
        owner->Raise(event, std::move(arguments));
}

void CCharacterState::RaiseLater(const char* event, std::vector<CValue> arguments)
{
    scene->Later([self = weak_from_this(), event, arguments = std::move(arguments)] {
        if (const auto state = self.lock())
            state->Raise(event, arguments);
    });
}

void CCharacterState::SetShown(bool shown, std::int16_t cause, bool withEvent)
{
    values["Visible"] = CValue(shown);
    values["VisibilityCause"] = CValue(cause);
    if (withEvent)
        Raise(shown ? "Show" : "Hide", {CValue(cause)});
}

void CCharacterState::MoveTo(std::int16_t left, std::int16_t top)
{
    values["Left"] = CValue(left);
    values["Top"] = CValue(top);
    values["MoveCause"] = CValue(MovedByThisClient);
    RaiseLater("Move", {values["Left"], values["Top"], values["MoveCause"]});
}

void RequireAlive(const CCharacterState& state)
{
    if (!state.alive)
        throw CComFailure{BadCharacterID};
}

CRef<IDispatch> NewCharacter(const std::shared_ptr<CCharacterState>& state)
{
    return CRef<IDispatch>::Adopt(new CCharacter(state));
}

CRef<IDispatch> NewBalloon(const std::shared_ptr<CCharacterState>& state)
{
    return CRef<IDispatch>::Adopt(new CBalloon(state));
}

CRef<IDispatch> NewCommands(const std::shared_ptr<CCharacterState>& state)
{
    return CRef<IDispatch>::Adopt(new CCommands(state));
}

}
