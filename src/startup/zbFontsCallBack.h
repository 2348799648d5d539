#pragma once
#include "ui/controls/Controls.h"
#include <cstdint>
#include <string_view>

namespace zbFontsCallBack {

// Adds one font family to a list: its face-name field up to the first NUL. Returns 1, which asks for the next family.
// Failures: reported as bFonts:EnumFontFamProc.
std::int32_t EnumFontFamProc(std::string_view faceName, ui::CComboBox& target);

}
