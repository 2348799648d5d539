#include "Mirror.h"

// Boxes of one and of several lines, both ways.
namespace {
using appwindows::Send;
using appwindows::TextOf;
using appwindows::ToParam;
}

TEST_F(Mirror, TextBox_TypedByTheUser_ChangesTheTextAndKeepsTheCaret)
{
    int changes = 0;
    shown.form.txtSize[0].SetEnabled(true);
    shown.form.txtSize[0].SetText("");
    shown.Visit(1);
    shown.form.txtSize[0].onChange = [&] { ++changes; };
    Type(shown.Native("txtSize(0)"), L"20");
    Type(shown.Native("txtSize(0)"), L"4");

    EXPECT_EQ(shown.form.txtSize[0].Text(), "204");
    EXPECT_EQ(shown.form.txtSize[0].SelectionStart(), 3);
    EXPECT_EQ(changes, 3);
}

TEST_F(Mirror, TextBox_SetByTheProgram_IsShownAndChangesOnce)
{
    int changes = 0;
    shown.Visit(5);
    shown.form.txtUserName.onChange = [&] { ++changes; };
    shown.form.txtUserName.SetText("\xD0\x96\xD1\x8B \xF0\x9F\x99\x82");
    shown.Turn();

    EXPECT_EQ(TextOf(shown.Native("txtUserName")), "\xD0\x96\xD1\x8B \xF0\x9F\x99\x82");
    EXPECT_EQ(shown.form.txtUserName.Text(), "\xD0\x96\xD1\x8B \xF0\x9F\x99\x82");
    EXPECT_EQ(changes, 1);
}

TEST_F(Mirror, TextBox_Return_Commits)
{
    int commits = 0;
    shown.form.txtUserName.onCommit = [&] { ++commits; };
    shown.Visit(5);
    shown.form.txtUserName.SetFocus();
    shown.Turn();
    shown.Press(VK_RETURN);

    EXPECT_EQ(commits, 1);
}

TEST_F(Mirror, TextBox_LeftByTheUser_Commits)
{
    int commits = 0;
    shown.form.txtUserName.onCommit = [&] { ++commits; };
    shown.Visit(5);
    shown.form.txtUserName.SetFocus();
    shown.Turn();
    shown.Press(VK_TAB);

    EXPECT_EQ(commits, 1);
}

TEST_F(Mirror, TextBox_SelectedByTheProgram_IsShownSelected)
{
    DWORD from = 9, to = 9;
    shown.Visit(5);
    shown.form.txtUserName.SelectAll();
    Send(shown.Native("txtUserName"), EM_GETSEL, reinterpret_cast<WPARAM>(&from), ToParam(&to));

    EXPECT_EQ(from, 0U);
    EXPECT_EQ(to, 3U);
    EXPECT_EQ(shown.form.txtUserName.SelectedText(), "Ada");
}

TEST_F(Mirror, TextBox_WhenTheFocusComes_IsEnteredOnce)
{
    int entered = 0;
    shown.form.txtUserName.onEnter = [&] {
        ++entered;
        shown.form.txtUserName.SelectAll();
    };
    shown.Visit(5);
    shown.form.txtUserName.SetFocus();
    shown.Turn();

    EXPECT_EQ(entered, 1);
    EXPECT_EQ(shown.form.txtUserName.SelectedText(), "Ada");
}

TEST_F(Mirror, TextBox_ControlA_SelectsAll)
{
    shown.Visit(5);
    Send(shown.Native("txtGreeting(0)"), WM_CHAR, 1, 1);

    EXPECT_EQ(shown.form.txtGreeting[0].SelectionLength(), 56);
}

TEST_F(Mirror, TextArea_LineBreaks_AreTheProgramsOwn)
{
    shown.Visit(5);
    shown.form.txtGreeting[0].SetText("One\r\nTwo");
    HWND area = shown.Native("txtGreeting(0)");
    Send(area, EM_SETSEL, 8, 8);
    Type(area, L"\rThree");

    EXPECT_EQ(shown.form.txtGreeting[0].Text(), "One\r\nTwo\r\nThree");
    EXPECT_EQ(shown.form.txtGreeting[0].SelectionStart(), 15);
}

TEST_F(Mirror, TextArea_LoneLineFeedOfTheProgram_BecomesALineBreak)
{
    shown.Visit(5);
    shown.form.txtGreeting[0].SetText("One\nTwo");

    EXPECT_EQ(shown.form.txtGreeting[0].Text(), "One\r\nTwo");
}

TEST_F(Mirror, TextArea_SelectionBeyondAnEmoji_CountsCharacters)
{
    DWORD from = 0, to = 0;
    shown.Visit(5);
    shown.form.txtGreeting[0].SetText("\xF0\x9F\x99\x82\r\nab");
    shown.form.txtGreeting[0].Select(3, 1);
    Send(shown.Native("txtGreeting(0)"), EM_GETSEL, reinterpret_cast<WPARAM>(&from), ToParam(&to));

    EXPECT_EQ(from, 4U);
    EXPECT_EQ(to, 5U);
    EXPECT_EQ(shown.form.txtGreeting[0].SelectedText(), "a");
    EXPECT_EQ(shown.form.txtGreeting[0].SelectionStart(), 3);
    EXPECT_EQ(shown.form.txtGreeting[0].SelectionLength(), 1);
}
