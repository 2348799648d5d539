#include "ui/Menus.h"
#include "common/zbErrorTrap.h"
#include "ui/StatusBar.h"
#include "ui/frmParlune.h"

namespace ui {

void RefreshMenu(bool shown)
{
    frmParlune& window = MainWindow();
    window.mnuPopHide.SetCaption(shown ? "&Hide" : "&Show");
    for (CMenuItem* item : {&window.mnuPopReadClipboard, &window.mnuPopRead, &window.mnuPopSep1, &window.mnuPopSayTime,
                            &window.mnuPopAutoReadClipboard, &window.mnuPopSep2, &window.mnuPopCharStop,
                            &window.mnuPopCharSkip, &window.mnuPopCharPause})
        item->SetVisible(shown);
    ReevaluateTimer();
    statusBar::Refresh();
}

void ReevaluateTimer()
{
    zbErrorTrap::IgnoreFailure([] { MainWindow().tmrTimer.SetEnabled(MainWindow().chkSayTime.Value() == 1); });
}

void PopUpCharacterMenu()
{
    MainWindow().BringToFront();
    MainWindow().PopUpMenu(MainWindow().mnuPopup);
}

}
