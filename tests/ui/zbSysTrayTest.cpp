#include "ui/zbSysTray.h"
#include "startup/Wiring.h"
#include "support/CharacterProgram.h"
#include "ui/frmSysTray.h"

using ui::WindowState;
using Texts = std::vector<std::string>;

namespace {

constexpr std::int32_t LeftDown = 513, LeftUp = 514, LeftDoubleClick = 515, RightDown = 516, RightUp = 517;

class SysTray : public CharacterProgram {
protected:
    SysTray()
    {
        startup::WireProgram();
        window.onCreate = nullptr;  // Neither start-up nor end of the program belongs to these tests.
        window.onLoad = nullptr;
        window.Load();
        zbSysTray::AddTrayIcon();
        ui::CForm::Peer peer;
        peer.bringToFront = [this] { asked.push_back("front"); };
        peer.popUpMenu = [this](ui::CMenuItem& menu) { asked.push_back(menu.Name()); };
        peer.postEmptyMessage = [this] { asked.push_back("empty message"); };
        TrayWindow().SetPeer(peer);
    }
    // Moves over a window, with the horizontal place in pixels and a fraction.
    static void MoveOver(ui::CForm& form, double pixels, float unitsPerPixel = 15)
    {
        form.MouseMove(0, 0, static_cast<float>(pixels) * unitsPerPixel, 60);
    }
    Texts asked;  // Of the tray window.
};

// The icon.

TEST_F(SysTray, Icon_LeftDoubleClick_ShowsAHiddenWindow)
{
    window.SetState(WindowState::Minimized);
    desktop.trayIcon.Mouse(LeftDoubleClick);
    EXPECT_TRUE(window.Visible());
    EXPECT_EQ(window.State(), WindowState::Normal);
}

TEST_F(SysTray, Icon_LeftDoubleClick_HidesAVisibleWindow)
{
    window.SetVisible(true);
    desktop.trayIcon.Mouse(LeftDoubleClick);
    EXPECT_FALSE(window.Visible());
    EXPECT_EQ(window.State(), WindowState::Minimized);
}

TEST_F(SysTray, Icon_LeftDoubleClick_ChangesTheStateBeforeTheVisibility)
{
    std::vector<std::pair<WindowState, bool>> seen;
    window.onResize = nullptr;
    ui::CForm::Peer peer;
    peer.changed = [&] { seen.emplace_back(window.State(), window.Visible()); };
    window.SetVisible(true);
    window.SetPeer(peer);
    desktop.trayIcon.Mouse(LeftDoubleClick);
    desktop.trayIcon.Mouse(LeftDoubleClick);
    EXPECT_EQ(seen, (std::vector<std::pair<WindowState, bool>>{{WindowState::Minimized, true},
                                                               {WindowState::Minimized, false},
                                                               {WindowState::Normal, false},
                                                               {WindowState::Normal, true}}));
}

TEST_F(SysTray, Icon_LeftDoubleClickTwice_RestoresTheNormalWindow)
{
    window.SetVisible(true);
    desktop.trayIcon.Mouse(LeftDoubleClick);
    desktop.trayIcon.Mouse(LeftDoubleClick);
    EXPECT_TRUE(window.Visible());
    EXPECT_EQ(window.State(), WindowState::Normal);
}

TEST_F(SysTray, Icon_LeftDoubleClickOnAMaximizedWindow_HidesIt)
{
    window.SetVisible(true);
    window.SetState(WindowState::Maximized);
    desktop.trayIcon.Mouse(LeftDoubleClick);
    EXPECT_FALSE(window.Visible());
}

TEST_F(SysTray, Icon_SingleLeftClick_DoesNothing)
{
    desktop.trayIcon.Mouse(LeftDown);
    desktop.trayIcon.Mouse(LeftUp);
    EXPECT_FALSE(window.Visible());
    EXPECT_EQ(asked, Texts{});
}

TEST_F(SysTray, Icon_RightButton_OpensTheMenuWhenItIsReleased)
{
    desktop.trayIcon.Mouse(RightDown);
    EXPECT_EQ(asked, Texts{});
    desktop.trayIcon.Mouse(RightUp);
    EXPECT_EQ(asked, (Texts{"front", "mnuPopup", "empty message"}));
}

TEST_F(SysTray, Icon_RightButtonTwice_OpensTheMenuAgain)
{
    desktop.trayIcon.Mouse(RightUp);
    desktop.trayIcon.Mouse(RightUp);
    EXPECT_EQ(asked, (Texts{"front", "mnuPopup", "empty message", "front", "mnuPopup", "empty message"}));
}

TEST_F(SysTray, Icon_AnyOtherMessage_DoesNothing)
{
    for (const std::int32_t message : {-517, 0, 1, 512, 518, 519, 520, 521, 522, 1024, 515 + 65536, 2147483647})
        desktop.trayIcon.Mouse(message);
    EXPECT_FALSE(window.Visible());
    EXPECT_EQ(asked, Texts{});
}

TEST_F(SysTray, Icon_OnAScreenWithOtherUnits_IsUnderstoodToo)
{
    for (const std::int32_t units : {1, 6, 8, 10, 12, 20}) {
        desktop.screen.unitsPerPixel = units;
        desktop.trayIcon.Mouse(RightUp);
    }
    EXPECT_EQ(asked.size(), 18U);
}

TEST_F(SysTray, Icon_AfterItsRemoval_TellsNothing)
{
    zbSysTray::DeleteTrayIcon();
    desktop.trayIcon.Mouse(LeftDoubleClick);
    EXPECT_FALSE(window.Visible());
}

TEST_F(SysTray, Icon_WhenAnythingFails_IsSilent)
{
    desktop.journal.FailNext("Screen.UnitsPerPixelX", failure);
    desktop.trayIcon.Mouse(RightUp);
    desktop.journal.FailNext("Screen.UnitsPerPixelX", failure, /*passes*/ 1);
    desktop.trayIcon.Mouse(RightUp);
    desktop.journal.ForgetFailures();
    desktop.screen.unitsPerPixel = 0;
    desktop.trayIcon.Mouse(RightUp);
    EXPECT_EQ(asked, Texts{});
    EXPECT_EQ(Reports(), Texts{});
}

// The tray window.

TEST_F(SysTray, TrayWindow_TakesTheMainWindowsIcon) { EXPECT_EQ(TrayWindow().Icon(), "parlune"); }

TEST_F(SysTray, TrayWindow_IsNeverShown)
{
    desktop.trayIcon.Mouse(LeftDoubleClick);
    desktop.trayIcon.Mouse(RightUp);
    EXPECT_FALSE(TrayWindow().Visible());
}

// The main window's bare surface.

TEST_F(SysTray, MainWindow_MouseAtPixel515_HidesTheWindow)
{
    window.SetVisible(true);
    MoveOver(window, 514);
    EXPECT_TRUE(window.Visible());
    MoveOver(window, 515);
    EXPECT_FALSE(window.Visible());
    EXPECT_EQ(window.State(), WindowState::Minimized);
}

TEST_F(SysTray, MainWindow_MouseAtPixel517_OpensTheMenuOfTheTray)
{
    window.SetVisible(true);
    MoveOver(window, 516);
    MoveOver(window, 518);
    EXPECT_EQ(asked, Texts{});
    MoveOver(window, 517);
    EXPECT_EQ(asked, (Texts{"front", "mnuPopup", "empty message"}));
    EXPECT_TRUE(window.Visible());
}

TEST_F(SysTray, MainWindow_MouseBetweenPixels_GoesToTheNearest)
{
    MoveOver(window, 516.6);
    MoveOver(window, 517.4);
    EXPECT_EQ(asked.size(), 6U);
}

// Halves go to the even pixel.
TEST_F(SysTray, MainWindow_MouseHalfwayBetweenPixels_NeverCountsAs517)
{
    MoveOver(window, 516.5);
    MoveOver(window, 517.5);
    EXPECT_EQ(asked, Texts{});
}

TEST_F(SysTray, MainWindow_WhenTheScreenDoesNotAnswer_IsReported)
{
    desktop.journal.FailNext("Screen.UnitsPerPixelX", failure);
    MoveOver(window, 517);
    EXPECT_EQ(Reports(), Texts{"Parlune:Form_MouseMove"});
}

TEST_F(SysTray, MainWindow_MouseAtPixel517WithAButtonPressed_OpensTheMenuToo)
{
    window.MouseMove(1, 2, 517 * 15, 0);
    EXPECT_EQ(asked.size(), 3U);
}

}
