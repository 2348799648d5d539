#include "ui/KeptText.h"
#include "common/zbErrorTrap.h"
#include "platform/Program.h"
#include "settings/bOptions.h"
#include "startup/MainWindowLife.h"
#include "startup/Wiring.h"
#include "support/CharacterProgram.h"
#include "support/FailEachCall.h"
#include "ui/EditorDocument.h"
#include "ui/StatusBar.h"
#include "ui/TextEditor.h"
#include <utility>

using platform::BoxAnswer;
using Texts = std::vector<std::pair<std::string, std::string>>;

namespace {
constexpr char Note[] = "The former text was kept | No character";

class KeptText : public CharacterProgram {
protected:
    KeptText()
    {
        startup::WireProgram();
        window.tabMain.onClick = {};
        desktop.files.PutFile(File, "Hello\r\n");
        desktop.files.PutFile("C:\\Texts\\b.txt", "Other\r\n");
    }
    void Type(const std::string& text) { window.txtRead.SetText(window.txtRead.Text() + text); }
    void Open(const std::string& file = File) { bOptions::OpenFile(file); }
    Texts Kept() const
    {
        Texts kept;
        for (const platform::EditedText& text : desktop.keptTexts.kept)
            kept.emplace_back(text.file, text.text);
        return kept;
    }
    std::string Copy() const { return desktop.keptTexts.copy ? desktop.keptTexts.copy->text : "(none)"; }
    bool Close(ui::UnloadMode mode) { return mainWindow::Form_QueryUnload(mode); }
    std::string Status() const { return window.staStatus.Text(); }
    const ui::EditorDocument& document = ui::Document();
    static constexpr char File[] = "C:\\Texts\\a.txt";
};
}

TEST_F(KeptText, Open_OverAChangedText_KeepsIt)
{
    Type("Dear");
    Open();
    EXPECT_EQ(Kept(), (Texts{{"", "Dear"}}));
    EXPECT_EQ(Status(), Note);
}

TEST_F(KeptText, Open_OverAChangedFile_KeepsItUnderItsName)
{
    Open();
    Type("Dear");
    Open("C:\\Texts\\b.txt");
    EXPECT_EQ(Kept(), (Texts{{File, "Hello\r\nDear"}}));
    EXPECT_EQ(desktop.files.Content(File), "Hello\r\n");
}

TEST_F(KeptText, Open_OverAnUnchangedOrEmptyText_KeepsNothing)
{
    Open();
    Open("C:\\Texts\\b.txt");
    window.txtRead.SetText("");
    Open();
    EXPECT_EQ(Kept(), Texts{});
    EXPECT_EQ(Status(), "");
}

TEST_F(KeptText, Open_OfAFileThatIsNotThere_KeepsNothingForNothingIsDropped)
{
    Type("Dear");
    Open("C:\\Texts\\none.txt");
    EXPECT_EQ(Kept(), Texts{});
    EXPECT_EQ(window.txtRead.Text(), "Dear");
}

TEST_F(KeptText, NewAndClose_SaveDialogCancelled_KeepTheText)
{
    Type("Dear");
    textEditor::FileNew();
    Type("Reader");
    textEditor::FileClose();
    EXPECT_EQ(Kept(), (Texts{{"", "Dear"}, {"", "Reader"}}));
    EXPECT_EQ(Status(), Note);
}

TEST_F(KeptText, New_AfterACancelledSaveFromTheMenu_KeepsTheText)
{
    Type("Dear");
    window.mnuFileSave.Click();
    window.mnuFileNew.Click();
    EXPECT_EQ(Kept(), (Texts{{"", "Dear"}}));
}

TEST_F(KeptText, New_TextWasSaved_KeepsOnlyWhatTheFileHeld)
{
    Open();
    Type("Dear");
    textEditor::FileNew();
    EXPECT_EQ(Kept(), (Texts{{File, "Hello\r\n"}}));
}

TEST_F(KeptText, Save_OverAnotherContent_KeepsTheFormerOneFirst)
{
    desktop.files.PutFile(File, std::string("\x89PNG\0", 5));
    Type("Dear");
    desktop.journal.Clear();
    textEditor::SaveFile(File);
    EXPECT_EQ(Kept(), (Texts{{File, std::string("\x89PNG\0", 5)}}));
    EXPECT_EQ(Status(), Note);
    const auto calls = desktop.journal.Calls();
    EXPECT_LT(std::find(calls.begin(), calls.end(), std::string("KeptTexts.KeepFormer ") + File),
              std::find(calls.begin(), calls.end(), std::string("Files.WriteLine ") + File));
}

