#include "FilledForm.h"
#include "app/windows/ControlIds.h"
#include "app/windows/window/SplashPeer.h"
#include "app/windows/window/TrayWindow.h"
#include "platform/Failure.h"

// The windows themselves: showing, closing, states, the mouse, and failures of what they call.
namespace {

using appwindows::Send;
using appwindows::TextOf;

struct Window : testing::Test {
    ShownWindow shown;
    HWND native = shown.window.Native();

    // As in the program: minimised is invisible.
    void WireResize()
    {
        shown.form.onResize = [this] {
            if (shown.form.State() != ui::WindowState::Maximized)
                shown.form.SetVisible(shown.form.State() == ui::WindowState::Normal);
        };
    }
};

struct MouseReport {
    int button;
    int shift;
    float x;
    float y;
    bool operator==(const MouseReport&) const = default;
};

}

TEST_F(Window, Caption_Changed_IsShown)
{
    shown.form.SetCaption("Parlune - [C:\\\xC5\x81.txt] *");

    EXPECT_EQ(TextOf(native), "Parlune - [C:\\\xC5\x81.txt] *");
}

TEST_F(Window, Hidden_ByTheProgram_IsHidden)
{
    shown.form.SetVisible(false);

    EXPECT_FALSE(IsWindowVisible(native));
}

TEST_F(Window, CloseButton_AsksTheForm)
{
    auto asked = ui::UnloadMode::Code;
    shown.form.onQueryUnload = [&](ui::UnloadMode mode) {
        asked = mode;
        return false;
    };
    Send(native, WM_SYSCOMMAND, SC_CLOSE);

    EXPECT_EQ(asked, ui::UnloadMode::ControlMenu);
    EXPECT_TRUE(IsWindowVisible(native));
}

TEST_F(Window, CloseButtonWithTheSystemsOwnBits_AsksTheForm)
{
    auto asked = ui::UnloadMode::Code;
    shown.form.onQueryUnload = [&](ui::UnloadMode mode) {
        asked = mode;
        return false;
    };
    Send(native, WM_SYSCOMMAND, SC_CLOSE | 3);

    EXPECT_EQ(asked, ui::UnloadMode::ControlMenu);
}

TEST_F(Window, CloseButton_Unloads)
{
    Send(native, WM_SYSCOMMAND, SC_CLOSE);

    EXPECT_FALSE(shown.form.Loaded());
    EXPECT_FALSE(IsWindowVisible(native));
}

TEST_F(Window, CloseMessageOfAnotherProgram_IsNotTheUsers)
{
    auto asked = ui::UnloadMode::ControlMenu;
    shown.form.onQueryUnload = [&](ui::UnloadMode mode) {
        asked = mode;
        return true;
    };
    Send(native, WM_CLOSE);

    EXPECT_EQ(asked, ui::UnloadMode::OtherProgram);
    EXPECT_FALSE(shown.form.Loaded());
}

TEST_F(Window, MinimizedByTheUser_IsToldAndVanishes)
{
    WireResize();
    Send(native, WM_SYSCOMMAND, SC_MINIMIZE);
    shown.Turn();

    EXPECT_EQ(shown.form.State(), ui::WindowState::Minimized);
    EXPECT_FALSE(shown.form.Visible());
    EXPECT_FALSE(IsWindowVisible(native));
}

TEST_F(Window, MinimizedAndShownAgain_IsNormal)
{
    WireResize();
    Send(native, WM_SYSCOMMAND, SC_MINIMIZE);
    shown.Turn();
    shown.form.SetState(ui::WindowState::Normal);
    shown.Turn();

    EXPECT_TRUE(IsWindowVisible(native));
    EXPECT_FALSE(IsIconic(native));
    EXPECT_EQ(shown.form.State(), ui::WindowState::Normal);
}

TEST_F(Window, MaximizedAndRestoredByTheUser_IsTold)
{
    WireResize();
    Send(native, WM_SYSCOMMAND, SC_MAXIMIZE);
    shown.Turn();
    EXPECT_EQ(shown.form.State(), ui::WindowState::Maximized);

    Send(native, WM_SYSCOMMAND, SC_RESTORE);
    shown.Turn();
    EXPECT_EQ(shown.form.State(), ui::WindowState::Normal);
}

