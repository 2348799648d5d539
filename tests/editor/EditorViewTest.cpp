#include "app/linux/editor/EditorView.h"
#include "app/linux/editor/EditorPeer.h"
#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

namespace {

// An editor of a text box, shown and focused, as the main window holds one.
struct Editor : testing::Test {
    Editor()
    {
        box.onChange = [this] { ++changes; };
        peer.resize(400, 300);
        peer.show();
        QApplication::setActiveWindow(&peer);
        view.setFocus();
    }
    void Put(const std::string& text)
    {
        box.SetText(text);
        changes = 0;
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) { QTest::keyClick(&view, key, modifiers); }
    void Type(const char* text) { QTest::keyClicks(&view, text); }
    std::string Selected() const { return view.Text().SelectedText(); }
    QPoint PointOf(std::size_t position) { return view.CaretRectangle(position).center() + QPoint(1, 0); }
    static std::string Lines(int count)
    {
        std::string text;
        for (int line = 1; line <= count; ++line)
            text += "line " + std::to_string(line) + "\r\n";
        return text;
    }

    ui::CForm form{"frmTest", "Test"};
    ui::CTextBox box{form, "txtTest"};
    CEditorPeer peer{box};
    CEditorView& view = peer.View();
    int changes = 0;
};

TEST_F(Editor, Typing_ReachesTheBoxAndRunsItsChangeProcedure)
{
    Type("Hi");
    EXPECT_EQ(box.Text(), "Hi");
    EXPECT_EQ(changes, 2);
}

TEST_F(Editor, SetText_OfTheBox_IsShownWithTheCaretAtTheStart)
{
    Put("Hello");
    Type("x");
    EXPECT_EQ(box.Text(), "xHello");
}

TEST_F(Editor, Return_BreaksTheLineAsTheProgramDoes)
{
    Type("a");
    Key(Qt::Key_Return);
    Type("b");
    EXPECT_EQ(box.Text(), "a\r\nb");
}

TEST_F(Editor, Selection_IsToldInCharacters)
{
    Put("\xC3\xA4\xC3\xB6\xC3\xBC!");
    Key(Qt::Key_Right);
    Key(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(box.SelectionStart(), 1);
    EXPECT_EQ(box.SelectionLength(), 1);
    EXPECT_EQ(box.SelectedText(), "\xC3\xB6");
}

TEST_F(Editor, Select_OfTheBox_SelectsCharacters)
{
    Put("\xC3\xA4\xC3\xB6\xC3\xBC!");
    box.Select(2, 2);
    EXPECT_EQ(Selected(), "\xC3\xBC!");
}

TEST_F(Editor, ArrowKeys_CrossLineEndsInOneStep)
{
    Put("a\r\nb");
    Key(Qt::Key_Right);
    Key(Qt::Key_Right);
    EXPECT_EQ(view.Text().Caret(), 3U);
    Key(Qt::Key_Left);
    EXPECT_EQ(view.Text().Caret(), 1U);
}

TEST_F(Editor, ArrowKeys_GoByWholeCharacters)
{
    Put("e\xCC\x81\xF0\x9F\x98\x80x");  // A letter with its accent apart, and a face.
    Key(Qt::Key_Right);
    EXPECT_EQ(view.Text().Caret(), 3U);
    Key(Qt::Key_Right);
    EXPECT_EQ(view.Text().Caret(), 7U);
    Key(Qt::Key_Left);
    EXPECT_EQ(view.Text().Caret(), 3U);
}

TEST_F(Editor, LeftAndRight_OfASelection_GoToItsEnds)
{
    Put("abcdef");
    view.Select(2, 4);
    Key(Qt::Key_Left);
    EXPECT_EQ(view.Text().Caret(), 2U);
    view.Select(2, 4);
    Key(Qt::Key_Right);
    EXPECT_EQ(view.Text().Caret(), 4U);
}

TEST_F(Editor, CtrlArrows_GoByWords)
{
    Put("one two\r\nthree");
    Key(Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(view.Text().Caret(), 4U);
    Key(Qt::Key_Right, Qt::ControlModifier);
    Key(Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(view.Text().Caret(), 9U);
    Key(Qt::Key_Left, Qt::ControlModifier);
    Key(Qt::Key_Left, Qt::ControlModifier);
    EXPECT_EQ(view.Text().Caret(), 4U);
}

TEST_F(Editor, HomeAndEnd_GoToTheEndsOfTheRow)
{
    Put("one\r\ntwo\r\n");
    Key(Qt::Key_Down);
    Key(Qt::Key_End);
    EXPECT_EQ(view.Text().Caret(), 8U);
    Key(Qt::Key_Home, Qt::ShiftModifier);
    EXPECT_EQ(Selected(), "two");
}

TEST_F(Editor, CtrlHomeAndEnd_GoToTheEndsOfTheText)
{
    Put(Lines(500));
    Key(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(view.Text().Caret(), box.Text().size());
    EXPECT_GT(view.TopPosition(), 0U);
    Key(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(view.Text().Caret(), 0U);
    EXPECT_EQ(view.TopPosition(), 0U);
}

TEST_F(Editor, UpAndDown_KeepTheColumnOverShorterLines)
{
    Put("abcdef\r\na\r\nabcdef");
    for (int step = 0; step < 5; ++step)
        Key(Qt::Key_Right);
    Key(Qt::Key_Down);
    EXPECT_EQ(view.Text().Caret(), 9U);
    Key(Qt::Key_Down);
    EXPECT_EQ(view.Text().Caret(), 16U);
}

TEST_F(Editor, PageDownAndUp_GoByWhatIsSeen)
{
    Put(Lines(500));
    Key(Qt::Key_PageDown);
    const std::size_t page = view.Text().Caret();
    EXPECT_GT(page, 50U);
    Key(Qt::Key_PageUp);
    EXPECT_EQ(view.Text().Caret(), 0U);
    Key(Qt::Key_PageDown, Qt::ShiftModifier);
    EXPECT_EQ(view.Text().SelectionEnd(), page);
}

TEST_F(Editor, Backspace_AtTheStartOfALine_JoinsLines)
{
    Put("a\r\nb");
    Key(Qt::Key_Down);
    Key(Qt::Key_Backspace);
    EXPECT_EQ(box.Text(), "ab");
    Key(Qt::Key_Delete);
    EXPECT_EQ(box.Text(), "a");
}

TEST_F(Editor, CtrlBackspaceAndDelete_EraseWords)
{
    Put("one two three");
    Key(Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(box.Text(), "two three");
    Key(Qt::Key_End);
    Key(Qt::Key_Backspace, Qt::ControlModifier);
    EXPECT_EQ(box.Text(), "two ");
}

TEST_F(Editor, UndoAndRedo_ByTheirKeys)
{
    Type("abc");
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(box.Text(), "");
    Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(box.Text(), "abc");
}

TEST_F(Editor, CopyAndPaste_UseTheDesktopsLineEnds)
{
    Put("a\r\nb");
    Key(Qt::Key_A, Qt::ControlModifier);
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "a\nb");
    Key(Qt::Key_End, Qt::ControlModifier);
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(box.Text(), "a\r\nba\r\nb");
}

TEST_F(Editor, Cut_TakesTheSelectionAway)
{
    Put("one two");
    view.Select(3, 7);
    Key(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(box.Text(), "one");
    EXPECT_EQ(QApplication::clipboard()->text(), " two");
}

TEST_F(Editor, Copy_OfNothing_LeavesTheClipboardAlone)
{
    QApplication::clipboard()->setText("former");
    Put("one");
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "former");
}

TEST_F(Editor, SelectAll_KeepsWhatIsSeen)
{
    Put(Lines(500));
    Key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(Selected().size(), box.Text().size());
    EXPECT_EQ(view.TopPosition(), 0U);
}

TEST_F(Editor, Tab_LeavesTheEditorAndCtrlTabIsTyped)
{
    Key(Qt::Key_Tab);
    EXPECT_EQ(box.Text(), "");
    Key(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(box.Text(), "\t");
}

TEST_F(Editor, Click_PutsTheCaretThere)
{
    Put("one two\r\nthree");
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, PointOf(11));
    EXPECT_EQ(view.Text().Caret(), 11U);
}

TEST_F(Editor, Drag_SelectsCharacters)
{
    Put("one two\r\nthree");
    QTest::mousePress(view.viewport(), Qt::LeftButton, {}, PointOf(1));
    QTest::mouseMove(view.viewport(), PointOf(11));
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, PointOf(11));
    EXPECT_EQ(Selected(), "ne two\r\nth");
}

TEST_F(Editor, ShiftClick_ExtendsTheSelection)
{
    Put("one two three");
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, PointOf(4));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::ShiftModifier, PointOf(7));
    EXPECT_EQ(Selected(), "two");
}

TEST_F(Editor, DoubleClick_SelectsTheWord)
{
    Put("one two three");
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, PointOf(5));
    EXPECT_EQ(Selected(), "two");
}

TEST_F(Editor, DoubleClick_OnTheLastHalfOfAWord_SelectsTheWord)
{
    Put("one two three");
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, PointOf(7) - QPoint(3, 0));
    EXPECT_EQ(Selected(), "two");
}

TEST_F(Editor, DoubleClick_OnAnEmptyText_SelectsNothing)
{
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, QPoint(20, 20));
    EXPECT_EQ(Selected(), "");
}

