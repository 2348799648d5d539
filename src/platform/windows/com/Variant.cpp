#include "platform/windows/com/Variant.h"
#include "platform/Failure.h"
#include "platform/windows/com/Bstr.h"
#include "platform/windows/com/Failures.h"
#include <limits>

namespace platform::windowsdesktop::com {
namespace {

// The system's functions take what they only read as if they changed it.
VARIANT* Source(const VARIANT& value) { return const_cast<VARIANT*>(&value); }

constexpr VARTYPE ReferenceToValue = VT_BYREF | VT_VARIANT;

bool RefersToNothing(const VARIANT& value) { return (V_VT(&value) & VT_BYREF) != 0 && !V_BYREF(&value); }

// A value that refers to a place which does not exist must not be followed; nor one that refers to another such reference,
// which may be itself.
bool LeadsNowhere(const VARIANT& value)
{
    if (V_VT(&value) != ReferenceToValue || RefersToNothing(value))
        return RefersToNothing(value);
    const VARIANT& other = *V_VARIANTREF(&value);
    return V_VT(&other) == ReferenceToValue || RefersToNothing(other);
}

// A date that no calendar has is an argument that the system's functions do not take: for us, too, a value that does not
// fit.
void CheckValue(HRESULT result)
{
    if (result == E_INVALIDARG)
        throw failure::TypeMismatch();
    Check(result);
}

}

CVariant::CVariant(const std::string& text) : CVariant()
{
    V_BSTR(&m_value) = CBstr(text).Forget();
    V_VT(&m_value) = VT_BSTR;
}

CVariant::CVariant(bool truth) : CVariant()
{
    V_VT(&m_value) = VT_BOOL;
    V_BOOL(&m_value) = truth ? VARIANT_TRUE : VARIANT_FALSE;
}

CVariant::CVariant(std::int16_t number) : CVariant()
{
    V_VT(&m_value) = VT_I2;
    V_I2(&m_value) = number;
}

CVariant::CVariant(std::int32_t number) : CVariant()
{
    V_VT(&m_value) = VT_I4;
    V_I4(&m_value) = number;
}

CVariant::CVariant(const CInterface<IDispatch>& object) : CVariant()
{
    V_VT(&m_value) = VT_DISPATCH;
    V_DISPATCH(&m_value) = CInterface<IDispatch>(object).Forget();
}

CVariant::CVariant(const CVariant& other) : CVariant() { Check(VariantCopy(&m_value, Source(other.m_value))); }

CVariant::CVariant(CVariant&& other) noexcept : m_value(other.m_value) { VariantInit(&other.m_value); }

CVariant& CVariant::operator=(CVariant other) noexcept
{
    std::swap(m_value, other.m_value);
    return *this;
}

CVariant::~CVariant()
{
    if (IsObject() && !Running())
        return;
    const COutgoingCall call;
    VariantClear(&m_value);
}

CVariant CVariant::Omitted()
{
    CVariant omitted;
    V_VT(&omitted.m_value) = VT_ERROR;
    V_ERROR(&omitted.m_value) = DISP_E_PARAMNOTFOUND;
    return omitted;
}

CVariant CVariant::Copy(const VARIANT& value)
{
    if (LeadsNowhere(value))
        throw failure::TypeMismatch();
    CVariant copy;
    CheckValue(VariantCopyInd(&copy.m_value, Source(value)));
    return copy;
}

bool CVariant::IsOmitted() const { return V_VT(&m_value) == VT_ERROR && V_ERROR(&m_value) == DISP_E_PARAMNOTFOUND; }

bool CVariant::IsEmpty() const { return V_VT(&m_value) == VT_EMPTY || V_VT(&m_value) == VT_NULL; }

bool CVariant::IsObject() const { return V_VT(&m_value) == VT_DISPATCH || V_VT(&m_value) == VT_UNKNOWN; }

CVariant CVariant::ChangedTo(VARTYPE type) const
{
    const CVariant plain = Copy(m_value);
    if (plain.IsObject())  // Not even if it has a value of its own: who is asked for a number gives a number.
        throw failure::TypeMismatch();
    CVariant changed;
    CheckValue(VariantChangeType(&changed.m_value, Source(plain.m_value), VARIANT_ALPHABOOL, type));
    return changed;
}

std::string CVariant::Text() const
{
    const CVariant text = ChangedTo(VT_BSTR);
    return TextOf(V_BSTR(&text.m_value));
}

bool CVariant::Truth() const
{
    const CVariant truth = ChangedTo(VT_BOOL);
    return V_BOOL(&truth.m_value) != VARIANT_FALSE;
}

// Asked for a short number, not every system looks whether it is one.
std::int16_t CVariant::Short() const
{
    const std::int32_t number = Long();
    if (number < std::numeric_limits<std::int16_t>::min() || number > std::numeric_limits<std::int16_t>::max())
        throw failure::Overflow();
    return static_cast<std::int16_t>(number);
}

std::int32_t CVariant::Long() const
{
    const CVariant number = ChangedTo(VT_I4);
    return V_I4(&number.m_value);
}

CInterface<IDispatch> CVariant::Object() const
{
    const CVariant plain = Copy(m_value);
    if (!plain.IsObject())
        throw failure::TypeMismatch();
    const CInterface<IUnknown> object(V_UNKNOWN(&plain.m_value));
    if (!object)
        throw failure::ObjectNotSet();
    CInterface<IDispatch> callable = object.As<IDispatch>();
    if (!callable)
        throw failure::TypeMismatch();
    return callable;
}

}
