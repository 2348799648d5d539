#include "character/CharacterEvents.h"
#include "character/CharacterProperties.h"
#include "character/bParlune.h"
#include "support/CharacterProgram.h"

using character::EventReceiver;
using character::State;
using platform::RequestStatus;
using Texts = std::vector<std::string>;

namespace {

constexpr std::int16_t Left = 1, Right = 2, Middle = 4;
constexpr std::int16_t None = 0, Shift = 1, Ctrl = 2, Alt = 4;

// What the engine heard; a call of the named property fails while `failing` holds it.
struct Heard final : platform::IUserInput {
    std::string name, alt1Name, alt2Name;
    std::int32_t confidence = 100, alt1Confidence = 0, alt2Confidence = 0;
    std::string failing;

    std::string CharacterID() const override { return "Bot"; }
    std::int32_t Count() const override { return 1; }
    std::string Name() const override { return Answer("Name", name); }
    std::int32_t Confidence() const override { return Answer("Confidence", confidence); }
    std::string Voice() const override { return ""; }
    std::string Alt1Name() const override { return Answer("Alt1Name", alt1Name); }
    std::int32_t Alt1Confidence() const override { return Answer("Alt1Confidence", alt1Confidence); }
    std::string Alt1Voice() const override { return ""; }
    std::string Alt2Name() const override { return Answer("Alt2Name", alt2Name); }
    std::int32_t Alt2Confidence() const override { return Answer("Alt2Confidence", alt2Confidence); }
    std::string Alt2Voice() const override { return ""; }

private:
    template <class T> T Answer(const std::string& property, const T& value) const
    {
        if (property == failing)
            throw platform::CFailure(13, "Type mismatch");
        return value;
    }
};

}

class CharacterEvents : public CharacterProgram {
protected:
    CharacterEvents()
    {
        LoadMerlin();
        ui::CForm::Peer peer;
        peer.bringToFront = [this] { asked.push_back("front"); };
        peer.activate = [this] { asked.push_back("activate"); };
        peer.popUpMenu = [this](ui::CMenuItem& menu) { asked.push_back(menu.Name()); };
        window.SetPeer(peer);
    }
    void Click(std::int16_t button, std::int16_t shift) { EventReceiver().Click("Bot", button, shift, 10, 20); }
    void DblClick(std::int16_t button, std::int16_t shift) { EventReceiver().DblClick("Bot", button, shift, 10, 20); }
    Texts EngineCalls() const { return desktop.journal.CallsOf("Character."); }
    Texts asked;  // Of the main window.
};

// Clicks.

TEST_F(CharacterEvents, Click_LeftWithShift_StopsAndRests)
{
    Click(Left, Shift);
    EXPECT_EQ(EngineCalls(), (Texts{"Character.StopAll -", "Character.Play RestPose"}));
}

TEST_F(CharacterEvents, Click_Right_BringsTheWindowToTheFrontAndOpensTheMenu)
{
    Click(Right, None);
    EXPECT_EQ(asked, (Texts{"front", "mnuPopup"}));
}

TEST_F(CharacterEvents, Click_RightWithCtrl_DoesNothing)
{
    Click(Right, Ctrl);
    EXPECT_TRUE(asked.empty());
    EXPECT_TRUE(desktop.journal.Calls().empty());
}

TEST_F(CharacterEvents, Click_WithAnyOtherCombination_DoesNothing)
{
    Click(Left, None);
    Click(Left, Ctrl);
    Click(Left, Shift | Ctrl);
    Click(Left, Alt);
    Click(Right, Shift);
    Click(Right, Alt);
    Click(Middle, None);
    Click(Middle, Shift);
    EXPECT_TRUE(asked.empty());
    EXPECT_TRUE(desktop.journal.Calls().empty());
}

// Double clicks.

TEST_F(CharacterEvents, DblClick_LeftWithReadingOn_ReadsTheClipboard)
{
    desktop.clipboard.Put("Hello");
    DblClick(Left, None);
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"Hello"});
}

TEST_F(CharacterEvents, DblClick_LeftWithReadingOff_DoesNothing)
{
    desktop.clipboard.Put("Hello");
    window.chkReadClipBoardOnDblClick.SetValue(0);
    DblClick(Left, None);
    EXPECT_TRUE(desktop.engine.Spoken().empty());
    EXPECT_TRUE(asked.empty());
}

TEST_F(CharacterEvents, DblClick_LeftWithShift_DoesNothing)
{
    desktop.clipboard.Put("Hello");
    DblClick(Left, Shift);
    EXPECT_TRUE(desktop.engine.Spoken().empty());
    EXPECT_FALSE(window.Visible());
}

