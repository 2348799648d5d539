#include "driver/Companion.h"
#include "driver/WebPages.h"

// From the start to the first rest.
using namespace driver;

namespace {

constexpr char Title[] = "Parlune";
constexpr char NoSpeechPanel[] =
    "The 'Speech Control Panel' does not appear to be installed properly on your computer.\r\n\r\n"
    "Click 'OK' to visit the Parlune website for setup instructions.\r\n"
    "Click 'Cancel' to try and start Parlune anyways.";

class Start : public CCompanion {};

TEST_F(Start, FirstRun_ShowsTheOptionsWindow)
{
    registry::RemoveValue(HKEY_CURRENT_USER, registry::OptionKey, "FirstTime");
    Begin();

    EXPECT_TRUE(Eventually([&] { return parlune.IsShown(); }));
}

TEST_F(Start, LaterRun_StaysInTheTray)
{
    Begin();

    EXPECT_FALSE(IsWindowVisible(parlune.Main()));
    EXPECT_TRUE(IsWindow(parlune.Tray()));
    EXPECT_FALSE(IsWindowVisible(parlune.Tray()));
}

TEST_F(Start, FirstRunThenSecond_IsHiddenTheSecondTime)
{
    registry::RemoveValue(HKEY_CURRENT_USER, registry::OptionKey, "FirstTime");
    Begin();
    parlune.End();
    Begin();

    EXPECT_FALSE(parlune.IsShown());
}

TEST_F(Start, EverythingInstalled_LoadsAndShowsTheCharacter)
{
    Begin();

    EXPECT_TRUE(agent.Sees("call Character[Bot].Show"));
    EXPECT_TRUE(agent.Sees("call Character[Bot].MoveTo("));
    EXPECT_FALSE(FindBox(parlune.Id()));
}

TEST_F(Start, FreshMachine_ReportsNothing)
{
    registry::Remove(HKEY_CURRENT_USER, registry::OptionKey);
    Begin();

    EXPECT_FALSE(FindBox(parlune.Id()));
}

TEST_F(Start, FreshMachine_RemembersTheSpeechPanelOnly)
{
    registry::Remove(HKEY_CURRENT_USER, registry::OptionKey);
    Begin();

    EXPECT_EQ(registry::Option("DSSInstalled"), "1");
    EXPECT_EQ(registry::Option("SkipAgentDetect"), "(none)");
    EXPECT_EQ(registry::Option("FirstTime"), "(none)");
}

TEST_F(Start, WithoutSpeechPanel_TellsOfIt)
{
    CAgent::RemoveSpeech();
    parlune.Start({}, agent.Variables());

    const Box box = SeeBox();
    EXPECT_EQ(box.text, NoSpeechPanel);
    EXPECT_EQ(box.title, Title);
    EXPECT_EQ(box.buttons, (std::vector<int>{IDOK, IDCANCEL}));
    EXPECT_EQ(SignOf(box), Sign::Warning);
}

TEST_F(Start, WithoutSpeechPanel_Cancel_StartsAnyway)
{
    CAgent::RemoveSpeech();
    parlune.Start({}, agent.Variables());
    Answer(SeeBox(), IDCANCEL);

    EXPECT_TRUE(agent.Sees("call Character[Bot].Show"));
    EXPECT_EQ(registry::Option("DSSInstalled"), "(none)");
}

TEST_F(Start, WithoutSpeechPanel_Ok_OpensTheHomePageAndEnds)
{
    CAgent::RemoveSpeech();
    parlune.Start({}, agent.Variables());
    Answer(SeeBox(), IDOK);

    EXPECT_TRUE(parlune.HasEnded());
    EXPECT_EQ(browser::WaitForPage(), "https://parlune.example/");
    EXPECT_TRUE(agent.Log().empty());
}

TEST_F(Start, SpeechPanelSeenEarlier_IsNotAskedForAgain)
{
    CAgent::RemoveSpeech();
    registry::PutOption("DSSInstalled", "1");
    Begin();

    EXPECT_FALSE(FindBox(parlune.Id()));
    EXPECT_TRUE(agent.Sees("call Character[Bot].Show"));
}

// The command line and whether it is the switch that leaves out all checks.
struct Line {
    const char* text;
    bool skips;
};

class CommandLine : public CCompanion, public ::testing::WithParamInterface<Line> {};

TEST_P(CommandLine, IsTheSwitchAloneOrChecksAreMade)
{
    CAgent::RemoveSpeech();
    parlune.Start(GetParam().text, agent.Variables());

    if (GetParam().skips) {
        EXPECT_TRUE(agent.Sees("call Character[Bot].Show"));
        EXPECT_FALSE(FindBox(parlune.Id()));
    } else
        EXPECT_EQ(SeeBox().text, NoSpeechPanel);
}

INSTANTIATE_TEST_SUITE_P(InAnyForm, CommandLine,
                         ::testing::Values(Line{" /NODETECT", true}, Line{" /nodetect", true}, Line{" /NoDeTeCt", true},
                                           Line{" /NODETECT now", false}, Line{" /NODETECTS", false},
                                           Line{"  /NODETECT", false}, Line{" NODETECT", false}, Line{" -NODETECT", false}));

TEST_F(Start, WithShowSplash_ShowsItWithTheVersion)
{
    CAgent::RemoveSpeech();  // The question keeps the splash on the screen.
    registry::PutOption("ShowSplash", "1");
    parlune.Start({}, agent.Variables());
    ASSERT_TRUE(SeeBox());

    EXPECT_TRUE(IsWindowVisible(parlune.Splash()));
    EXPECT_EQ(TextOf(parlune.SplashControl("lblVersion")), "Version 2.6");
    TakePicture(nullptr, "splash");
}

TEST_F(Start, WithoutShowSplash_ShowsNone)
{
    CAgent::RemoveSpeech();
    parlune.Start({}, agent.Variables());
    ASSERT_TRUE(SeeBox());

    EXPECT_FALSE(IsWindowVisible(parlune.Splash()));
}

TEST_F(Start, SplashShown_OkToTheQuestion_HidesIt)
{
    CAgent::RemoveSpeech();
    registry::PutOption("ShowSplash", "1");
    parlune.Start({}, agent.Variables());
    const Box box = SeeBox();
    const HWND splash = parlune.Splash();
    Answer(box, IDOK);

    EXPECT_TRUE(Eventually([&] { return !IsWindowVisible(splash); }));
    EXPECT_TRUE(parlune.HasEnded());
}

TEST_F(Start, SplashShown_GoesWhenTheProgramIsUp)
{
    registry::PutOption("ShowSplash", "1");
    Begin();

    EXPECT_TRUE(Eventually([&] { return parlune.Splash() == nullptr || !IsWindowVisible(parlune.Splash()); }));
}

TEST_F(Start, HiddenInTheTray_LoadsNoCharacter)
{
    registry::PutOption("StartUpHideInTray", "1");
    BeginWithoutCharacter();

    EXPECT_TRUE(agent.LinesWith("call Characters.Load").empty());
    EXPECT_TRUE(IsWindow(parlune.Tray()));
    EXPECT_FALSE(parlune.IsShown());
}

TEST_F(Start, HiddenInTheTray_ShowBringsTheCharacter)
{
    registry::PutOption("StartUpHideInTray", "1");
    BeginWithoutCharacter();
    parlune.Choose("mnuPopHide");

    EXPECT_TRUE(agent.Sees("call Character[Bot].Show"));
}

TEST_F(Start, WithGreetings_SpeaksOne)
{
    registry::PutOption("ReadGreeting", "1");
    for (const char* name : {"Greeting1", "Greeting2", "Greeting3", "Greeting4", "Greeting5"})
        registry::PutOption(name, "Hello {UserName}");
    registry::PutOption("UserName", "Ada");
    Begin();

    EXPECT_TRUE(agent.Speaks("Hello Ada"));
    EXPECT_TRUE(agent.Sees("call Character[Bot].Play(\"RestPose\")"));
}

TEST_F(Start, CharactersInTheirFolder_AreListedWithProperNames)
{
    Begin();

    EXPECT_EQ(parlune.Entries("cboChar"), (std::vector<std::string>{"(Default Character)", "Genie", "Merlin", "Robby"}));
}

TEST_F(Start, NoCharacterFiles_TellsTheFolderAndGoesOn)
{
    RemoveFolder("C:\\windows\\MSAgent\\Chars");
    parlune.Start({}, agent.Variables());
    const Box box = SeeBox();
    EXPECT_EQ(
        box.text,
        "Parlune is unable to find any .ACS character files in your\r\nC:\\windows\\MSAgent\\Chars\\ character folder.");
    EXPECT_EQ(box.title, Title);
    EXPECT_EQ(box.buttons, std::vector<int>{IDOK});
    EXPECT_EQ(SignOf(box), Sign::Warning);
    Answer(box, IDOK);

    EXPECT_TRUE(agent.Sees("call Character[Bot].Show"));
    agent.Rest();  // Who looks at the page while the character is still being loaded does not find it in the list.
    // The second is there because it is the one on the desktop.
    const std::vector<std::string> entries{"(Default Character)", "Merlin"};
    EXPECT_TRUE(Eventually([&] { return parlune.Entries("cboChar") == entries; }))
        << testing::PrintToString(parlune.Entries("cboChar"));
}

TEST_F(Start, StoredCharacter_IsLoadedByItsFile)
{
    registry::PutOption("Character", "Merlin");
    Begin();

    EXPECT_TRUE(agent.Sees("call Characters.Load(\"Bot\", \"Merlin.acs\")"));
}

TEST_F(Start, WithoutStoredCharacter_LoadsTheDefaultWithTheFileOmitted)
{
    Begin();

    EXPECT_TRUE(agent.Sees("call Characters.Load(\"Bot\")"));
}

TEST_F(Start, WithAppData_MakesTheFolderOfTheSettings)
{
    Begin();

    EXPECT_TRUE(FileExists(CParlune::DataFolder() + "Tarrowind\\Parlune"));
}

TEST_F(Start, WithoutAppData_KeepsSettingsInTheCurrentFolder)
{
    Begin({}, {{"APPDATA", std::nullopt}});
    parlune.Show();
    ShowPage(Page::Balloon);
    parlune.Click("cmdSetFont(0)");

    EXPECT_TRUE(Eventually([] { return FileExists(CParlune::Folder() + "Parlune.ini"); }));
}

}
