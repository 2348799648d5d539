#include "windows/standins/Value.h"
#include <algorithm>
#include <array>
#include <cstdio>

namespace standins {
namespace {

char Lower(char letter) { return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter; }

struct TypeName {
    VARTYPE type;
    const char* name;
};

constexpr std::array TypeNames{TypeName{VT_EMPTY, "EMPTY"},     TypeName{VT_NULL, "NULL"},
                               TypeName{VT_I2, "I2"},           TypeName{VT_I4, "I4"},
                               TypeName{VT_R4, "R4"},           TypeName{VT_R8, "R8"},
                               TypeName{VT_CY, "CY"},           TypeName{VT_DATE, "DATE"},
                               TypeName{VT_BSTR, "BSTR"},       TypeName{VT_DISPATCH, "DISPATCH"},
                               TypeName{VT_ERROR, "ERROR"},     TypeName{VT_BOOL, "BOOL"},
                               TypeName{VT_VARIANT, "VARIANT"}, TypeName{VT_UNKNOWN, "UNKNOWN"},
                               TypeName{VT_I1, "I1"},           TypeName{VT_UI1, "UI1"},
                               TypeName{VT_UI2, "UI2"},         TypeName{VT_UI4, "UI4"},
                               TypeName{VT_I8, "I8"},           TypeName{VT_INT, "INT"},
                               TypeName{VT_UINT, "UINT"}};

std::string NameOfType(VARTYPE type)
{
    const VARTYPE base = type & VT_TYPEMASK;
    const auto found =
        std::find_if(TypeNames.begin(), TypeNames.end(), [&](const TypeName& one) { return one.type == base; });
    std::string name = found == TypeNames.end() ? "TYPE" + std::to_string(base) : found->name;
    return name + ((type & VT_BYREF) != 0 ? "*" : "") + ((type & VT_ARRAY) != 0 ? "[]" : "");
}

std::string TextOfBstr(BSTR text) { return text ? Narrow(std::wstring_view(text, SysStringLen(text))) : std::string(); }

std::string TextOf(const VARIANT& value)
{
    VARIANT text;
    VariantInit(&text);
    const bool converted = SUCCEEDED(VariantChangeTypeEx(&text, const_cast<VARIANT*>(&value), LOCALE_INVARIANT, 0, VT_BSTR));
    std::string result = converted ? TextOfBstr(V_BSTR(&text)) : std::string("?");
    VariantClear(&text);
    return result;
}

std::string TextOfObject(const IUnknown* object) { return object ? "object" : "nothing"; }

void AppendEscaped(std::string& line, char letter)
{
    constexpr std::string_view marked = "\"\\\r\n\t", marks = "\"\\rnt";
    const auto at = marked.find(letter);
    std::array<char, 8> code{};
    if (at != std::string_view::npos)
        line += {'\\', marks[at]};
    else if (static_cast<unsigned char>(letter) < 0x20) {
        std::snprintf(code.data(), code.size(), "\\x%02X", static_cast<unsigned>(letter));
        line += code.data();
    } else
        line += letter;
}

}

std::wstring Wide(std::string_view text)
{
    const int count = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0');
    wide.resize(
        static_cast<std::size_t>(count == 0 ? 0 : MultiByteToWideChar(CP_UTF8, 0, text.data(), count, wide.data(), count)));
    return wide;
}

std::string Narrow(std::wstring_view text)
{
    const int count = static_cast<int>(text.size());
    std::string bytes(text.size() * 3, '\0');
    bytes.resize(static_cast<std::size_t>(count == 0
                                              ? 0
                                              : WideCharToMultiByte(CP_UTF8, 0, text.data(), count, bytes.data(),
                                                                    static_cast<int>(bytes.size()), nullptr, nullptr)));
    return bytes;
}

bool SameName(std::string_view left, std::string_view right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char one, char other) { return Lower(one) == Lower(other); });
}

