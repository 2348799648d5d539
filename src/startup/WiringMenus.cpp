#include "startup/MainWindowLife.h"
#include "startup/WiringParts.h"

namespace startup {

void WireMenus(frmParlune& window)
{
    window.mnuFileExit.onClick = mainWindow::Exit;
    window.mnuPopExit.onClick = mainWindow::Exit;
    window.mnuPopParluneOptions.onClick = mainWindow::ShowOptions;
}

}
