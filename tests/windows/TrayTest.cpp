#include "driver/Companion.h"

// The icon in the notification area, by what the shell posts to its window.
using namespace driver;

namespace {

constexpr WPARAM IconId = 1;

class TrayIcon : public CCompanion {
protected:
    void Post(LPARAM mouseMessage) const { PostMessageW(parlune.Tray(), WM_MOUSEMOVE, IconId, mouseMessage); }
    // What was posted before has been handled when this answer is there.
    void Settle() const
    {
        PostMessageW(parlune.Tray(), WM_MOUSEMOVE, IconId, WM_MOUSEMOVE);
        agent.Hears("Stop");
        EXPECT_TRUE(agent.Sees("call Character[Bot].StopAll"));
    }
};

TEST_F(TrayIcon, DoubleClick_ShowsTheOptionsWindow)
{
    Begin();
    Post(WM_LBUTTONDBLCLK);

    EXPECT_TRUE(Eventually([&] { return parlune.IsShown(); }));
}

TEST_F(TrayIcon, DoubleClickOnAShownWindow_HidesIt)
{
    BeginShown();
    Post(WM_LBUTTONDBLCLK);

    EXPECT_TRUE(Eventually([&] { return !IsWindowVisible(parlune.Main()); }));
}

TEST_F(TrayIcon, DoubleClickTwice_RestoresTheWindowInItsNormalState)
{
    BeginShown();
    Post(WM_LBUTTONDBLCLK);
    ASSERT_TRUE(Eventually([&] { return !IsWindowVisible(parlune.Main()); }));
    Post(WM_LBUTTONDBLCLK);

    EXPECT_TRUE(Eventually([&] { return parlune.IsShown(); }));
    EXPECT_FALSE(IsIconic(parlune.Main()));
}

TEST_F(TrayIcon, SingleClick_DoesNothing)
{
    Begin();
    Post(WM_LBUTTONDOWN);
    Post(WM_LBUTTONUP);
    Settle();

    EXPECT_FALSE(parlune.IsShown());
    EXPECT_FALSE(MenuIsOpen(parlune.Main()));
}

TEST_F(TrayIcon, RightButtonReleased_OpensThePopupMenu)
{
    Begin();
    Post(WM_RBUTTONUP);

    EXPECT_TRUE(Eventually([&] { return MenuIsOpen(parlune.Tray()); }));
}

TEST_F(TrayIcon, RightButtonPressed_OpensNothing)
{
    Begin();
    Post(WM_RBUTTONDOWN);
    Settle();

    EXPECT_FALSE(MenuIsOpen(parlune.Tray()));
}

TEST_F(TrayIcon, PopupMenu_ClickElsewhere_ClosesItAndItOpensAgain)
{
    Begin();
    for (int times = 0; times < 2; ++times) {
        hand::PointAt(POINT{300, 300});
        Post(WM_RBUTTONUP);
        ASSERT_TRUE(Eventually([&] { return MenuIsOpen(parlune.Tray()); }));
        hand::Click(POINT{1000, 700});
        ASSERT_TRUE(Eventually([&] { return !MenuIsOpen(parlune.Tray()); }));
        Settle();
    }
}

TEST_F(TrayIcon, PopupMenu_ExitByItsKey_Ends)
{
    Begin();
    Post(WM_RBUTTONUP);
    ASSERT_TRUE(Eventually([&] { return MenuIsOpen(parlune.Tray()); }));
    hand::Press({'E'});

    EXPECT_TRUE(parlune.HasEnded());
}

TEST_F(TrayIcon, ForeignMessagesOfTheShell_AreIgnored)
{
    Begin();
    for (LPARAM message : {0L, 1L, 514L, 518L, 519L, 0x10203L, 0x7FFFFFFFL, -1L})
        Post(message);
    Settle();

    EXPECT_FALSE(parlune.IsShown());
    EXPECT_TRUE(parlune.IsRunning());
}

// As the program's makers left it: the bare window takes a place for a message of the tray.
TEST_F(TrayIcon, MouseOverTheMainWindowAtPlace515_HidesIt)
{
    BeginShown();
    PostMessageW(parlune.Main(), WM_MOUSEMOVE, 0, MAKELPARAM(515, 3));

    EXPECT_TRUE(Eventually([&] { return !IsWindowVisible(parlune.Main()); }));
}

TEST_F(TrayIcon, MouseOverTheMainWindowAtPlace517_OpensThePopupMenu)
{
    BeginShown();
    PostMessageW(parlune.Main(), WM_MOUSEMOVE, 0, MAKELPARAM(517, 3));

    EXPECT_TRUE(Eventually([&] { return MenuIsOpen(parlune.Main()); }));
}

// The icon itself, in the window that the system opens for icons where no task bar has room for them.
class SystemTray : public CCompanion {
protected:
    // The icon of a program that was killed stays until the shell looks after it, which may take seconds.
    void SetUp() override
    {
        CCompanion::SetUp();
        ASSERT_TRUE(Eventually([] { return !HasIcon(); }));
    }
    static HWND Bar() { return FindWindowW(L"__winex11_standalone_tray", nullptr); }
    static bool HasIcon() { return Bar() && IsWindowVisible(Bar()); }
    static POINT Icon()
    {
        const RECT bar = PlaceOf(Bar());
        RECT inside{};
        GetClientRect(Bar(), &inside);
        const int border = (bar.right - bar.left - inside.right) / 2;
        return {bar.left + border + 10, bar.bottom - border - inside.bottom / 2};
    }
};

TEST_F(SystemTray, Start_PutsTheIconThereAndTheEndTakesItAway)
{
    Begin();
    EXPECT_TRUE(Eventually(HasIcon));
    parlune.End();

    EXPECT_TRUE(Eventually([] { return !HasIcon(); }));
}

TEST_F(SystemTray, DoubleClickOnTheIcon_ShowsTheOptionsWindow)
{
    Begin();
    ASSERT_TRUE(Eventually(HasIcon));
    hand::DoubleClick(Icon());

    EXPECT_TRUE(Eventually([&] { return parlune.IsShown(); }));
}

TEST_F(SystemTray, RightClickOnTheIcon_OpensThePopupMenu)
{
    Begin();
    ASSERT_TRUE(Eventually(HasIcon));
    hand::RightClick(Icon());

    EXPECT_TRUE(Eventually([&] { return MenuIsOpen(parlune.Tray()); }));
}

}
