#pragma once
#include "ui/controls/Controls.h"

// The splash window, the start-up window of the program.
struct frmSplash final : ui::CForm {
    frmSplash() : CForm("frmSplash", "Parlune") {}

    ui::CPicture imgAbout{*this, "imgAbout"};
    ui::CLabel lblVersion{*this, "lblVersion"};
    std::function<void()> onClick;
    void Click() { Raise(onClick); }
};

frmSplash& SplashWindow();
