#include "platform/headless/Engine.h"

namespace platform::headless {
namespace {

std::string Shown(const std::optional<std::string>& text) { return text ? *text : "-"; }

std::string Shown(std::optional<bool> truth)
{
    if (!truth)
        return "-";
    return *truth ? "true" : "false";
}

std::string Shown(std::int32_t number) { return std::to_string(number); }

}

class CEngineBalloon final : public IBalloon {
public:
    CEngineBalloon(CEngine& engine, EngineCharacter& character) : m_engine(engine), m_character(character) {}
    bool Enabled() const override { return true; }
    bool Visible() const override { return false; }
    std::int32_t Style() const override
    {
        Enter("Style");
        return m_character.balloonStyle;
    }
    void SetStyle(std::int32_t style) override
    {
        Enter("SetStyle " + Shown(style));
        m_character.balloonStyle = style;
    }
    std::string FontName() const override
    {
        Enter("FontName");
        return m_character.fontName;
    }
    void SetFontName(const std::string& name) override
    {
        Enter("SetFontName " + name);
        m_character.fontName = name;
    }
    std::int32_t FontSize() const override
    {
        Enter("FontSize");
        return m_character.fontSize;
    }
    void SetFontSize(std::int32_t points) override
    {
        Enter("SetFontSize " + Shown(points));
        m_character.fontSize = points;
    }
    bool FontBold() const override
    {
        Enter("FontBold");
        return m_character.fontBold;
    }
    bool FontItalic() const override
    {
        Enter("FontItalic");
        return m_character.fontItalic;
    }
    std::int32_t CharsPerLine() const override { return m_character.balloonStyle >> 16 & 0xFF; }
    std::int32_t NumberOfLines() const override { return m_character.balloonStyle >> 24 & 0xFF; }

private:
    void Enter(const std::string& call) const { m_engine.m_journal.Enter("Balloon." + call); }
    CEngine& m_engine;
    EngineCharacter& m_character;
};

class CEngineCommands final : public ICommands {
public:
    explicit CEngineCommands(CEngine& engine) : m_engine(engine) {}
    void RemoveAll() override
    {
        m_engine.m_journal.Enter("Commands.RemoveAll");
        m_engine.commands.clear();
    }
    void SetCaption(const std::string& caption) override
    {
        m_engine.m_journal.Enter("Commands.SetCaption " + caption);
        m_engine.commandsCaption = caption;
    }
    void Add(const std::string& name, const std::optional<std::string>& caption, const std::optional<std::string>& voice,
             std::optional<bool> enabled, std::optional<bool> visible) override
    {
        m_engine.m_journal.Enter("Commands.Add " + name);
        m_engine.commands.push_back(name + "|" + Shown(caption) + "|" + Shown(voice) + "|" + Shown(enabled) + "|" +
                                    Shown(visible));
    }

private:
    CEngine& m_engine;
};

class CEngineCharacterProxy final : public ICharacter {
public:
    CEngineCharacterProxy(CEngine& engine, EngineCharacter& character) : m_engine(engine), m_character(character) {}

