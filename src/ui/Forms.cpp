#include "common/ProgramState.h"
#include "ui/frmParlune.h"
#include "ui/frmSplash.h"
#include "ui/frmSysTray.h"

frmParlune& MainWindow() { return common::StateOf<frmParlune>(); }

frmSplash& SplashWindow() { return common::StateOf<frmSplash>(); }

frmSysTray& TrayWindow() { return common::StateOf<frmSysTray>(); }