TEST_F(Editor, TripleClick_SelectsTheLine)
{
    Put("one two\r\nthree");
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, PointOf(5));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, PointOf(5));
    EXPECT_EQ(Selected(), "one two\r\n");
}

TEST_F(Editor, Wheel_ScrollsByLinesAndLeavesTheCaret)
{
    Put(Lines(500));
    QWheelEvent down(QPointF(20, 20), QPointF(20, 20), {}, QPoint(0, -120), {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(view.viewport(), &down);
    EXPECT_EQ(view.TopPosition(), 24U);  // Three lines of eight bytes.
    EXPECT_EQ(view.Text().Caret(), 0U);
}

TEST_F(Editor, ScrollBar_AtItsEnd_ShowsTheLastLineAtTheBottom)
{
    Put(Lines(500));
    view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum());
    const QRect end = view.CaretRectangle(box.Text().size());
    EXPECT_LE(end.bottom(), view.viewport()->height());
    EXPECT_GT(end.bottom(), view.viewport()->height() - 3 * end.height());
}

TEST_F(Editor, ScrollBar_OfAShortText_HasNothingToScroll)
{
    Put(Lines(3));
    EXPECT_EQ(view.verticalScrollBar()->maximum(), 0);
}

TEST_F(Editor, ALongParagraph_IsWrappedAndScrollsByRows)
{
    std::string text;
    for (int word = 0; word < 3000; ++word)
        text += "word ";
    Put(text);
    Key(Qt::Key_Down);
    EXPECT_GT(view.Text().Caret(), 0U);
    EXPECT_LT(view.Text().Caret(), 200U);
    Key(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(view.Text().Caret(), text.size());
    EXPECT_GT(view.TopPosition(), 10'000U);
}

TEST_F(Editor, End_OfAWrappedRow_StaysInTheRow)
{
    Put(std::string(500, 'x'));
    Key(Qt::Key_End);
    const std::size_t end = view.Text().Caret();
    EXPECT_GT(end, 10U);
    EXPECT_EQ(view.CaretRectangle(end).top(), view.CaretRectangle(0).top());
}

TEST_F(Editor, Resize_KeepsTheTextAtTheTop)
{
    Put(Lines(500));
    view.Select(2000, 2000);
    const std::size_t top = view.TopPosition();
    peer.resize(250, 320);
    QApplication::processEvents();
    EXPECT_EQ(view.TopPosition(), top);
}

TEST_F(Editor, InputMethod_ComposesAndCommits)
{
    Put("ab");
    Key(Qt::Key_Right);
    QInputMethodEvent compose("ni", {});
    QApplication::sendEvent(&view, &compose);
    EXPECT_EQ(box.Text(), "ab");
    EXPECT_EQ(changes, 0);
    QInputMethodEvent commit;
    commit.setCommitString(QString::fromUtf8("\xE4\xBD\xA0"));
    QApplication::sendEvent(&view, &commit);
    EXPECT_EQ(box.Text(), "a\xE4\xBD\xA0"
                          "b");
}

TEST_F(Editor, InputMethod_IsToldOfTheTextAround)
{
    Put("one two");
    view.Select(4, 7);
    QInputMethodQueryEvent query(Qt::ImSurroundingText | Qt::ImCursorPosition | Qt::ImCurrentSelection);
    QApplication::sendEvent(&view, &query);
    EXPECT_EQ(query.value(Qt::ImSurroundingText).toString(), "one two");
    EXPECT_EQ(query.value(Qt::ImCursorPosition).toInt(), 7);
    EXPECT_EQ(query.value(Qt::ImCurrentSelection).toString(), "two");
}

TEST_F(Editor, ContextMenu_OffersWhatCanBeDone)
{
    QApplication::clipboard()->setText("x");
    Type("abc");
    const auto menu = view.ContextMenu();
    QStringList offered;
    for (const QAction* action : menu->actions())
        if (!action->isSeparator() && action->isEnabled())
            offered += action->text();
    EXPECT_EQ(offered, (QStringList{"&Undo", "&Paste", "Select &All"}));
}

TEST_F(Editor, ContextMenu_Entries_DoWhatTheySay)
{
    Type("abc");
    view.ContextMenu()->actions().at(0)->trigger();
    EXPECT_EQ(box.Text(), "");
}

struct Drop : Editor {
    void Let(const QMimeData& data, QPoint point)
    {
        QDragEnterEvent enter(point, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view.viewport(), &enter);
        QDropEvent event(QPointF(point), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view.viewport(), &event);
    }
};

TEST_F(Drop, AFile_IsOpenedAndNotInserted)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("a b.txt"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    std::string opened;
    peer.onFileDropped = [&](const std::string& path) { opened = path; };
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(file.fileName())});
    Let(data, {10, 10});
    EXPECT_EQ(opened, folder.filePath("a b.txt").toStdString());
    EXPECT_EQ(box.Text(), "");
}

TEST_F(Drop, Text_IsInsertedWhereItIsDroppedAndSelected)
{
    Put("one three");
    QMimeData data;
    data.setText("two ");
    Let(data, PointOf(4));
    EXPECT_EQ(box.Text(), "one two three");
    EXPECT_EQ(Selected(), "two ");
}

struct Access : Editor {
    QAccessibleInterface* access = QAccessible::queryAccessibleInterface(&view);
    QAccessibleTextInterface* text = access->textInterface();
};

TEST_F(Access, RoleNameAndState_TellAnEditableTextOfSeveralLines)
{
    EXPECT_EQ(access->role(), QAccessible::EditableText);
    EXPECT_EQ(access->text(QAccessible::Name), "Text");
    EXPECT_TRUE(access->state().multiLine);
    EXPECT_TRUE(access->state().editable);
}

TEST_F(Access, Text_CountsCharacters)
{
    Put("\xC3\xA4\xC3\xB6\xC3\xBC\r\n!");
    EXPECT_EQ(text->characterCount(), 6);
    EXPECT_EQ(text->text(1, 3), QString::fromUtf8("\xC3\xB6\xC3\xBC"));
    view.Select(2, 2);
    EXPECT_EQ(text->cursorPosition(), 1);
}

TEST_F(Access, TextAtOffset_KnowsWordsAndLines)
{
    Put("one two\r\nthree");
    int begin = 0;
    int end = 0;
    EXPECT_EQ(text->textAtOffset(5, QAccessible::WordBoundary, &begin, &end), "two");
    EXPECT_EQ(begin, 4);
    EXPECT_EQ(text->textAtOffset(2, QAccessible::LineBoundary, &begin, &end), "one two");
    EXPECT_EQ(text->textAfterOffset(2, QAccessible::ParagraphBoundary, &begin, &end), "three");
    EXPECT_EQ(text->textBeforeOffset(10, QAccessible::ParagraphBoundary, &begin, &end), "one two\r\n");
}

TEST_F(Access, Editing_ReachesTheBox)
{
    Put("one two");
    access->editableTextInterface()->replaceText(0, 3, "1");
    EXPECT_EQ(box.Text(), "1 two");
}

TEST_F(Editor, ABoxThatIsDisabled_DisablesTheEditor)
{
    box.SetEnabled(false);
    EXPECT_FALSE(view.isEnabled());
}

TEST(EditorPeer, Destroyed_GivesTheTextBack)
{
    ui::CForm form{"frmTest", "Test"};
    ui::CTextBox box{form, "txtTest", "one"};
    {
        CEditorPeer peer(box);
        peer.View().Insert("two");
    }
    EXPECT_EQ(box.Text(), "twoone");
}

TEST(EditorPeer, AnyBytes_AreShownAndGoThroughUnchanged)
{
    ui::CForm form{"frmTest", "Test"};
    const std::string bytes("a\0b\x01\xFF\xC3 \xE2\x80\xA8 \x7F", 11);
    ui::CTextBox box{form, "txtTest", bytes};
    CEditorPeer peer(box);
    peer.resize(300, 200);
    peer.grab();
    EXPECT_EQ(box.Text(), bytes);
}

}
