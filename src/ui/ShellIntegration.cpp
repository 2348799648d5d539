#include "ui/ShellIntegration.h"
#include "common/zbErrorTrap.h"
#include "settings/Paths.h"
#include "settings/zbRegistry.h"
#include "ui/frmParlune.h"

namespace shellIntegration {
namespace {

using zbRegistry::DelReg;
using zbRegistry::Root;
using zbRegistry::SetReg;

constexpr char Module[] = "Parlune";
constexpr char RunKey[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr char RunValue[] = "Parlune";
constexpr char BrowserKey[] = "Software\\Microsoft\\Internet Explorer\\MenuExt\\Read with Parlune";
constexpr char DefaultValue[] = "*";
constexpr char WholeKey[] = "";
constexpr std::int32_t PageAndSelection = 0x01 | 0x10;  // The browser's menus that offer the entry.

std::string InProgramFolder(const char* file) { return settings::Paths().programFolder + file; }

}

void chkStartWithWindows_Click()
{
    const zbErrorTrap::CGuard guard(Module, "chkStartWithWindows_Click");
    guard([] {
        // Deliberate: without quotation marks, even when the path holds blanks.
        if (MainWindow().chkStartWithWindows.Ticked())
            SetReg(Root::CurrentUser, RunKey, RunValue, InProgramFolder("Parlune.exe"));
        else
            DelReg(Root::CurrentUser, RunKey, RunValue);
    });
}

void chkIEMenu_Click()
{
    const zbErrorTrap::CGuard guard(Module, "chkIEMenu_Click");
    if (!MainWindow().chkIEMenu.Ticked()) {
        guard([] { DelReg(Root::CurrentUser, BrowserKey, WholeKey); });
        return;
    }
    guard([] { SetReg(Root::CurrentUser, BrowserKey, DefaultValue, InProgramFolder("Parlune.htm")); });
    guard([] { SetReg(Root::CurrentUser, BrowserKey, "Contexts", PageAndSelection); });
}

}
