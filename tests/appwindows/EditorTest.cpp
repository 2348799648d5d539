#include "FilledForm.h"
#include <cstring>

// The text editor: a native rich-text box that keeps the text.
namespace {

using appwindows::Send;
using appwindows::ToParam;
using platform::windowsdesktop::ToWide;

struct Editor : testing::Test {
    ShownWindow shown;
    HWND box = nullptr;
    int changes = 0;

    Editor()
    {
        shown.Visit(4);
        box = shown.Native("txtRead");
        shown.form.txtRead.onChange = [this] { ++changes; };
    }
    ui::CTextBox& Box() { return shown.form.txtRead; }
    std::string RoundTrip(const std::string& text)
    {
        Box().SetText(text);
        return Box().Text();
    }
    void Type(const wchar_t* letters)
    {
        for (; *letters; ++letters)
            Send(box, WM_CHAR, *letters, 1);
        shown.Turn();
    }
    void CopyToClipboard(const wchar_t* text)
    {
        const std::size_t bytes = (wcslen(text) + 1) * sizeof(wchar_t);
        HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
        std::memcpy(GlobalLock(memory), text, bytes);
        GlobalUnlock(memory);
        ASSERT_TRUE(OpenClipboard(shown.window.Native()));
        EmptyClipboard();
        SetClipboardData(CF_UNICODETEXT, memory);
        CloseClipboard();
    }
};

}

TEST_F(Editor, TextFromBeforeThePageWasMade_IsThere)
{
    EXPECT_EQ(Box().Text(),
              "Once upon a time there was a seed that could read.\r\nIt sat on a desktop and waited for words.");
}

TEST_F(Editor, Text_EndingInALineBreak_ComesBack) { EXPECT_EQ(RoundTrip("abc\r\n"), "abc\r\n"); }

TEST_F(Editor, Text_OfEmptyLines_ComesBack) { EXPECT_EQ(RoundTrip("\r\n\r\na\r\n\r\nb"), "\r\n\r\na\r\n\r\nb"); }

TEST_F(Editor, Text_WithLoneLineEnds_ComesBackWithWholeOnes) { EXPECT_EQ(RoundTrip("a\nb\rc"), "a\r\nb\r\nc"); }

TEST_F(Editor, Text_OutsideTheCodePage_ComesBack)
{
    EXPECT_EQ(RoundTrip("\xC5\x81\xC3\xB3\xC5\xBA \xD0\x96 \xE4\xB8\xAD\xE6\x96\x87 \xE2\x82\xAC"),
              "\xC5\x81\xC3\xB3\xC5\xBA \xD0\x96 \xE4\xB8\xAD\xE6\x96\x87 \xE2\x82\xAC");
}

TEST_F(Editor, Text_BeyondTheBasicPlane_ComesBack) { EXPECT_EQ(RoundTrip("a\xF0\x9F\x99\x82z"), "a\xF0\x9F\x99\x82z"); }

TEST_F(Editor, Text_WithTabs_ComesBack) { EXPECT_EQ(RoundTrip("a\tb"), "a\tb"); }

TEST_F(Editor, Text_ThatLooksLikeRichText_StaysPlain) { EXPECT_EQ(RoundTrip("{\\rtf1 {\\b x}}"), "{\\rtf1 {\\b x}}"); }

TEST_F(Editor, Text_OfTwoHundredKilobytes_ComesBack)
{
    std::string text;
    while (text.size() < 200000)
        text += "Once upon a time there was a seed that could read aloud to everybody.\r\n";
    const std::string back = RoundTrip(text);

    EXPECT_TRUE(back == text);  // Not shown when it differs.
}

TEST_F(Editor, Emptied_IsEmpty)
{
    EXPECT_FALSE(Box().IsEmpty());
    Box().SetText("");
    EXPECT_TRUE(Box().IsEmpty());
}

TEST_F(Editor, TextOfTheProgram_ChangesOnce)
{
    Box().SetText("New");
    shown.Turn();

    EXPECT_EQ(changes, 1);
}

