#include "ui/TextEditor.h"
#include "settings/bOptions.h"
#include "startup/Wiring.h"
#include "support/CharacterProgram.h"
#include "support/FailEachCall.h"
#include "ui/EditorDocument.h"

using platform::BoxAnswer;
using Texts = std::vector<std::string>;

class TextEditor : public CharacterProgram {
protected:
    TextEditor()
    {
        startup::WireProgram();
        window.tabMain.onClick = {};
        desktop.files.PutFile("C:\\Texts\\a.txt", "Hello\r\n");
    }
    void Type(const std::string& text) { window.txtRead.SetText(window.txtRead.Text() + text); }
    void Open() { bOptions::OpenFile("C:\\Texts\\a.txt"); }
    const ui::EditorDocument& document = ui::Document();
};

TEST_F(TextEditor, Typing_IntoANewText_MarksTheTitleOnce)
{
    Type("a");
    EXPECT_EQ(window.Caption(), "Parlune - [New File] *");
    Type("b");
    EXPECT_EQ(window.Caption(), "Parlune - [New File] *");
    EXPECT_TRUE(document.modified);
}

TEST_F(TextEditor, Typing_IntoAFile_MarksItsTitle)
{
    Open();
    Type("!");
    EXPECT_EQ(window.Caption(), "Parlune - [C:\\Texts\\a.txt] *");
}

TEST_F(TextEditor, FileNew_ShowsAnEmptyTextOnTheReadTab)
{
    Open();
    window.mnuFileNew.Click();
    EXPECT_EQ(window.txtRead.Text(), "");
    EXPECT_EQ(document.currentFile, "");
    EXPECT_FALSE(document.modified);
    EXPECT_EQ(window.Caption(), "Parlune - [New File]");
    EXPECT_EQ(window.tabMain.Selected(), 4);
}

TEST_F(TextEditor, FileNew_UnmodifiedText_SavesNothing)
{
    Open();
    desktop.journal.Clear();
    textEditor::FileNew();
    EXPECT_EQ(desktop.journal.Count("Files.WriteLine"), 0U);
}

