#include "ui/GeneralTab.h"
#include "character/bParlune.h"
#include "common/ProgramState.h"
#include "common/Version.h"
#include "common/zbErrorTrap.h"
#include "platform/Clipboard.h"
#include "platform/MessageBoxes.h"
#include "platform/Platform.h"
#include "reading/bClipboard.h"
#include "reading/bRead.h"
#include "ui/Menus.h"
#include "ui/frmParlune.h"

namespace generalTab {
namespace {

constexpr char Module[] = "Parlune";
constexpr char NotWatchable[] = "This desktop does not tell Parlune when the clipboard changes,\r\n"
                                "so Parlune cannot read copied texts by itself.\r\n"
                                "\r\n"
                                "You can still use \"Read Clipboard\", or double-click the character.";

struct GeneralState {
    bool showIfHidden = false;
    bool toldNotWatchable = false;
};

GeneralState& State() { return common::StateOf<GeneralState>(); }

void TellOnceWhenNotWatchable()
{
    const bool loading = MainWindow().Loading();  // The user switched it on in an earlier run and was told then.
    if (loading || State().toldNotWatchable || platform::Current().clipboard.CanWatch())
        return;
    State().toldNotWatchable = true;
    platform::Current().messageBoxes.Show(
        {.text = NotWatchable, .title = version::Title, .icon = platform::BoxIcon::Information});
}

}

void chkMonitorClipboard_Click()
{
    const zbErrorTrap::CGuard guard(Module, "chkMonitorClipboard_Click");
    const bool on = MainWindow().chkMonitorClipboard.Value() == 1;

    guard([&] { bClipboard::SetClipboardMonitor(on); });
    if (on)
        guard(TellOnceWhenNotWatchable);
}

void cmdReadClipboard_Click()
{
    const zbErrorTrap::CGuard guard(Module, "cmdReadClipboard_Click");
    guard([] { bParlune::CharShow(); });
    guard([] { bRead::ReadClipboard(); });
}

void chkSayTime_Click()
{
    const zbErrorTrap::CGuard guard(Module, "chkSayTime_Click");
    guard([] { ui::ReevaluateTimer(); });
}

void chkSayTimeShowIfHidden_Click()
{
    const zbErrorTrap::CGuard guard(Module, "chkSayTimeShowIfHidden_Click");
    guard([] { State().showIfHidden = MainWindow().chkSayTimeShowIfHidden.Value() != 0; });
    guard([] { ui::ReevaluateTimer(); });
}

bool ShowIfHidden() { return State().showIfHidden; }

}
