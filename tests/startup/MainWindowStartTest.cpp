#include "character/CharacterState.h"
#include "startup/MainWindowLife.h"
#include "startup/StartedProgram.h"
#include <algorithm>

// The steps of a start, their order, and what an end in their middle leaves behind.

namespace {

using ui::UnloadMode;

class MainWindowStart : public testing::Test, public StartedProgram {};

TEST_F(MainWindowStart, FormLoad_AnyOfTheFiveGreetings_MayBeChosen)
{
    const std::vector<std::pair<double, std::string>> drawn{
        {0.0, "One"}, {0.2, "Two"}, {0.4, "Three"}, {0.6, "Four"}, {0.999, "Five"}};
    for (const auto& [fraction, greeting] : drawn) {
        StartedProgram program;
        for (std::size_t index = 0; index < drawn.size(); ++index)
            program.PutOption("Greeting" + std::to_string(index + 1), drawn[index].second);
        program.desktop.random.fractions = {0.0, fraction};
        program.Start();
        EXPECT_EQ(program.desktop.engine.Spoken(), std::vector<std::string>{greeting});
    }
}

// What the program asks of the system, in its order; "yield" where it lets events run.
std::vector<std::string> StepsOf(const platform::headless::CJournal& journal)
{
    static constexpr const char* Steps[] = {"Environment.CommandLine",
                                            "Registry.ValueSize ShowSplash",
                                            "Registry.ValueSize DSSInstalled",
                                            "SpeechEngines.",
                                            "Registry.ValueSize SkipAgentDetect",
                                            "Registry.Open ClassesRoot",
                                            "Registry.SetText",
                                            "Engine.RequireForMainWindow",
                                            "Files.Match",
                                            "TrayIcon.",
                                            "Engine.Create",
                                            "Characters.Load",
                                            "Character.Show",
                                            "Random.Next",
                                            "Character.Play",
                                            "Character.Speak",
                                            "Clipboard.Watch"};
    std::vector<std::string> steps;
    for (const std::string& call : journal.Calls()) {
        if (call == "Events.RunPendingEvents")
            steps.push_back("yield");
        for (const char* step : Steps)
            if (call.starts_with(step))
                steps.push_back(call);
    }
    return steps;
}

constexpr const char* WholeStart[] = {
    "yield",
    "Environment.CommandLine",
    "Registry.ValueSize ShowSplash",
    "yield",
    "Registry.ValueSize DSSInstalled",
    "SpeechEngines.Installed",
    "Registry.ValueSize DSSInstalled",
    "Registry.SetText DSSInstalled 1",
    "Registry.ValueSize SkipAgentDetect",
    "Registry.Open ClassesRoot Agent.Control.2\\CLSID",
    "Engine.RequireForMainWindow",
    "Registry.ValueSize ShowSplash",
    "Clipboard.Watch",  // The box watches as soon as its option is read.
    "Files.Match C:\\WINDOWS\\MSAgent\\Chars\\*.acs",
    "yield",  // For the file that was found,
    "yield",  // for the same one in the list,
    "yield",  // and after the list.
    "Registry.Open ClassesRoot Word.Application\\CLSID",
    "Registry.Open ClassesRoot Excel.Application\\CLSID",
    "yield",
    "TrayIcon.Add",
    "yield",
    "Engine.Create",
    "Characters.Load Bot -",
    "Character.Show -",
    "yield",  // Of the loading of the character.
    "yield",
    "Random.Next",
    "Random.Next",
    "Character.Play Greet",
    "Character.Speak Hello there | -",
    "Character.Play RestPose",
    "yield",
};

TEST_F(MainWindowStart, FormLoad_OfAWholeStart_TakesItsStepsInTheirOrder)
{
    PutOption("ShowSplash", "1");
    PutOption("MonitorClipboard", "1");
    PutOption("Greeting1", "Hello there");
    Start();
    EXPECT_EQ(StepsOf(desktop.journal), std::vector<std::string>(std::begin(WholeStart), std::end(WholeStart)));
}

// What there is to be seen at a yield.
std::string Scene(const CHeadlessDesktop& desktop)
{
    std::string scene;
    const auto add = [&](bool there, const char* what) {
        if (there)
            scene += (scene.empty() ? "" : ", ") + std::string(what);
    };
    add(SplashWindow().Visible(), "splash");
    add(MainWindow().Loaded(), "window loaded");
    add(desktop.trayIcon.tip.has_value(), "icon");
    add(character::State().loaded, "character");
    add(MainWindow().Visible(), "window shown");
    add(desktop.clipboard.Watched(), "clipboard watched");
    add(MainWindow().tmrTimer.Enabled(), "timer");
    return scene;
}

TEST_F(MainWindowStart, FormLoad_AtEachYield_HasDoneWhatComesBeforeAndNothingElse)
{
    PutOption("ShowSplash", "1");
    PutOption("MonitorClipboard", "1");
    std::vector<std::string> scenes;
    MainWindow().chkMonitorClipboard.onClick = nullptr;  // The boxes switch on what the last steps do.
    MainWindow().chkSayTime.onClick = nullptr;
    MainWindow().chkSayTimeShowIfHidden.onClick = nullptr;
    desktop.events.onYield = [&] { scenes.push_back(Scene(desktop)); };
    Start();
    EXPECT_EQ(scenes, (std::vector<std::string>{
                          "",
                          "splash",
                          "splash, window loaded",
                          "splash, window loaded",
                          "splash, window loaded",
                          "window loaded",
                          "window loaded, icon",
                          "window loaded, icon",
                          "window loaded, icon, character",
                          "window loaded, icon, character, window shown",
                      }));
    EXPECT_EQ(Scene(desktop), "window loaded, icon, character, window shown, clipboard watched, timer");
}

TEST_F(MainWindowStart, FormLoad_FreshStore_WritesNothingButTheSpeechPanel)
{
    Start();
    EXPECT_EQ(desktop.journal.CallsOf("Registry.Set"), std::vector<std::string>{"Registry.SetText DSSInstalled 1"});
    EXPECT_EQ(desktop.journal.Count("Profile.Write"), 0U);
}

// The number of yields of a whole start with everything switched on.
std::size_t YieldsOfAStart(const std::function<void(StartedProgram&)>& prepare)
{
    StartedProgram program;
    prepare(program);
    program.Start();
    return program.desktop.events.Yields();
}

void SwitchEverythingOn(StartedProgram& program)
{
    program.desktop.files.PutFile("C:\\WINDOWS\\MSAgent\\Chars\\Robby.acs");
    program.PutOption("ShowSplash", "1");
    program.PutOption("MonitorClipboard", "1");
    program.PutOption("Greeting1", "Hello there");
}

// Runs the event at each yield of the start in turn and looks at the program that the start left behind.
void AtEachYield(const std::function<void()>& event,
                 const std::function<void(StartedProgram&, bool mainWindowWasThere)>& check)
{
    const std::size_t yields = YieldsOfAStart(SwitchEverythingOn);
    ASSERT_GE(yields, 10U);
    for (std::size_t yield = 1; yield <= yields; ++yield) {
        SCOPED_TRACE("yield " + std::to_string(yield));
        StartedProgram program;
        SwitchEverythingOn(program);
        bool mainWindowWasThere = false;
        program.desktop.events.AtYield(yield, [&] {
            mainWindowWasThere = MainWindow().Loaded();
            event();
        });
        program.Start();
        check(program, mainWindowWasThere);
    }
}

void ExpectEnded(StartedProgram& program)
{
    EXPECT_FALSE(MainWindow().Loaded());
    EXPECT_FALSE(MainWindow().Visible());
    EXPECT_FALSE(SplashWindow().Loaded());
    EXPECT_FALSE(TrayWindow().Loaded());
    EXPECT_EQ(program.desktop.trayIcon.tip, std::nullopt);
    EXPECT_FALSE(program.desktop.clipboard.Watched());
    EXPECT_FALSE(MainWindow().tmrTimer.Enabled());
    EXPECT_LE(program.desktop.journal.Count("Characters.Load"), 1U);
    EXPECT_TRUE(program.desktop.messageBoxes.shown.empty());
}

TEST_F(MainWindowStart, FormLoad_ExitAtAnyYield_EndsTheStart)
{
    AtEachYield([] { mainWindow::Exit(); },
                [](StartedProgram& program, bool mainWindowWasThere) {
                    if (mainWindowWasThere)
                        ExpectEnded(program);
                    else
                        EXPECT_TRUE(MainWindow().Loaded());  // There was nothing to be closed yet.
                });
}

TEST_F(MainWindowStart, FormLoad_EndOfTheSessionAtAnyYield_EndsTheStart)
{
    AtEachYield(
        [] {
            SplashWindow().Unload(UnloadMode::Session);
            MainWindow().Unload(UnloadMode::Session);
        },
        [](StartedProgram& program, bool) {
            MainWindow().tmrTimer.SetEnabled(false);  // Only Exit stops it.
            ExpectEnded(program);
        });
}

TEST_F(MainWindowStart, FormLoad_ExitBeforeTheGreeting_IsNotGreeted)
{
    AtEachYield([] { mainWindow::Exit(); },
                [](StartedProgram& program, bool mainWindowWasThere) {
                    const bool showed = program.desktop.journal.Count("TrayIcon.Add") == 1U &&
                                        program.desktop.journal.Count("Character.Show") == 1U;
                    if (mainWindowWasThere && !showed) {
                        EXPECT_TRUE(program.desktop.engine.Spoken().empty());
                    }
                });
}

TEST_F(MainWindowStart, FormLoad_ExitWhileTheCharacterAppears_IsNotGreeted)
{
    PutOption("Greeting1", "Hello there");
    desktop.events.onYield = [&] {
        if (desktop.journal.Count("Character.Show") == 1U)
            mainWindow::Exit();
    };
    Start();
    EXPECT_EQ(desktop.journal.Count("Character.Show"), 1U);
    EXPECT_TRUE(desktop.engine.Spoken().empty());
}

TEST_F(MainWindowStart, FormLoad_ExitWhileTheLastDocumentIsOpened_SwitchesNothingOn)
{
    PutOption("FileName", "C:\\Texts\\a.txt");
    PutOption("MonitorClipboard", "1");
    desktop.files.PutFile("C:\\Texts\\a.txt", "Hello");
    MainWindow().txtRead.onChange = [] { mainWindow::Exit(); };
    Start();
    EXPECT_FALSE(MainWindow().Loaded());
    EXPECT_FALSE(desktop.clipboard.Watched());
    EXPECT_EQ(desktop.journal.Count("Files.Match"), 0U);
}

TEST_F(MainWindowStart, FormLoad_TheWindowAskedForAfterExit_StaysClosed)
{
    desktop.events.onYield = [] {
        if (MainWindow().Loaded())
            mainWindow::Exit();
        else if (MainWindow().Loading())
            mainWindow::ShowOptions();
    };
    Start();
    EXPECT_FALSE(MainWindow().Loaded());
    EXPECT_FALSE(MainWindow().Visible());
    EXPECT_EQ(desktop.journal.Count("TrayIcon.Add"), 0U);
}

}
