#include "app/windows/ProgramRun.h"
#include "app/windows/window/Guarded.h"
#include "app/windows/window/Pictures.h"
#include "common/ProgramState.h"
#include "common/zbErrorTrap.h"
#include "startup/Wiring.h"
#include "ui/frmParlune.h"
#include "ui/frmSplash.h"
#include "ui/frmSysTray.h"

namespace appwindows {
namespace {

void QuitAfterLastWindow()
{
    if (!MainWindow().Loaded() && !SplashWindow().Loaded())
        PostQuitMessage(0);
}

// After the splash another question may follow, and the system shows no box to a program that has been told to quit. The
// start looks itself when it is over.
bool starting = false;

void QuitAfterSplash()
{
    if (!starting)
        QuitAfterLastWindow();
}

}

CProgramRun::CProgramRun(platform::windowsdesktop::CWindowsDesktop& desktop) : m_desktop(desktop)
{
    common::RenewProgramState();
    startup::WireProgram();
    MakeWindows();
    LendWindows();
}

CProgramRun::~CProgramRun()
{
    m_desktop.Events().SetFilter({});
    m_desktop.Clipboard().StopWatching();
    m_desktop.TrayIcon().Delete();
    m_splash.reset();
    m_tray.reset();
    m_mainWindow.reset();
    if (m_trayPicture)
        DestroyIcon(m_trayPicture);
    common::RenewProgramState();
}

void CProgramRun::MakeWindows()
{
    const auto isBusy = [this] { return m_desktop.Screen().CurrentPointer() == platform::Pointer::Hourglass; };
    m_mainWindow = std::make_unique<CMainWindowPeer>(
        MainWindow(), CMainWindowPeer::Procedures{
                          .isBusy = isBusy, .unloaded = QuitAfterLastWindow, .sessionEnds = [this] { EndSession(); }});
    m_splash = std::make_unique<CSplashPeer>(SplashWindow(), QuitAfterSplash);
    m_tray = std::make_unique<CTrayWindow>(TrayWindow(), MainWindow(), [this](const Message& message) {
        return m_desktop.TrayIcon().OnMessage(message.code, message.w, message.l);
    });
}

void CProgramRun::LendWindows()
{
    m_trayPicture = pictures::ProgramIcon(GetSystemMetrics(SM_CXSMICON));
    m_desktop.Clipboard().UseWindow(m_mainWindow->Native());
    m_desktop.FileDialogs().UseOwner(m_mainWindow->Native());
    m_desktop.TrayIcon().UseOwner(m_tray->Native(), m_trayPicture);
    m_desktop.Events().SetFilter([this](MSG& message) { return m_mainWindow->TakeKey(message); });
}

int CProgramRun::Run()
{
    starting = true;
    RunGuarded([] { SplashWindow().Load(); });
    starting = false;
    RunGuarded(QuitAfterLastWindow);
    MSG message = {};
    while (GetMessageW(&message, nullptr, 0, 0) > 0)
        RunGuarded([&] { m_desktop.Events().Dispatch(message); });
    return static_cast<int>(message.wParam);
}

// What is not done when this returns is not done at all.
void CProgramRun::EndSession()
{
    const zbErrorTrap::CGuard guard("Parlune", "EndSession");
    guard([] { SplashWindow().Unload(ui::UnloadMode::Session); });
    guard([] { MainWindow().Unload(ui::UnloadMode::Session); });
    PostQuitMessage(0);
}

}
