#pragma once
#include "app/windows/window/MainWindowPeer.h"
#include "app/windows/window/SplashPeer.h"
#include "app/windows/window/TrayWindow.h"
#include "platform/windows/WindowsDesktop.h"
#include <memory>

namespace appwindows {

// One run of the program: its windows on the desktop, from the start-up window to the last one.
class CProgramRun {
public:
    explicit CProgramRun(platform::windowsdesktop::CWindowsDesktop& desktop);
    ~CProgramRun();  // Forgets the program's state, for it holds on to the desktop.
    CProgramRun(const CProgramRun&) = delete;
    CProgramRun& operator=(const CProgramRun&) = delete;
    int Run();  // The program's exit code.

private:
    void MakeWindows();
    void LendWindows();
    void EndSession();

    platform::windowsdesktop::CWindowsDesktop& m_desktop;
    HICON m_trayPicture = nullptr;
    std::unique_ptr<CMainWindowPeer> m_mainWindow;
    std::unique_ptr<CSplashPeer> m_splash;
    std::unique_ptr<CTrayWindow> m_tray;
};

}
