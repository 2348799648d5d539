#include "character/CharacterSession.h"
#include "character/CharacterState.h"
#include "reading/bRead.h"
#include "settings/OptionsRecord.h"
#include "settings/Paths.h"
#include "support/FailEachCall.h"
#include "ui/frmParlune.h"

using support::FailEachCallAndExpect;

namespace {

void LoadMerlin(CHeadlessDesktop&)
{
    settings::Paths().settingsFile = "C:\\Data\\Parlune.ini";
    character::CharLoad("Merlin", /*show*/ true);
}

void LoadMerlinHidden(CHeadlessDesktop& desktop)
{
    LoadMerlin(desktop);
    desktop.engine.loaded->visible = false;
    desktop.clipboard.Put("Hello");
    MainWindow().chkQueueReadCommands.SetValue(0);
}

}

TEST(ReadingFailures, ReadContents_WhicheverCallFails_IsReportedByItsProcedure)
{
    FailEachCallAndExpect({{"Events.", "bReadTextFile:ReadContents"},
                           {"Character.Speak", "bParlune:CharSpeak"},
                           {"Character.Play", ""},
                           {"Clock.", ""}},
                          LoadMerlin, [](CHeadlessDesktop&) {
                              bRead::ReadContents(std::string(60, 'a') + "\r\n" + std::string(60, 'b') + ".  " +
                                                  std::string(60, 'c'));
                          });
}

TEST(ReadingFailures, ReadClipboard_WhicheverCallFails_IsReportedByItsProcedure)
{
    FailEachCallAndExpect(
        {{"Clipboard.", "bReadTextFile:ReadClipboard"}, {"Character.Speak", "bParlune:CharSpeak"}, {"Character.", ""}},
        LoadMerlinHidden, [](CHeadlessDesktop&) { bRead::ReadClipboard(); });
}

TEST(ReadingFailures, ReadTextFile_WhicheverCallFails_IsReportedByItsProcedure)
{
    FailEachCallAndExpect(
        {{"FileDialogs.", "bGetFileName:GetFileName"},
         {"Character.Speak", "bParlune:CharSpeak"},
         {"Character.Play", ""},
         {"", "bReadTextFile:ReadTextFile"}},
        [](CHeadlessDesktop& desktop) {
            LoadMerlin(desktop);
            desktop.files.PutFile("C:\\Texts\\a.txt", "Hello");
            desktop.fileDialogs.answers = {"C:\\Texts\\a.txt"};
        },
        [](CHeadlessDesktop&) { bRead::ReadTextFile(""); });
}

TEST(ReadingFailures, ReadTextFile_WhenTheCurrentFolderIsUnknown_StillAsks)
{
    CHeadlessDesktop desktop;
    desktop.journal.FailNext("Files.CurrentFolder", {57, "Device I/O error"});
    bRead::ReadTextFile("");
    EXPECT_EQ(desktop.fileDialogs.asked.size(), 1U);
}

TEST(ReadingFailures, ReadTextFile_WhenTheYieldFails_StillReads)
{
    CHeadlessDesktop desktop;
    LoadMerlin(desktop);
    desktop.files.PutFile("C:\\Texts\\a.txt", "Hello");
    desktop.journal.FailNext("Events.RunPendingEvents", {57, "Device I/O error"});
    bRead::ReadTextFile("C:\\Texts\\a.txt");
    EXPECT_EQ(desktop.engine.Spoken(), std::vector<std::string>{"Hello"});
}

TEST(ReadingFailures, TheOfficeTexts_WhicheverCallFails_AreSilent)
{
    FailEachCallAndExpect(
        {{"", ""}},
        [](CHeadlessDesktop& desktop) {
            desktop.office.word = {"Document\r", "Selection\r"};
            desktop.office.excel = {true, {{"A1", "B1"}, {"A2", "B2"}}};
        },
        [](CHeadlessDesktop&) {
            bRead::ReadWordDocument();
            bRead::ReadWordSelection();
            bRead::ReadExcelSelection();
        });
}

TEST(ReadingFailures, ReadText_WhicheverCallFails_IsReportedByTheSpeechOnly)
{
    FailEachCallAndExpect(
        {{"Character.Speak", "bParlune:CharSpeak"}, {"Character.Show", ""}},
        [](CHeadlessDesktop& desktop) {
            LoadMerlin(desktop);
            MainWindow().txtRead.SetText("Hello");
        },
        [](CHeadlessDesktop&) { bRead::ReadText(); });
}
