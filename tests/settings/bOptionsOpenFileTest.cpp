#include "settings/bOptions.h"
#include "support/CharacterProgram.h"
#include "support/FailEachCall.h"
#include "ui/EditorDocument.h"
#include "ui/TextEditor.h"

using platform::BoxAnswer;
using platform::Pointer;
using Texts = std::vector<std::string>;

class OpenFile : public CharacterProgram {
protected:
    OpenFile() { window.txtRead.onChange = textEditor::txtRead_Change; }
    static constexpr char File[] = "C:\\Texts\\a.txt";
    static constexpr char Question[] = "File Open has taken more than 30 seconds.  Continue?";

    std::string Opened(const std::string& content)
    {
        desktop.files.PutFile(File, content);
        bOptions::OpenFile(File);
        return window.txtRead.Text();
    }
    // A file of so many lines, each of which takes so long to read.
    void OpenSlowly(std::size_t lines, std::int64_t millisecondsPerLine)
    {
        std::string content;
        for (std::size_t line = 1; line <= lines; ++line)
            content += std::to_string(line) + "\r\n";
        desktop.files.beforeLine = [=, this](std::size_t) { desktop.clock.Advance(millisecondsPerLine); };
        window.txtRead.SetText("former");
        window.SetCaption("former title");
        Opened(content);
    }
    const ui::EditorDocument& document = ui::Document();
};

TEST_F(OpenFile, OfAPath_ShowsTheFileUnmodified)
{
    EXPECT_EQ(Opened("Hello\r\nWorld\r\n"), "Hello\r\nWorld\r\n");
    EXPECT_EQ(document.currentFile, File);
    EXPECT_FALSE(document.modified);
    EXPECT_EQ(window.Caption(), "Parlune - [C:\\Texts\\a.txt]");
    EXPECT_EQ(settings::Options().LastFolder, "C:\\Texts\\");
    EXPECT_TRUE(desktop.fileDialogs.asked.empty());
}

TEST_F(OpenFile, ALastLineWithoutLineBreak_GetsOne) { EXPECT_EQ(Opened("abc"), "abc\r\n"); }

TEST_F(OpenFile, AnEmptyFile_IsAnEmptyText)
{
    window.txtRead.SetText("former");
    EXPECT_EQ(Opened(""), "");
}

TEST_F(OpenFile, OneEmptyLine_IsAnEmptyText) { EXPECT_EQ(Opened("\r\n"), ""); }

TEST_F(OpenFile, SeveralEmptyLinesAtTheEnd_KeepOneLineBreak) { EXPECT_EQ(Opened("abc\r\n\r\n\r\n\r\n"), "abc\r\n"); }

TEST_F(OpenFile, OnlyEmptyLines_KeepOneLineBreak) { EXPECT_EQ(Opened("\r\n\r\n\r\n"), "\r\n"); }

TEST_F(OpenFile, EmptyLinesInside_AreKept) { EXPECT_EQ(Opened("a\r\n\r\n\r\nb\r\n"), "a\r\n\r\n\r\nb\r\n"); }

TEST_F(OpenFile, LineFeedsAndLoneCarriageReturns_EndLines)
{
    EXPECT_EQ(Opened("a\nb\n"), "a\r\nb\r\n");
    EXPECT_EQ(Opened("a\rb\r"), "a\r\nb\r\n");
    EXPECT_EQ(Opened("a\rb\nc\r\nd"), "a\r\nb\r\nc\r\nd\r\n");
}

TEST_F(OpenFile, WithoutAPath_AsksForATextFile)
{
    settings::Options().LastFolder = "C:\\Books\\";
    bOptions::OpenFile("");
    ASSERT_EQ(desktop.fileDialogs.asked.size(), 1U);
    const platform::FileDialog& asked = desktop.fileDialogs.asked[0];
    EXPECT_EQ(asked.mode, platform::FileDialog::Mode::Open);
    EXPECT_EQ(asked.filter, std::string("Text Documents (*.txt)\0*.txt\0All Files\0*.*", 42));
    EXPECT_EQ(asked.filterIndex, 2);
    EXPECT_EQ(asked.initialFolder, "C:\\Books\\");
    EXPECT_EQ(asked.initialFile, "");
    EXPECT_EQ(asked.defaultExtension, "TXT");
    EXPECT_EQ(asked.title, "Open Text File");
}

