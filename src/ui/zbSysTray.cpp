#include "ui/zbSysTray.h"
#include "common/Version.h"
#include "platform/Platform.h"
#include "platform/TrayIcon.h"
#include "ui/frmSysTray.h"

void zbSysTray::AddTrayIcon()
{
    TrayWindow().Load();
    platform::Current().trayIcon.Add(version::Title);
}

void zbSysTray::DeleteTrayIcon() { platform::Current().trayIcon.Delete(); }
