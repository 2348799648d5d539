#include "platformwindows/com/EngineFixture.h"

using namespace comtest;
using platform::ICharacter;

namespace {

class AgentControl : public CEngineFixture {};

// One member of the character: what the program calls, and what the engine hears.
struct ReadCase {
    const char* what;
    std::function<std::string(ICharacter&)> read;
    std::wstring member;
    CVariant answer;
    std::string expected;
};
struct WriteCase {
    std::function<void(ICharacter&)> write;
    std::string line;
};
struct RequestCase {
    std::function<platform::RequestRef(ICharacter&)> call;
    std::wstring member;
    std::string line;
};

std::string Text(const std::string& text) { return text; }
std::string Text(bool truth) { return truth ? "true" : "false"; }
std::string Text(std::int32_t number) { return std::to_string(number); }

#define READS(member, answer, expected)                                                                                     \
    ReadCase                                                                                                                \
    {                                                                                                                       \
#member, [](ICharacter & c) { return Text(c.member()); }, L## #member, CVariant(answer), expected                   \
    }

}

TEST_F(AgentControl, Character_EachPropertyRead_AsksForItAlone)
{
    const auto bot = Character();
    const std::vector<ReadCase> cases{READS(Name, std::string("Merlin"), "Merlin"),
                                      READS(Left, std::int16_t{-5}, "-5"),
                                      READS(Top, std::int16_t{590}, "590"),
                                      READS(Width, std::int16_t{128}, "128"),
                                      READS(Height, std::int16_t{129}, "129"),
                                      READS(OriginalWidth, std::int16_t{64}, "64"),
                                      READS(OriginalHeight, std::int16_t{65}, "65"),
                                      READS(Pitch, std::int32_t{-1}, "-1"),
                                      READS(Speed, std::int32_t{150}, "150"),
                                      READS(TTSModeID, std::string("{CA14}"), "{CA14}"),
                                      READS(AutoPopupMenu, true, "true"),
                                      READS(IdleOn, false, "false"),
                                      READS(SoundEffectsOn, true, "true"),
                                      READS(Visible, true, "true"),
                                      READS(VisibilityCause, std::int16_t{7}, "7"),
                                      READS(MoveCause, std::int16_t{2}, "2"),
                                      READS(HasOtherClients, true, "true")};
    for (const ReadCase& each : cases) {
        character->answers[each.member] = Giving(each.answer);
        journal->clear();
        EXPECT_EQ(each.read(*bot), each.expected) << each.what;
        EXPECT_EQ(*journal, Journal{"get Character." + std::string(each.what)});
    }
}

TEST_F(AgentControl, Character_EachPropertyWritten_PassesTheValueWithItsType)
{
    const auto bot = Character();
    const std::vector<WriteCase> cases{
        {[](ICharacter& c) { c.SetName("C:\\a.acs"); }, "put Character.Name BSTR C:\\a.acs"},
        {[](ICharacter& c) { c.SetLeft(-5); }, "put Character.Left I2 -5"},
        {[](ICharacter& c) { c.SetTop(590); }, "put Character.Top I2 590"},
        {[](ICharacter& c) { c.SetWidth(200); }, "put Character.Width I2 200"},
        {[](ICharacter& c) { c.SetHeight(201); }, "put Character.Height I2 201"},
        {[](ICharacter& c) { c.SetTTSModeID("{CA14}"); }, "put Character.TTSModeID BSTR {CA14}"},
        {[](ICharacter& c) { c.SetAutoPopupMenu(false); }, "put Character.AutoPopupMenu BOOL False"},
        {[](ICharacter& c) { c.SetIdleOn(true); }, "put Character.IdleOn BOOL True"},
        {[](ICharacter& c) { c.SetSoundEffectsOn(false); }, "put Character.SoundEffectsOn BOOL False"}};
    for (const WriteCase& each : cases) {
        journal->clear();
        each.write(*bot);
        EXPECT_EQ(*journal, Journal{each.line});
    }
}

TEST_F(AgentControl, Character_EachRequest_LeavesOmittedArgumentsAway)
{
    const auto bot = Character();
    const std::optional<std::string> none;
    const std::vector<RequestCase> cases{
        {[](ICharacter& c) { return c.Show(std::nullopt); }, L"Show", "call Character.Show"},
        {[](ICharacter& c) { return c.Show(true); }, L"Show", "call Character.Show BOOL True"},
        {[](ICharacter& c) { return c.Hide(std::nullopt); }, L"Hide", "call Character.Hide"},
        {[](ICharacter& c) { return c.Hide(false); }, L"Hide", "call Character.Hide BOOL False"},
        {[](ICharacter& c) { return c.Play("Wave"); }, L"Play", "call Character.Play BSTR Wave"},
        {[=](ICharacter& c) { return c.Speak("Hi", none); }, L"Speak", "call Character.Speak BSTR Hi"},
        {[](ICharacter& c) { return c.Speak("", "a.wav"); }, L"Speak", "call Character.Speak BSTR  BSTR a.wav"},
        {[=](ICharacter& c) { return c.Speak(none, "a.wav"); }, L"Speak", "call Character.Speak - BSTR a.wav"},
        {[=](ICharacter& c) { return c.Speak(none, none); }, L"Speak", "call Character.Speak"},
        {[](ICharacter& c) { return c.MoveTo(846, -5, std::nullopt); }, L"MoveTo", "call Character.MoveTo I2 846 I2 -5"},
        {[](ICharacter& c) { return c.MoveTo(1, 2, 0); }, L"MoveTo", "call Character.MoveTo I2 1 I2 2 I4 0"}};
    for (const RequestCase& each : cases) {
        const TestRef request = NewRequest(1);
        character->answers[each.member] = Giving(request->Value());
        journal->clear();
        EXPECT_NE(each.call(*bot), nullptr);
        EXPECT_EQ(*journal, Journal{each.line});
        character->answers.erase(each.member);
    }
}

