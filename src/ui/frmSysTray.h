#pragma once
#include "ui/controls/Controls.h"

// The invisible window that owns the icon in the notification area.
struct frmSysTray final : ui::CForm {
    frmSysTray() : CForm("frmSysTray", "Parlune") {}
};

frmSysTray& TrayWindow();
