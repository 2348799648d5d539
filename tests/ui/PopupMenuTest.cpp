#include "ui/PopupMenu.h"
#include "character/bParlune.h"
#include "common/zbErrorTrap.h"
#include "support/CharacterProgram.h"
#include "support/FailEachCall.h"
#include "support/LoadedCharacter.h"

using namespace popupMenu;
using character::State;
using Texts = std::vector<std::string>;

class PopupMenu : public CharacterProgram {
protected:
    Texts EngineCalls() const { return desktop.journal.CallsOf("Character"); }
    std::optional<std::string> StoredOption(const std::string& name) const
    {
        return desktop.registry.Text(platform::Root::CurrentUser, "Software\\Tarrowind\\Parlune", name);
    }
};

// Reading.

TEST_F(PopupMenu, ReadClipboard_ReadsTheClipboard)
{
    LoadMerlin();
    desktop.clipboard.Put("Hello");
    mnuPopReadClipboard_Click();
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"Hello"});
}

TEST_F(PopupMenu, ReadTextFile_AsksForTheFile)
{
    LoadMerlin();
    desktop.files.PutFile("C:\\Texts\\a.txt", "Hello");
    desktop.fileDialogs.answers = {"C:\\Texts\\a.txt"};
    mnuPopReadTextFile_Click();
    EXPECT_EQ(desktop.fileDialogs.asked.size(), 1U);
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"Hello"});
}

TEST_F(PopupMenu, ReadWordDocument_ReadsTheDocument)
{
    LoadMerlin();
    desktop.office.word = {{"The document", "The selection"}};
    mnuPopReadWordDocument_Click();
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"The document"});
}

TEST_F(PopupMenu, ReadWordDocument_OfAnEmptyDocument_DoesNothing)
{
    LoadMerlin();
    desktop.office.word = {{"", ""}};
    mnuPopReadWordDocument_Click();
    EXPECT_EQ(EngineCalls(), Texts{});
}

TEST_F(PopupMenu, ReadWordSelection_ReadsTheSelection)
{
    LoadMerlin();
    desktop.office.word = {{"The document", "The selection"}};
    mnuPopReadWordSelection_Click();
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"The selection"});
}

TEST_F(PopupMenu, ReadWordSelection_WithNothingSelected_DoesNothing)
{
    LoadMerlin();
    desktop.office.word = {{"The document", "T"}};
    mnuPopReadWordSelection_Click();
    EXPECT_EQ(EngineCalls(), Texts{});
}

TEST_F(PopupMenu, ReadWord_WhenWordDoesNotRun_SaysSo)
{
    LoadMerlin();
    mnuPopReadWordDocument_Click();
    mnuPopReadWordSelection_Click();
    EXPECT_EQ(desktop.engine.Spoken(),
              (Texts{"Microsoft Word is not currently open.", "Microsoft Word is not currently open."}));
}

TEST_F(PopupMenu, ReadExcelSelection_ReadsTheCells)
{
    LoadMerlin();
    desktop.office.excel = {true, {{"12"}}};
    mnuPopReadExcelSelection_Click();
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"12"});
}

TEST_F(PopupMenu, ReadExcelSelection_OfAnEmptyCell_StillPlaysTheReading)
{
    LoadMerlin();
    desktop.office.excel = {true, {{""}}};
    mnuPopReadExcelSelection_Click();
    EXPECT_EQ(EngineCalls(), (Texts{"Character.Play Read", "Character.Play ReadReturn"}));
}

TEST_F(PopupMenu, ReadTextFile_OfTwentyParagraphsWithoutACharacter_IsReportedOnce)
{
    std::string text;
    for (int paragraph = 0; paragraph < 20; ++paragraph)
        text += "A line that is long enough to be read on its own.\r\n\r\n";
    desktop.files.PutFile("C:\\Texts\\a.txt", text);
    desktop.fileDialogs.answers = {"C:\\Texts\\a.txt"};
    window.mnuPopReadTextFile.onClick = mnuPopReadTextFile_Click;
    window.mnuPopReadTextFile.Click();
    EXPECT_EQ(Reports(), Texts{"bParlune:CharSpeak"});
    EXPECT_EQ(zbErrorTrap::UnshownReports(), 19U);
}