TEST_F(Editor, SameTextOfTheProgram_ChangesNothingAndMovesTheCaretToTheStart)
{
    Box().SetText("New");
    Box().Select(2, 1);
    changes = 0;
    Box().SetText("New");

    EXPECT_EQ(changes, 0);
    EXPECT_EQ(Box().SelectionStart(), 0);
}

TEST_F(Editor, Typed_ChangesOncePerKey)
{
    Box().SetText("");
    changes = 0;
    Type(L"a\x0416");

    EXPECT_EQ(Box().Text(), "a\xD0\x96");
    EXPECT_EQ(changes, 2);
}

TEST_F(Editor, Return_TypesALineBreak)
{
    Box().SetText("");
    Box().SetFocus();
    shown.Turn();
    Type(L"a");
    shown.Press(VK_RETURN);
    Type(L"b");

    EXPECT_EQ(Box().Text(), "a\r\nb");
}

TEST_F(Editor, Selection_CountsCharactersAndWholeLineBreaks)
{
    CHARRANGE range = {};
    Box().SetText("\xF0\x9F\x99\x82\r\nab\r\ncd");
    Box().Select(4, 4);
    Send(box, EM_EXGETSEL, 0, ToParam(&range));

    EXPECT_EQ(range.cpMin, 4);
    EXPECT_EQ(range.cpMax, 7);
    EXPECT_EQ(Box().SelectionStart(), 4);
    EXPECT_EQ(Box().SelectionLength(), 4);
    EXPECT_EQ(Box().SelectedText(), "b\r\nc");
}

TEST_F(Editor, SelectAll_SelectsAll)
{
    Box().SetText("One\r\nTwo");
    Box().SelectAll();

    EXPECT_EQ(Box().SelectedText(), "One\r\nTwo");
}

TEST_F(Editor, ControlA_SelectsAll)
{
    Box().SetText("One\r\nTwo");
    const CHeldKey control(VK_CONTROL);
    Send(box, WM_KEYDOWN, 'A', 1);

    EXPECT_EQ(Box().SelectedText(), "One\r\nTwo");
}

TEST_F(Editor, TypedByMistake_IsTakenBack)
{
    Box().SetText("One");
    Type(L"x");
    Send(box, EM_UNDO);
    shown.Turn();

    EXPECT_EQ(Box().Text(), "One");
}

TEST_F(Editor, TextOfTheProgram_CannotBeTakenBack)
{
    Box().SetText("One");
    Box().SetText("Two");

    EXPECT_FALSE(Send(box, EM_CANUNDO));
}

TEST_F(Editor, Paste_OfWideText_IsPlainAndReported)
{
    Box().SetText("");
    changes = 0;
    CopyToClipboard(L"\x4E2D\r\n\x0416");
    Send(box, WM_PASTE);
    shown.Turn();

    EXPECT_EQ(Box().Text(), "\xE4\xB8\xAD\r\n\xD0\x96");
    EXPECT_GE(changes, 1);
}

TEST_F(Editor, ControlTab_TypesATabThere)
{
    Box().SetText("");
    Box().SetFocus();
    shown.Turn();
    const CHeldKey control(VK_CONTROL);
    shown.Press(VK_TAB);

    EXPECT_EQ(Box().Text(), "\t");
    EXPECT_EQ(shown.form.tabMain.Selected(), 4);
}

TEST_F(Editor, LimitOfTheSystemsBox_IsRaised) { EXPECT_GT(Send(box, EM_GETLIMITTEXT), 100000000); }

TEST_F(Editor, Font_IsThatOfTheWindowAndChangesNothing)
{
    Box().SetText("One");
    changes = 0;
    shown.window.Inside()->Dress(144);
    shown.Turn();

    EXPECT_EQ(changes, 0);
    EXPECT_EQ(Box().Text(), "One");
}

TEST_F(Editor, Disabled_IsShownSo)
{
    Box().SetEnabled(false);
    shown.Turn();

    EXPECT_FALSE(IsWindowEnabled(box));
}