TEST_F(CharacterEvents, DblClick_LeftWithCtrl_ShowsAnInvisibleWindow)
{
    window.SetState(ui::WindowState::Minimized);
    DblClick(Left, Ctrl);
    EXPECT_EQ(window.State(), ui::WindowState::Normal);
    EXPECT_TRUE(window.Visible());
    EXPECT_EQ(asked, Texts{"activate"});
}

TEST_F(CharacterEvents, DblClick_LeftWithCtrl_HidesAVisibleWindow)
{
    window.SetVisible(true);
    DblClick(Left, Ctrl);
    EXPECT_EQ(window.State(), ui::WindowState::Minimized);
    EXPECT_FALSE(window.Visible());
}

TEST_F(CharacterEvents, DblClick_LeftWithCtrl_ChangesTheStateBeforeTheVisibility)
{
    std::vector<std::pair<ui::WindowState, bool>> seen;
    ui::CForm::Peer peer;
    peer.changed = [&] { seen.emplace_back(window.State(), window.Visible()); };
    window.SetVisible(true);
    window.SetPeer(peer);
    DblClick(Left, Ctrl);
    DblClick(Left, Ctrl);
    EXPECT_EQ(seen, (std::vector<std::pair<ui::WindowState, bool>>{{ui::WindowState::Minimized, true},
                                                                   {ui::WindowState::Minimized, false},
                                                                   {ui::WindowState::Normal, false},
                                                                   {ui::WindowState::Normal, true}}));
}

TEST_F(CharacterEvents, DblClick_LeftWithCtrlAndReadingOff_TogglesTheWindowToo)
{
    window.chkReadClipBoardOnDblClick.SetValue(0);
    DblClick(Left, Ctrl);
    EXPECT_TRUE(window.Visible());
    DblClick(Left, Ctrl);
    EXPECT_FALSE(window.Visible());
}

TEST_F(CharacterEvents, DblClick_WithAnyOtherCombination_DoesNothing)
{
    desktop.clipboard.Put("Hello");
    DblClick(Left, Shift | Ctrl);
    DblClick(Left, Alt);
    DblClick(Right, None);
    DblClick(Right, Ctrl);
    DblClick(Middle, None);
    EXPECT_TRUE(desktop.engine.Spoken().empty());
    EXPECT_FALSE(window.Visible());
}

TEST_F(CharacterEvents, DblClick_WhenTheWindowFails_ReportsAndGoesOn)
{
    window.onResize = [this] { throw failure; };
    window.SetVisible(true);
    DblClick(Left, Ctrl);
    EXPECT_EQ(Reports(), Texts{"Parlune:AgentControl_DblClick"});
    EXPECT_FALSE(window.Visible());
}

// Voice commands.

TEST_F(CharacterEvents, CharLoad_Commands_RegistersTheFourCommandsAfresh)
{
    desktop.engine.commands = {"Old|-|-|-|-"};
    character::CharLoad_Commands();
    EXPECT_EQ(desktop.engine.commands,
              (Texts{"ReadClipboard|&Read Clipboard|Read Clipboard|-|-", "ReadTextFile|&Read Text File|Read [Text] File|-|-",
                     "Stop|&Stop|Stop|-|-", "ExitParlune|E&xit Parlune|(Exit|Close) Parlune|-|-"}));
    EXPECT_EQ(desktop.engine.commandsCaption, "Parlune");
}

TEST_F(CharacterEvents, CharLoad_Commands_RemovesTheOldOnesBeforeAnythingElse)
{
    character::CharLoad_Commands();
    EXPECT_EQ(desktop.journal.CallsOf("Commands."),
              (Texts{"Commands.RemoveAll", "Commands.SetCaption Parlune", "Commands.Add ReadClipboard",
                     "Commands.Add ReadTextFile", "Commands.Add Stop", "Commands.Add ExitParlune"}));
}

class VoiceCommand : public CharacterEvents {
protected:
    VoiceCommand() { heard.name = "Stop"; }
    // Whether the command "Stop" was obeyed.
    bool Obeyed()
    {
        EventReceiver().Command(heard);
        return desktop.journal.Count("Character.StopAll") == 1;
    }
    Heard heard;
};

TEST_F(VoiceCommand, ReadClipboard_ReadsTheClipboard)
{
    desktop.clipboard.Put("Hello");
    heard.name = "ReadClipboard";
    EventReceiver().Command(heard);
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"Hello"});
}