TEST_F(PopupMenu, ReadOther_WithoutACharacter_IsReportedByTheSpeechOnly)
{
    mnuPopReadWordDocument_Click();
    EXPECT_EQ(Reports(), Texts{"bParlune:CharSpeak"});
}

// Check marks.

TEST_F(PopupMenu, SayTime_Unmarked_MarksItselfAndTicksTheBox)
{
    window.chkSayTime.SetValue(0);
    mnuPopSayTime_Click();
    EXPECT_TRUE(window.mnuPopSayTime.Checked());
    EXPECT_EQ(window.chkSayTime.Value(), 1);
    EXPECT_TRUE(window.tmrTimer.Enabled());
}

TEST_F(PopupMenu, SayTime_Marked_UnmarksItselfAndClearsTheBox)
{
    window.mnuPopSayTime.SetChecked(true);
    window.tmrTimer.SetEnabled(true);
    mnuPopSayTime_Click();
    EXPECT_FALSE(window.mnuPopSayTime.Checked());
    EXPECT_EQ(window.chkSayTime.Value(), 0);
    EXPECT_FALSE(window.tmrTimer.Enabled());
}

TEST_F(PopupMenu, SayTime_RunsTheBoxesClickProcedureBeforeTheTimerIsReevaluated)
{
    Texts order;
    window.chkSayTime.SetValue(0);
    window.chkSayTime.onClick = [&] { order.push_back("box"); };
    window.tmrTimer.SetPeer([&] { order.push_back("timer"); });
    mnuPopSayTime_Click();
    EXPECT_EQ(order, (Texts{"box", "timer"}));
}

TEST_F(PopupMenu, SayTime_WhenTheBoxSaysOtherwise_FollowsItsOwnMark)
{
    window.mnuPopSayTime.SetChecked(false);
    window.chkSayTime.SetValue(1);
    mnuPopSayTime_Click();
    EXPECT_TRUE(window.mnuPopSayTime.Checked());
    EXPECT_EQ(window.chkSayTime.Value(), 1);
}

TEST_F(PopupMenu, SayTime_WhenTheBoxIsClicked_KeepsItsMark)
{
    window.mnuPopSayTime.SetChecked(true);
    window.chkSayTime.SetValue(0);
    EXPECT_TRUE(window.mnuPopSayTime.Checked());
}

TEST_F(PopupMenu, SayTime_WhenTheBoxesProcedureFails_IsReportedAndTheTimerIsReevaluated)
{
    window.chkSayTime.SetValue(0);
    window.chkSayTime.onClick = [this] { throw failure; };
    mnuPopSayTime_Click();
    EXPECT_EQ(Reports(), Texts{"Parlune:mnuPopSayTime_Click"});
    EXPECT_TRUE(window.tmrTimer.Enabled());
}

TEST_F(PopupMenu, AutoReadClipboard_MarksItselfAndTicksTheBox)
{
    int clicks = 0;
    window.chkMonitorClipboard.onClick = [&] { ++clicks; };
    mnuPopAutoReadClipboard_Click();
    EXPECT_TRUE(window.mnuPopAutoReadClipboard.Checked());
    EXPECT_EQ(window.chkMonitorClipboard.Value(), 1);
    EXPECT_EQ(clicks, 1);
}

TEST_F(PopupMenu, AutoReadClipboard_ASecondTime_ClearsTheBox)
{
    mnuPopAutoReadClipboard_Click();
    mnuPopAutoReadClipboard_Click();
    EXPECT_FALSE(window.mnuPopAutoReadClipboard.Checked());
    EXPECT_EQ(window.chkMonitorClipboard.Value(), 0);
}