TEST_F(Window, MinimizedByTheProgram_VanishesWithoutBeingAnIcon)
{
    WireResize();
    shown.form.SetState(ui::WindowState::Minimized);
    shown.Turn();

    EXPECT_FALSE(IsWindowVisible(native));
    EXPECT_FALSE(IsIconic(native));
}

TEST_F(Window, SessionThatEnds_IsTold)
{
    EXPECT_TRUE(Send(native, WM_QUERYENDSESSION));
    EXPECT_EQ(shown.sessionEnds, 0);
    Send(native, WM_ENDSESSION, TRUE);

    EXPECT_EQ(shown.sessionEnds, 1);
}

TEST_F(Window, SessionThatGoesOn_IsNotTold)
{
    Send(native, WM_ENDSESSION, FALSE);

    EXPECT_EQ(shown.sessionEnds, 0);
}

TEST_F(Window, MouseOverTheBareSurface_IsToldInScreenUnits)
{
    std::vector<MouseReport> moves;
    shown.form.onMouseMove = [&](int button, int shift, float x, float y) { moves.push_back({button, shift, x, y}); };
    Send(native, WM_MOUSEMOVE, MK_LBUTTON | MK_SHIFT, MAKELPARAM(480, 3));
    Send(native, WM_MOUSEMOVE, MK_MBUTTON | MK_RBUTTON | MK_CONTROL, MAKELPARAM(2, 2));

    EXPECT_EQ(moves, (std::vector<MouseReport>{{1, 1, 7200, 45}, {6, 2, 30, 30}}));
}

TEST_F(Window, MouseOverAControl_IsNotTold)
{
    int moves = 0;
    shown.form.onMouseMove = [&](int, int, float, float) { ++moves; };
    Send(native, WM_MOUSEMOVE, 0, MAKELPARAM(200, 200));

    EXPECT_EQ(moves, 0);
}

TEST_F(Window, Timer_Enabled_TicksAndStops)
{
    int ticks = 0;
    shown.form.tmrTimer.onTimer = [&] {
        ++ticks;
        shown.form.tmrTimer.SetEnabled(false);
    };
    shown.form.tmrTimer.SetEnabled(true);
    Send(native, WM_TIMER, 1);
    Send(native, WM_TIMER, 1);

    EXPECT_EQ(ticks, 1);
    EXPECT_FALSE(KillTimer(native, 1));
}

TEST_F(Window, FailureOfAClick_IsReportedAndTheProgramGoesOn)
{
    shown.form.cmdReadClipboard.onClick = [] { throw platform::CFailure(76, "Path not found"); };
    Send(shown.Native("cmdReadClipboard"), BM_CLICK);
    shown.Turn();

    ASSERT_EQ(shown.desktop.messageBoxes.shown.size(), 1U);
    EXPECT_NE(shown.desktop.messageBoxes.Last().text.find("Path not found"), std::string::npos);
    EXPECT_TRUE(IsWindowVisible(native));
}

TEST_F(Window, FailureOfAMenuEntry_IsReported)
{
    shown.form.mnuFileNew.onClick = [] { throw platform::CFailure(53, "File not found"); };
    Send(native, WM_COMMAND, static_cast<WPARAM>(appwindows::CommandOf(shown.form, "mnuFileNew")));

    ASSERT_EQ(shown.desktop.messageBoxes.shown.size(), 1U);
    EXPECT_NE(shown.desktop.messageBoxes.Last().text.find("File not found"), std::string::npos);
}

TEST_F(Window, StrangeException_IsReported)
{
    shown.form.chkShowSplash.onClick = [] { throw 5; };
    Send(shown.Native("chkShowSplash"), BM_CLICK);

    EXPECT_EQ(shown.desktop.messageBoxes.shown.size(), 1U);
}

TEST_F(Window, EndOfTheProgramInAClick_EndsTheMessageLoop)
{
    shown.form.cmdReadClipboard.onClick = [] { throw platform::CProgramEnded(); };
    Send(shown.Native("cmdReadClipboard"), BM_CLICK);
    MSG message = {};

    EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
}

