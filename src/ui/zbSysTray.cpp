#include "ui/zbSysTray.h"
#include "common/Numbers.h"
#include "common/Version.h"
#include "common/zbErrorTrap.h"
#include "platform/Platform.h"
#include "platform/Screen.h"
#include "platform/TrayIcon.h"
#include "ui/frmParlune.h"
#include "ui/frmSysTray.h"

using zbErrorTrap::IgnoreFailure;

namespace {

std::int32_t MessageOf(float x)
{
    return text::ToInt32(static_cast<double>(x) / platform::Current().screen.UnitsPerPixelX());
}

void MoveOwnersMouse(std::int32_t message)
{
    const float x = static_cast<float>(message) * static_cast<float>(platform::Current().screen.UnitsPerPixelX());
    TrayWindow().MouseMove(/*button*/ 0, /*shift*/ 0, x, 0);
}

void ToggleMainWindow()
{
    frmParlune& window = MainWindow();
    const bool show = !window.Visible();
    window.SetState(show ? ui::WindowState::Normal : ui::WindowState::Minimized);
    window.SetVisible(show);
    if (show)
        window.Activate();
}

// The owner in front and the empty message behind make the menu close when the user clicks elsewhere, and open again.
void PopUpMenu()
{
    TrayWindow().BringToFront();
    TrayWindow().PopUpMenu(MainWindow().mnuPopup);
    TrayWindow().PostEmptyMessage();
}

}

void zbSysTray::AddTrayIcon()
{
    TrayWindow().Load();
    platform::Current().trayIcon.Add(version::Title,
                                     [](std::int32_t message) { IgnoreFailure([&] { MoveOwnersMouse(message); }); });
}

void zbSysTray::DeleteTrayIcon() { platform::Current().trayIcon.Delete(); }

void zbSysTray::MouseMove(int, int, float x, float)
{
    switch (MessageOf(x)) {
    case platform::mouseMessage::LeftDoubleClick:
        ToggleMainWindow();
        break;
    case platform::mouseMessage::RightButtonUp:
        PopUpMenu();
        break;
    default:
        break;
    }
}

void zbSysTray::frmSysTray_Load()
{
    IgnoreFailure([] { TrayWindow().SetIcon(MainWindow().Icon()); });
}

void zbSysTray::frmSysTray_MouseMove(int button, int shift, float x, float y)
{
    IgnoreFailure([&] { MouseMove(button, shift, x, y); });
}

void zbSysTray::frmParlune_MouseMove(int button, int shift, float x, float y)
{
    const zbErrorTrap::CGuard guard("Parlune", "Form_MouseMove");
    guard([&] { MouseMove(button, shift, x, y); });
}