TEST_F(VoiceCommand, ReadTextFile_AsksForAFileAndReadsIt)
{
    desktop.files.PutFile("C:\\Texts\\a.txt", "Hello");
    desktop.fileDialogs.answers = {"C:\\Texts\\a.txt"};
    heard.name = "ReadTextFile";
    EventReceiver().Command(heard);
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"Hello"});
}

TEST_F(VoiceCommand, Stop_StopsTheCharacter)
{
    EXPECT_TRUE(Obeyed());
    EXPECT_EQ(EngineCalls(), Texts{"Character.StopAll -"});
}

TEST_F(VoiceCommand, ExitParlune_UnloadsTheMainWindowFromCode)
{
    std::vector<ui::UnloadMode> modes;
    window.onQueryUnload = [&](ui::UnloadMode mode) {
        modes.push_back(mode);
        return true;
    };
    window.Load();
    heard.name = "ExitParlune";
    EventReceiver().Command(heard);
    EXPECT_EQ(modes, std::vector<ui::UnloadMode>{ui::UnloadMode::Code});
    EXPECT_FALSE(window.Loaded());
}

TEST_F(VoiceCommand, OfAnyOtherName_DoesNothing)
{
    for (const char* name : {"", "stop", "Stop ", "Dance"}) {
        heard.name = name;
        EventReceiver().Command(heard);
    }
    EXPECT_TRUE(desktop.journal.Calls().empty());
}

TEST_F(VoiceCommand, WithConfidenceOfMinus40_IsRejected)
{
    heard.confidence = -40;
    EXPECT_FALSE(Obeyed());
}

TEST_F(VoiceCommand, WithConfidenceOfMinus39_IsObeyed)
{
    heard.confidence = -39;
    EXPECT_TRUE(Obeyed());
}

TEST_F(VoiceCommand, WithAFirstRivalNineAway_IsRejected)
{
    heard.confidence = 50;
    heard.alt1Name = "ReadClipboard";
    heard.alt1Confidence = 41;
    EXPECT_FALSE(Obeyed());
}

TEST_F(VoiceCommand, WithAFirstRivalTenAway_IsObeyed)
{
    heard.confidence = 50;
    heard.alt1Name = "ReadClipboard";
    heard.alt1Confidence = 40;
    EXPECT_TRUE(Obeyed());
}

TEST_F(VoiceCommand, WithARivalOfOppositeSign_ComparesTheSizes)
{
    heard.confidence = -30;
    heard.alt1Name = "ReadClipboard";
    heard.alt1Confidence = 35;
    EXPECT_FALSE(Obeyed());
}

TEST_F(VoiceCommand, WithARivalOfNegativeConfidence_ComparesItsSize)
{
    heard.confidence = 50;
    heard.alt1Name = "ReadClipboard";
    heard.alt1Confidence = -45;
    EXPECT_FALSE(Obeyed());
}

TEST_F(VoiceCommand, WithAFirstAlternativeOfTheSameName_IsNeverAmbiguous)
{
    heard.confidence = 50;
    heard.alt1Name = "Stop";
    heard.alt1Confidence = 50;
    EXPECT_TRUE(Obeyed());
}

TEST_F(VoiceCommand, WithoutAlternatives_IsNeverAmbiguous)
{
    heard.confidence = 5;
    heard.alt1Confidence = 0;
    EXPECT_TRUE(Obeyed());
}

TEST_F(VoiceCommand, WithADistantSecondRivalAndACloseFirstConfidence_IsRejected)
{
    heard.confidence = 50;
    heard.alt1Name = "Stop";
    heard.alt1Confidence = 45;
    heard.alt2Name = "ReadClipboard";
    heard.alt2Confidence = -90;
    EXPECT_FALSE(Obeyed());
}

TEST_F(VoiceCommand, WithACloseSecondRivalAndADistantFirstConfidence_IsObeyed)
{
    heard.confidence = 50;
    heard.alt1Name = "Stop";
    heard.alt1Confidence = 10;
    heard.alt2Name = "ReadClipboard";
    heard.alt2Confidence = 50;
    EXPECT_TRUE(Obeyed());
}

TEST_F(VoiceCommand, WithASecondAlternativeOfTheSameName_IsObeyed)
{
    heard.confidence = 50;
    heard.alt1Name = "Stop";
    heard.alt1Confidence = 50;
    heard.alt2Name = "Stop";
    EXPECT_TRUE(Obeyed());
}