TEST_F(PopupMenu, AutoReadClipboard_ReevaluatesTheTimerToo)
{
    window.chkSayTime.SetValue(1);
    mnuPopAutoReadClipboard_Click();
    EXPECT_TRUE(window.tmrTimer.Enabled());
}

TEST_F(PopupMenu, CheckMarks_StoreTheirOptionAtOnce)
{
    window.chkSayTime.SetValue(0);
    mnuPopSayTime_Click();
    mnuPopAutoReadClipboard_Click();
    EXPECT_EQ(StoredOption("SayTime"), "1");
    EXPECT_EQ(StoredOption("MonitorClipboard"), "1");
    mnuPopSayTime_Click();
    mnuPopAutoReadClipboard_Click();
    EXPECT_EQ(StoredOption("SayTime"), "0");
    EXPECT_EQ(StoredOption("MonitorClipboard"), "0");
}

TEST_F(PopupMenu, CheckMarks_AfterAReset_StoreNothing)
{
    settings::Options().Reset = true;
    mnuPopSayTime_Click();
    mnuPopAutoReadClipboard_Click();
    EXPECT_EQ(StoredOption("SayTime"), std::nullopt);
    EXPECT_EQ(StoredOption("MonitorClipboard"), std::nullopt);
}

TEST_F(PopupMenu, CheckMarks_WhenStoringFails_AreReportedAndTheTimerIsReevaluated)
{
    window.chkSayTime.SetValue(0);
    desktop.journal.FailNext("Registry.Create", failure);
    mnuPopSayTime_Click();
    EXPECT_EQ(Reports(), Texts{"bRegistry:SetReg"});
    EXPECT_TRUE(window.tmrTimer.Enabled());
}

// Hide and show.

TEST_F(PopupMenu, Hide_OfACharacterOfOurOwn_UnloadsIt)
{
    LoadMerlin();
    mnuPopHide_Click();
    EXPECT_EQ(window.mnuPopHide.Caption(), "&Show");
    EXPECT_FALSE(State().loaded);
    EXPECT_FALSE(window.mnuPopCharStop.Visible());
    EXPECT_EQ(desktop.journal.Count("Characters.Unload Bot"), 1U);
}

TEST_F(PopupMenu, Hide_WaitsUntilTheCharacterHasHidden)
{
    LoadMerlin();
    desktop.events.After(2000, [this] { desktop.engine.Complete(desktop.engine.requests.size() - 1); });
    mnuPopHide_Click();
    EXPECT_EQ(LastRequest().what, "Character.Hide -");
    EXPECT_EQ(desktop.clock.SteadyMilliseconds(), 2000);
}

TEST_F(PopupMenu, Hide_OfASharedCharacter_OnlyHidesIt)
{
    LoadMerlin();
    desktop.engine.loaded->hasOtherClients = true;
    mnuPopHide_Click();
    EXPECT_EQ(EngineCalls(), (Texts{"Character.HasOtherClients", "Character.StopAll -", "Character.Hide -"}));
    EXPECT_TRUE(State().loaded);
    EXPECT_EQ(window.mnuPopHide.Caption(), "&Show");
    EXPECT_FALSE(window.mnuPopCharStop.Visible());
}

TEST_F(PopupMenu, Show_WithoutACharacter_LoadsAndShowsTheConfiguredOne)
{
    settings::Options().Character = "Merlin";
    window.mnuPopHide.SetCaption("&Show");
    window.mnuPopCharStop.SetVisible(false);
    mnuPopHide_Click();
    EXPECT_EQ(desktop.journal.Count("Characters.Load Bot Merlin.acs"), 1U);
    EXPECT_TRUE(desktop.engine.loaded->visible);
    EXPECT_EQ(window.mnuPopHide.Caption(), "&Hide");
    EXPECT_TRUE(window.mnuPopCharStop.Visible());
}

TEST_F(PopupMenu, Show_OfAHiddenCharacter_OnlyShowsIt)
{
    LoadMerlin();
    window.mnuPopHide.SetCaption("&Show");
    mnuPopHide_Click();
    EXPECT_EQ(EngineCalls(), Texts{"Character.Show -"});
}

