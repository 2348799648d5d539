#include "ui/controls/Controls.h"
#include <gtest/gtest.h>

namespace {

// A box whose text a native editor keeps; counts what is asked of it.
struct KeptTextBox : testing::Test {
    KeptTextBox()
    {
        box.onChange = [this] { ++changes; };
        ui::CTextBox::Keeper keeper;
        keeper.put = [this](std::string text) { kept = std::move(text); };
        keeper.text = [this] { return ++fetches, kept; };
        keeper.isEmpty = [this] { return kept.empty(); };
        keeper.select = [this](ui::TextSelection selection) { selected = selection; };
        keeper.selection = [this] { return selected; };
        keeper.selectedText = [this] { return kept.substr(static_cast<std::size_t>(selected.start), 2); };
        box.SetKeeper(std::move(keeper));
    }
    void Type(const std::string& text)
    {
        kept += text;
        box.Edited();
    }

    ui::CForm form{"frmTest", "Test"};
    ui::CTextBox box{form, "txtTest", "first"};
    std::string kept;
    ui::TextSelection selected;
    int fetches = 0;
    int changes = 0;
};

TEST_F(KeptTextBox, SetKeeper_HandsThePresentTextOver) { EXPECT_EQ(kept, "first"); }

TEST_F(KeptTextBox, SetText_PutsTheTextAndRunsTheChangeProcedureOnce)
{
    box.SetText("second");
    EXPECT_EQ(kept, "second");
    EXPECT_EQ(changes, 1);
}

TEST_F(KeptTextBox, SetText_ToTheSameText_ChangesNothing)
{
    Type("!");
    changes = 0;
    box.SetText("first!");
    EXPECT_EQ(changes, 0);
}

TEST_F(KeptTextBox, SetText_PutsTheCaretToTheStart)
{
    selected = {3, 1};
    box.SetText("first");
    EXPECT_EQ(box.SelectionStart(), 0);
    EXPECT_EQ(box.SelectionLength(), 0);
}

TEST_F(KeptTextBox, Edited_RunsTheChangeProcedureWithoutFetchingTheText)
{
    for (int stroke = 0; stroke < 1000; ++stroke)
        Type("x");
    EXPECT_EQ(changes, 1000);
    EXPECT_EQ(fetches, 0);
}

TEST_F(KeptTextBox, Text_AfterEdits_IsFetchedOnce)
{
    Type(" second");
    fetches = 0;
    EXPECT_EQ(box.Text(), "first second");
    EXPECT_EQ(box.Text(), "first second");
    EXPECT_EQ(fetches, 1);
}

TEST_F(KeptTextBox, CopyOfText_IsNotKept)
{
    Type("!");
    fetches = 0;
    EXPECT_EQ(box.CopyOfText(), "first!");
    EXPECT_EQ(box.CopyOfText(), "first!");
    EXPECT_EQ(fetches, 2);
}

TEST_F(KeptTextBox, IsEmpty_FetchesNothing)
{
    EXPECT_FALSE(box.IsEmpty());
    kept.clear();
    box.Edited();
    EXPECT_TRUE(box.IsEmpty());
    EXPECT_EQ(fetches, 0);
}

TEST_F(KeptTextBox, Selection_IsTheKeepers)
{
    selected = {2, 1};
    EXPECT_EQ(box.SelectionStart(), 2);
    EXPECT_EQ(box.SelectionLength(), 1);
    EXPECT_EQ(box.SelectedText(), "rs");
}

TEST_F(KeptTextBox, Select_ReachesTheKeeper)
{
    box.Select(4, 1);
    EXPECT_EQ(selected.start, 4);
    EXPECT_EQ(selected.length, 1);
}

TEST_F(KeptTextBox, SetKeeper_WithoutProcedures_TakesTextAndSelectionBack)
{
    Type("!");
    selected = {1, 2};
    box.SetKeeper({});
    EXPECT_EQ(box.Text(), "first!");
    EXPECT_EQ(box.SelectionStart(), 1);
    EXPECT_EQ(box.SelectedText(), "ir");
}

TEST(TextBox, SelectedText_CountsCharacters)
{
    ui::CForm form("frmTest", "Test");
    ui::CTextBox box(form, "txtTest", "\xC3\xA4\xC3\xB6\xC3\xBC!");
    box.Select(1, 2);
    EXPECT_EQ(box.SelectedText(), "\xC3\xB6\xC3\xBC");
}

TEST(TextBox, IsEmpty_OfAnEmptyText_IsTrue)
{
    ui::CForm form("frmTest", "Test");
    ui::CTextBox box(form, "txtTest");
    EXPECT_TRUE(box.IsEmpty());
}

}
