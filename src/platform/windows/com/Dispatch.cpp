#include "platform/windows/com/Dispatch.h"
#include "platform/Failure.h"
#include "platform/windows/com/Failures.h"
#include <vector>

namespace platform::windowsdesktop::com {
namespace {

// The names are English wherever the program runs; asked in a language of which it has no pack, a spreadsheet fails.
constexpr LCID NamesLanguage = 0x0409;

// What stands for an object of another program, or of another apartment, has an interface that no other object has.
bool IsInside(const CInterface<IDispatch>& object) { return !object.As<IMultiQI>(); }

// As COM wants them: the last first. Borrows the values.
std::vector<VARIANT> Reversed(Arguments arguments)
{
    const CVariant* end = arguments.end();
    while (end != arguments.begin() && std::prev(end)->IsOmitted())
        --end;
    std::vector<VARIANT> values;
    while (end != arguments.begin())
        values.push_back((--end)->Raw());
    return values;
}

}

DISPID CDispatch::IDOf(const wchar_t* member) const
{
    if (!m_object)
        throw failure::ObjectNotSet();
    if (const auto known = m_ids->find(member); known != m_ids->end())
        return known->second;
    const COutgoingCall call;
    std::wstring name = member;
    LPOLESTR names[] = {name.data()};
    DISPID id = DISPID_UNKNOWN;
    Check(m_object->GetIDsOfNames(IID_NULL, names, 1, NamesLanguage, &id));
    m_ids->emplace(member, id);
    return id;
}

void CDispatch::Invoke(DISPID member, WORD flags, DISPPARAMS& parameters, VARIANT* result) const
{
    if (!m_object)
        throw failure::ObjectNotSet();
    const COutgoingCall call;
    const CInterface<IDispatch> object = m_object;  // The call may end with our owner gone.
    CException exception;
    UINT badArgument = 0;
    const HRESULT answer =
        object->Invoke(member, IID_NULL, NamesLanguage, flags, &parameters, result, exception.Receive(), &badArgument);
    if (answer == DISP_E_EXCEPTION)
        throw exception.Failure(IsInside(object));
    Check(answer);
}

void CDispatch::InvokeWith(DISPID member, WORD flags, Arguments arguments, VARIANT* result) const
{
    std::vector<VARIANT> values = Reversed(arguments);
    DISPPARAMS parameters{values.empty() ? nullptr : values.data(), nullptr, static_cast<UINT>(values.size()), 0};
    Invoke(member, flags, parameters, result);
}

CVariant CDispatch::Get(const wchar_t* property) const
{
    CVariant result;
    InvokeWith(IDOf(property), DISPATCH_PROPERTYGET, {}, &result.Raw());
    return result;
}

CVariant CDispatch::GetIndexed(const wchar_t* property, Arguments arguments) const
{
    CVariant result;
    InvokeWith(IDOf(property), DISPATCH_METHOD | DISPATCH_PROPERTYGET, arguments, &result.Raw());
    return result;
}

CVariant CDispatch::Enumeration() const
{
    CVariant result;
    InvokeWith(DISPID_NEWENUM, DISPATCH_METHOD | DISPATCH_PROPERTYGET, {}, &result.Raw());
    return result;
}

void CDispatch::Put(const wchar_t* property, const CVariant& value) const
{
    VARIANT borrowed = value.Raw();
    DISPID name = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{&borrowed, &name, 1, 1};
    Invoke(IDOf(property), DISPATCH_PROPERTYPUT, parameters, nullptr);
}

CVariant CDispatch::Call(const wchar_t* method, Arguments arguments) const
{
    CVariant result;
    InvokeWith(IDOf(method), DISPATCH_METHOD, arguments, &result.Raw());
    return result;
}

void CDispatch::Run(const wchar_t* method, Arguments arguments) const
{
    InvokeWith(IDOf(method), DISPATCH_METHOD, arguments, nullptr);
}

}
