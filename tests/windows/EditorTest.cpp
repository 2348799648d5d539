#include "driver/Companion.h"

// The text editor and its files.
using namespace driver;

namespace {

class Editor : public CCompanion {
protected:
    const std::string m_letter = CParlune::DataFolder() + "letter.txt";

    void BeginOnPage()
    {
        BeginShown();
        ShowPage(Page::Read);
        agent.Forget();
    }
    void Open(const std::string& file)
    {
        parlune.Choose("mnuFileOpen");
        GiveFile(WaitForFileDialog(parlune.Id(), "Open Text File"), file);
    }
    bool HasTitle(const std::string& title)
    {
        return Eventually([&] { return parlune.Title() == title; });
    }
    void ClickToolBar(int button)
    {
        const RECT place = PlaceOfButton(parlune.Control("tlbToolbar"), button);
        hand::Front(parlune.Main());
        hand::Click(POINT{(place.left + place.right) / 2, (place.top + place.bottom) / 2});
    }
};

TEST_F(Editor, TypedInto_ShowsTheChangeInTheTitleOnce)
{
    BeginOnPage();
    hand::Click(parlune.Control("txtRead"));
    hand::Type("abc");

    EXPECT_TRUE(HasTitle("Parlune - [New File] *"));
    EXPECT_TRUE(Eventually([&] { return parlune.Text("txtRead") == "abc"; }));
}

TEST_F(Editor, Open_ShowsTheFileAndItsName)
{
    WriteFile(m_letter, "Dear reader\r\n\r\n\r\n");
    BeginOnPage();
    Open(m_letter);

    EXPECT_TRUE(HasTitle("Parlune - [" + m_letter + "]"));
    EXPECT_EQ(parlune.Text("txtRead"), "Dear reader\r\n");
}

TEST_F(Editor, Open_RemembersTheFolder)
{
    WriteFile(m_letter, "Dear reader\r\n");
    BeginOnPage();
    Open(m_letter);
    ASSERT_TRUE(HasTitle("Parlune - [" + m_letter + "]"));
    parlune.End();

    EXPECT_EQ(registry::Option("LastFolder"), CParlune::DataFolder());
    EXPECT_EQ(registry::Option("FileName"), m_letter);
}

TEST_F(Editor, OpenChangeSave_WritesTheTextAndALineEnd)
{
    WriteFile(m_letter, "Dear reader");
    BeginOnPage();
    Open(m_letter);
    ASSERT_TRUE(HasTitle("Parlune - [" + m_letter + "]"));
    parlune.SetText("txtRead", "Dear writer");
    ASSERT_TRUE(HasTitle("Parlune - [" + m_letter + "] *"));
    parlune.Choose("mnuFileSave");

    EXPECT_TRUE(HasTitle("Parlune - [" + m_letter + "]"));
    EXPECT_EQ(Contents(m_letter), "Dear writer\r\n");
}

TEST_F(Editor, OpenTheFileOfLastTime_AtTheStart)
{
    WriteFile(m_letter, "Dear reader\r\n");
    registry::PutOption("FileName", m_letter);
    Begin();

    EXPECT_EQ(parlune.Text("txtRead"), "Dear reader\r\n");
}

TEST_F(Editor, OpenOfAMissingFile_IsRefusedByTheDialog)
{
    BeginOnPage();
    parlune.Choose("mnuFileOpen");
    const HWND dialog = WaitForFileDialog(parlune.Id(), "Open Text File");
    GiveFile(dialog, CParlune::DataFolder() + "missing.txt");
    const Box box = SeeBox();
    ASSERT_TRUE(box);
    Answer(box, IDOK);
    CancelDialog(dialog);

    EXPECT_EQ(parlune.Text("txtRead"), "");
}

TEST_F(Editor, SaveOverAnotherFile_AsksFirst)
{
    WriteFile(m_letter, "precious");
    BeginOnPage();
    parlune.SetText("txtRead", "new");
    parlune.Choose("mnuFileSave");
    const HWND dialog = WaitForFileDialog(parlune.Id(), "Save Text File");
    GiveFile(dialog, m_letter);
    const Box box = SeeBox();
    ASSERT_EQ(box.buttons, (std::vector<int>{IDYES, IDNO}));
    Answer(box, IDNO);
    CancelDialog(dialog);

    EXPECT_EQ(Contents(m_letter), "precious");
    EXPECT_EQ(parlune.Text("txtRead"), "new");
}

TEST_F(Editor, NewOnAChangedText_CancelledDialog_StillEmptiesTheEditor)
{
    BeginOnPage();
    parlune.SetText("txtRead", "lost");
    parlune.Choose("mnuFileNew");
    CancelDialog(WaitForFileDialog(parlune.Id(), "Save Text File"));

    EXPECT_TRUE(HasTitle("Parlune - [New File]"));
    EXPECT_EQ(parlune.Text("txtRead"), "");
}

TEST_F(Editor, ReadWithASelection_SpeaksIt)
{
    BeginOnPage();
    parlune.SetText("txtRead", "Hello world");
    Ask(parlune.Control("txtRead"), EM_SETSEL, 6, 11);
    parlune.Choose("mnuFileRead");

    EXPECT_TRUE(agent.Speaks("world"));
}

TEST_F(Editor, ReadFromTheCaret_BeginsOneCharacterBefore)
{
    BeginOnPage();
    parlune.SetText("txtRead", "Hello world");
    Ask(parlune.Control("txtRead"), EM_SETSEL, 3, 3);
    parlune.Choose("mnuFileRead");

    EXPECT_TRUE(agent.Speaks("llo world"));
}

TEST_F(Editor, ReadOfNothing_ReadsTheClipboard)
{
    clipboard::CopyText("The copied text.");
    BeginOnPage();
    parlune.Choose("mnuFileRead");

    EXPECT_TRUE(agent.Speaks("The copied text."));
}

TEST_F(Editor, ToolBarNew_BeginsANewText)
{
    BeginOnPage();
    ClickToolBar(0);

    EXPECT_TRUE(HasTitle("Parlune - [New File]"));
}

TEST_F(Editor, ToolBarOpen_AsksForAFile)
{
    BeginOnPage();
    ClickToolBar(1);

    EXPECT_TRUE(WaitForFileDialog(parlune.Id(), "Open Text File"));
}

TEST_F(Editor, ToolBarSave_AsksForAFile)
{
    BeginOnPage();
    parlune.SetText("txtRead", "new");
    ClickToolBar(2);

    EXPECT_TRUE(WaitForFileDialog(parlune.Id(), "Save Text File"));
}

TEST_F(Editor, ToolBarRead_Speaks)
{
    BeginOnPage();
    parlune.SetText("txtRead", "Read me.");
    ClickToolBar(3);

    EXPECT_TRUE(agent.Speaks("Read me."));
}

TEST_F(Editor, ToolBarStop_StopsAll)
{
    BeginOnPage();
    ClickToolBar(4);

    EXPECT_TRUE(agent.Sees("call Character[Bot].StopAll"));
}

TEST_F(Editor, TextOfManyLines_IsKeptAsItIs)
{
    BeginOnPage();
    parlune.SetText("txtRead", "one\r\ntwo\r\n\r\nfour");

    EXPECT_EQ(parlune.Text("txtRead"), "one\r\ntwo\r\n\r\nfour");
}

}
