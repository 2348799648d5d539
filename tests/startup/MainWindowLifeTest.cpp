#include "startup/MainWindowLife.h"
#include "character/CharacterState.h"
#include "reading/bClipboard.h"
#include "settings/OptionsRecord.h"
#include "settings/bOptions.h"
#include "startup/StartedProgram.h"

namespace {

using platform::CFailure;
using ui::UnloadMode;
using ui::WindowState;

class MainWindowLife : public testing::Test, public StartedProgram {};

TEST_F(MainWindowLife, FormLoad_FirstRun_ShowsTheMainWindow)
{
    Start();
    EXPECT_TRUE(MainWindow().Visible());
    EXPECT_EQ(MainWindow().State(), WindowState::Normal);
}

TEST_F(MainWindowLife, FormLoad_LaterRun_StartsMinimizedAndInvisible)
{
    PutOption("FirstTime", "0");
    Start();
    EXPECT_FALSE(MainWindow().Visible());
    EXPECT_EQ(MainWindow().State(), WindowState::Minimized);
}

TEST_F(MainWindowLife, FormLoad_Always_ShowsTheFirstTab)
{
    MainWindow().tabMain.Select(3);
    Start();
    EXPECT_EQ(MainWindow().tabMain.Selected(), 0);
}

TEST_F(MainWindowLife, FormLoad_Always_UnloadsTheSplashAndAddsTheTrayIcon)
{
    Start();
    EXPECT_FALSE(SplashWindow().Loaded());
    EXPECT_EQ(desktop.trayIcon.tip, "Parlune");
    EXPECT_TRUE(TrayWindow().Loaded());
}

TEST_F(MainWindowLife, FormLoad_Normally_LoadsShowsAndGreets)
{
    PutOption("Character", "Merlin");
    PutOption("Greeting3", "Hello there");
    desktop.random.fractions = {0.0, 0.5};
    Start();
    EXPECT_EQ(desktop.journal.Count("Characters.Load Bot Merlin.acs"), 1U);
    EXPECT_EQ(desktop.journal.Count("Character.Show -"), 1U);
    ASSERT_EQ(desktop.engine.Spoken().size(), 1U);
    EXPECT_EQ(desktop.engine.Spoken()[0], "Hello there");
}

TEST_F(MainWindowLife, FormLoad_GreetingSwitchedOff_LoadsSilently)
{
    PutOption("Greeting1", "Hello there");
    PutOption("ReadGreeting", "0");
    Start();
    EXPECT_TRUE(character::State().loaded);
    EXPECT_TRUE(desktop.engine.Spoken().empty());
}

TEST_F(MainWindowLife, FormLoad_HideInTray_LoadsNoCharacterAndOffersToShowIt)
{
    PutOption("StartUpHideInTray", "1");
    PutOption("Greeting1", "Hello there");
    Start();
    EXPECT_EQ(desktop.journal.Count("Characters.Load"), 0U);
    EXPECT_FALSE(character::State().loaded);
    EXPECT_EQ(MainWindow().mnuPopHide.Caption(), "&Show");
    EXPECT_FALSE(MainWindow().mnuPopReadClipboard.Visible());
}

TEST_F(MainWindowLife, FormLoad_CharacterRefused_GoesOnWithoutGreeting)
{
    PutOption("Greeting1", "Hello there");
    desktop.journal.FailAlways("Characters.Load", CFailure(platform::engineError::NoStandardCharacter, "none"));
    Start();
    EXPECT_TRUE(desktop.engine.Spoken().empty());
    EXPECT_TRUE(MainWindow().Visible());
}

TEST_F(MainWindowLife, FormLoad_MonitorSwitchedOn_WatchesTheClipboard)
{
    PutOption("MonitorClipboard", "1");
    Start();
    EXPECT_TRUE(bClipboard::Monitoring());
    EXPECT_TRUE(desktop.clipboard.Watched());
}

TEST_F(MainWindowLife, FormLoad_MonitorSwitchedOff_DoesNotWatchTheClipboard)
{
    Start();
    EXPECT_FALSE(desktop.clipboard.Watched());
}

TEST_F(MainWindowLife, FormLoad_SayTimeOn_RunsTheTimer)
{
    Start();
    EXPECT_TRUE(MainWindow().tmrTimer.Enabled());
}

TEST_F(MainWindowLife, FormLoad_SayTimeOff_LeavesTheTimerOff)
{
    PutOption("SayTime", "0");
    Start();
    EXPECT_FALSE(MainWindow().tmrTimer.Enabled());
}

TEST_F(MainWindowLife, FormLoad_AStepFails_IsReportedAndTheNextOneRuns)
{
    desktop.journal.FailNext("TrayIcon.Add", CFailure(5, "Invalid procedure call or argument"));
    Start();
    ASSERT_EQ(desktop.messageBoxes.shown.size(), 1U);
    EXPECT_EQ(desktop.messageBoxes.Last().Line(1), "Section: Parlune:Parlune Startup");
    EXPECT_TRUE(character::State().loaded);
    EXPECT_TRUE(MainWindow().Visible());
}

TEST_F(MainWindowLife, FormLoad_EventsAtEveryYield_DoNotDisturbStartUp)
{
    desktop.clipboard.Put("copied before the start was over");
    desktop.events.onYield = [&] {
        if (desktop.engine.events != nullptr)
            desktop.engine.events->DblClick("Bot", 1, 0, 10, 10);
    };
    Start();
    EXPECT_TRUE(MainWindow().Loaded());
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST_F(MainWindowLife, FormResize_Minimized_MakesTheWindowInvisible)
{
    Start();
    MainWindow().SetState(WindowState::Minimized);
    EXPECT_FALSE(MainWindow().Visible());
}

TEST_F(MainWindowLife, FormResize_Normal_MakesTheWindowVisible)
{
    PutOption("FirstTime", "0");
    Start();
    MainWindow().SetState(WindowState::Normal);
    EXPECT_TRUE(MainWindow().Visible());
}

TEST_F(MainWindowLife, FormResize_Maximized_ChangesNothing)
{
    PutOption("FirstTime", "0");
    Start();
    MainWindow().SetState(WindowState::Maximized);
    EXPECT_FALSE(MainWindow().Visible());
}

TEST_F(MainWindowLife, FormQueryUnload_CloseBoxWithMinimizeOnClose_OnlyMinimizes)
{
    Start();
    EXPECT_FALSE(MainWindow().Unload(UnloadMode::ControlMenu));
    EXPECT_TRUE(MainWindow().Loaded());
    EXPECT_FALSE(MainWindow().Visible());
    EXPECT_EQ(Option("FirstTime"), std::nullopt);
    EXPECT_EQ(desktop.trayIcon.tip, "Parlune");
}

TEST_F(MainWindowLife, FormQueryUnload_OnlyMinimized_GoesOnWatchingTheClipboard)
{
    PutOption("MonitorClipboard", "1");
    Start();
    MainWindow().Unload(UnloadMode::ControlMenu);
    desktop.clipboard.Put("Copied while in the tray");
    EXPECT_TRUE(bClipboard::Monitoring());
    EXPECT_EQ(desktop.engine.Spoken().back(), "Copied while in the tray");
}

TEST_F(MainWindowLife, FormQueryUnload_CloseBoxWithoutMinimizeOnClose_Closes)
{
    PutOption("MinimizeOnClose", "0");
    Start();
    EXPECT_TRUE(MainWindow().Unload(UnloadMode::ControlMenu));
    EXPECT_FALSE(MainWindow().Loaded());
    EXPECT_EQ(Option("FirstTime"), "0");
}

TEST_F(MainWindowLife, FormQueryUnload_EndOfTheDesktopSession_ClosesInSpiteOfMinimizeOnClose)
{
    Start();
    EXPECT_TRUE(MainWindow().Unload(UnloadMode::Session));
    EXPECT_EQ(Option("FirstTime"), "0");
}

TEST_F(MainWindowLife, FormQueryUnload_CloseMessageOfAnotherProgram_ClosesInSpiteOfMinimizeOnClose)
{
    Start();
    EXPECT_TRUE(MainWindow().Unload(UnloadMode::OtherProgram));
    EXPECT_FALSE(MainWindow().Loaded());
    EXPECT_EQ(Option("FirstTime"), "0");
}

TEST_F(MainWindowLife, FormQueryUnload_WhileMonitoring_StopsWatchingTheClipboard)
{
    PutOption("MonitorClipboard", "1");
    Start();
    MainWindow().Unload();
    EXPECT_FALSE(desktop.clipboard.Watched());
    EXPECT_FALSE(bClipboard::Monitoring());
}

TEST_F(MainWindowLife, FormQueryUnload_OtherWindowsOpen_UnloadsThem)
{
    Start();
    MainWindow().Unload();
    EXPECT_FALSE(TrayWindow().Loaded());
    EXPECT_FALSE(SplashWindow().Loaded());
}

TEST_F(MainWindowLife, FormQueryUnload_ModifiedFile_IsSavedWithoutAQuestion)
{
    desktop.files.PutFile("C:\\Texts\\a.txt", "Hello");
    Start();
    bOptions::OpenFile("C:\\Texts\\a.txt");
    MainWindow().txtRead.SetText("Hello World");
    MainWindow().Unload();
    EXPECT_EQ(desktop.files.Content("C:\\Texts\\a.txt"), "Hello World\r\n");
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
    EXPECT_TRUE(desktop.fileDialogs.asked.empty());
}

TEST_F(MainWindowLife, FormQueryUnload_ModifiedTextWithoutAFile_AsksForOneAndThenCloses)
{
    Start();
    MainWindow().txtRead.SetText("Hello");
    MainWindow().Unload();
    EXPECT_EQ(desktop.fileDialogs.asked.size(), 1U);
    EXPECT_FALSE(MainWindow().Loaded());
}

TEST_F(MainWindowLife, FormQueryUnload_UnmodifiedText_IsNotSaved)
{
    desktop.files.PutFile("C:\\Texts\\a.txt", "Hello");
    Start();
    bOptions::OpenFile("C:\\Texts\\a.txt");
    MainWindow().Unload();
    EXPECT_EQ(desktop.files.Content("C:\\Texts\\a.txt"), "Hello");
}

TEST_F(MainWindowLife, FormQueryUnload_OnlyMinimized_SavesNothing)
{
    Start();
    MainWindow().txtRead.SetText("Hello");
    MainWindow().Unload(ui::UnloadMode::ControlMenu);
    EXPECT_TRUE(desktop.fileDialogs.asked.empty());
}

TEST_F(MainWindowLife, FormQueryUnload_SavingFails_ClosesAllTheSame)
{
    desktop.files.PutFile("C:\\Texts\\a.txt", "Hello");
    Start();
    bOptions::OpenFile("C:\\Texts\\a.txt");
    MainWindow().txtRead.SetText("Hello World");
    desktop.files.SetReadOnly("C:\\Texts\\a.txt");
    MainWindow().Unload();
    EXPECT_FALSE(MainWindow().Loaded());
    EXPECT_EQ(desktop.files.Content("C:\\Texts\\a.txt"), "Hello");
}

TEST_F(MainWindowLife, FormUnload_AnOpenFile_IsOpenedAgainByTheNextStart)
{
    desktop.files.PutFile("C:\\Texts\\a.txt", "Hello");
    Start();
    bOptions::OpenFile("C:\\Texts\\a.txt");
    MainWindow().Unload();
    EXPECT_EQ(Option("FileName"), "C:\\Texts\\a.txt");
}

TEST_F(MainWindowLife, FormUnload_Always_SavesTheOptionsAndRemovesTheTrayIcon)
{
    Start();
    MainWindow().txtUserName.SetText("Ann");
    MainWindow().Unload();
    EXPECT_EQ(Option("UserName"), "Ann");
    EXPECT_EQ(desktop.trayIcon.tip, std::nullopt);
}

TEST_F(MainWindowLife, FormUnload_OptionsReset_WritesNothing)
{
    Start();
    settings::Options().Reset = true;
    MainWindow().txtUserName.SetText("Ann");
    MainWindow().Unload();
    EXPECT_EQ(Option("UserName"), std::nullopt);
    EXPECT_EQ(Option("FirstTime"), std::nullopt);
}

TEST_F(MainWindowLife, Exit_FromTheFileMenu_ReallyCloses)
{
    Start();
    MainWindow().mnuFileExit.Click();
    EXPECT_FALSE(MainWindow().Loaded());
    EXPECT_FALSE(MainWindow().tmrTimer.Enabled());
}

TEST_F(MainWindowLife, Exit_BeforeTheWindowIsAskedToClose_StopsTheTimer)
{
    Start();
    ASSERT_TRUE(MainWindow().tmrTimer.Enabled());
    bool ran = true;
    MainWindow().onQueryUnload = [&](UnloadMode) {
        ran = MainWindow().tmrTimer.Enabled();
        return true;
    };
    mainWindow::Exit();
    EXPECT_FALSE(ran);
}

TEST_F(MainWindowLife, ShowOptions_OfAMinimizedWindow_IsNormalBeforeItIsVisible)
{
    PutOption("FirstTime", "0");
    Start();
    MainWindow().onResize = nullptr;
    std::vector<std::pair<WindowState, bool>> seen;
    ui::CForm::Peer peer;
    peer.changed = [&] { seen.emplace_back(MainWindow().State(), MainWindow().Visible()); };
    MainWindow().SetPeer(peer);
    mainWindow::ShowOptions();
    EXPECT_EQ(seen, (std::vector<std::pair<WindowState, bool>>{{WindowState::Normal, false}, {WindowState::Normal, true}}));
}

TEST_F(MainWindowLife, Exit_FromThePopupMenu_ReallyCloses)
{
    Start();
    MainWindow().mnuPopExit.Click();
    EXPECT_FALSE(MainWindow().Loaded());
}

TEST_F(MainWindowLife, ShowOptions_WhileInTheTray_ShowsTheNormalWindow)
{
    PutOption("FirstTime", "0");
    Start();
    MainWindow().mnuPopParluneOptions.Click();
    EXPECT_TRUE(MainWindow().Visible());
    EXPECT_EQ(MainWindow().State(), WindowState::Normal);
}

}