TEST_F(VoiceCommand, WithTheLeastConfidences_DoesNotOverflow)
{
    heard.confidence = 100;
    heard.alt1Name = "ReadClipboard";
    heard.alt1Confidence = std::numeric_limits<std::int32_t>::min();
    EXPECT_TRUE(Obeyed());
}

class FailingVoiceCommand : public VoiceCommand, public testing::WithParamInterface<const char*> {};

TEST_P(FailingVoiceCommand, WhenAPropertyFails_IsReportedAndNotObeyed)
{
    heard.alt1Name = "ReadClipboard";
    heard.failing = GetParam();
    EXPECT_FALSE(Obeyed());
    EXPECT_EQ(Reports(), Texts{"Parlune:AgentControl_Command"});
}

INSTANTIATE_TEST_SUITE_P(Properties, FailingVoiceCommand,
                         testing::Values("Name", "Confidence", "Alt1Name", "Alt1Confidence", "Alt2Name"));

// Show, hide, and the default character.

TEST_F(CharacterEvents, Show_SetsTheMenusToAShownCharacter)
{
    window.mnuPopHide.SetCaption("&Show");
    EventReceiver().Show("Bot", 2);
    EXPECT_EQ(window.mnuPopHide.Caption(), "&Hide");
    EXPECT_TRUE(window.mnuPopCharStop.Visible());
}

TEST_F(CharacterEvents, Hide_SetsTheMenusToAHiddenCharacter)
{
    EventReceiver().Hide("Bot", 1);
    EXPECT_EQ(window.mnuPopHide.Caption(), "&Show");
    EXPECT_FALSE(window.mnuPopCharStop.Visible());
}

TEST_F(CharacterEvents, DefaultCharacterChange_IsTreatedLikeAHide)
{
    EventReceiver().DefaultCharacterChange("{00}");
    EXPECT_EQ(window.mnuPopHide.Caption(), "&Show");
    EXPECT_TRUE(desktop.journal.Calls().empty());
}

// Completed requests.

class RequestComplete : public CharacterEvents {
protected:
    RequestComplete()
    {
        character::SaveCharProperties();
        desktop.engine.loaded->width = 64;
        bParlune::CharSpeak("Test", "", /*isTest*/ true);
        test = desktop.engine.requests.size() - 1;
    }
    bool Restored() const { return desktop.engine.loaded->width == 128; }
    std::size_t test;
};

TEST_F(RequestComplete, OfTheTest_RestoresTheCharacter)
{
    desktop.engine.Complete(test);
    EXPECT_TRUE(Restored());
}

TEST_F(RequestComplete, OfAnInterruptedTest_DoesNothing)
{
    desktop.engine.Complete(test, RequestStatus::Interrupted);
    EXPECT_FALSE(Restored());
}

TEST_F(RequestComplete, OfAFailedTest_DoesNothing)
{
    desktop.engine.Complete(test, RequestStatus::Failed);
    EXPECT_FALSE(Restored());
}

TEST_F(RequestComplete, OfOrdinarySpeech_DoesNothing)
{
    bParlune::CharSpeak("Hello");
    desktop.engine.Complete(desktop.engine.requests.size() - 1);
    EXPECT_FALSE(Restored());
}

TEST_F(RequestComplete, OfAnEarlierTest_DoesNothing)
{
    bParlune::CharSpeak("Again", "", /*isTest*/ true);
    desktop.engine.Complete(test);
    EXPECT_FALSE(Restored());
}

TEST_F(RequestComplete, WithoutAnyTest_IsSilent)
{
    State().testRequest = nullptr;
    desktop.engine.Complete(test);
    EXPECT_FALSE(Restored());
    EXPECT_TRUE(Reports().empty());
}

TEST_F(RequestComplete, OfNoRequest_IsSilent)
{
    EventReceiver().RequestComplete(nullptr);
    EXPECT_FALSE(Restored());
    EXPECT_TRUE(Reports().empty());
}

TEST_F(RequestComplete, OfARequestThatNoLongerAnswers_IsSilent)
{
    struct Gone final : platform::IRequest {
        std::int32_t ID() const override { throw platform::CFailure(91, "Object variable or With block variable not set"); }
        RequestStatus Status() const override { return RequestStatus::Completed; }
        std::int32_t Number() const override { return 0; }
        std::string Description() const override { return ""; }
    };
    EventReceiver().RequestComplete(std::make_shared<Gone>());
    EXPECT_FALSE(Restored());
    EXPECT_TRUE(Reports().empty());
}
