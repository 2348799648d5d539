#pragma once
#include "platform/windows/com/Variant.h"
#include <initializer_list>
#include <map>
#include <memory>
#include <string>

namespace platform::windowsdesktop::com {

// The numbers under which an object knows its members. Objects of one kind may share them.
using MemberIDs = std::map<std::wstring, DISPID, std::less<>>;
using Arguments = std::initializer_list<CVariant>;

// An object whose members are called by name. Omitted arguments at the end of a call are left away, others are marked.
// Every call throws CFailure: 438 for a member that is not there, 91 without an object, else what the server says.
class CDispatch {
public:
    CDispatch() = default;
    explicit CDispatch(CInterface<IDispatch> object, std::shared_ptr<MemberIDs> ids = std::make_shared<MemberIDs>())
        : m_object(std::move(object)), m_ids(std::move(ids))
    {
    }

    CVariant Get(const wchar_t* property) const;
    // A property with arguments, which may as well be a method.
    CVariant GetIndexed(const wchar_t* property, Arguments arguments) const;
    // What enumerates the elements of a collection.
    CVariant Enumeration() const;
    void Put(const wchar_t* property, const CVariant& value) const;
    CVariant Call(const wchar_t* method, Arguments arguments) const;
    // The same for a method that answers nothing.
    void Run(const wchar_t* method, Arguments arguments = {}) const;
    // The object that a property refers to.
    CDispatch Child(const wchar_t* property) const { return CDispatch(Get(property).Object()); }

    const CInterface<IDispatch>& Object() const { return m_object; }

private:
    DISPID IDOf(const wchar_t* member) const;
    void Invoke(DISPID member, WORD flags, DISPPARAMS& parameters, VARIANT* result) const;
    void InvokeWith(DISPID member, WORD flags, Arguments arguments, VARIANT* result) const;

    CInterface<IDispatch> m_object;
    std::shared_ptr<MemberIDs> m_ids;
};

}