TEST_F(PopupMenu, Show_WithAnyOtherCaptionThanHide_Shows)
{
    LoadMerlin();
    window.mnuPopHide.SetCaption("&hide");
    mnuPopHide_Click();
    EXPECT_EQ(EngineCalls(), Texts{"Character.Show -"});
    EXPECT_EQ(window.mnuPopHide.Caption(), "&Hide");
}

TEST_F(PopupMenu, HideAndShow_ByTurns_LoadTheCharacterAgain)
{
    LoadMerlin();
    mnuPopHide_Click();
    mnuPopHide_Click();
    EXPECT_TRUE(State().loaded);
    EXPECT_TRUE(desktop.engine.loaded->visible);
    EXPECT_EQ(window.mnuPopHide.Caption(), "&Hide");
}

TEST_F(PopupMenu, Show_WhenNoCharacterCanBeLoaded_IsSilent)
{
    desktop.journal.FailAlways("Characters.Load", failure);
    window.mnuPopHide.SetCaption("&Show");
    mnuPopHide_Click();
    EXPECT_EQ(Reports(), Texts{});
    EXPECT_FALSE(State().loaded);
    EXPECT_EQ(window.mnuPopHide.Caption(), "&Hide");
}

TEST_F(PopupMenu, Hide_WhenACallFails_IsReportedWhereItHappensAndTheMenuFollows)
{
    support::FailEachCall([](CHeadlessDesktop& each) { support::LoadCharacter(each, "Merlin"); },
                          [](CHeadlessDesktop&) { mnuPopHide_Click(); },
                          [](const support::FailedRun& run) {
                              support::ExpectReport(run, {{"Character.HasOtherClients", "Parlune:mnuPopHide_Click"},
                                                          {"", "bParlune:CharUnload"}});
                              EXPECT_EQ(MainWindow().mnuPopHide.Caption(), "&Show");
                              EXPECT_FALSE(MainWindow().mnuPopCharStop.Visible());
                          });
}

TEST_F(PopupMenu, Hide_WithoutACharacter_OnlyChangesTheMenu)
{
    mnuPopHide_Click();
    EXPECT_EQ(Reports(), Texts{});
    EXPECT_EQ(window.mnuPopHide.Caption(), "&Show");
    EXPECT_FALSE(window.mnuPopCharStop.Visible());
}

TEST_F(PopupMenu, Hide_WhenTheEngineDoesNotTellOfOtherPrograms_Unloads)
{
    LoadMerlin();
    desktop.engine.loaded->hasOtherClients = true;
    desktop.journal.FailNext("Character.HasOtherClients", failure);
    mnuPopHide_Click();
    EXPECT_FALSE(State().loaded);
}

// Showing tries a second time, so that one failure of the engine is never told.
TEST_F(PopupMenu, Show_WhenACallFails_IsSilentAndTheMenuFollows)
{
    support::FailEachCall(
        [](CHeadlessDesktop& each) {
            support::LoadCharacter(each, "Merlin");
            MainWindow().mnuPopHide.SetCaption("&Show");
            MainWindow().mnuPopCharStop.SetVisible(false);
        },
        [](CHeadlessDesktop&) { mnuPopHide_Click(); },
        [](const support::FailedRun& run) {
            EXPECT_EQ(run.Reports(), Texts{});
            EXPECT_EQ(MainWindow().mnuPopHide.Caption(), "&Hide");
            EXPECT_TRUE(MainWindow().mnuPopCharStop.Visible());
        });
}

// Skip, pause and stop.

TEST_F(PopupMenu, Skip_EndsTheSkipTargetOnly)
{
    LoadMerlin();
    bParlune::CharSpeak("One");
    bParlune::CharSpeak("Two");
    desktop.journal.Clear();
    State().skipTarget = desktop.engine.requests[desktop.engine.requests.size() - 2];
    const std::string target = std::to_string(State().skipTarget->ID());
    mnuPopCharSkip_Click();
    EXPECT_EQ(EngineCalls(), Texts{"Character.Stop " + target});
}

