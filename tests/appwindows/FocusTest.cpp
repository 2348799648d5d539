#include "FilledForm.h"
#include <initializer_list>

// The keyboard: where it is, and how it moves.
namespace {

using appwindows::Holds;
using appwindows::Send;
using appwindows::TextOf;

struct Focus : testing::Test {
    ShownWindow shown;

    std::string Focused() const
    {
        const appwindows::CPeer* peer = shown.window.Inside()->PeerAround(GetFocus());
        return peer ? peer->Subject().Name() : "";
    }
    // The controls that Tab reaches one after the other, until it comes back to the first one.
    std::string Round(const char* first)
    {
        std::string names;
        do {
            names += Focused() + " ";
            shown.Press(VK_TAB);
        } while (Focused() != first && names.size() < 2000);
        return names;
    }
};

}

TEST_F(Focus, SetByTheProgram_IsTaken)
{
    shown.form.chkStartWithWindows.SetFocus();
    shown.Turn();

    EXPECT_EQ(GetFocus(), shown.Native("chkStartWithWindows"));
}

TEST_F(Focus, SetOnAPageThatIsJustBeingChosen_IsTaken)
{
    shown.form.tabMain.onClick = [&] { shown.form.cboChar.SetFocus(); };
    shown.Visit(1);

    EXPECT_EQ(Focused(), "cboChar");
    EXPECT_TRUE(shown.form.cboChar.HasFocus());
}

TEST_F(Focus, SetOnAPageWhileAnotherOneGoesWithTheFocus_IsTaken)
{
    shown.form.chkStartWithWindows.SetFocus();
    shown.Turn();
    shown.form.tabMain.onClick = [&] { shown.form.cboChar.SetFocus(); };
    shown.Visit(1);

    EXPECT_TRUE(shown.form.cboChar.HasFocus());
    EXPECT_EQ(Focused(), "cboChar");
}

TEST_F(Focus, PageGoesWithTheFocus_StaysInTheWindow)
{
    shown.form.chkStartWithWindows.SetFocus();
    shown.Turn();
    shown.Visit(6);

    EXPECT_TRUE(IsWindowVisible(GetFocus()));
    EXPECT_NE(Focused(), "chkStartWithWindows");
    EXPECT_NE(Focused(), "");
}

TEST_F(Focus, FocusedControlDisabled_MovesOn)
{
    shown.form.chkShowSplash.SetFocus();
    shown.Turn();
    shown.form.chkShowSplash.SetEnabled(false);
    shown.Turn();

    EXPECT_EQ(Focused(), "chkStartWithWindows");
}

TEST_F(Focus, TabKey_MovesInTheOrderOfTheTable)
{
    shown.form.tabMain.SetFocus();
    shown.Turn();

    EXPECT_EQ(Round("tabMain"), "tabMain chkShowSplash chkStartWithWindows chkMinimizeOnClose chkIEMenu "
                                "chkMonitorClipboard chkReadClipBoardOnDblClick chkQueueReadCommands cmdReadClipboard "
                                "chkSayTime cboSayTimeInterval cboSayTimeFormat cboSayTime chkSayTimeShowIfHidden ");
}

TEST_F(Focus, TabKey_OnThePageOfTheEditor_ReachesToolBarAndEditor)
{
    shown.Visit(4);
    shown.form.tabMain.SetFocus();
    shown.Turn();

    EXPECT_EQ(Round("tabMain"), "tabMain tlbToolbar txtRead ");
}

TEST_F(Focus, TabKey_OnThePageWithLinks_ReachesThem)
{
    shown.Visit(6);
    shown.form.tabMain.SetFocus();
    shown.Turn();

    EXPECT_EQ(Round("tabMain"), "tabMain imgParlune lblURL(2) lblURL(1) lblURL(0) imgAgentRing ");
}

TEST_F(Focus, TabKey_StepsOverWhatIsDisabledAndWhatItsPageHides)
{
    shown.Visit(2);
    shown.form.tabMain.SetFocus();
    shown.Turn();

    EXPECT_EQ(Round("tabMain"), "tabMain tabTTS lstTTS txtTestText cmdTTSVoice(0) cmdTTSVoice(2) cmdTTSVoice(1) ");
}

TEST_F(Focus, ShiftTab_MovesBack)
{
    shown.form.chkMinimizeOnClose.SetFocus();
    shown.Turn();
    const CHeldKey shift(VK_SHIFT);
    shown.Press(VK_TAB);

    EXPECT_TRUE(shown.form.chkStartWithWindows.HasFocus());
}

TEST_F(Focus, TabKey_IntoABox_SelectsItsText)
{
    shown.Visit(5);
    shown.form.tabMain.SetFocus();
    shown.Turn();
    shown.Press(VK_TAB);

    EXPECT_EQ(Focused(), "txtUserName");
    EXPECT_EQ(shown.form.txtUserName.SelectedText(), "Ada");
}

