#include "common/zbErrorTrap.h"
#include "platform/EventPump.h"
#include "platform/Fonts.h"
#include "platform/Platform.h"
#include "platform/Screen.h"
#include "startup/bInit.h"
#include "startup/zbFontsCallBack.h"
#include "ui/frmParlune.h"

namespace bInit {
namespace {

constexpr const char* Sizes[] = {"8",  "9",  "10", "11", "12", "14", "16", "18",
                                 "20", "22", "24", "26", "28", "36", "48", "72"};

void FillFontNames()
{
    ui::CComboBox& names = MainWindow().cboFontName;
    names.Clear();
    platform::Current().fonts.EnumerateFamilies(
        [&](std::string_view faceName) { return zbFontsCallBack::EnumFontFamProc(faceName, names); });
}

void FillFontSizes()
{
    MainWindow().cboFontSize.Clear();
    for (const char* size : Sizes)
        MainWindow().cboFontSize.Add(size);
}

}

void InitBalloonFonts()
{
    const zbErrorTrap::CGuard guard("bInit", "InitBalloonFonts");
    if (MainWindow().cboFontName.Count() > 0)
        return;

    guard([] { platform::Current().screen.SetPointer(platform::Pointer::Hourglass); });
    guard([] { platform::Current().events.RunPendingEvents(); });
    guard([] { FillFontNames(); });
    guard([] { FillFontSizes(); });
    guard([] { platform::Current().screen.SetPointer(platform::Pointer::Default); });
    guard([] { platform::Current().events.RunPendingEvents(); });
}

}
