#include "startup/Splash.h"
#include "startup/StartedProgram.h"

namespace {

using platform::BoxAnswer;
using platform::BoxButtons;
using platform::BoxIcon;
using platform::CFailure;

class Splash : public testing::Test, public StartedProgram {
protected:
    void RemoveEngine()
    {
        desktop.registry.DeleteKey(platform::Root::ClassesRoot, "Agent.Control.2\\CLSID");
        desktop.journal.FailAlways("Engine.Create", platform::failure::CannotCreateObject());
    }
};

constexpr char EngineMissing[] = "Microsoft Agent 2.0 does not appear to be properly setup on your computer.\r\n\r\n"
                                 "Click 'OK' to visit the Parlune website for setup instructions.\r\n"
                                 "Click 'Cancel' to try and start Parlune anyways.";
constexpr char SpeechMissing[] =
    "The 'Speech Control Panel' does not appear to be installed properly on your computer.\r\n\r\n"
    "Click 'OK' to visit the Parlune website for setup instructions.\r\n"
    "Click 'Cancel' to try and start Parlune anyways.";
constexpr char ComponentMissing[] = "Microsoft Agent 2.0 does not appear to be properly setup on your computer.\r\n\r\n"
                                    "Click 'OK' to visit the Parlune website for setup instructions.\r\n"
                                    "Click 'Cancel' to Close Parlune.";

TEST_F(Splash, FormLoad_Always_ShowsMajorAndMinorVersion)
{
    Start();
    EXPECT_EQ(SplashWindow().lblVersion.Caption(), "Version 2.6");
}

TEST_F(Splash, FormLoad_NoDetectSwitch_LoadsTheMainWindowWithoutChecks)
{
    desktop.environment.commandLine = "/NODETECT";
    desktop.journal.FailNext("SpeechEngines.Installed", CFailure(5, "asked"));
    Start();
    EXPECT_TRUE(MainWindow().Loaded());
    EXPECT_EQ(desktop.journal.Count("SpeechEngines."), 0U);
    EXPECT_EQ(Option("DSSInstalled"), std::nullopt);
}

TEST_F(Splash, FormLoad_NoDetectSwitchInOddCase_Counts)
{
    desktop.environment.commandLine = "/noDetect";
    Start();
    EXPECT_TRUE(MainWindow().Loaded());
    EXPECT_EQ(desktop.journal.Count("SpeechEngines."), 0U);
}

TEST_F(Splash, FormLoad_NoDetectWithSplashWanted_NeverShowsTheSplash)
{
    desktop.environment.commandLine = "/NODETECT";
    PutOption("ShowSplash", "1");
    bool seen = false;
    desktop.events.onYield = [&] { seen = seen || SplashWindow().Visible(); };
    Start();
    EXPECT_FALSE(seen);
}

TEST_F(Splash, FormLoad_SwitchWithAFurtherWord_DoesNotCount)
{
    desktop.environment.commandLine = "/NODETECT now";
    Start();
    EXPECT_EQ(Option("DSSInstalled"), "1");
}

TEST_F(Splash, FormLoad_SwitchWithALeadingBlank_DoesNotCount)
{
    desktop.environment.commandLine = " /NODETECT";
    Start();
    EXPECT_EQ(Option("DSSInstalled"), "1");
}

TEST_F(Splash, FormLoad_FreshStore_ShowsNoSplash)
{
    bool seen = false;
    desktop.events.onYield = [&] { seen = seen || SplashWindow().Visible(); };
    Start();
    EXPECT_FALSE(seen);
}

TEST_F(Splash, FormLoad_SplashWanted_ShowsItWhileStarting)
{
    PutOption("ShowSplash", "1");
    bool seen = false;
    desktop.events.onYield = [&] { seen = seen || SplashWindow().Visible(); };
    Start();
    EXPECT_TRUE(seen);
    EXPECT_FALSE(SplashWindow().Loaded());
}

TEST_F(Splash, FormLoad_FreshStoreBothFound_RemembersOnlyTheSpeechPanel)
{
    Start();
    EXPECT_EQ(Option("DSSInstalled"), "1");
    EXPECT_EQ(Option("SkipAgentDetect"), std::nullopt);
}

TEST_F(Splash, FormLoad_SpeechPanelRemembered_IsNotLookedForAgain)
{
    PutOption("DSSInstalled", "1");
    desktop.speechEngines.installed = false;
    Start();
    EXPECT_TRUE(MainWindow().Loaded());
    EXPECT_EQ(desktop.journal.Count("SpeechEngines."), 0U);
}

TEST_F(Splash, FormLoad_EngineDetectionSkipped_AsksNeitherRegistryNorEngine)
{
    PutOption("SkipAgentDetect", "1");
    RemoveEngine();
    desktop.journal.Clear();
    Start();
    EXPECT_TRUE(MainWindow().Loaded());
    EXPECT_EQ(desktop.journal.Count("Registry.Open ClassesRoot Agent.Control.2"), 0U);
}

TEST_F(Splash, FormLoad_AnyOtherValueThanOne_DoesNotSkipTheDetection)
{
    for (const char* value : {"0", "2", "true", "", "11"}) {
        StartedProgram program;
        program.PutOption("SkipAgentDetect", value);
        program.Start();
        EXPECT_EQ(program.desktop.journal.Count("Registry.Open ClassesRoot Agent.Control.2"), 1U) << value;
    }
}

TEST_F(Splash, FormLoad_AnyOtherValueThanOne_ShowsNoSplash)
{
    for (const char* value : {"0", "2", "true", "", "11"}) {
        StartedProgram program;
        program.PutOption("ShowSplash", value);
        bool seen = false;
        program.desktop.events.onYield = [&] { seen = seen || SplashWindow().Visible(); };
        program.Start();
        EXPECT_FALSE(seen) << value;
    }
}

TEST_F(Splash, FormLoad_EngineMissing_ShowsTheMessage)
{
    RemoveEngine();
    desktop.messageBoxes.answers = {BoxAnswer::Ok};
    Start();
    ASSERT_EQ(desktop.messageBoxes.shown.size(), 1U);
    EXPECT_EQ(desktop.messageBoxes.Last().text, EngineMissing);
    EXPECT_EQ(desktop.messageBoxes.Last().title, "Parlune");
    EXPECT_EQ(desktop.messageBoxes.Last().buttons, BoxButtons::OkCancel);
    EXPECT_EQ(desktop.messageBoxes.Last().icon, BoxIcon::Exclamation);
}

TEST_F(Splash, FormLoad_EngineMissingAnsweredOk_OpensTheWebSiteAndEnds)
{
    RemoveEngine();
    desktop.messageBoxes.answers = {BoxAnswer::Ok};
    Start();
    ASSERT_EQ(desktop.shell.opened.size(), 1U);
    EXPECT_EQ(desktop.shell.opened[0].file, "https://parlune.example/");
    EXPECT_FALSE(MainWindow().Loaded());
    EXPECT_FALSE(SplashWindow().Loaded());
}

TEST_F(Splash, FormLoad_QuestionAnsweredOk_HidesThenYieldsThenOpensThenUnloads)
{
    PutOption("ShowSplash", "1");
    RemoveEngine();
    desktop.messageBoxes.answers = {BoxAnswer::Ok};
    std::vector<std::string> scenes;
    desktop.events.onYield = [&] {
        if (!desktop.messageBoxes.shown.empty())
            scenes.push_back(std::string(SplashWindow().Visible() ? "visible" : "hidden") +
                             (SplashWindow().Loaded() ? ", loaded, " : ", unloaded, ") +
                             std::to_string(desktop.shell.opened.size()) + " opened");
    };
    Start();
    EXPECT_EQ(scenes, (std::vector<std::string>{"hidden, loaded, 0 opened", "hidden, loaded, 1 opened"}));
    EXPECT_FALSE(SplashWindow().Loaded());
}

TEST_F(Splash, FormLoad_BrokenEngineAnsweredOk_HidesThenYieldsThenOpensThenEnds)
{
    PutOption("ShowSplash", "1");
    desktop.engine.installed = false;
    desktop.messageBoxes.answers = {BoxAnswer::Ok};
    bool visible = true;
    desktop.events.onYield = [&] { visible = SplashWindow().Visible(); };
    EXPECT_THROW(Start(), platform::CProgramEnded);
    const auto& calls = desktop.journal.Calls();
    const auto box = std::find(calls.begin(), calls.end(), "MessageBoxes.Show");
    std::vector<std::string> after(box, calls.end());
    std::erase_if(after, [](const std::string& call) { return call.starts_with("Shell.StartProgram"); });
    EXPECT_FALSE(visible);
    EXPECT_EQ(after, (std::vector<std::string>{"MessageBoxes.Show", "Events.RunPendingEvents",
                                               "Shell.Open https://parlune.example/setup", "Events.RunPendingEvents",
                                               "Program.End"}));
}

TEST_F(Splash, FormLoad_EngineMissingAnsweredCancel_StartsAnyway)
{
    RemoveEngine();
    desktop.messageBoxes.answers = {BoxAnswer::Cancel};
    Start();
    EXPECT_TRUE(MainWindow().Loaded());
    EXPECT_TRUE(desktop.shell.opened.empty());
}

TEST_F(Splash, FormLoad_SpeechPanelMissing_ShowsTheMessage)
{
    desktop.speechEngines.installed = false;
    desktop.messageBoxes.answers = {BoxAnswer::Ok};
    Start();
    ASSERT_EQ(desktop.messageBoxes.shown.size(), 1U);
    EXPECT_EQ(desktop.messageBoxes.Last().text, SpeechMissing);
    EXPECT_EQ(Option("DSSInstalled"), std::nullopt);
    EXPECT_FALSE(MainWindow().Loaded());
}

TEST_F(Splash, FormLoad_BothMissing_ShowsBothMessagesInOrder)
{
    RemoveEngine();
    desktop.speechEngines.installed = false;
    desktop.messageBoxes.answers = {BoxAnswer::Ok, BoxAnswer::Ok};
    Start();
    ASSERT_EQ(desktop.messageBoxes.shown.size(), 2U);
    EXPECT_EQ(desktop.messageBoxes.shown[0].text, EngineMissing);
    EXPECT_EQ(desktop.messageBoxes.shown[1].text, SpeechMissing);
}

TEST_F(Splash, FormLoad_BothMissingAnsweredCancelTwice_LoadsTheMainWindowOnce)
{
    PutOption("StartUpHideInTray", "1");
    RemoveEngine();
    desktop.speechEngines.installed = false;
    int loads = 0;
    const auto load = MainWindow().onLoad;
    MainWindow().onLoad = [&] {
        ++loads;
        load();
    };
    desktop.messageBoxes.answers = {BoxAnswer::Cancel, BoxAnswer::Cancel};
    Start();
    EXPECT_EQ(loads, 1);
    EXPECT_TRUE(MainWindow().Loaded());
}

TEST_F(Splash, FormLoad_CancelThenOk_KeepsTheMainWindowLoaded)
{
    PutOption("StartUpHideInTray", "1");
    RemoveEngine();
    desktop.speechEngines.installed = false;
    desktop.messageBoxes.answers = {BoxAnswer::Cancel, BoxAnswer::Ok};
    Start();
    EXPECT_TRUE(MainWindow().Loaded());
    EXPECT_EQ(desktop.shell.opened.size(), 1U);
}

TEST_F(Splash, FormLoad_RegisteredButBrokenEngine_EndsThroughTheThirdMessage)
{
    desktop.engine.installed = false;
    desktop.messageBoxes.answers = {BoxAnswer::Cancel};
    EXPECT_THROW(Start(), platform::CProgramEnded);
    EXPECT_EQ(desktop.messageBoxes.Last().text, ComponentMissing);
    EXPECT_TRUE(desktop.program.ended);
    EXPECT_TRUE(desktop.shell.opened.empty());
    EXPECT_FALSE(MainWindow().Loaded());
}

TEST_F(Splash, FormLoad_BrokenEngineAnsweredOk_OpensTheSetupPageAndEnds)
{
    desktop.engine.installed = false;
    desktop.messageBoxes.answers = {BoxAnswer::Ok};
    EXPECT_THROW(Start(), platform::CProgramEnded);
    ASSERT_EQ(desktop.shell.opened.size(), 1U);
    EXPECT_EQ(desktop.shell.opened[0].file, "https://parlune.example/setup");
}

TEST_F(Splash, FormLoad_Error339OfAnotherComponent_IsReportedAndStartUpGoesOn)
{
    desktop.journal.FailNext("Engine.RequireForMainWindow", platform::failure::ComponentNotRegistered("other.ocx"));
    Start();
    EXPECT_EQ(desktop.messageBoxes.Last().Line(1), "Section: frmSplash:Form_Load");
    EXPECT_FALSE(desktop.program.ended);
}

TEST_F(Splash, FormLoad_AnotherErrorOfTheEnginesComponent_IsReported)
{
    desktop.journal.FailNext("Engine.RequireForMainWindow", CFailure(338, "agentctl.dll"));
    Start();
    EXPECT_EQ(desktop.messageBoxes.Last().Line(1), "Section: frmSplash:Form_Load");
    EXPECT_FALSE(desktop.program.ended);
}

TEST_F(Splash, FormLoad_Error339InOtherLetters_EndsThroughTheThirdMessage)
{
    desktop.journal.FailNext("Engine.RequireForMainWindow", CFailure(339, "Component 'AgentCtl.DLL' is missing"));
    EXPECT_THROW(Start(), platform::CProgramEnded);
    EXPECT_EQ(desktop.messageBoxes.Last().text, ComponentMissing);
}

TEST_F(Splash, FormLoad_CommandLineUnreadable_IsReportedAndDetectionRuns)
{
    desktop.journal.FailNext("Environment.CommandLine", CFailure(5, "Invalid procedure call or argument"));
    Start();
    EXPECT_EQ(desktop.messageBoxes.shown[0].Line(1), "Section: frmSplash:Form_Load");
    EXPECT_EQ(Option("DSSInstalled"), "1");
    EXPECT_TRUE(MainWindow().Loaded());
}

TEST_F(Splash, FormLoad_ExitBetweenTheTwoQuestions_AsksNoMore)
{
    RemoveEngine();
    desktop.speechEngines.installed = false;
    desktop.messageBoxes.answers = {BoxAnswer::Cancel, BoxAnswer::Cancel};
    MainWindow().onLoad = [] { MainWindow().Unload(); };
    Start();
    EXPECT_EQ(desktop.messageBoxes.shown.size(), 1U);
    EXPECT_FALSE(MainWindow().Loaded());
}

TEST_F(Splash, FormLoad_MainWindowThatDoesNotLoad_IsNoExit)
{
    RemoveEngine();
    desktop.speechEngines.installed = false;
    desktop.messageBoxes.answers = {BoxAnswer::Cancel, BoxAnswer::Ok, BoxAnswer::Ok};
    desktop.journal.FailNext("Engine.RequireForMainWindow", CFailure(5, "Invalid procedure call or argument"));
    Start();
    ASSERT_EQ(desktop.messageBoxes.shown.size(), 3U);
    EXPECT_EQ(desktop.messageBoxes.shown[1].Line(1), "Section: frmSplash:Form_Load");
    EXPECT_EQ(desktop.messageBoxes.shown[2].text, SpeechMissing);
}

TEST_F(Splash, FormLoad_EndOfTheSessionDuringAQuestion_LoadsNothing)
{
    RemoveEngine();
    desktop.speechEngines.installed = false;
    desktop.messageBoxes.answers = {BoxAnswer::Cancel, BoxAnswer::Cancel};
    desktop.messageBoxes.whileShown = [] { SplashWindow().Unload(ui::UnloadMode::Session); };
    Start();
    EXPECT_EQ(desktop.messageBoxes.shown.size(), 1U);
    EXPECT_EQ(desktop.journal.Count("Engine.RequireForMainWindow"), 0U);
}

TEST_F(Splash, FormLoad_EndOfTheSessionAfterAClickOnTheSplash_LoadsNothing)
{
    desktop.events.AtYield(1, [] {
        SplashWindow().Click();
        SplashWindow().Unload(ui::UnloadMode::Session);
    });
    Start();
    EXPECT_EQ(desktop.journal.Count("Engine.RequireForMainWindow"), 0U);
}

TEST_F(Splash, FormClick_WhileShown_UnloadsTheSplashAtOnce)
{
    PutOption("ShowSplash", "1");
    bool shown = false;
    bool gone = false;
    desktop.events.AtYield(2, [&] {
        shown = SplashWindow().Visible();
        SplashWindow().Click();
        gone = !SplashWindow().Loaded() && !SplashWindow().Visible();
    });
    Start();
    EXPECT_TRUE(shown);
    EXPECT_TRUE(gone);
    EXPECT_TRUE(MainWindow().Loaded());
}

TEST_F(Splash, PictureClick_WhileShown_UnloadsTheSplash)
{
    SplashWindow().onLoad = nullptr;
    SplashWindow().SetVisible(true);
    SplashWindow().imgAbout.Click();
    EXPECT_FALSE(SplashWindow().Loaded());
    EXPECT_FALSE(SplashWindow().Visible());
}

TEST_F(Splash, IsAgentInstalled_ClassKeyPresent_IsTrueAndWritesNothing)
{
    EXPECT_TRUE(splash::IsAgentInstalled());
    EXPECT_EQ(desktop.journal.Count("Engine.Create"), 0U);
    EXPECT_EQ(Option("SkipAgentDetect"), std::nullopt);
}

TEST_F(Splash, IsAgentInstalled_OnlyCreatable_IsTrueAndRemembered)
{
    desktop.registry.DeleteKey(platform::Root::ClassesRoot, "Agent.Control.2\\CLSID");
    EXPECT_TRUE(splash::IsAgentInstalled());
    EXPECT_EQ(Option("SkipAgentDetect"), "1");
}

TEST_F(Splash, IsAgentInstalled_NeitherKeyNorObject_IsFalse)
{
    RemoveEngine();
    EXPECT_FALSE(splash::IsAgentInstalled());
    EXPECT_EQ(Option("SkipAgentDetect"), std::nullopt);
}

TEST_F(Splash, IsAgentCreatable_CreationFails_IsFalseAndSilent)
{
    desktop.journal.FailNext("Engine.Create", CFailure(429, "ActiveX component can't create object"));
    EXPECT_FALSE(splash::IsAgentCreatable());
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST_F(Splash, IsDSSInstalled_AskingFails_IsFalseAndSilent)
{
    desktop.journal.FailNext("SpeechEngines.Installed", CFailure(429, "ActiveX component can't create object"));
    EXPECT_FALSE(splash::IsDSSInstalled());
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

}