TEST_F(KeptText, Save_OfANewFile_KeepsNothing)
{
    Type("Dear");
    textEditor::SaveFile("C:\\Texts\\new.txt");
    EXPECT_EQ(Kept(), Texts{});
    EXPECT_EQ(Status(), "");
}

TEST_F(KeptText, Save_ThatFails_KeepsTheTextBeforeTheReport)
{
    Open();
    Type("Dear");
    desktop.files.SetReadOnly(File);
    desktop.journal.Clear();
    textEditor::SaveFile(File);
    EXPECT_EQ(Kept().back(), (std::pair<std::string, std::string>{File, "Hello\r\nDear"}));
    const auto calls = desktop.journal.Calls();
    EXPECT_LT(std::find(calls.begin(), calls.end(), std::string("KeptTexts.Keep ") + File),
              std::find_if(calls.begin(), calls.end(), [](const auto& call) { return call.starts_with("MessageBoxes."); }));
    EXPECT_EQ(Status(), Note);
}

TEST_F(KeptText, New_AfterASaveThatFailed_KeepsTheText)
{
    Open();
    Type("Dear");
    desktop.files.SetReadOnly(File);
    textEditor::FileNew();
    EXPECT_EQ(Kept().back(), (std::pair<std::string, std::string>{File, "Hello\r\nDear"}));
    EXPECT_EQ(window.txtRead.Text(), "");
}

TEST_F(KeptText, Report_AnsweredCancel_KeepsTheTextBeforeTheEnd)
{
    Type("Dear");
    window.tabMain.onClick = [this] { throw failure; };
    desktop.messageBoxes.answers = {BoxAnswer::Cancel};
    EXPECT_THROW(zbErrorTrap::CGuard("Parlune", "Test")([&] { throw failure; }), platform::CProgramEnded);
    EXPECT_EQ(Copy(), "Dear");
    const auto calls = desktop.journal.Calls();
    EXPECT_LT(std::find(calls.begin(), calls.end(), "KeptTexts.CopyNow"),
              std::find(calls.begin(), calls.end(), "Program.End"));
}

TEST_F(KeptText, Report_AnsweredOk_MakesNoCopy)
{
    Type("Dear");
    zbErrorTrap::CGuard("Parlune", "Test")([&] { throw failure; });
    EXPECT_EQ(Copy(), "(none)");
}

TEST_F(KeptText, Exit_SaveDialogCancelled_AsksAndKeepsTheTextForTheNextStart)
{
    Type("Dear");
    EXPECT_TRUE(Close(ui::UnloadMode::Code));
    EXPECT_EQ(desktop.fileDialogs.asked.size(), 1U);
    EXPECT_EQ(Copy(), "Dear");
}

TEST_F(KeptText, Exit_SaveDialogAnswered_LeavesNothing)
{
    Type("Dear");
    desktop.fileDialogs.answers = {"C:\\Texts\\c.txt"};
    Close(ui::UnloadMode::Code);
    EXPECT_EQ(Copy(), "(none)");
    EXPECT_EQ(desktop.files.Content("C:\\Texts\\c.txt"), "Dear\r\n");
}

TEST_F(KeptText, SessionsEnd_UnnamedText_IsKeptWithoutADialog)
{
    Type("Dear");
    EXPECT_TRUE(Close(ui::UnloadMode::Session));
    EXPECT_TRUE(desktop.fileDialogs.asked.empty());
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
    EXPECT_EQ(Copy(), "Dear");
}

TEST_F(KeptText, SessionsEnd_TextWithAFolderForItsFile_IsKeptWithoutAReport)
{
    bOptions::OpenFile("");
    desktop.fileDialogs.asked.clear();
    Type("Dear");
    Close(ui::UnloadMode::Session);
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
    EXPECT_EQ(Copy(), "Dear");
    EXPECT_EQ(desktop.keptTexts.copy->file, "");
}

TEST_F(KeptText, SessionsEnd_TextWithAFile_IsSaved)
{
    Open();
    Type("Dear");
    Close(ui::UnloadMode::Session);
    EXPECT_EQ(desktop.files.Content(File), "Hello\r\nDear\r\n");
    EXPECT_EQ(Copy(), "(none)");
}

