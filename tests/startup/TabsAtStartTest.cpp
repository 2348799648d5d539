#include "reading/bClipboard.h"
#include "startup/StartedProgram.h"
#include "ui/GeneralTab.h"

namespace {

using platform::Root;

// What loading the options does by way of the controls that act at once, before anybody sees the main window.
class TabsAtStart : public testing::Test, public StartedProgram {
protected:
    static constexpr char RunKey[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";
    static constexpr char BrowserKey[] = "Software\\Microsoft\\Internet Explorer\\MenuExt\\Read with Parlune";
};

}

TEST_F(TabsAtStart, FirstRun_ShowsNoBox)
{
    Start();
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST_F(TabsAtStart, EveryOptionTheOtherWayRound_ShowsNoBox)
{
    for (const char* option :
         {"SavePosOnClose", "IdleOn", "SoundEffectsOn", "ReadClipboardOnDblClick", "QueueReadCommands", "ReadGreeting",
          "MinimizeOnClose", "PlayReadAnimation", "SayTime", "SayTimeShowIfHidden", "FirstTime"})
        PutOption(option, "0");
    for (const char* option :
         {"CharSize", "StartWithWindows", "StartUpHideInTray", "ShowSplash", "MonitorClipboard", "ShowIfHidden"})
        PutOption(option, "1");
    Start();
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
    EXPECT_FALSE(MainWindow().Visible());
}

TEST_F(TabsAtStart, HiddenWindow_WaitsWithTheFocusOnTheFirstTab)
{
    PutOption("FirstTime", "0");
    PutOption("CharSize", "1");
    Start();
    EXPECT_FALSE(MainWindow().Visible());
    EXPECT_TRUE(MainWindow().chkStartWithWindows.HasFocus());
    EXPECT_TRUE(MainWindow().fraStartup.Enabled());
    EXPECT_FALSE(MainWindow().fraCharacter.Enabled());
}

TEST_F(TabsAtStart, InnerTabs_ShowTheirFirstPage)
{
    Start();
    EXPECT_TRUE(MainWindow().fraTTS.Visible());
    EXPECT_FALSE(MainWindow().fraVoiceModifiers.Visible());
    EXPECT_TRUE(MainWindow().txtGreeting[0].Visible());
    EXPECT_FALSE(MainWindow().txtGreeting[1].Visible());
}

TEST_F(TabsAtStart, Lists_AreFilledOnlyWhenTheirTabIsVisited)
{
    desktop.fonts.faceNames = {"Arial"};
    desktop.speechEngines.engines = {{"{AA}", "A"}};
    Start();
    EXPECT_EQ(MainWindow().cboFontName.Count(), 0);
    EXPECT_EQ(MainWindow().lstTTS.Count(), 0);
    MainWindow().tabMain.Select(2);
    MainWindow().tabMain.Select(3);
    EXPECT_EQ(MainWindow().cboFontName.Count(), 1);
    EXPECT_EQ(MainWindow().lstTTS.Count(), 1);
}

TEST_F(TabsAtStart, StoredCustomSize_IsGivenToTheCharacterAndOpensTheBoxes)
{
    PutOption("CharSize", "1");
    PutOption("CharWidth", "200");
    PutOption("CharHeight", "150");
    Start();
    EXPECT_EQ(desktop.engine.loaded->width, 200);
    EXPECT_EQ(desktop.engine.loaded->height, 150);
    EXPECT_TRUE(MainWindow().txtSize[0].Enabled());
    EXPECT_EQ(MainWindow().txtSize[0].Text(), "200");
}

TEST_F(TabsAtStart, PositionSaving_FollowsTheStoredChoice)
{
    PutOption("SavePosOnClose", "0");
    Start();
    EXPECT_TRUE(MainWindow().cmdSaveCurrentPos.Enabled());
}

TEST_F(TabsAtStart, StartWithWindows_WritesTheEntryAgain)
{
    PutOption("StartWithWindows", "1");
    Start();
    EXPECT_EQ(desktop.registry.Text(Root::CurrentUser, RunKey, "Parlune"), "C:\\Program Files\\Parlune\\Parlune.exe");
}

TEST_F(TabsAtStart, BrowserEntry_TicksItsBoxAndStays)
{
    desktop.registry.Put(Root::CurrentUser, BrowserKey, "", "C:\\Former\\Parlune.htm");
    Start();
    EXPECT_EQ(MainWindow().chkIEMenu.Value(), 1);
    EXPECT_EQ(desktop.registry.Text(Root::CurrentUser, BrowserKey, ""), "C:\\Program Files\\Parlune\\Parlune.htm");
}

TEST_F(TabsAtStart, MonitorOnADesktopThatCannotBeWatched_SaysNothing)
{
    desktop.clipboard.canWatch = false;
    PutOption("MonitorClipboard", "1");
    Start();
    EXPECT_TRUE(bClipboard::Monitoring());
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST_F(TabsAtStart, ShowIfHidden_FollowsTheStoredChoice)
{
    Start();
    EXPECT_TRUE(generalTab::ShowIfHidden());
}

TEST_F(TabsAtStart, SwitchedOffShowIfHidden_FollowsTheStoredChoice)
{
    PutOption("SayTimeShowIfHidden", "0");
    Start();
    EXPECT_FALSE(generalTab::ShowIfHidden());
}

TEST_F(TabsAtStart, CharacterTab_AfterTheStart_ListsTheLoadedOneOnce)
{
    PutOption("Character", "Merlin");
    Start();
    MainWindow().tabMain.Select(1);
    EXPECT_EQ(MainWindow().cboChar.Text(), "Merlin");
    EXPECT_EQ(MainWindow().cboChar.Count(), 2);
}

TEST_F(TabsAtStart, HideInTray_EveryTabAndEveryPlainControl_ShowsNoBox)
{
    PutOption("StartUpHideInTray", "1");
    desktop.speechEngines.engines = {{"{AA}", "A"}};
    Start();
    for (std::int32_t tab = 0; tab < 7; ++tab)
        MainWindow().tabMain.Select(tab);
    for (std::int32_t tab = 0; tab < 5; ++tab) {
        MainWindow().tabGreetings.Select(tab);
        MainWindow().cmdTestWelcome.Click();
    }
    MainWindow().tabTTS.Select(1);
    MainWindow().chkIdleOn.SetValue(0);
    MainWindow().chkCustomSize.SetValue(1);
    MainWindow().txtSize[0].SetText("200");
    MainWindow().txtSize[0].Commit();
    MainWindow().chkCustomSize.SetValue(0);
    MainWindow().cmdCharacterOptions.Click();
    MainWindow().cmdSetDefault.Click();
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}