    std::string Name() const override { return Get("Name", m_character.name); }
    void SetName(const std::string& name) override { Set("SetName " + name, m_character.name, name); }
    std::int16_t Left() const override { return Get("Left", m_character.left); }
    void SetLeft(std::int16_t left) override { Set("SetLeft " + Shown(left), m_character.left, left); }
    std::int16_t Top() const override { return Get("Top", m_character.top); }
    void SetTop(std::int16_t top) override { Set("SetTop " + Shown(top), m_character.top, top); }
    std::int16_t Width() const override { return Get("Width", m_character.width); }
    void SetWidth(std::int16_t width) override { Set("SetWidth " + Shown(width), m_character.width, width); }
    std::int16_t Height() const override { return Get("Height", m_character.height); }
    void SetHeight(std::int16_t height) override { Set("SetHeight " + Shown(height), m_character.height, height); }
    std::int16_t OriginalWidth() const override { return Get("OriginalWidth", m_character.originalWidth); }
    std::int16_t OriginalHeight() const override { return Get("OriginalHeight", m_character.originalHeight); }
    std::int32_t Pitch() const override { return Get("Pitch", m_character.pitch); }
    std::int32_t Speed() const override { return Get("Speed", m_character.speed); }
    std::string TTSModeID() const override { return Get("TTSModeID", m_character.ttsModeID); }
    void SetTTSModeID(const std::string& modeID) override { Set("SetTTSModeID " + modeID, m_character.ttsModeID, modeID); }
    bool AutoPopupMenu() const override { return Get("AutoPopupMenu", m_character.autoPopupMenu); }
    void SetAutoPopupMenu(bool on) override
    {
        Set("SetAutoPopupMenu " + Shown(std::optional(on)), m_character.autoPopupMenu, on);
    }
    bool IdleOn() const override { return Get("IdleOn", m_character.idleOn); }
    void SetIdleOn(bool on) override { Set("SetIdleOn " + Shown(std::optional(on)), m_character.idleOn, on); }
    bool SoundEffectsOn() const override { return Get("SoundEffectsOn", m_character.soundEffectsOn); }
    void SetSoundEffectsOn(bool on) override
    {
        Set("SetSoundEffectsOn " + Shown(std::optional(on)), m_character.soundEffectsOn, on);
    }
    bool Visible() const override { return Get("Visible", m_character.visible); }
    std::int32_t VisibilityCause() const override { return 0; }
    std::int32_t MoveCause() const override { return 0; }
    bool HasOtherClients() const override { return Get("HasOtherClients", m_character.hasOtherClients); }
    std::vector<std::string> AnimationNames() const override { return Get("AnimationNames", m_character.animations); }
    std::shared_ptr<IBalloon> Balloon() override
    {
        Enter("Balloon");
        return std::make_shared<CEngineBalloon>(m_engine, m_character);
    }
    std::shared_ptr<ICommands> Commands() override
    {
        Enter("Commands");
        return std::make_shared<CEngineCommands>(m_engine);
    }
    std::int32_t NamedNumber(const std::string& member) const override
    {
        Enter("NamedNumber " + member);
        const auto found = m_character.namedNumbers.find(member);
        if (found == m_character.namedNumbers.end())
            throw failure::NoSuchMember();
        return found->second;
    }