TEST_F(KeptText, ClosingToTheTray_KeepsNothing)
{
    window.chkMinimizeOnClose.SetValue(1);
    Type("Dear");
    EXPECT_FALSE(Close(ui::UnloadMode::ControlMenu));
    EXPECT_EQ(Copy(), "(none)");
    EXPECT_EQ(window.txtRead.Text(), "Dear");
}

TEST_F(KeptText, HalfAMinute_AfterAChange_CopiesTheText)
{
    Open();
    Type("Dear");
    desktop.keptTexts.TimeIsUp();
    EXPECT_EQ(Copy(), "Hello\r\nDear");
    EXPECT_EQ(desktop.keptTexts.copy->file, File);
}

TEST_F(KeptText, HalfAMinute_WithoutAChange_CopiesNothing)
{
    Open();
    desktop.keptTexts.TimeIsUp();
    EXPECT_EQ(Copy(), "(none)");
}

TEST_F(KeptText, Save_ForgetsTheCopy)
{
    Type("Dear");
    desktop.keptTexts.TimeIsUp();
    textEditor::SaveFile(File);
    EXPECT_EQ(Copy(), "(none)");
}

TEST_F(KeptText, New_WhenNothingCanBeKept_LeavesTheCopy)
{
    Type("Dear");
    desktop.keptTexts.TimeIsUp();
    desktop.keptTexts.full = true;
    textEditor::FileNew();
    EXPECT_EQ(Copy(), "Dear");
    EXPECT_EQ(window.txtRead.Text(), "");
    EXPECT_EQ(Status(), "");
}

TEST_F(KeptText, New_KeptText_ForgetsTheCopy)
{
    Type("Dear");
    desktop.keptTexts.TimeIsUp();
    textEditor::FileNew();
    EXPECT_EQ(Copy(), "(none)");
}

TEST_F(KeptText, Start_AfterAnUncleanEnd_TellsWhereTheTextIs)
{
    desktop.keptTexts.leftBehind = "C:\\Kept\\2026-11-05 09-07-03 a.txt";
    window.Load();
    EXPECT_TRUE(Status().starts_with("Your unsaved text was kept: C:\\Kept\\2026-11-05 09-07-03 a.txt | ")) << Status();
}

TEST_F(KeptText, Start_AfterACleanEnd_TellsNothing)
{
    window.Load();
    EXPECT_EQ(Status().find("kept"), std::string::npos);
}

TEST_F(KeptText, Note_StaysTwoSecondsAndUntilTheTextIsEdited)
{
    Type("Dear");
    textEditor::FileNew();
    desktop.clock.Advance(1999);
    Type("a");
    EXPECT_EQ(Status(), Note);
    desktop.clock.Advance(1);
    statusBar::Refresh();
    EXPECT_EQ(Status(), Note);
    Type("b");
    EXPECT_EQ(Status(), "No character");
}

TEST(KeptTextFailures, AnyCommand_WhenACallOfTheNetFails_DoesWhatItDoesWithoutAReport)
{
    for (const char* call : {"KeptTexts.Keep ", "KeptTexts.KeepFormer", "KeptTexts.ForgetCopy", "KeptTexts.CopyNow",
                             "KeptTexts.TakeLeftBehind"}) {
        SCOPED_TRACE(call);
        CHeadlessDesktop desktop;
        startup::WireProgram();
        MainWindow().tabMain.onClick = {};
        desktop.files.PutFile("C:\\Texts\\a.txt", "Hello\r\n");
        desktop.journal.FailAlways(call, {57, "Device I/O error"});
        MainWindow().txtRead.SetText("Dear");
        bOptions::OpenFile("C:\\Texts\\a.txt");
        EXPECT_EQ(MainWindow().txtRead.Text(), "Hello\r\n");
        MainWindow().txtRead.SetText("Reader");
        textEditor::FileNew();
        EXPECT_EQ(desktop.files.Content("C:\\Texts\\a.txt"), "Reader\r\n");
        MainWindow().txtRead.SetText("Unnamed");
        EXPECT_TRUE(mainWindow::Form_QueryUnload(ui::UnloadMode::Code));
        keptText::TellWhatWasLeft();
        EXPECT_TRUE(desktop.messageBoxes.shown.empty());
    }
}