CValue::CValue(bool value) : CValue()
{
    m_value.vt = VT_BOOL;
    m_value.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
}

CValue::CValue(std::int16_t value) : CValue()
{
    m_value.vt = VT_I2;
    m_value.iVal = value;
}

CValue::CValue(std::int32_t value) : CValue()
{
    m_value.vt = VT_I4;
    m_value.lVal = value;
}

CValue::CValue(double value) : CValue()
{
    m_value.vt = VT_R8;
    m_value.dblVal = value;
}

CValue::CValue(const std::string& text) : CValue()
{
    const std::wstring wide = Wide(text);
    m_value.vt = VT_BSTR;
    m_value.bstrVal = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
}

CValue::CValue(IDispatch* object) : CValue()
{
    m_value.vt = VT_DISPATCH;
    m_value.pdispVal = object;
    if (object)
        object->AddRef();
}

CValue::CValue(const CValue& other) : CValue() { VariantCopy(&m_value, const_cast<VARIANT*>(&other.m_value)); }

CValue::CValue(CValue&& other) noexcept : CValue() { std::swap(m_value, other.m_value); }

CValue& CValue::operator=(CValue other) noexcept
{
    std::swap(m_value, other.m_value);
    return *this;
}

CValue CValue::Omitted()
{
    CValue value;
    value.m_value.vt = VT_ERROR;
    value.m_value.scode = DISP_E_PARAMNOTFOUND;
    return value;
}

CValue CValue::Copy(const VARIANT& source)
{
    CValue value;
    VariantCopyInd(&value.m_value, const_cast<VARIANT*>(&source));
    return value;
}

VARIANT CValue::Detach()
{
    VARIANT value = m_value;
    VariantInit(&m_value);
    return value;
}

bool CValue::IsOmitted() const { return m_value.vt == VT_ERROR && m_value.scode == DISP_E_PARAMNOTFOUND; }

HRESULT CValue::ConvertTo(VARTYPE type) { return VariantChangeTypeEx(&m_value, &m_value, LOCALE_INVARIANT, 0, type); }

std::string CValue::Text() const { return m_value.vt == VT_BSTR ? TextOfBstr(m_value.bstrVal) : TextOf(m_value); }

std::int32_t CValue::Number() const
{
    CValue copy(*this);
    return SUCCEEDED(copy.ConvertTo(VT_I4)) ? static_cast<std::int32_t>(copy.m_value.lVal) : 0;
}

bool CValue::Truth() const
{
    CValue copy(*this);
    return SUCCEEDED(copy.ConvertTo(VT_BOOL)) && copy.m_value.boolVal != VARIANT_FALSE;
}

IDispatch* CValue::Object() const { return m_value.vt == VT_DISPATCH ? m_value.pdispVal : nullptr; }

std::string Describe(const VARIANT& value)
{
    const std::string type = NameOfType(value.vt);
    if (value.vt == VT_ERROR)
        return value.scode == DISP_E_PARAMNOTFOUND ? "-" : type + " " + HexCode(value.scode);
    if (value.vt == VT_EMPTY || value.vt == VT_NULL)
        return type;
    if (value.vt == VT_DISPATCH || value.vt == VT_UNKNOWN)
        return type + " " + TextOfObject(value.punkVal);
    if (value.vt == VT_BOOL)
        return type + (value.boolVal == VARIANT_FALSE ? " False" : value.boolVal == VARIANT_TRUE ? " True" : " odd");
    const std::string text = value.vt == VT_BSTR ? Quoted(TextOfBstr(value.bstrVal)) : TextOf(value);
    return type + " " + text;
}

std::string Quoted(std::string_view text)
{
    std::string line = "\"";
    for (const char letter : text)
        AppendEscaped(line, letter);
    return line + "\"";
}

std::string HexCode(HRESULT code)
{
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "0x%08X", static_cast<unsigned>(code));
    return text.data();
}

}
