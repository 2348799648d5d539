#include "startup/zbFontsCallBack.h"
#include "common/zbErrorTrap.h"
#include <string>

std::int32_t zbFontsCallBack::EnumFontFamProc(std::string_view faceName, ui::CComboBox& target)
{
    const zbErrorTrap::CGuard guard("bFonts", "EnumFontFamProc");
    guard([&] { target.Add(std::string(faceName.substr(0, faceName.find('\0')))); });
    return 1;
}
