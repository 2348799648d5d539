#pragma once
#include "platform/windows/com/Variant.h"
#include <string>

namespace platform::windowsdesktop::com {

// The value of a spreadsheet's cell as the user would write it: numbers, dates and amounts as the user's language does,
// "True" and "False", errors as the sheet shows them ("#DIV/0!"), "" for an empty cell. Throws CFailure 13 for what is no
// single value.
std::string CellText(const CVariant& value);

}
