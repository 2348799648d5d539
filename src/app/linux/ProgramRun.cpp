#include "app/linux/ProgramRun.h"
#include "app/linux/MenuPeer.h"
#include "app/linux/window/Pictures.h"
#include "common/ProgramState.h"
#include "common/zbErrorTrap.h"
#include "settings/bOptions.h"
#include "startup/Wiring.h"
#include "ui/frmParlune.h"
#include "ui/frmSplash.h"
#include "ui/frmSysTray.h"
#include <QApplication>
#include <QCursor>
#include <QTimer>

namespace {
bool AnyFormLoaded() { return MainWindow().Loaded() || SplashWindow().Loaded(); }
}

CProgramRun::CProgramRun(platform::linuxdesktop::CLinuxDesktop& desktop)
    : m_desktop(desktop), m_icon(pictures::ProgramIcon())
{
    QApplication::setWindowIcon(m_icon);
    common::RenewProgramState();
    startup::WireProgram();
    const auto unloaded = [this] { QuitAfterLastWindow(); };
    m_mainWindow = std::make_unique<CMainWindowPeer>(
        MainWindow(), [this] { return m_desktop.TrayIcon().IsReachable(); }, unloaded);
    m_splash = std::make_unique<CSplashPeer>(SplashWindow(), unloaded);
    WireTrayIcon();
    QObject::connect(qApp, &QGuiApplication::commitDataRequest, m_mainWindow.get(), [this] { EndSession(); });
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, m_mainWindow.get(),
                     [] { MainWindow().Unload(ui::UnloadMode::Session); });
}

CProgramRun::~CProgramRun()
{
    m_desktop.TrayIcon().OnReachableChange({});
    m_splash.reset();
    m_mainWindow.reset();
    common::RenewProgramState();
}

void CProgramRun::WireTrayIcon()
{
    auto& trayIcon = m_desktop.TrayIcon();
    ui::CForm::Peer owner;  // It is never shown: there is nothing to mirror.
    owner.popUpMenu = [](ui::CMenuItem& menu) { PopUpMenu(menu, QCursor::pos()); };
    TrayWindow().SetPeer(std::move(owner));
    trayIcon.SetIcon(m_icon);
    trayIcon.OnReachableChange([this] { m_mainWindow->Mirror(); });
    MirrorMenu(trayIcon.Menu(), MainWindow().mnuPopup);
}

int CProgramRun::Run()
{
    QTimer::singleShot(0, m_mainWindow.get(), [this] { Start(); });
    const int code = QApplication::exec();
    m_desktop.FlushStores();
    return code;
}

void CProgramRun::Start()
{
    SplashWindow().Load();
    m_starting = false;
    if (m_frontDue)
        BringToFront();
    QuitAfterLastWindow();
}

void CProgramRun::QuitAfterLastWindow()
{
    if (!AnyFormLoaded())
        QCoreApplication::quit();
}

void CProgramRun::BringToFront()
{
    m_frontDue = m_starting;
    if (m_starting || !MainWindow().Loaded())
        return;
    if (MainWindow().State() == ui::WindowState::Minimized)
        MainWindow().SetState(ui::WindowState::Normal);
    MainWindow().SetVisible(true);
    m_mainWindow->BringToFront();
}

void CProgramRun::EndSession()
{
    const zbErrorTrap::CGuard guard("Parlune", "EndSession");
    guard([] { SplashWindow().Unload(ui::UnloadMode::Session); });
    guard([] { MainWindow().Unload(ui::UnloadMode::Session); });
    m_desktop.FlushStores();
    QCoreApplication::quit();
}

// It may have been closing already, waiting for an answer that nobody can give any more.
void CProgramRun::SaveWithoutDisplay()
{
    const zbErrorTrap::CGuard guard("Parlune", "SaveWithoutDisplay");
    SplashWindow().SetPeer({});
    MainWindow().SetPeer({});
    guard([] { MainWindow().Unload(ui::UnloadMode::Session); });
    if (MainWindow().Loaded())
        guard([] { bOptions::SetOptions(); });
    m_desktop.FlushStores();
}
