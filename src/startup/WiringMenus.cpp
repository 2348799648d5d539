#include "startup/MainWindowLife.h"
#include "startup/WiringParts.h"
#include "ui/Announcements.h"
#include "ui/MenuBar.h"
#include "ui/PopupMenu.h"
#include "ui/frmSysTray.h"
#include "ui/zbSysTray.h"

namespace startup {
namespace {

void WireMenuBar(frmParlune& window)
{
    window.mnuFileResetDefaults.onClick = menuBar::mnuFileResetDefaults_Click;
    window.mnuFileExit.onClick = mainWindow::Exit;
    window.mnuDownloadCharacters.onClick = menuBar::mnuDownloadCharacters_Click;
    window.mnuDownloadTTSEngines.onClick = menuBar::mnuDownloadTTSEngines_Click;
    window.frmHelpAbout.onClick = menuBar::frmHelpAbout_Click;
}

void WirePopupMenu(frmParlune& window)
{
    using namespace popupMenu;
    window.mnuPopReadClipboard.onClick = mnuPopReadClipboard_Click;
    window.mnuPopReadTextFile.onClick = mnuPopReadTextFile_Click;
    window.mnuPopReadWordDocument.onClick = mnuPopReadWordDocument_Click;
    window.mnuPopReadWordSelection.onClick = mnuPopReadWordSelection_Click;
    window.mnuPopReadExcelSelection.onClick = mnuPopReadExcelSelection_Click;
    window.mnuPopSayTime.onClick = mnuPopSayTime_Click;
    window.mnuPopAutoReadClipboard.onClick = mnuPopAutoReadClipboard_Click;
    window.mnuPopParluneOptions.onClick = mainWindow::ShowOptions;
    window.mnuPopHide.onClick = mnuPopHide_Click;
    window.mnuPopCharSkip.onClick = mnuPopCharSkip_Click;
    window.mnuPopCharPause.onClick = mnuPopCharPause_Click;
    window.mnuPopCharStop.onClick = mnuPopCharStop_Click;
    window.mnuPopExit.onClick = mainWindow::Exit;
}

void WireTrayIcon(frmParlune& window)
{
    window.onMouseMove = zbSysTray::frmParlune_MouseMove;
    TrayWindow().onLoad = zbSysTray::frmSysTray_Load;
    TrayWindow().onMouseMove = zbSysTray::frmSysTray_MouseMove;
}

}

void WireMenus(frmParlune& window)
{
    WireMenuBar(window);
    WirePopupMenu(window);
    WireTrayIcon(window);
    window.tmrTimer.onTimer = announcements::tmrTimer_Timer;
}

}