TEST_F(OpenFile, TheFirstTime_AsksInTheCurrentFolderWithoutKeepingIt)
{
    bOptions::OpenFile("");
    EXPECT_EQ(desktop.fileDialogs.asked.at(0).initialFolder, "C:\\Users\\Ann\\Documents");
    EXPECT_EQ(settings::Options().LastFolder, "");
}

TEST_F(OpenFile, CancelledWithoutAFile_LeavesTheCurrentFolderAsCurrentFile)
{
    window.txtRead.SetText("former");
    bOptions::OpenFile("");
    EXPECT_EQ(document.currentFile, "C:\\Users\\Ann\\Documents");
    EXPECT_EQ(window.txtRead.Text(), "former");
    EXPECT_TRUE(document.modified);
    EXPECT_TRUE(desktop.screen.pointers.empty());
}

TEST_F(OpenFile, CancelledWithAFile_KeepsIt)
{
    Opened("abc");
    bOptions::OpenFile("");
    EXPECT_EQ(document.currentFile, File);
}

TEST_F(OpenFile, ShowsTheHourglassMeanwhile)
{
    desktop.files.beforeLine = [this](std::size_t) { EXPECT_EQ(desktop.screen.pointers, std::vector{Pointer::Hourglass}); };
    Opened("abc");
    EXPECT_EQ(desktop.screen.pointers, (std::vector{Pointer::Hourglass, Pointer::Default}));
}

