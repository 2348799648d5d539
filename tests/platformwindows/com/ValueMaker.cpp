#include "platformwindows/com/ValueMaker.h"
#include <array>
#include <limits>

namespace comtest {
namespace {

constexpr int DeepestReference = 4;

// Types whose content is nothing but bits.
constexpr std::array<VARTYPE, 18> Numbers{VT_EMPTY, VT_NULL, VT_I2,  VT_I4,  VT_R4,  VT_R8, VT_CY,  VT_DATE, VT_ERROR,
                                          VT_BOOL,  VT_I1,   VT_UI1, VT_UI2, VT_UI4, VT_I8, VT_UI8, VT_INT,  VT_DECIMAL};

const std::array<std::wstring, 10> Texts{L"",       L"1",    L"-32769", L"2147483648", L"1e400",
                                         L"&HFFFF", L"True", L"1/2/3",  L"\xD83D",     std::wstring(L"a\0b", 3)};

bool Owns(const VARIANT& value)
{
    const VARTYPE type = V_VT(&value);
    return type == VT_BSTR || type == VT_DISPATCH || type == VT_UNKNOWN || (type & ~VT_TYPEMASK) == VT_ARRAY;
}

}

void CValueMaker::Forget()
{
    for (VARIANT& value : m_values)
        if (Owns(value))
            VariantClear(&value);
    m_values.clear();
}

VARIANT& CValueMaker::Make(int depth)
{
    m_values.emplace_back();
    VARIANT& value = m_values.back();
    VariantInit(&value);
    switch (Below(8)) {
    case 0:
    case 1:
        MakeNumber(value);
        break;
    case 2:
    case 3:
        MakeText(value);
        break;
    case 4:
        MakeReference(value, depth);
        break;
    case 5:
        MakeObject(value);
        break;
    case 6:
        MakeArray(value);
        break;
    default:
        MakeStrange(value);
    }
    return value;
}

// Small ones, the ends of ranges, and any at all.
std::uint64_t CValueMaker::Bits()
{
    constexpr std::array<std::uint64_t, 8> Ends{0,          1,          0x7FFF,     0x8000,
                                                0x7FFFFFFF, 0x80000000, 0xFFFFFFFF, 0x7FF0000000000000};
    if (OneIn(2))
        return Ends[Below(Ends.size())];
    const std::uint64_t upper = m_random();
    return OneIn(2) ? Below(2000) : upper << 32 | m_random();
}

void CValueMaker::MakeNumber(VARIANT& value)
{
    const VARTYPE type = Numbers[Below(Numbers.size())];
    if (type == VT_DECIMAL) {
        value.decVal.Hi32 = static_cast<ULONG>(Bits());
        value.decVal.Lo64 = Bits();
        value.decVal.scale = static_cast<BYTE>(Below(40));
        value.decVal.sign = static_cast<BYTE>(OneIn(2) ? 0x80 : Below(256));
    } else {
        V_UI8(&value) = Bits();
    }
    if (type == VT_R8 || type == VT_DATE)
        V_R8(&value) = OneIn(4) ? std::numeric_limits<double>::quiet_NaN() : OneIn(2) ? V_R8(&value) : V_UI2(&value) / 7.0;
    V_VT(&value) = type;
}

void CValueMaker::MakeText(VARIANT& value)
{
    V_VT(&value) = VT_BSTR;
    if (OneIn(8))
        return;  // None at all.
    if (OneIn(2)) {
        const std::wstring& text = Texts[Below(Texts.size())];
        V_BSTR(&value) = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
        return;
    }
    std::string bytes(Below(60), '\0');  // Also half a unit at the end.
    for (char& byte : bytes)
        byte = static_cast<char>(Below(256));
    V_BSTR(&value) = SysAllocStringByteLen(bytes.data(), static_cast<UINT>(bytes.size()));
}

void CValueMaker::MakeReference(VARIANT& value, int depth)
{
    if (OneIn(6)) {
        V_VT(&value) = static_cast<VARTYPE>(VT_BYREF | Numbers[Below(Numbers.size())]);
        return;  // To nothing.
    }
    VARIANT& other = depth < DeepestReference && !OneIn(8) ? Make(depth + 1) : value;
    const VARTYPE type = V_VT(&other);
    const bool whole = OneIn(2) || &other == &value || (type & VT_BYREF) != 0 || type == VT_DECIMAL;
    V_VT(&value) = static_cast<VARTYPE>(VT_BYREF | (whole ? VARTYPE{VT_VARIANT} : type));
    V_BYREF(&value) = whole ? static_cast<void*>(&other) : &V_UI8(&other);
}

void CValueMaker::MakeObject(VARIANT& value)
{
    V_VT(&value) = OneIn(2) ? VT_DISPATCH : VT_UNKNOWN;
    if (OneIn(3))
        return;
    auto* object = new CTestObject("Object", std::make_shared<Journal>());
    object->callableByName = !OneIn(3);
    object->AddRef();
    V_DISPATCH(&value) = object;
}

void CValueMaker::MakeArray(VARIANT& value)
{
    constexpr std::array<VARTYPE, 5> Elements{VT_VARIANT, VT_BSTR, VT_I4, VT_UI1, VT_R8};
    const VARTYPE element = Elements[Below(Elements.size())];
    V_VT(&value) = static_cast<VARTYPE>(VT_ARRAY | element);
    if (OneIn(4))
        return;
    std::array<SAFEARRAYBOUND, 3> bounds{};
    const UINT dimensions = 1 + Below(bounds.size());
    for (UINT i = 0; i < dimensions; ++i)
        bounds[i] = {Below(4), static_cast<LONG>(Below(3)) - 1};
    V_ARRAY(&value) = SafeArrayCreate(element, dimensions, bounds.data());
}

// Types that there are not, records of no kind, vectors: all without content.
void CValueMaker::MakeStrange(VARIANT& value)
{
    const auto type = static_cast<VARTYPE>(m_random());
    V_VT(&value) = OneIn(4) ? static_cast<VARTYPE>(VT_RECORD) : type;
    if (Owns(value) || (type & VT_BYREF) != 0)
        V_VT(&value) = static_cast<VARTYPE>(0x0FFF & ~VT_BYREF);
}

}