TEST_F(AgentControl, Stop_WithoutRequest_HasNoArgument)
{
    Character()->Stop(nullptr);
    EXPECT_EQ(*journal, Journal{"call Character.Stop"});
}

TEST_F(AgentControl, Stop_WithRequest_HandsTheEnginesOwnObjectBack)
{
    const TestRef request = NewRequest(4);
    character->answers[L"Play"] = Giving(request->Value());
    IDispatch* stopped = nullptr;
    character->answers[L"Stop"] = [&](const CallOfMember& call) {
        stopped = V_DISPATCH(&call.parameters->rgvarg[0]);
        return S_OK;
    };
    const auto bot = Character();
    bot->Stop(bot->Play("Wave"));
    EXPECT_EQ(stopped, request.Raw());
}

TEST_F(AgentControl, Stop_WithARequestOfSomebodyElse_FailsAsNoRequest)
{
    class COther final : public platform::IRequest {
        std::int32_t ID() const override { return 0; }
        platform::RequestStatus Status() const override { return platform::RequestStatus::Pending; }
        std::int32_t Number() const override { return 0; }
        std::string Description() const override { return ""; }
    };
    const auto bot = Character();
    EXPECT_EQ(FailureNumber([&] { bot->Stop(std::make_shared<COther>()); }), Code(0x80042102));
    EXPECT_EQ(*journal, Journal{});
}

TEST_F(AgentControl, StopAll_WithAndWithoutTypes_PassesThem)
{
    const auto bot = Character();
    bot->StopAll(std::nullopt);
    bot->StopAll("Play, Speak");
    EXPECT_EQ(*journal, (Journal{"call Character.StopAll", "call Character.StopAll BSTR Play, Speak"}));
}

TEST_F(AgentControl, Balloon_EachMember_IsAskedByItsName)
{
    balloon->answers[L"Enabled"] = Giving(true);
    balloon->answers[L"Style"] = Giving(std::int32_t{0x02200009});
    balloon->answers[L"FontName"] = Giving(std::string("Arial"));
    balloon->answers[L"FontSize"] = Giving(std::int32_t{12});
    balloon->answers[L"FontItalic"] = Giving(true);
    balloon->answers[L"CharsPerLine"] = Giving(std::int32_t{32});
    balloon->answers[L"NumberOfLines"] = Giving(std::int32_t{2});
    const auto shape = Character()->Balloon();
    journal->clear();
    EXPECT_TRUE(shape->Enabled());
    EXPECT_FALSE(shape->Visible());
    EXPECT_EQ(shape->Style(), 0x02200009);
    shape->SetStyle(Code(0x80200009));
    EXPECT_EQ(shape->FontName(), "Arial");
    shape->SetFontName("Tahoma");
    EXPECT_EQ(shape->FontSize(), 12);
    shape->SetFontSize(8);
    EXPECT_FALSE(shape->FontBold());
    EXPECT_TRUE(shape->FontItalic());
    EXPECT_EQ(shape->CharsPerLine(), 32);
    EXPECT_EQ(shape->NumberOfLines(), 2);
    EXPECT_EQ(*journal,
              (Journal{"get Balloon.Enabled", "get Balloon.Visible", "get Balloon.Style", "put Balloon.Style I4 -2145386487",
                       "get Balloon.FontName", "put Balloon.FontName BSTR Tahoma", "get Balloon.FontSize",
                       "put Balloon.FontSize I4 8", "get Balloon.FontBold", "get Balloon.FontItalic",
                       "get Balloon.CharsPerLine", "get Balloon.NumberOfLines"}));
}

TEST_F(AgentControl, Commands_EachMember_MarksOmittedArgumentsOnlyInTheMiddle)
{
    const auto list = Character()->Commands();
    journal->clear();
    list->RemoveAll();
    list->SetCaption("Parlune");
    list->Add("Stop", "&Stop", "Stop", std::nullopt, std::nullopt);
    list->Add("Stop", std::nullopt, "Stop", std::nullopt, false);
    list->Add("Stop", std::nullopt, std::nullopt, std::nullopt, std::nullopt);
    EXPECT_EQ(*journal, (Journal{"call Commands.RemoveAll", "put Commands.Caption BSTR Parlune",
                                 "call Commands.Add BSTR Stop BSTR &Stop BSTR Stop",
                                 "call Commands.Add BSTR Stop - BSTR Stop - BOOL False", "call Commands.Add BSTR Stop"}));
}

