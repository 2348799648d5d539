#include "app/linux/editor/EditedText.h"
#include <gtest/gtest.h>

namespace {

struct EditedText : testing::Test {
    using Kind = CEditedText::Kind;
    std::string Whole() const { return text.Buffer().Text(0, text.Buffer().Size()); }
    void Type(const std::string& letters)
    {
        for (const char letter : letters)
            text.InsertAtSelection(std::string(1, letter), Kind::Typing);
    }
    CEditedText text;
};

TEST_F(EditedText, Typing_IsUndoneInOneGo)
{
    text.SetText("!");
    Type("abc");
    EXPECT_EQ(Whole(), "abc!");
    text.Undo();
    EXPECT_EQ(Whole(), "!");
    EXPECT_FALSE(text.CanUndo());
}

TEST_F(EditedText, Typing_AfterTheCaretMoved_IsUndoneByItself)
{
    Type("ab");
    text.MoveTo(0, false);
    Type("c");
    text.Undo();
    EXPECT_EQ(Whole(), "ab");
}

TEST_F(EditedText, Typing_ALineBreak_BeginsANewStep)
{
    Type("ab");
    text.InsertAtSelection("\n", Kind::Typing);
    Type("c");
    EXPECT_EQ(Whole(), "ab\r\nc");
    text.Undo();
    EXPECT_EQ(Whole(), "ab\r\n");
    text.Undo();
    EXPECT_EQ(Whole(), "ab");
}

TEST_F(EditedText, Insert_ReplacesTheSelection)
{
    text.SetText("one two");
    text.Select(0, 3);
    Type("1");
    EXPECT_EQ(Whole(), "1 two");
    text.Undo();
    EXPECT_EQ(Whole(), "one two");
    EXPECT_EQ(text.SelectedText(), "one");
}

TEST_F(EditedText, Insert_EveryLineEnd_BecomesTheOne)
{
    text.InsertAtSelection("a\nb\rc\r\nd", Kind::Whole);
    EXPECT_EQ(Whole(), "a\r\nb\r\nc\r\nd");
}

TEST_F(EditedText, Deleting_BackAndForth_IsUndoneInOneGo)
{
    text.SetText("abcdef");
    text.Erase(2, 3, Kind::Deleting);
    text.Erase(1, 2, Kind::Deleting);
    text.Erase(1, 2, Kind::Deleting);
    EXPECT_EQ(Whole(), "aef");
    text.Undo();
    EXPECT_EQ(Whole(), "abcdef");
}

TEST_F(EditedText, Redo_DoesItAgain_UntilSomethingElseIsTyped)
{
    Type("ab");
    text.Undo();
    text.Redo();
    EXPECT_EQ(Whole(), "ab");
    text.Undo();
    Type("c");
    EXPECT_FALSE(text.CanRedo());
    EXPECT_EQ(Whole(), "c");
}

TEST_F(EditedText, Undo_AndRedo_OfNothing_ChangeNothing)
{
    text.Undo();
    text.Redo();
    EXPECT_EQ(Whole(), "");
}

TEST_F(EditedText, Edits_AreTold)
{
    int edits = 0;
    text.onEdited = [&](std::size_t, std::size_t, std::size_t) { ++edits; };
    text.SetText("abc");
    EXPECT_EQ(edits, 0);
    Type("x");
    text.Undo();
    EXPECT_EQ(edits, 2);
}

TEST_F(EditedText, SetText_ForgetsWhatCouldBeUndone)
{
    Type("x");
    text.SetText("new");
    EXPECT_FALSE(text.CanUndo());
    EXPECT_EQ(text.Caret(), 0U);
}

}
