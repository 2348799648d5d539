#include "driver/Companion.h"

// Servers that die, lie, fail or are silent; stores and folders that are damaged or sealed.
using namespace driver;

namespace {

constexpr char Copied[] = "The copied text.";

class BadServer : public CCompanion {
protected:
    void SetUp() override
    {
        CCompanion::SetUp();
        clipboard::CopyText(Copied);
        registry::PutOption("UserName", "before");
    }
    // Ends the program by its menu, answers what it reports, and looks whether the options were saved.
    void ExpectSavedAtTheEnd()
    {
        parlune.SetText("txtUserName", "after");
        parlune.Choose("mnuFileExit");
        DismissReportsUntil([&] { return !parlune.IsRunning(); });
        EXPECT_EQ(registry::Option("UserName"), "after");
    }
    void ReadClipboard() { parlune.Choose("mnuPopReadClipboard"); }
};

TEST_F(BadServer, DiesInMidSpeech_TheWindowLivesAndTheOptionsAreSaved)
{
    agent.ServeFromOutside();
    agent.Prepare("hold on");
    Begin();
    ReadClipboard();
    ASSERT_TRUE(agent.Speaks(Copied));
    agent.Tell("die");
    ASSERT_TRUE(agent.Server().WaitForEnd());
    ReadClipboard();
    DismissReportsUntil([&] { return Answers(parlune.Main()) && !FindBox(parlune.Id()); });

    ExpectSavedAtTheEnd();
}

TEST_F(BadServer, Disconnects_ReportsEachReadAndStaysAlive)
{
    Begin();
    ASSERT_TRUE(agent.Tell("disconnect"));
    ReadClipboard();
    const Box box = SeeBox();
    ASSERT_TRUE(box);
    EXPECT_NE(box.text.find("Error Code: "), std::string::npos) << box.text;
    Answer(box, IDOK);
    DismissReportsUntil([&] { return Answers(parlune.Main()) && !FindBox(parlune.Id()); });

    ExpectSavedAtTheEnd();
}

// Windows that do not answer for a while must not be frozen: other programs wait for them. Each try can fail only when this
// test itself comes too late.
TEST_F(BadServer, HangsForAMoment_TheWindowAnswersMeanwhile)
{
    agent.ServeFromOutside();
    Begin();
    bool answeredMeanwhile = false;
    for (int tries = 0; tries < 5 && !answeredMeanwhile; ++tries) {
        agent.Forget();
        ASSERT_TRUE(agent.Tell("block call:Character.Speak 3000"));
        ReadClipboard();
        ASSERT_TRUE(agent.Speaks(Copied));
        answeredMeanwhile = Answers(parlune.Main()) && agent.LinesWith("queued Speak").empty();
        ASSERT_TRUE(agent.Sees("queued Speak"));
    }

    EXPECT_TRUE(answeredMeanwhile);
    EXPECT_TRUE(IsWindow(parlune.Tray()));
    ExpectSavedAtTheEnd();
}

// Every member whose failure the program may meet, with the codes that the engine documents.
struct Failing {
    const char* target;
    const char* code;
};

class FailingMember : public BadServer, public ::testing::WithParamInterface<Failing> {};

TEST_P(FailingMember, IsReportedOrHasItsFallback)
{
    Begin();
    ASSERT_TRUE(agent.Tell(std::string("fail always ") + GetParam().target + " " + GetParam().code +
                           " exception Engine \"It's so\""));
    ReadClipboard();
    parlune.Choose("mnuPopCharStop");
    parlune.SetText("cboChar", "Genie");
    parlune.Click("cmdLoadChar");
    DismissReportsUntil([&] { return !agent.LinesWith("failed").empty(); });

    ExpectSavedAtTheEnd();
}

INSTANTIATE_TEST_SUITE_P(
    Documented, FailingMember,
    ::testing::Values(Failing{"Character.Speak", "0x80042113"}, Failing{"Character.Play", "0x80042003"},
                      Failing{"Character.Show", "0x80042005"}, Failing{"Character.MoveTo", "0x80042005"},
                      Failing{"Character.StopAll", "0x80042101"}, Failing{"Characters.Unload", "0x80042002"},
                      Failing{"Characters.Load", "0x8004200B"}, Failing{"Characters.Load", "0x80042010"},
                      Failing{"get:Character.Visible", "0x80004005"}, Failing{"get:Character.Balloon", "0x800706BA"}));

// A value of a wrong kind for every property that the program reads.
class GarbageValue : public BadServer, public ::testing::WithParamInterface<const char*> {};

TEST_P(GarbageValue, LeavesTheProgramAlive)
{
    Begin();
    ASSERT_TRUE(agent.Tell(std::string("garbage always ") + GetParam()));
    parlune.SetText("cboChar", "Genie");
    parlune.Click("cmdLoadChar");
    ReadClipboard();
    DismissReportsUntil([&] { return Answers(parlune.Main()) && !FindBox(parlune.Id()); });
    ASSERT_TRUE(agent.Tell("forget"));

    ExpectSavedAtTheEnd();
}

INSTANTIATE_TEST_SUITE_P(OfEachKind, GarbageValue,
                         ::testing::Values("* text", "* number", "* huge", "* empty", "Character.Speak text",
                                           "Character.Speak array", "Character.Speak nothing", "Character.Speak null",
                                           "Character.Speak error", "get:Character.Name array",
                                           "get:Character.Width nothing", "get:Character.TTSModeID null",
                                           "Balloon.Style array"));

TEST_F(BadServer, FileFailsAndItsNameStaysTaken_CarriesOnWithTheDefaultCharacter)
{
    agent.Prepare("half-made default");  // The second load fails with 0x8004200B.
    registry::PutOption("Character", "Nobody");
    Begin();

    EXPECT_TRUE(agent.Saw("failed Characters.Load 0x8004200B"));
    EXPECT_FALSE(FindBox(parlune.Id()));
}

TEST_F(BadServer, NoDefaultCharacter_StartsWithoutAny)
{
    agent.Prepare("no-default");
    BeginWithoutCharacter();

    EXPECT_FALSE(FindBox(parlune.Id()));
    EXPECT_TRUE(agent.LinesWith("call Character[Bot].Show").empty());
    EXPECT_TRUE(IsWindow(parlune.Tray()));
}

TEST_F(BadServer, ReportAnsweredWithCancel_EndsAtOnceWithoutSaving)
{
    Begin();
    parlune.SetText("txtUserName", "after");
    ASSERT_TRUE(agent.Tell("fail Character.Speak 0x80042113 exception Engine \"It's so\""));
    ReadClipboard();
    const Box box = SeeBox();
    EXPECT_EQ(box.text, "Section: bParlune:CharSpeak\r\n\r\nError Code: -2147213037\r\n'It's so'\r\n\r\n"
                        "You may be able to continue normally by clicking the OK button,\r\n"
                        "but please report this problem on the Parlune website so it can be resolved.");
    EXPECT_EQ(box.buttons, (std::vector<int>{IDOK, IDCANCEL}));
    EXPECT_EQ(SignOf(box), Sign::Stop);
    Answer(box, IDCANCEL);

    EXPECT_TRUE(parlune.HasEnded());
    EXPECT_EQ(registry::Option("UserName"), "before");
}

class BadStore : public CCompanion {};

// A value of another type than text, for every option.
struct Typed {
    DWORD type;
    std::string bytes;
};

class WrongType : public BadStore, public ::testing::WithParamInterface<Typed> {};

TEST_P(WrongType, OfEveryOption_StartsAndEnds)
{
    agent.Prepare("half-made default");  // The name of the character is one of them.
    for (const char* name :
         {"Character",        "CharTop",     "CharLeft",       "CharWidth",       "CharHeight",         "CharSize",
          "UserName",         "LastFolder",  "LastCharFolder", "Greeting1",       "GreetingAnimation1", "ShowSplash",
          "IdleOn",           "TTSTestText", "SayTime",        "SayTimeInterval", "SayTimeText",        "SayTimeFormat",
          "MonitorClipboard", "FileName",    "FirstTime"})
        registry::PutBytes(HKEY_CURRENT_USER, registry::OptionKey, name, GetParam().type, GetParam().bytes);
    parlune.Start({}, agent.Variables());
    DismissReportsUntil([&] { return !agent.LinesWith("call Character[Bot].Show").empty(); });
    parlune.Choose("mnuFileExit");
    DismissReportsUntil([&] { return !parlune.IsRunning(); });

    EXPECT_EQ(parlune.Process().ExitCode(), 0U);
}

INSTANTIATE_TEST_SUITE_P(OfEachKind, WrongType,
                         ::testing::Values(Typed{REG_DWORD, std::string("\x01\x02\x03\x04", 4)}, Typed{REG_BINARY, ""},
                                           Typed{REG_BINARY, std::string("\0\0\0\xFF\xFE\0", 6)},
                                           Typed{REG_MULTI_SZ, std::string("a\0\0\0b\0\0\0\0\0", 10)},
                                           Typed{REG_SZ, std::string("1", 1)}, Typed{REG_SZ, std::string(200000, 'x')}));

TEST_F(BadStore, ProfileValueOfFiveThousandCharacters_IsCutAndHarmless)
{
    WriteSetting("Merlin", "FontName", std::string(5000, 'F'));
    WriteSetting("Merlin", "BalloonStyle", std::string(5000, '9'));
    Begin();

    EXPECT_TRUE(agent.Sees("put Character[Bot].Balloon.FontName(\"" + std::string(4095, 'F') + "\")"));
    EXPECT_TRUE(agent.Sees("call Character[Bot].Show"));
}

TEST_F(BadStore, SettingsFileIsAFolder_StartsAndEnds)
{
    MakeFolder(CParlune::SettingsFile());
    BeginShown();
    ShowPage(Page::Balloon);
    parlune.Click("cmdSetFont(0)");
    parlune.Choose("mnuFileExit");
    DismissReportsUntil([&] { return !parlune.IsRunning(); });

    EXPECT_EQ(parlune.Process().ExitCode(), 0U);
}

TEST_F(BadStore, SettingsFileIsReadOnly_StaysAsItIs)
{
    WriteSetting("Merlin", "FontName", "Tahoma");
    const std::string before = Contents(CParlune::SettingsFile());
    SetFileAttributesA(CParlune::SettingsFile().c_str(), FILE_ATTRIBUTE_READONLY);
    BeginShown();
    ShowPage(Page::Balloon);
    parlune.Click("cmdSetFont(1)");
    parlune.Choose("mnuFileExit");
    DismissReportsUntil([&] { return !parlune.IsRunning(); });

    EXPECT_EQ(Contents(CParlune::SettingsFile()), before);
    SetFileAttributesA(CParlune::SettingsFile().c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(BadStore, DamagedSettingsFile_Starts)
{
    MakeFolder(CParlune::DataFolder() + "Tarrowind\\Parlune");
    std::string noise;
    for (unsigned i = 0, x = 1; i < 20000; ++i, x = x * 1103515245U + 12345U)
        noise += static_cast<char>(x >> 16);
    WriteFile(CParlune::SettingsFile(), noise);
    Begin();

    EXPECT_TRUE(agent.Sees("call Character[Bot].Show"));
}

TEST_F(BadStore, FolderOfTwoHundredAndFiftyCharacters_Runs)
{
    std::string folder = "C:\\parlune\\";
    while (folder.size() < 250 - sizeof "Parlune.exe")
        folder += folder.size() % 50 == 49 ? '\\' : 'd';
    folder.back() = 'e';
    folder += '\\';
    MakeFolder(folder);
    ASSERT_TRUE(CopyFileA((CParlune::Folder() + "Parlune.exe").c_str(), (folder + "Parlune.exe").c_str(), FALSE));
    parlune.Start({}, agent.Variables(), folder);
    ASSERT_TRUE(agent.Sees("call Character[Bot].Show"));
    agent.Rest();
    parlune.Click("chkStartWithWindows");

    EXPECT_TRUE(Eventually(
        [&] { return registry::Text(HKEY_CURRENT_USER, registry::RunKey, "Parlune") == folder + "Parlune.exe"; }));
    parlune.End();
}

class LockedClipboard : public CCompanion {};

TEST_F(LockedClipboard, Read_ReportsOrReadsNothingAndReadsLater)
{
    clipboard::CopyText(Copied);
    Begin();
    agent.Forget();
    {
        const clipboard::CLock lock;
        parlune.Choose("mnuPopReadClipboard");
        parlune.Choose("mnuPopCharStop");
        DismissReportsUntil([&] { return !agent.LinesWith("call Character[Bot].Play(\"RestPose\")").empty(); });
        EXPECT_TRUE(agent.Spoken().empty());
    }
    parlune.Choose("mnuPopReadClipboard");

    EXPECT_TRUE(agent.Speaks(Copied));
}

class SealedKey : public CCompanion {
protected:
    void TearDown() override
    {
        registry::Unseal(HKEY_CURRENT_USER, registry::OptionKey);
        CCompanion::TearDown();
    }
};

TEST_F(SealedKey, ReadOnly_StartsAndEndsAndLosesNothing)
{
    registry::PutOption("UserName", "before");
    registry::SealAgainstWriting(HKEY_CURRENT_USER, registry::OptionKey);
    parlune.Start({}, agent.Variables());
    DismissReportsUntil([&] { return !agent.LinesWith("call Character[Bot].Show").empty(); });
    parlune.SetText("txtUserName", "after");
    parlune.Choose("mnuFileExit");
    DismissReportsUntil([&] { return !parlune.IsRunning(); });

    EXPECT_EQ(parlune.Process().ExitCode(), 0U);
    registry::Unseal(HKEY_CURRENT_USER, registry::OptionKey);
    EXPECT_EQ(registry::Option("UserName"), "before");
}
class SealedFolder : public CCompanion {};

TEST_F(SealedFolder, OfTheProgram_StartsAndEndsAndSaves)
{
    parlune.Start({}, agent.Variables(), "C:\\sealed\\");
    ASSERT_TRUE(agent.Sees("call Character[Bot].Show"));
    agent.Rest();
    parlune.SetText("txtUserName", "after");
    parlune.End();

    EXPECT_EQ(registry::Option("UserName"), "after");
}

TEST_F(SealedFolder, OfProgramAndWithoutAppData_KeepsTheProgramAlive)
{
    Environment variables = agent.Variables();
    variables["APPDATA"] = std::nullopt;
    parlune.Start({}, variables, "C:\\sealed\\");
    ASSERT_TRUE(agent.Sees("call Character[Bot].Show"));
    agent.Rest();
    parlune.Show();
    ShowPage(Page::Balloon);
    parlune.Click("cmdSetFont(0)");
    parlune.Choose("mnuFileExit");
    DismissReportsUntil([&] { return !parlune.IsRunning(); });

    EXPECT_EQ(parlune.Process().ExitCode(), 0U);
}

TEST_F(SealedFolder, ChosenForADocument_IsReportedAndTheTextIsKept)
{
    BeginShown();
    parlune.SetText("txtRead", "precious");
    parlune.Choose("mnuFileSave");
    const HWND dialog = WaitForFileDialog(parlune.Id(), "Save Text File");
    GiveFile(dialog, "C:\\sealed\\letter.txt");
    const Box box = SeeBox();
    ASSERT_TRUE(box);
    EXPECT_NE(box.text.find("Section: Parlune:SaveFile"), std::string::npos) << box.text;
    Answer(box, IDOK);

    EXPECT_EQ(parlune.Text("txtRead"), "precious");
}

class FullDisk : public CCompanion {};

TEST_F(FullDisk, Save_IsReportedAndTheTextIsKept)
{
    BeginShown();
    parlune.SetText("txtRead", "precious");
    parlune.Choose("mnuFileSave");
    GiveFile(WaitForFileDialog(parlune.Id(), "Save Text File"), "C:\\full\\letter.TXT");
    const Box first = SeeBox();
    ASSERT_TRUE(first);
    if (first.buttons == std::vector<int>{IDYES, IDNO})
        Answer(first, IDYES);  // There is such a file already.
    const Box box = SeeBox();
    EXPECT_NE(box.text.find("Section: Parlune:SaveFile"), std::string::npos) << box.text;
    Answer(box, IDOK);

    EXPECT_EQ(parlune.Text("txtRead"), "precious");
    EXPECT_EQ(parlune.Title(), "Parlune - [New File]");
}

TEST_F(FullDisk, OfTheSettings_KeepsTheProgramAlive)
{
    parlune.Start({}, [&] {
        Environment variables = agent.Variables();
        variables["APPDATA"] = "C:\\full";
        return variables;
    }());
    ASSERT_TRUE(agent.Sees("call Character[Bot].Show"));
    parlune.Show();
    ShowPage(Page::Balloon);
    parlune.Click("cmdSetFont(0)");
    parlune.Choose("mnuFileExit");
    DismissReportsUntil([&] { return !parlune.IsRunning(); });

    EXPECT_EQ(parlune.Process().ExitCode(), 0U);
}

}