    RequestRef Show(std::optional<bool> fast) override
    {
        RequestRef request = m_engine.Request("Character.Show " + Shown(fast));
        m_character.visible = true;
        return request;
    }
    RequestRef Hide(std::optional<bool> fast) override
    {
        RequestRef request = m_engine.Request("Character.Hide " + Shown(fast));
        m_character.visible = false;
        return request;
    }
    RequestRef Play(const std::string& animation) override { return m_engine.Request("Character.Play " + animation); }
    RequestRef Speak(const std::optional<std::string>& text, const std::optional<std::string>& soundFile) override
    {
        RequestRef request = m_engine.Request("Character.Speak " + Shown(text) + " | " + Shown(soundFile));
        m_engine.m_spoken.push_back(text.value_or(""));
        if (m_engine.whenSpoken)
            m_engine.whenSpoken();
        return request;
    }
    RequestRef MoveTo(std::int16_t x, std::int16_t y, std::optional<std::int32_t> milliseconds) override
    {
        RequestRef request = m_engine.Request("Character.MoveTo " + Shown(x) + " " + Shown(y) + " " +
                                              (milliseconds ? Shown(*milliseconds) : "-"));
        m_character.left = x;
        m_character.top = y;
        return request;
    }
    void Stop(const RequestRef& request) override { Enter("Stop " + (request ? Shown(request->ID()) : "-")); }
    void StopAll(const std::optional<std::string>& types) override { Enter("StopAll " + Shown(types)); }

private:
    void Enter(const std::string& call) const { m_engine.m_journal.Enter("Character." + call); }
    template <class T> T Get(const char* call, const T& field) const
    {
        Enter(call);
        return field;
    }
    template <class T> void Set(const std::string& call, T& field, const T& value) const
    {
        Enter(call);
        field = value;
    }
    CEngine& m_engine;
    EngineCharacter& m_character;
};

class CEngineCharacters final : public ICharacters {
public:
    explicit CEngineCharacters(CEngine& engine) : m_engine(engine) {}
    RequestRef Load(const std::string& id, const std::optional<std::string>& file) override
    {
        RequestRef request = m_engine.Request("Characters.Load " + id + " " + Shown(file));
        if (file && m_engine.missingFiles.contains(*file))
            throw CFailure(engineError::FileNotFound, "The file was not found.");
        if (m_engine.m_characters.contains(id))
            throw CFailure(engineError::AlreadyLoaded, "The character is already loaded.");
        const auto own = file ? m_engine.characterOfFile.find(*file) : m_engine.characterOfFile.end();
        m_engine.m_characters[id] = own == m_engine.characterOfFile.end() ? m_engine.character : own->second;
        m_engine.loaded = &m_engine.m_characters[id];
        return request;
    }
    void Unload(const std::string& id) override
    {
        m_engine.m_journal.Enter("Characters.Unload " + id);
        m_engine.m_characters.erase(id);
        m_engine.loaded = nullptr;
    }
    std::shared_ptr<ICharacter> Character(const std::string& id) override
    {
        m_engine.m_journal.Enter("Characters.Character " + id);
        const auto found = m_engine.m_characters.find(id);
        if (found == m_engine.m_characters.end())
            throw CFailure(engineError::BadCharacterID, "The character is not loaded.");
        return std::make_shared<CEngineCharacterProxy>(m_engine, found->second);
    }

private:
    CEngine& m_engine;
};

class CEngineControl final : public ICharacterEngine {
public:
    explicit CEngineControl(CEngine& engine) : m_engine(engine) {}
    ~CEngineControl() override { m_engine.events = nullptr; }
    bool Connected() const override { return m_connected; }
    void SetConnected(bool connected) override
    {
        m_engine.m_journal.Enter("Engine.SetConnected " + Shown(std::optional(connected)));
        m_connected = connected;
    }
    std::shared_ptr<ICharacters> Characters() override
    {
        m_engine.m_journal.Enter("Engine.Characters");
        if (!m_connected)
            throw CFailure(engineError::NotConnected, "The control is not connected.");
        return std::make_shared<CEngineCharacters>(m_engine);
    }
    void SetPropertySheetVisible(bool visible) override
    {
        m_engine.m_journal.Enter("Engine.SetPropertySheetVisible " + Shown(std::optional(visible)));
        m_engine.propertySheetVisible = visible;
    }
    void ShowDefaultCharacterProperties() override { m_engine.m_journal.Enter("Engine.ShowDefaultCharacterProperties"); }
    void SetEvents(ICharacterEngineEvents* events) override
    {
        m_engine.m_journal.Enter("Engine.SetEvents");
        m_engine.events = events;
    }

private:
    CEngine& m_engine;
    bool m_connected = false;
};

std::shared_ptr<ICharacterEngine> CEngine::Create()
{
    m_journal.Enter("Engine.Create");
    if (!installed)
        throw failure::CannotCreateObject();
    return std::make_shared<CEngineControl>(*this);
}

void CEngine::RequireForMainWindow()
{
    m_journal.Enter("Engine.RequireForMainWindow");
    if (!installed)
        throw failure::ComponentNotRegistered("agentctl.dll");
}

void CEngine::Complete(std::size_t index, RequestStatus status)
{
    requests.at(index)->status = status;
    if (events != nullptr)
        events->RequestComplete(requests.at(index));
}

std::vector<std::string> CEngine::Spoken() const { return m_spoken; }

RequestRef CEngine::Request(std::string what)
{
    m_journal.Enter(what);
    requests.push_back(std::make_shared<CRequest>(static_cast<std::int32_t>(requests.size() + 1), std::move(what)));
    return requests.back();
}

}
