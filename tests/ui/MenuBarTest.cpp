#include "ui/MenuBar.h"
#include "settings/Paths.h"
#include "support/CharacterProgram.h"
#include "support/FailEachCall.h"

using platform::BoxAnswer;
using Texts = std::vector<std::string>;

namespace {

constexpr char OptionKey[] = "Software\\Tarrowind\\Parlune";
constexpr char ProgramFolder[] = "C:\\Program Files\\Parlune\\";

class MenuBar : public CharacterProgram {
protected:
    MenuBar()
    {
        settings::Paths().programFolder = ProgramFolder;
        desktop.registry.Put(platform::Root::CurrentUser, OptionKey, "UserName", "Ann");
        window.Load();
        desktop.journal.Clear();
    }
    std::string UserName() const
    {
        return desktop.registry.Text(platform::Root::CurrentUser, OptionKey, "UserName").value_or("(none)");
    }
    void Answer(BoxAnswer answer) { desktop.messageBoxes.answers = {answer}; }
    std::string Content(const std::string& name) const { return desktop.files.ReadText(ProgramFolder + name); }
};

// Download and help.

TEST_F(MenuBar, DownloadCharacters_OpensTheCharactersPage)
{
    menuBar::mnuDownloadCharacters_Click();
    ASSERT_EQ(desktop.shell.opened.size(), 1U);
    EXPECT_EQ(desktop.shell.opened[0].file, "https://parlune.example/characters");
}

TEST_F(MenuBar, DownloadTTSEngines_OpensTheSpeechEnginesPage)
{
    menuBar::mnuDownloadTTSEngines_Click();
    ASSERT_EQ(desktop.shell.opened.size(), 1U);
    EXPECT_EQ(desktop.shell.opened[0].file, "https://parlune.example/speech-engines");
}

TEST_F(MenuBar, Download_WhenACallFails_TellsAtMostThatThePageCannotBeOpened)
{
    support::FailEachCall([](CHeadlessDesktop&) {}, [](CHeadlessDesktop&) { menuBar::mnuDownloadCharacters_Click(); },
                          [](const support::FailedRun& run) {
                              support::ExpectReport(run, {{"Events.", "bShellEx:ShellEx"}, {"", ""}});
                              if (run.FailedIn("Shell.Open")) {
                                  EXPECT_EQ(run.desktop.messageBoxes.Last().Line(2), "https://parlune.example/characters");
                              }
                          });
}

TEST_F(MenuBar, About_SelectsTheSeventhTab)
{
    menuBar::frmHelpAbout_Click();
    EXPECT_EQ(window.tabMain.Selected(), 6);
}

TEST_F(MenuBar, About_WhenTheTabFails_IsReported)
{
    window.tabMain.onClick = [this] { throw failure; };
    menuBar::frmHelpAbout_Click();
    EXPECT_EQ(Reports(), Texts{"Parlune:frmHelpAbout_Click"});
}

// Reset defaults.

TEST_F(MenuBar, ResetDefaults_AsksFirst)
{
    Answer(BoxAnswer::No);
    menuBar::mnuFileResetDefaults_Click();
    const platform::headless::ShownBox& box = desktop.messageBoxes.Last();
    EXPECT_EQ(box.text, "Are you sure you want to reset all options\r\nto their original installation defaults?");
    EXPECT_EQ(box.title, "Parlune");
    EXPECT_EQ(box.buttons, platform::BoxButtons::YesNo);
    EXPECT_EQ(box.icon, platform::BoxIcon::Exclamation);
    EXPECT_TRUE(box.secondButtonIsDefault);
}

TEST_F(MenuBar, ResetDefaults_AnsweredNo_ChangesNothing)
{
    desktop.files.PutFile("C:\\Program Files\\Parlune\\Parlune.ini", "settings");
    Answer(BoxAnswer::No);
    menuBar::mnuFileResetDefaults_Click();
    EXPECT_EQ(desktop.journal.Calls(), Texts{"MessageBoxes.Show"});
    EXPECT_EQ(UserName(), "Ann");
    EXPECT_FALSE(settings::Options().Reset);
    EXPECT_TRUE(window.Loaded());
}

TEST_F(MenuBar, ResetDefaults_AnsweredYes_TakesEachStepInOrder)
{
    desktop.files.PutFile("C:\\Program Files\\Parlune\\Parlune.ini", "settings");
    window.onUnload = [this] { desktop.journal.Enter("(unload)"); };
    menuBar::mnuFileResetDefaults_Click();
    EXPECT_EQ(desktop.journal.Calls(),
              (Texts{"MessageBoxes.Show", "Files.Delete C:\\Program Files\\Parlune\\Parlune.old",
                     "Files.Rename C:\\Program Files\\Parlune\\Parlune.ini C:\\Program Files\\Parlune\\Parlune.old",
                     "Registry.DeleteKey CurrentUser Software\\Tarrowind\\Parlune", "MessageBoxes.Show", "(unload)"}));
}

TEST_F(MenuBar, ResetDefaults_AnsweredYes_ForgetsTheStoredOptions)
{
    menuBar::mnuFileResetDefaults_Click();
    EXPECT_EQ(UserName(), "(none)");
}

TEST_F(MenuBar, ResetDefaults_AnsweredYes_KeepsTheSettingsFileUnderItsOldName)
{
    desktop.files.PutFile("C:\\Program Files\\Parlune\\Parlune.ini", "settings");
    desktop.files.PutFile("C:\\Program Files\\Parlune\\Parlune.old", "older settings");
    menuBar::mnuFileResetDefaults_Click();
    EXPECT_FALSE(desktop.files.Has("C:\\Program Files\\Parlune\\Parlune.ini"));
    EXPECT_EQ(Content("Parlune.old"), "settings");
}

TEST_F(MenuBar, ResetDefaults_AnsweredYes_LeavesTheUsersSettingsFile)
{
    desktop.files.PutFile(SettingsFile, "settings");
    menuBar::mnuFileResetDefaults_Click();
    EXPECT_EQ(desktop.files.ReadText(SettingsFile), "settings");
}

TEST_F(MenuBar, ResetDefaults_AnsweredYes_TellsAndEndsTheProgram)
{
    menuBar::mnuFileResetDefaults_Click();
    const platform::headless::ShownBox& box = desktop.messageBoxes.Last();
    EXPECT_EQ(box.text,
              "All options have been reset to their original installation defaults.\r\n\r\nPlease restart Parlune.");
    EXPECT_EQ(box.title, "Parlune");
    EXPECT_EQ(box.buttons, platform::BoxButtons::Ok);
    EXPECT_EQ(box.icon, platform::BoxIcon::Information);
    EXPECT_FALSE(window.Loaded());
}

TEST_F(MenuBar, ResetDefaults_AnsweredYes_UnloadsTheWindowWithNothingToWrite)
{
    bool resetAtUnload = false;
    ui::UnloadMode mode = ui::UnloadMode::ControlMenu;
    window.onQueryUnload = [&](ui::UnloadMode asked) {
        mode = asked;
        return true;
    };
    window.onUnload = [&] { resetAtUnload = settings::Options().Reset; };
    menuBar::mnuFileResetDefaults_Click();
    EXPECT_EQ(mode, ui::UnloadMode::Code);
    EXPECT_TRUE(resetAtUnload);
}

TEST_F(MenuBar, ResetDefaults_WithoutSettingsFiles_StillResetsAndEnds)
{
    menuBar::mnuFileResetDefaults_Click();
    EXPECT_EQ(desktop.messageBoxes.shown.size(), 2U);
    EXPECT_EQ(UserName(), "(none)");
    EXPECT_FALSE(window.Loaded());
}

// The deleting of the key has a report of its own; nothing else is told, and the program ends.
TEST_F(MenuBar, ResetDefaults_WhenACallFails_GoesOnToTheEnd)
{
    support::FailEachCall(
        [](CHeadlessDesktop& each) {
            settings::Paths().programFolder = ProgramFolder;
            each.files.PutFile("C:\\Program Files\\Parlune\\Parlune.ini", "settings");
            each.files.PutFile("C:\\Program Files\\Parlune\\Parlune.old", "older settings");
            MainWindow().Load();
        },
        [](CHeadlessDesktop&) { menuBar::mnuFileResetDefaults_Click(); },
        [first = true](const support::FailedRun& run) mutable {
            const bool asking = std::exchange(first, false);
            support::ExpectReport(run, {{"Registry.", "bRegistry:DelReg"},
                                        {"MessageBoxes.", asking ? "Parlune:mnuFileResetDefaults_Click" : ""},
                                        {"", ""}});
            EXPECT_EQ(MainWindow().Loaded(), asking);
            EXPECT_EQ(settings::Options().Reset, !asking);
        });
}

}