TEST_F(TextEditor, FileNew_ModifiedFile_IsSavedWithoutAQuestion)
{
    Open();
    Type("World");
    textEditor::FileNew();
    EXPECT_EQ(desktop.files.Content("C:\\Texts\\a.txt"), "Hello\r\nWorld\r\n");
    EXPECT_TRUE(desktop.fileDialogs.asked.empty());
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST_F(TextEditor, FileNew_ModifiedTextThatWasNeverSaved_AsksForAFile)
{
    Type("Hello");
    desktop.fileDialogs.answers = {"C:\\Texts\\b.txt"};
    textEditor::FileNew();
    EXPECT_EQ(desktop.files.Content("C:\\Texts\\b.txt"), "Hello\r\n");
    EXPECT_EQ(document.currentFile, "");
    EXPECT_EQ(window.Caption(), "Parlune - [New File]");
}

TEST_F(TextEditor, FileNew_CancelledSave_StillEmptiesTheEditor)
{
    Type("Hello");
    textEditor::FileNew();
    EXPECT_EQ(desktop.fileDialogs.asked.size(), 1U);
    EXPECT_EQ(window.txtRead.Text(), "");
    EXPECT_FALSE(document.modified);
}

TEST_F(TextEditor, FileClose_DiffersFromNewOnlyInTheTitle)
{
    Open();
    window.mnuFileClose.Click();
    EXPECT_EQ(window.txtRead.Text(), "");
    EXPECT_EQ(document.currentFile, "");
    EXPECT_EQ(window.Caption(), "Parlune");
    EXPECT_EQ(window.tabMain.Selected(), 4);
}

TEST_F(TextEditor, FileOpen_AsksAndShowsTheFileOnTheReadTab)
{
    desktop.fileDialogs.answers = {"C:\\Texts\\a.txt"};
    window.mnuFileOpen.Click();
    EXPECT_EQ(window.txtRead.Text(), "Hello\r\n");
    EXPECT_EQ(window.tabMain.Selected(), 4);
}

TEST_F(TextEditor, FileOpen_Cancelled_StillShowsTheReadTab)
{
    window.mnuFileOpen.Click();
    EXPECT_EQ(window.tabMain.Selected(), 4);
}

TEST_F(TextEditor, FileSave_AnEmptyEditor_SavesNothing)
{
    window.mnuFileSave.Click();
    EXPECT_EQ(desktop.journal.Count("Files.WriteLine"), 0U);
    EXPECT_TRUE(desktop.fileDialogs.asked.empty());
}

TEST_F(TextEditor, FileSave_AFile_WritesItAndClearsTheMark)
{
    Open();
    Type("!");
    window.mnuFileSave.Click();
    EXPECT_EQ(desktop.files.Content("C:\\Texts\\a.txt"), "Hello\r\n!\r\n");
    EXPECT_EQ(window.Caption(), "Parlune - [C:\\Texts\\a.txt]");
    EXPECT_FALSE(document.modified);
}

TEST_F(TextEditor, FileSave_Cancelled_TakesTheMarkFromTheTitleAllTheSame)
{
    Type("Hello");
    window.mnuFileSave.Click();
    EXPECT_EQ(window.Caption(), "Parlune - [New File]");
    EXPECT_TRUE(document.modified);
}

TEST_F(TextEditor, FileSave_EmptiedFile_OnlyTakesTheMarkFromTheTitle)
{
    Open();
    window.txtRead.SetText("");
    window.mnuFileSave.Click();
    EXPECT_EQ(desktop.files.Content("C:\\Texts\\a.txt"), "Hello\r\n");
    EXPECT_EQ(window.Caption(), "Parlune - [C:\\Texts\\a.txt]");
    EXPECT_TRUE(document.modified);
}

TEST_F(TextEditor, SaveFile_WithoutAName_AsksForATextFile)
{
    settings::Options().LastFolder = "C:\\Books\\";
    Type("Hello");
    textEditor::SaveFile("");
    ASSERT_EQ(desktop.fileDialogs.asked.size(), 1U);
    const platform::FileDialog& asked = desktop.fileDialogs.asked[0];
    EXPECT_EQ(asked.mode, platform::FileDialog::Mode::Save);
    EXPECT_EQ(asked.filter, std::string("Text Documents (*.txt)\0*.txt\0All Files\0*.*", 42));
    EXPECT_EQ(asked.filterIndex, 2);
    EXPECT_EQ(asked.initialFolder, "C:\\Books\\");
    EXPECT_EQ(asked.initialFile, "");
    EXPECT_EQ(asked.defaultExtension, "TXT");
    EXPECT_EQ(asked.title, "Save Text File");
}

TEST_F(TextEditor, SaveFile_TheFirstTime_AsksInTheCurrentFolderAndKeepsIt)
{
    Type("Hello");
    textEditor::SaveFile("");
    EXPECT_EQ(desktop.fileDialogs.asked.at(0).initialFolder, "C:\\Users\\Ann\\Documents");
    EXPECT_EQ(settings::Options().LastFolder, "C:\\Users\\Ann\\Documents");
}

TEST_F(TextEditor, SaveFile_Cancelled_ChangesNothing)
{
    settings::Options().LastFolder = "C:\\Books\\";
    Type("Hello");
    textEditor::SaveFile("");
    EXPECT_TRUE(document.modified);
    EXPECT_EQ(document.currentFile, "");
    EXPECT_EQ(window.Caption(), "Parlune - [New File] *");
    EXPECT_EQ(settings::Options().LastFolder, "C:\\Books\\");
}

TEST_F(TextEditor, SaveFile_WithoutANameOfAnEmptyEditor_DoesNothing)
{
    textEditor::SaveFile("");
    EXPECT_TRUE(desktop.journal.Calls().empty());
}

TEST_F(TextEditor, SaveFile_OfANamedFileAndAnEmptyEditor_WritesALineBreak)
{
    textEditor::SaveFile("C:\\Texts\\a.txt");
    EXPECT_EQ(desktop.files.Content("C:\\Texts\\a.txt"), "\r\n");
}

TEST_F(TextEditor, SaveFile_RemembersTheFolderAndTheFile)
{
    Type("Hello");
    textEditor::SaveFile("C:\\Texts\\b.txt");
    EXPECT_EQ(settings::Options().LastFolder, "C:\\Texts\\");
    EXPECT_EQ(document.currentFile, "C:\\Texts\\b.txt");
    EXPECT_EQ(window.Caption(), "Parlune - [C:\\Texts\\b.txt]");
}

TEST_F(TextEditor, SaveFile_WhatWasSaved_OpensWithOneLineBreakAndStaysSo)
{
    Type("abc");
    textEditor::SaveFile("C:\\Texts\\b.txt");
    EXPECT_EQ(desktop.files.Content("C:\\Texts\\b.txt"), "abc\r\n");
    bOptions::OpenFile("C:\\Texts\\b.txt");
    EXPECT_EQ(window.txtRead.Text(), "abc\r\n");
    textEditor::SaveFile("C:\\Texts\\b.txt");
    EXPECT_EQ(desktop.files.Content("C:\\Texts\\b.txt"), "abc\r\n\r\n");
    bOptions::OpenFile("C:\\Texts\\b.txt");
    EXPECT_EQ(window.txtRead.Text(), "abc\r\n");
}

TEST_F(TextEditor, SaveFile_AReadOnlyFile_IsReportedAndChangesNothing)
{
    Open();
    Type("!");
    desktop.files.SetReadOnly("C:\\Texts\\a.txt");
    textEditor::SaveFile("C:\\Texts\\a.txt");
    EXPECT_EQ(Reports(), Texts{"Parlune:SaveFile"});
    EXPECT_EQ(desktop.messageBoxes.Last().Line(3), "Error Code: 75");
    EXPECT_EQ(desktop.files.Content("C:\\Texts\\a.txt"), "Hello\r\n");
    EXPECT_TRUE(document.modified);
    EXPECT_EQ(window.Caption(), "Parlune - [C:\\Texts\\a.txt] *");
}

TEST_F(TextEditor, SaveFile_ThatFails_StillGivesTheLastFolder)
{
    settings::Options().LastFolder = "C:\\Books\\";
    Type("Hello");
    desktop.files.SetReadOnly("C:\\Texts\\a.txt");
    textEditor::SaveFile("C:\\Texts\\a.txt");
    EXPECT_EQ(settings::Options().LastFolder, "C:\\Texts\\");
}

TEST_F(TextEditor, SaveFile_InAFolderThatVanished_IsReported)
{
    Type("Hello");
    textEditor::SaveFile("C:\\Nowhere\\a.txt");
    EXPECT_EQ(Reports(), Texts{"Parlune:SaveFile"});
    EXPECT_EQ(document.currentFile, "");
    EXPECT_TRUE(document.modified);
}

TEST(TextEditorFailures, SaveFile_WhenACallFails_IsReportedOnceAndTheDocumentStays)
{
    support::FailEachCall(
        [](CHeadlessDesktop& desktop) {
            startup::WireProgram();
            desktop.files.PutFolder("C:\\Texts");
            desktop.fileDialogs.answers = {"C:\\Texts\\b.txt"};
            MainWindow().txtRead.SetText("Hello");
        },
        [](CHeadlessDesktop&) { textEditor::SaveFile(""); },
        [](const support::FailedRun& run) {
            support::ExpectReport(
                run, {{"FileDialogs.", "bGetFileName:GetFileName"}, {"KeptTexts.", ""}, {"", "Parlune:SaveFile"}});
            if (run.FailedIn("KeptTexts.")) {
                EXPECT_FALSE(ui::Document().modified);
                EXPECT_EQ(run.desktop.files.Content("C:\\Texts\\b.txt"), "Hello\r\n");
                return;
            }
            EXPECT_TRUE(ui::Document().modified);
            EXPECT_EQ(ui::Document().currentFile, "");
            EXPECT_EQ(MainWindow().Caption(), "Parlune - [New File] *");
        });
}

TEST_F(TextEditor, FileRead_SpeaksTheText)
{
    LoadMerlin();
    Type("Hello");
    window.mnuFileRead.Click();
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"Hello"});
}