TEST_F(Window, Busy_ShowsTheHourglassEverywhere)
{
    shown.busy = true;
    Send(shown.Native("chkShowSplash"), WM_SETCURSOR, reinterpret_cast<WPARAM>(shown.Native("chkShowSplash")),
         MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));

    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, MAKEINTRESOURCEW(32514)));
}

TEST_F(Window, BroughtToTheFront_IsTheActiveOne)
{
    shown.form.Activate();
    shown.Turn();

    EXPECT_EQ(GetActiveWindow(), native);
}

TEST(MainWindow, NeverShown_HasNoInsideButAWindow)
{
    FilledForm filled;
    const appwindows::CMainWindowPeer window(filled.form,
                                             {.isBusy = [] { return false; }, .unloaded = [] {}, .sessionEnds = [] {}});
    filled.form.Load();

    EXPECT_EQ(window.Inside(), nullptr);
    EXPECT_TRUE(IsWindow(window.Native()));
    EXPECT_FALSE(IsWindowVisible(window.Native()));
}

TEST(MainWindow, Unloaded_IsTold)
{
    int unloaded = 0;
    FilledForm filled;
    const appwindows::CMainWindowPeer window(
        filled.form, {.isBusy = [] { return false; }, .unloaded = [&] { ++unloaded; }, .sessionEnds = [] {}});
    filled.form.Load();
    filled.form.Unload();

    EXPECT_EQ(unloaded, 1);
}

namespace {

struct Splash : testing::Test {
    CHeadlessDesktop desktop;
    frmSplash form;
    appwindows::CSplashPeer splash{form, [] {}};
    int clicks = 0;

    Splash()
    {
        form.lblVersion.SetCaption("Version 2.6");
        form.onClick = [this] { ++clicks; };
        form.imgAbout.onClick = [this] { clicks += 10; };
        form.SetVisible(true);
    }
};

}

TEST_F(Splash, Shown_StandsInTheMiddleWithItsVersion)
{
    RECT place = {}, area = {};
    GetWindowRect(splash.Native(), &place);
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);

    EXPECT_TRUE(IsWindowVisible(splash.Native()));
    EXPECT_EQ(TextOf(splash.Inside()->WindowOf("lblVersion")), "Version 2.6");
    EXPECT_NEAR(static_cast<double>(place.left - area.left), static_cast<double>(area.right - place.right), 1);
    EXPECT_EQ(GetWindowLongPtrW(splash.Native(), GWL_STYLE) & WS_CAPTION, 0);
}

TEST_F(Splash, Clicked_TellsTheForm)
{
    Send(splash.Native(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));

    EXPECT_EQ(clicks, 1);
}

TEST_F(Splash, PictureClicked_TellsThePicture)
{
    Send(splash.Inside()->WindowOf("imgAbout"), BM_CLICK);

    EXPECT_EQ(clicks, 10);
}

TEST_F(Splash, DismissedByItsOwnClick_IsGone)
{
    form.onClick = [this] { form.Unload(); };
    Send(splash.Native(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));

    EXPECT_FALSE(IsWindowVisible(splash.Native()));
}

TEST(TrayWindow, MouseMove_IsToldToTheForm)
{
    CHeadlessDesktop desktop;
    frmSysTray form;
    frmParlune menus;
    const appwindows::CTrayWindow tray(form, menus, [](const appwindows::Message&) { return false; });
    float x = 0;
    form.onMouseMove = [&](int, int, float at, float) { x = at; };
    Send(tray.Native(), WM_MOUSEMOVE, 0, 515);

    EXPECT_EQ(x, 7725);
}

TEST(TrayWindow, MessageOfTheIcon_StaysWithTheIcon)
{
    CHeadlessDesktop desktop;
    frmSysTray form;
    frmParlune menus;
    LPARAM told = 0;
    const appwindows::CTrayWindow tray(form, menus, [&](const appwindows::Message& message) {
        if (message.code == WM_MOUSEMOVE)
            told = message.l;
        return message.code == WM_MOUSEMOVE;
    });
    int moves = 0;
    form.onMouseMove = [&](int, int, float, float) { ++moves; };
    Send(tray.Native(), WM_MOUSEMOVE, 1, 517);

    EXPECT_EQ(told, 517);
    EXPECT_EQ(moves, 0);
}
