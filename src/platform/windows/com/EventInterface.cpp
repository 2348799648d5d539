#include "platform/windows/com/EventInterface.h"
#include "platform/windows/com/AgentEvents.h"
#include "platform/windows/com/Bstr.h"
#include <array>
#include <optional>

namespace platform::windowsdesktop::com {
namespace {

constexpr IID KnownEvents = {0xF5BE8BD4, 0x7DE6, 0x11D0, {0x91, 0xFE, 0x00, 0xC0, 0x4F, 0xD7, 0x01, 0xA5}};
constexpr GUID Library = {0xF5BE8BC2, 0x7DE6, 0x11D0, {0x91, 0xFE, 0x00, 0xC0, 0x4F, 0xD7, 0x01, 0xA5}};
constexpr CLSID ControlClass = {0xD45FD31B, 0x5C6E, 0x11D1, {0x9E, 0xC1, 0x00, 0xC0, 0x4F, 0xD7, 0x08, 0x1F}};
constexpr WORD LibraryVersion = 2;
constexpr int DefaultSource = IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE;
constexpr UINT EventsLimit = 1000;

using TypeInfo = CInterface<ITypeInfo>;
using TypeLibrary = CInterface<ITypeLib>;

// The attributes of a type, given back at the end.
class CTypeAttributes {
public:
    explicit CTypeAttributes(const TypeInfo& type) : m_type(type)
    {
        if (m_type && FAILED(m_type->GetTypeAttr(&m_attributes)))
            m_attributes = nullptr;
    }
    ~CTypeAttributes()
    {
        if (m_attributes)
            m_type->ReleaseTypeAttr(m_attributes);
    }
    CTypeAttributes(const CTypeAttributes&) = delete;
    CTypeAttributes& operator=(const CTypeAttributes&) = delete;
    const TYPEATTR* operator->() const { return m_attributes; }
    explicit operator bool() const { return m_attributes != nullptr; }

private:
    TypeInfo m_type;
    TYPEATTR* m_attributes = nullptr;
};

// An owner of what a function of COM answered with, or of nothing when it failed: then the place holds nothing of ours.
template <class T, class Function> CInterface<T> Answer(Function&& function)
{
    const COutgoingCall call;
    CInterface<T> answer;
    if (FAILED(function(answer.Receive())))
        answer.Forget();
    return answer;
}

TypeInfo ImplementedType(const TypeInfo& type, UINT index)
{
    HREFTYPE reference = 0;
    if (FAILED(type->GetRefTypeOfImplType(index, &reference)))
        return {};
    return Answer<ITypeInfo>([&](ITypeInfo** info) { return type->GetRefTypeInfo(reference, info); });
}

// The interface of a class for its events; none when it has no such one that can be answered by name.
TypeInfo SourceOfClass(const TypeInfo& type)
{
    const CTypeAttributes attributes(type);
    if (!attributes || attributes->typekind != TKIND_COCLASS)
        return {};
    for (UINT index = 0; index < attributes->cImplTypes; ++index) {
        int flags = 0;
        if (FAILED(type->GetImplTypeFlags(index, &flags)) || (flags & DefaultSource) != DefaultSource)
            continue;
        const TypeInfo source = ImplementedType(type, index);
        if (const CTypeAttributes kind(source); kind && kind->typekind == TKIND_DISPATCH)
            return source;
    }
    return {};
}

// The control's class in a library, or else its first class with events.
TypeInfo SourceInLibrary(const TypeLibrary& library)
{
    if (!library)
        return {};
    const auto control = Answer<ITypeInfo>([&](ITypeInfo** type) { return library->GetTypeInfoOfGuid(ControlClass, type); });
    if (const TypeInfo source = SourceOfClass(control))
        return source;
    for (UINT index = 0; index < library->GetTypeInfoCount(); ++index) {
        const auto type = Answer<ITypeInfo>([&](ITypeInfo** info) { return library->GetTypeInfo(index, info); });
        if (const TypeInfo source = SourceOfClass(type))
            return source;
    }
    return {};
}

TypeInfo DeclaredSource(const CInterface<IDispatch>& control)
{
    auto provider = control.As<IProvideClassInfo>();
    if (!provider) {
        const auto second = control.As<IProvideClassInfo2>();
        provider = CInterface<IProvideClassInfo>(second.Raw());
    }
    if (!provider)
        return {};
    return SourceOfClass(Answer<ITypeInfo>([&](ITypeInfo** type) { return provider->GetClassInfo(type); }));
}

TypeLibrary RegisteredLibrary()
{
    return Answer<ITypeLib>(
        [](ITypeLib** library) { return LoadRegTypeLib(Library, LibraryVersion, 0, LOCALE_USER_DEFAULT, library); });
}

TypeLibrary LibraryOfControl(const CInterface<IDispatch>& control)
{
    const auto type =
        Answer<ITypeInfo>([&](ITypeInfo** info) { return control->GetTypeInfo(0, LOCALE_USER_DEFAULT, info); });
    if (!type)
        return {};
    UINT index = 0;
    return Answer<ITypeLib>([&](ITypeLib** library) { return type->GetContainingTypeLib(library, &index); });
}

std::optional<IID> DeclaredID(const CInterface<IDispatch>& control)
{
    const auto provider = control.As<IProvideClassInfo2>();
    const COutgoingCall call;
    IID id{};
    if (!provider || FAILED(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &id)) || IsEqualIID(id, IID_NULL))
        return std::nullopt;
    return id;
}

std::optional<IID> IDOfType(const TypeInfo& type)
{
    const CTypeAttributes attributes(type);
    return attributes ? std::optional<IID>(attributes->guid) : std::nullopt;
}

void AddName(const TypeInfo& type, UINT index, std::map<DISPID, std::wstring>& names)
{
    FUNCDESC* function = nullptr;
    if (FAILED(type->GetFuncDesc(index, &function)))
        return;
    const MEMBERID member = function->memid;
    type->ReleaseFuncDesc(function);
    CBstr name;
    UINT count = 0;
    if (SUCCEEDED(type->GetNames(member, name.Receive(), 1, &count)) && count == 1)
        names.emplace(member, name.Wide());
}

// Empty when no name in it is one of the engine's: then the type says nothing of its events.
std::map<DISPID, std::wstring> NamesOf(const TypeInfo& type)
{
    std::map<DISPID, std::wstring> names;
    const CTypeAttributes attributes(type);
    for (UINT index = 0; attributes && index < attributes->cFuncs && index < EventsLimit; ++index)
        AddName(type, index, names);
    for (const auto& [id, name] : names)
        if (IsEventName(name))
            return names;
    return {};
}

}

EventInterface KnownEventInterface() { return {KnownEvents, {}}; }

EventInterface FindEventInterface(const CInterface<IDispatch>& control)
{
    const std::optional<IID> wanted = DeclaredID(control);
    const auto fits = [&](const TypeInfo& source) {
        const std::optional<IID> id = IDOfType(source);
        return id && (!wanted || IsEqualIID(*wanted, *id));
    };
    if (const TypeInfo source = DeclaredSource(control); fits(source))
        return {*IDOfType(source), NamesOf(source)};
    if (const TypeInfo source = SourceInLibrary(RegisteredLibrary()); fits(source))
        return {*IDOfType(source), NamesOf(source)};
    if (const TypeInfo source = SourceInLibrary(LibraryOfControl(control)); fits(source))
        return {*IDOfType(source), NamesOf(source)};
    return {wanted.value_or(KnownEvents), {}};
}

}
