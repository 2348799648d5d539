#pragma once
#include "app/linux/window/MainWindowPeer.h"
#include "app/linux/window/SplashPeer.h"
#include "platform/linux/LinuxDesktop.h"
#include <memory>

// One run of the program: its windows on the desktop, from the start-up window to the last one.
class CProgramRun {
public:
    explicit CProgramRun(platform::linuxdesktop::CLinuxDesktop& desktop);
    ~CProgramRun();  // Forgets the program's state, for it holds on to the desktop.
    int Run();       // The program's exit code.

    void BringToFront();  // Another start of the program asked for it.
    void EndSession();    // Closes as at the end of a session: options are saved, then the program ends.
    // The display has gone: saves what EndSession saves. The process must end afterwards.
    void SaveWithoutDisplay();

private:
    void Start();
    void QuitAfterLastWindow();
    void WireTrayIcon();

    platform::linuxdesktop::CLinuxDesktop& m_desktop;
    QIcon m_icon;
    std::unique_ptr<CMainWindowPeer> m_mainWindow;
    std::unique_ptr<CSplashPeer> m_splash;
    bool m_starting = true;   // The start hides the window in the end.
    bool m_frontDue = false;  // Asked for meanwhile.
};
