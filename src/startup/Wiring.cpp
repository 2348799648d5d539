#include "startup/Wiring.h"
#include "settings/OptionsJournal.h"
#include "startup/MainWindowLife.h"
#include "startup/Splash.h"
#include "startup/WiringParts.h"
#include "ui/frmParlune.h"
#include "ui/frmSplash.h"

namespace startup {
namespace {

void WireSplash()
{
    frmSplash& window = SplashWindow();
    window.onLoad = splash::Form_Load;
    window.onClick = splash::Form_Click;
    window.imgAbout.onClick = splash::imgAbout_Click;
}

void WireMainWindow()
{
    frmParlune& window = MainWindow();
    window.onCreate = mainWindow::Create;
    window.onLoad = mainWindow::Form_Load;
    window.onResize = mainWindow::Form_Resize;
    window.onQueryUnload = mainWindow::Form_QueryUnload;
    window.onUnload = mainWindow::Form_Unload;
    window.onControlChange = optionsJournal::Hint;
}

}

void WireProgram()
{
    WireSplash();
    WireMainWindow();
    WireTabs(MainWindow());
    WireMenus(MainWindow());
    WireEditor(MainWindow());
}

}