TEST_F(TextEditor, Stop_StopsTheCharacter)
{
    LoadMerlin();
    window.mnuFileStop.Click();
    EXPECT_EQ(desktop.journal.Count("Character.Stop"), 1U);
}

TEST_F(TextEditor, Toolbar_EachKey_RunsItsCommand)
{
    LoadMerlin();
    desktop.fileDialogs.answers = {"C:\\Texts\\a.txt"};
    window.tlbToolbar.Click("OPEN");
    EXPECT_EQ(window.txtRead.Text(), "Hello\r\n");
    window.tlbToolbar.Click("READ");
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"Hello"});
    window.tlbToolbar.Click("STOP");
    EXPECT_EQ(desktop.journal.Count("Character.Stop"), 1U);
    Type("!");
    window.tlbToolbar.Click("SAVE");
    EXPECT_EQ(desktop.files.Content("C:\\Texts\\a.txt"), "Hello\r\n!\r\n");
    window.tlbToolbar.Click("NEW");
    EXPECT_EQ(window.Caption(), "Parlune - [New File]");
}

TEST_F(TextEditor, Toolbar_AKeyInOtherLetters_DoesNothing)
{
    Open();
    window.tlbToolbar.Click("New");
    window.tlbToolbar.Click("");
    EXPECT_EQ(window.txtRead.Text(), "Hello\r\n");
}

TEST_F(TextEditor, Toolbar_AFailingCommand_IsReportedUnderTheToolbarsName)
{
    window.tabMain.onClick = [this] { throw failure; };
    window.tlbToolbar.Click("NEW");
    EXPECT_EQ(Reports(), Texts{"Parlune:tlbToolbar_ButtonClick"});
}

TEST_F(TextEditor, FileMenu_AFailingCommand_IsReportedUnderTheEntrysName)
{
    window.tabMain.onClick = [this] { throw failure; };
    window.mnuFileClose.Click();
    EXPECT_EQ(Reports(), Texts{"Parlune:mnuFileClose_Click"});
}

// What sets a text, a page or the title fails.
TEST_F(TextEditor, MenuEntries_ThatFail_ReportUnderTheirNames)
{
    const auto fail = [this] { throw failure; };
    Type("Hello");
    ui::Document().modified = false;
    window.txtRead.SetPeer(fail);
    window.mnuFileNew.Click();
    window.txtRead.SetPeer(nullptr);
    window.tabMain.SetPeer(fail);
    window.mnuFileOpen.Click();
    window.tabMain.SetPeer(nullptr);
    EXPECT_EQ(Reports(), (Texts{"Parlune:mnuFileNew_Click", "Parlune:mnuFileOpen_Click"}));
}