TEST_F(PopupMenu, Skip_BeforeAnythingWasSpoken_DoesNothing)
{
    LoadMerlin();
    mnuPopCharSkip_Click();
    EXPECT_EQ(EngineCalls(), Texts{});
    EXPECT_EQ(Reports(), Texts{});
}

TEST_F(PopupMenu, Skip_WithoutACharacter_IsSilent)
{
    State().skipTarget = std::make_shared<platform::headless::CRequest>(1, "Character.Speak");
    mnuPopCharSkip_Click();
    EXPECT_EQ(Reports(), Texts{});
}

TEST_F(PopupMenu, Skip_WhenTheEngineRefuses_IsSilent)
{
    LoadMerlin();
    bParlune::CharSpeak("One");
    desktop.journal.FailNext("Character.Stop", failure);
    mnuPopCharSkip_Click();
    EXPECT_EQ(Reports(), Texts{});
    EXPECT_EQ(desktop.journal.Count("Character.Stop"), 1U);
}

TEST_F(PopupMenu, Pause_StopsEverythingAndKeepsItsCaption)
{
    LoadMerlin();
    mnuPopCharPause_Click();
    EXPECT_EQ(EngineCalls(), Texts{"Character.StopAll -"});
    EXPECT_EQ(window.mnuPopCharPause.Caption(), "&Pause");
}

TEST_F(PopupMenu, Pause_MakesTheSpeechRequestTheSkipTarget)
{
    LoadMerlin();
    bParlune::CharSpeak("One");
    const platform::RequestRef target = State().skipTarget;
    bParlune::CharSpeak("", "one.wav");  // A sound alone is a speech request, but no skip target.
    ASSERT_NE(State().speechRequest, target);
    mnuPopCharPause_Click();
    EXPECT_EQ(State().speechRequest, target);
    EXPECT_EQ(State().skipTarget, target);
}

TEST_F(PopupMenu, Pause_ASecondTime_StopsAgainAndResumesNothing)
{
    LoadMerlin();
    bParlune::CharSpeak("One");
    desktop.journal.Clear();
    mnuPopCharPause_Click();
    mnuPopCharPause_Click();
    EXPECT_EQ(EngineCalls(), (Texts{"Character.StopAll -", "Character.StopAll -"}));
}

TEST_F(PopupMenu, Pause_WithAnotherCaption_DoesTheSame)
{
    LoadMerlin();
    bParlune::CharSpeak("One");
    const platform::RequestRef target = State().skipTarget;
    bParlune::CharSpeak("", "one.wav");
    desktop.journal.Clear();
    window.mnuPopCharPause.SetCaption("&Resume");
    mnuPopCharPause_Click();
    EXPECT_EQ(State().speechRequest, target);
    EXPECT_EQ(EngineCalls(), Texts{"Character.StopAll -"});
    EXPECT_EQ(window.mnuPopCharPause.Caption(), "&Resume");
}

TEST_F(PopupMenu, Pause_WithoutACharacter_LeavesTheFailureToItsCaller)
{
    EXPECT_THROW(mnuPopCharPause_Click(), platform::CFailure);
}

TEST_F(PopupMenu, Stop_StopsEverythingAndRests)
{
    LoadMerlin();
    mnuPopCharStop_Click();
    EXPECT_EQ(EngineCalls(), (Texts{"Character.StopAll -", "Character.Play RestPose"}));
}

TEST_F(PopupMenu, Stop_WhenTheEngineRefuses_IsSilentAndStillRests)
{
    LoadMerlin();
    desktop.journal.FailNext("Character.StopAll", failure);
    mnuPopCharStop_Click();
    EXPECT_EQ(Reports(), Texts{});
    EXPECT_EQ(EngineCalls().back(), "Character.Play RestPose");
}
