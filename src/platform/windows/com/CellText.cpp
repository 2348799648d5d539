#include "platform/windows/com/CellText.h"
#include <algorithm>
#include <array>

namespace platform::windowsdesktop::com {
namespace {

struct CellError {
    int number;
    const char* text;
};
constexpr std::array<CellError, 14> CellErrors{{{2000, "#NULL!"},
                                                {2007, "#DIV/0!"},
                                                {2015, "#VALUE!"},
                                                {2023, "#REF!"},
                                                {2029, "#NAME?"},
                                                {2036, "#NUM!"},
                                                {2042, "#N/A"},
                                                {2043, "#GETTING_DATA"},
                                                {2045, "#SPILL!"},
                                                {2046, "#CONNECT!"},
                                                {2047, "#BLOCKED!"},
                                                {2048, "#UNKNOWN!"},
                                                {2049, "#FIELD!"},
                                                {2050, "#CALC!"}}};

std::string ErrorText(SCODE code)
{
    const int number = HRESULT_CODE(code);
    const auto* known =
        std::find_if(CellErrors.begin(), CellErrors.end(), [&](const CellError& error) { return error.number == number; });
    return known == CellErrors.end() ? "Error " + std::to_string(number) : known->text;
}

}

std::string CellText(const CVariant& value)
{
    const CVariant plain = CVariant::Copy(value.Raw());
    if (plain.IsEmpty())
        return "";
    return V_VT(&plain.Raw()) == VT_ERROR ? ErrorText(V_ERROR(&plain.Raw())) : plain.Text();
}

}