TEST_F(OpenFile, AfterThirtySecondsExactly_AsksNothing)
{
    OpenSlowly(30, 1000);
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST_F(OpenFile, AfterMoreThanThirtySeconds_AsksOnce)
{
    desktop.messageBoxes.answers = {BoxAnswer::Yes};
    OpenSlowly(300, 1000);
    ASSERT_EQ(desktop.messageBoxes.shown.size(), 1U);
    EXPECT_EQ(desktop.messageBoxes.Last().text, Question);
    EXPECT_EQ(desktop.messageBoxes.Last().title, "Parlune");
    EXPECT_EQ(desktop.messageBoxes.Last().buttons, platform::BoxButtons::YesNo);
    EXPECT_EQ(desktop.messageBoxes.Last().icon, platform::BoxIcon::Exclamation);
    EXPECT_TRUE(window.txtRead.Text().ends_with("299\r\n300\r\n"));
}

TEST_F(OpenFile, AfterMoreThanThirtySeconds_CountsWholeSeconds)
{
    OpenSlowly(2, 15'499);
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
    desktop.messageBoxes.answers = {BoxAnswer::Yes};
    OpenSlowly(2, 15'500);
    EXPECT_EQ(desktop.messageBoxes.shown.size(), 1U);
}

TEST_F(OpenFile, AfterMoreThanThirtySeconds_CountsTheSecondsOfTheClock)
{
    desktop.clock.Advance(900);
    OpenSlowly(1, 30'099);  // From second 0 to second 30.
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
    desktop.clock.Advance(901);
    OpenSlowly(1, 30'100);  // From second 31 to second 62.
    EXPECT_EQ(desktop.messageBoxes.shown.size(), 1U);
}

TEST_F(OpenFile, TheTimeInTheDialog_CountsForNothing)
{
    desktop.fileDialogs.answers = {File};
    desktop.fileDialogs.whileAsked = [this] { desktop.clock.Advance(60'000); };
    desktop.files.PutFile(File, "abc");
    bOptions::OpenFile("");
    EXPECT_EQ(window.txtRead.Text(), "abc\r\n");
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST_F(OpenFile, AFileThatIsNotThere_StillGivesTheLastFolder)
{
    bOptions::OpenFile("C:\\Texts\\missing.txt");
    EXPECT_EQ(Reports(), Texts{"bOptions:OpenFile"});
    EXPECT_EQ(settings::Options().LastFolder, "C:\\Texts\\");
}

TEST_F(OpenFile, WhileItTakesLong_LetsEventsRunEveryHalfMinute)
{
    desktop.messageBoxes.answers = {BoxAnswer::Yes};
    OpenSlowly(93, 1000);
    EXPECT_EQ(desktop.events.Yields(), 3U);
    EXPECT_EQ(desktop.messageBoxes.shown.size(), 1U);
}

TEST_F(OpenFile, TheTimeOfTheAnswer_CountsForNothing)
{
    desktop.messageBoxes.answers = {BoxAnswer::Yes};
    desktop.messageBoxes.whileShown = [this] { desktop.clock.Advance(600'000); };
    OpenSlowly(32, 1000);
    EXPECT_EQ(desktop.events.Yields(), 1U);
}

TEST_F(OpenFile, AnsweredNo_LeavesEditorTitleAndFileUnchanged)
{
    desktop.messageBoxes.answers = {BoxAnswer::No};
    OpenSlowly(40, 1000);
    EXPECT_EQ(window.txtRead.Text(), "former");
    EXPECT_EQ(window.Caption(), "former title");
    EXPECT_EQ(document.currentFile, "");
    EXPECT_TRUE(document.modified);
    EXPECT_EQ(desktop.screen.pointers.back(), Pointer::Default);
    EXPECT_EQ(desktop.events.Yields(), 0U);
}

TEST_F(OpenFile, ThirtyThousandLines_TakeNoQuestionAndKeepTheirOrder)
{
    OpenSlowly(30'000, 1);
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
    EXPECT_TRUE(window.txtRead.Text().starts_with("1\r\n2\r\n3\r\n"));
    EXPECT_TRUE(window.txtRead.Text().ends_with("\r\n29999\r\n30000\r\n"));
}

TEST_F(OpenFile, AFileThatMayNotBeAccessed_AsksToTryAgainInTheWordsOfSaving)
{
    desktop.files.PutFolder(File);  // Reading a folder is a path or file access error.
    desktop.messageBoxes.answers = {BoxAnswer::Cancel};
    bOptions::OpenFile(File);
    ASSERT_EQ(desktop.messageBoxes.shown.size(), 1U);
    EXPECT_EQ(desktop.messageBoxes.Last().text, "Error Saving File:\r\nC:\\Texts\\a.txt");
    EXPECT_EQ(desktop.messageBoxes.Last().buttons, platform::BoxButtons::OkCancel);
    EXPECT_EQ(desktop.messageBoxes.Last().icon, platform::BoxIcon::Exclamation);
}

TEST_F(OpenFile, AFileThatMayNotBeAccessed_CancelEndsIt)
{
    window.txtRead.SetText("former");
    desktop.files.PutFolder(File);
    desktop.messageBoxes.answers = {BoxAnswer::Cancel};
    bOptions::OpenFile(File);
    EXPECT_EQ(window.txtRead.Text(), "former");
    EXPECT_EQ(document.currentFile, "");
    EXPECT_EQ(desktop.screen.pointers.back(), Pointer::Default);
}

TEST_F(OpenFile, AFileThatMayNotBeAccessed_OkTriesAgain)
{
    desktop.journal.FailNext("Files.OpenLines", platform::failure::PathFileAccess());
    EXPECT_EQ(Opened("abc"), "abc\r\n");
    EXPECT_EQ(desktop.messageBoxes.shown.size(), 1U);
    EXPECT_EQ(document.currentFile, File);
}

TEST_F(OpenFile, AccessLostInTheMiddle_OkReadsTheWholeFileAgain)
{
    desktop.files.beforeLine = [this](std::size_t number) {
        if (number == 2 && desktop.messageBoxes.shown.empty())
            throw platform::failure::PathFileAccess();
    };
    EXPECT_EQ(Opened("a\r\nb\r\nc\r\n"), "a\r\nb\r\nc\r\n");
}

TEST_F(OpenFile, AMissingFile_IsReportedAndTheEditorKeepsItsText)
{
    window.txtRead.SetText("former");
    bOptions::OpenFile("C:\\Texts\\none.txt");
    EXPECT_EQ(Reports(), Texts{"bOptions:OpenFile"});
    EXPECT_EQ(desktop.messageBoxes.Last().Line(3), "Error Code: 53");
    EXPECT_EQ(window.txtRead.Text(), "former");
    EXPECT_EQ(document.currentFile, "");
    EXPECT_EQ(desktop.screen.pointers.back(), Pointer::Default);
}

TEST_F(OpenFile, AFileThatVanishesMeanwhile_IsReadToItsEnd)
{
    desktop.files.beforeLine = [this](std::size_t) { desktop.files.Remove(File); };
    EXPECT_EQ(Opened("a\r\nb\r\n"), "a\r\nb\r\n");
}

TEST_F(OpenFile, AFailureInTheMiddle_IsReportedAndTheEditorKeepsItsText)
{
    window.txtRead.SetText("former");
    desktop.files.beforeLine = [](std::size_t number) {
        if (number == 2)
            throw platform::failure::DeviceError();
    };
    EXPECT_EQ(Opened("a\r\nb\r\n"), "former");
    EXPECT_EQ(Reports(), Texts{"bOptions:OpenFile"});
}

TEST(OpenFileFailures, OpenFile_EachFailingCall_IsReportedOnce)
{
    support::FailEachCallAndExpect(
        {{"FileDialogs.", "bGetFileName:GetFileName"}, {"", "bOptions:OpenFile"}},
        [](CHeadlessDesktop& desktop) {
            desktop.files.PutFile("C:\\Texts\\a.txt", "abc");
            desktop.fileDialogs.answers = {"C:\\Texts\\a.txt"};
        },
        [](CHeadlessDesktop&) { bOptions::OpenFile(""); });
}

TEST_F(OpenFile, AFailingPointer_DoesNotKeepTheFileClosed)
{
    desktop.journal.FailAlways("Screen.SetPointer", failure);
    EXPECT_EQ(Opened("abc"), "abc\r\n");
}

class ReopenDocument : public OpenFile {
protected:
    ReopenDocument()
    {
        desktop.files.PutFile(File, "abc");
        for (const auto& [name, value] : {std::pair("FileName", File), {"CharWidth", "0"}, {"CharHeight", "0"}})
            desktop.registry.Put(platform::Root::CurrentUser, "Software\\Tarrowind\\Parlune", name, value);
    }
};

TEST_F(ReopenDocument, GetOptions_OpensTheStoredFile)
{
    bOptions::GetOptions();
    EXPECT_EQ(window.txtRead.Text(), "abc\r\n");
    EXPECT_EQ(window.Caption(), "Parlune - [C:\\Texts\\a.txt]");
}

TEST_F(ReopenDocument, GetOptions_SetsTheCurrentFileOnlyForTheDuration)
{
    std::string during;
    desktop.files.beforeLine = [&](std::size_t) { during = document.currentFile; };
    bOptions::GetOptions();
    EXPECT_EQ(during, File);
    EXPECT_EQ(document.currentFile, "");
}

TEST_F(ReopenDocument, GetOptions_AStoredFileThatIsGone_IsNotOpened)
{
    desktop.files.Remove(File);
    bOptions::GetOptions();
    EXPECT_EQ(window.txtRead.Text(), "");
    EXPECT_EQ(window.Caption(), "Parlune");
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST_F(ReopenDocument, SetOptions_StoresTheCurrentFile)
{
    ui::Document().currentFile = "C:\\Texts\\b.txt";
    bOptions::SetOptions();
    EXPECT_EQ(desktop.registry.Text(platform::Root::CurrentUser, "Software\\Tarrowind\\Parlune", "FileName"),
              "C:\\Texts\\b.txt");
}