TEST_F(AgentControl, Characters_EachMember_IsCalledByItsName)
{
    const TestRef request = NewRequest(1);
    characters->answers[L"Load"] = Giving(request->Value());
    const auto list = Create()->Characters();
    journal->clear();
    list->Load("Bot", "Merlin.acs");
    list->Load("Bot", std::nullopt);
    list->Character("Bot");
    EXPECT_EQ(*journal, (Journal{"call Characters.Load BSTR Bot BSTR Merlin.acs", "call Characters.Load BSTR Bot",
                                 "call Characters.Character BSTR Bot"}));
    journal->clear();
    list->Unload("Bot");
    EXPECT_EQ(journal->front(), "call Characters.Unload BSTR Bot");
}

TEST_F(AgentControl, Control_EachMember_IsCalledByItsName)
{
    control->answers[L"Connected"] = Giving(true);
    Create()->SetConnected(true);
    EXPECT_TRUE(engine->Connected());
    engine->SetPropertySheetVisible(true);
    engine->ShowDefaultCharacterProperties();
    EXPECT_EQ(*journal, (Journal{"put Control.Connected BOOL True", "get Control.Connected", "get Control.PropertySheet",
                                 "put Sheet.Visible BOOL True", "call Control.ShowDefaultCharacterProperties"}));
}

TEST_F(AgentControl, Create_ListensBeforeAnythingIsConnected)
{
    engine = platform::windowsdesktop::CAgentFactory().Create();
    EXPECT_EQ(*journal, Journal{"advise"});
    engine.reset();
    EXPECT_EQ(*journal, (Journal{"advise", "unadvise 7"}));
}

TEST_F(AgentControl, Member_CalledTwice_IsLookedUpOnce)
{
    const auto bot = Character();
    character->nameQueries = 0;
    bot->Visible();
    bot->Visible();
    EXPECT_EQ(character->nameQueries, 1);
}

TEST_F(AgentControl, Texts_WithEveryKindOfCharacter_ArriveUnchanged)
{
    const std::string text("a\0b \xC3\xA4 \xE2\x82\xAC \xF0\x9F\x98\x80", 15);
    std::wstring heard;
    character->answers[L"Name"] = [&](const CallOfMember& call) {
        if (call.result)
            return Giving(text)(call);
        const BSTR name = V_BSTR(&call.parameters->rgvarg[0]);
        heard.assign(name, SysStringLen(name));
        return S_OK;
    };
    const auto bot = Character();
    EXPECT_EQ(bot->Name(), text);
    bot->SetName(text);
    EXPECT_EQ(heard, std::wstring(L"a\0b \u00E4 \u20AC \xD83D\xDE00", 10));
}

TEST_F(AgentControl, AnimationNames_Enumerated_KeepTheEnginesOrder)
{
    const TestRef names = New("Names");
    names->answers[L"_NewEnum"] = [](const CallOfMember& call) {
        V_VT(call.result) = VT_UNKNOWN;
        V_UNKNOWN(call.result) = new CTestEnumeration({std::string("Wave"), std::string("Greet"), std::string("Alert")});
        V_UNKNOWN(call.result)->AddRef();
        return S_OK;
    };
    character->answers[L"AnimationNames"] = Giving(names->Value());
    EXPECT_EQ(Character()->AnimationNames(), (std::vector<std::string>{"Wave", "Greet", "Alert"}));
    EXPECT_EQ(*journal, (Journal{"get Character.AnimationNames", "get-or-call Names._NewEnum"}));
}

TEST_F(AgentControl, AnimationNames_WithoutEnd_AreCutSomewhere)
{
    const TestRef names = New("Names");
    names->answers[L"_NewEnum"] = [](const CallOfMember& call) {
        auto* enumeration = new CTestEnumeration({std::string("Wave")});
        enumeration->endless = true;
        V_VT(call.result) = VT_UNKNOWN;
        V_UNKNOWN(call.result) = enumeration;
        enumeration->AddRef();
        return S_OK;
    };
    character->answers[L"AnimationNames"] = Giving(names->Value());
    EXPECT_EQ(Character()->AnimationNames().size(), 65536u);
}

TEST_F(AgentControl, NamedNumber_OfAMemberThatIsThere_GivesItsValue)
{
    character->answers[L"Volume"] = Giving(std::int32_t{32767});
    EXPECT_EQ(Character()->NamedNumber("Volume"), 32767);
    EXPECT_EQ(*journal, Journal{"get Character.Volume"});
}

TEST_F(AgentControl, NamedNumber_OfAMemberThatIsMissing_Fails438)
{
    character->missing.insert(L"Volume");
    const auto bot = Character();
    EXPECT_EQ(FailureNumber([&] { bot->NamedNumber("Volume"); }), 438);
}