TEST_F(Focus, TabKey_InABoxOfSeveralLines_MovesOn)
{
    shown.Visit(2);
    shown.form.txtTestText.SetFocus();
    shown.Turn();
    shown.Press(VK_TAB);

    EXPECT_EQ(Focused(), "cmdTTSVoice(0)");
    EXPECT_EQ(shown.form.txtTestText.Text(), "Welcome to Parlune from Tarrowind Technologies!\r\n");
}

TEST_F(Focus, Return_InABoxOfSeveralLines_TypesALineBreak)
{
    shown.Visit(5);
    shown.form.txtGreeting[0].SetText("ab");
    shown.form.txtGreeting[0].SetFocus();
    shown.Turn();
    shown.form.txtGreeting[0].Select(1, 0);
    shown.Press(VK_RETURN);

    EXPECT_EQ(shown.form.txtGreeting[0].Text(), "a\r\nb");
}

TEST_F(Focus, Return_OnAButton_PressesIt)
{
    int clicks = 0;
    shown.form.cmdReadClipboard.onClick = [&] { ++clicks; };
    shown.form.cmdReadClipboard.SetFocus();
    shown.Turn();
    shown.Press(VK_RETURN);

    EXPECT_EQ(clicks, 1);
}

TEST_F(Focus, Return_OnACheckBox_DoesNothing)
{
    shown.form.chkShowSplash.SetFocus();
    shown.Turn();
    shown.Press(VK_RETURN);

    EXPECT_FALSE(shown.form.chkShowSplash.Ticked());
    EXPECT_TRUE(IsWindowVisible(shown.window.Native()));
}

TEST_F(Focus, Escape_ClosesAnOpenListAndNothingElse)
{
    shown.form.cboSayTime.SetFocus();
    shown.Turn();
    Send(shown.Native("cboSayTime"), CB_SHOWDROPDOWN, TRUE);
    shown.Press(VK_ESCAPE);
    EXPECT_FALSE(Send(shown.Native("cboSayTime"), CB_GETDROPPEDSTATE));

    shown.Press(VK_ESCAPE);
    EXPECT_TRUE(IsWindowVisible(shown.window.Native()));
}

TEST_F(Focus, Escape_InTheEditor_LeavesTheWindow)
{
    shown.Visit(4);
    shown.form.txtRead.SetFocus();
    shown.Turn();
    shown.Press(VK_ESCAPE);

    EXPECT_TRUE(IsWindowVisible(shown.window.Native()));
}

TEST_F(Focus, ControlTab_TurnsThePageRoundAndRound)
{
    const CHeldKey control(VK_CONTROL);
    shown.Press(VK_TAB);
    EXPECT_EQ(shown.form.tabMain.Selected(), 1);

    const CHeldKey shift(VK_SHIFT);
    shown.Press(VK_TAB);
    shown.Press(VK_TAB);
    EXPECT_EQ(shown.form.tabMain.Selected(), 6);
}

TEST_F(Focus, ControlPageDownAndUp_TurnThePageAlsoFromTheEditor)
{
    shown.Visit(4);
    shown.form.txtRead.SetFocus();
    shown.Turn();
    const CHeldKey control(VK_CONTROL);
    shown.Press(VK_NEXT);
    EXPECT_EQ(shown.form.tabMain.Selected(), 5);

    shown.Press(VK_PRIOR);
    EXPECT_EQ(shown.form.tabMain.Selected(), 4);
}

TEST_F(Focus, WindowActiveAgain_IsWhereItWas)
{
    int entered = 0;
    shown.Visit(5);
    shown.form.txtUserName.SetFocus();
    shown.Turn();
    shown.form.txtUserName.onEnter = [&] { ++entered; };
    SetFocus(nullptr);
    Send(shown.window.Native(), WM_SETFOCUS);
    shown.Turn();

    EXPECT_EQ(Focused(), "txtUserName");
    EXPECT_EQ(entered, 0);
}

TEST_F(Focus, ArrowKey_OnACheckBox_MovesOnThePage)
{
    shown.form.chkShowSplash.SetFocus();
    shown.Turn();
    shown.Press(VK_DOWN);

    EXPECT_EQ(Focused(), "chkStartWithWindows");
}

TEST_F(Focus, AccessKeyOfACaption_GoesToItsControl)
{
    int clicks = 0;
    shown.form.cmdReadClipboard.SetCaption("Read Clipboard &Now");
    shown.form.cmdReadClipboard.onClick = [&] { ++clicks; };
    shown.form.chkShowSplash.SetFocus();
    shown.Turn();
    PostMessageW(GetFocus(), WM_SYSCHAR, 'n', 0x20000001);
    shown.Turn();

    EXPECT_EQ(clicks, 1);
}
