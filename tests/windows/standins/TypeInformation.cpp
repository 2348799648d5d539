#include "windows/standins/TypeInformation.h"
#include "windows/standins/Engine.h"
#include "windows/standins/Events.h"
#include <array>

namespace standins {
namespace {

constexpr GUID LibraryID = {0x2E7A40C1, 0x9D5B, 0x4F63, {0x8C, 0x0E, 0x71, 0xB4, 0x26, 0xF9, 0x53, 0xD8}};

void Check(HRESULT result)
{
    if (FAILED(result))
        throw CComFailure{result, /*asException*/ false};
}

CRef<ITypeInfo> Readable(const CRef<ICreateTypeInfo>& made)
{
    CRef<ITypeInfo> info;
    Check(made->QueryInterface(IID_ITypeInfo, reinterpret_cast<void**>(info.Receive())));
    return info;
}

std::string Lowered(std::string letters)
{
    for (char& letter : letters)
        if (letter >= 'A' && letter <= 'Z')
            letter = static_cast<char>(letter - 'A' + 'a');
    return letters;
}

// Every dispatch interface inherits that of the system.
CRef<ITypeInfo> SystemDispatch()
{
    constexpr GUID systemLibrary = {0x00020430, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
    CRef<ITypeLib> library;
    CRef<ITypeInfo> dispatch;
    Check(LoadRegTypeLib(systemLibrary, 2, 0, LOCALE_NEUTRAL, library.Receive()));
    Check(library->GetTypeInfoOfGuid(IID_IDispatch, dispatch.Receive()));
    return dispatch;
}

void Inherit(ICreateTypeInfo& info, UINT index, ITypeInfo& base, int flags = 0)
{
    HREFTYPE reference = 0;
    Check(info.AddRefTypeInfo(&base, &reference));
    Check(info.AddImplType(index, reference));
    if (flags != 0)
        Check(info.SetImplTypeFlags(index, flags));
}

struct CFunction {
    std::string name;
    DISPID id;
    INVOKEKIND kind;
    std::string parameters;
    char result;
};

void AddFunction(ICreateTypeInfo& info, UINT index, const CFunction& function)
{
    std::vector<ELEMDESC> parameters(function.parameters.size());
    for (std::size_t at = 0; at < parameters.size(); ++at)
        parameters[at].tdesc.vt = TypeOf(Lowered(function.parameters)[at]);
    FUNCDESC description{};
    description.memid = function.id;
    description.funckind = FUNC_DISPATCH;
    description.invkind = function.kind;
    description.callconv = CC_STDCALL;
    description.cParams = static_cast<SHORT>(parameters.size());
    description.lprgelemdescParam = parameters.data();
    const VARTYPE type = TypeOf(function.result);
    description.elemdescFunc.tdesc.vt = type == VT_EMPTY ? VARTYPE{VT_VOID} : type;
    Check(info.AddFuncDesc(index, &description));
    std::wstring name = Wide(function.name);
    LPOLESTR names = name.data();
    Check(info.SetFuncAndParamNames(index, &names, 1));
}

std::vector<CFunction> FunctionsOf(const CMember& member)
{
    std::vector<CFunction> functions;
    if (member.get && !member.call)
        functions.push_back({member.name, member.id, INVOKE_PROPERTYGET, member.parameters, member.type});
    if (member.put)
        functions.push_back({member.name, member.id, INVOKE_PROPERTYPUT, member.parameters + member.type, ' '});
    if (member.call)
        functions.push_back({member.name, member.id, INVOKE_FUNC, member.parameters, member.type});
    return functions;
}

}

CTypes::CTypes(const CScene& scene) : m_scene(scene)
{
    const SYSKIND system = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;
    Check(CreateTypeLib2(system, L"standins.tlb", m_library.Receive()));
    Check(m_library->SetGuid(LibraryID));
    Check(m_library->SetName(const_cast<LPOLESTR>(L"StandIns")));
}

CRef<ICreateTypeInfo> CTypes::New(const std::string& name, TYPEKIND kind, const GUID* id)
{
    CRef<ICreateTypeInfo> info;
    std::wstring wide = Wide(name);
    Check(m_library->CreateTypeInfo(wide.data(), kind, info.Receive()));
    if (id)
        Check(info->SetGuid(*id));
    return info;
}

CRef<ICreateTypeInfo> CTypes::MakeEvents()
{
    const IID id = EventInterface(m_scene);
    CRef<ICreateTypeInfo> info = New("ControlEvents", TKIND_DISPATCH, &id);
    Inherit(*info.Get(), 0, *SystemDispatch().Get());
    UINT index = 0;
    for (const CEventShape& shape : EventShapes())
        AddFunction(*info.Get(), index++, {shape.name, EventID(m_scene, shape), INVOKE_FUNC, shape.parameters, ' '});
    Check(info->LayOut());
    return info;
}

CRef<ICreateTypeInfo> CTypes::MakeObject(const CAutomationObject& object)
{
    CRef<ICreateTypeInfo> info = New("Members" + object.ClassName(), TKIND_DISPATCH, nullptr);
    Inherit(*info.Get(), 0, *SystemDispatch().Get());
    UINT index = 0;
    for (const CMember& member : object.Members())
        for (const CFunction& function : FunctionsOf(member))
            AddFunction(*info.Get(), index++, function);
    Check(info->LayOut());
    return info;
}

HRESULT CTypes::OfObject(const CAutomationObject& object, ITypeInfo** info)
try {
    CRef<ITypeInfo>& kept = m_objects[object.ClassName()];
    if (!kept)
        kept = Readable(MakeObject(object));
    if (object.ClassName() == "Control" && !m_controlClass) {
        CRef<ITypeInfo> unused;
        Check(OfControlClass(object, unused.Receive()));
    }
    *info = CRef<ITypeInfo>(kept).Detach();
    return S_OK;
} catch (const CComFailure& failure) {
    return failure.code;
}

HRESULT CTypes::OfControlClass(const CAutomationObject& control, ITypeInfo** info)
try {
    if (!m_controlClass) {
        const CRef<ICreateTypeInfo> made = New("ControlClass", TKIND_COCLASS, &EngineClass);
        m_controlClass = Readable(made);
        CRef<ITypeInfo> members;
        Check(OfObject(control, members.Receive()));
        const CRef<ITypeInfo> events = Readable(MakeEvents());
        Inherit(*made.Get(), 0, *members.Get(), IMPLTYPEFLAG_FDEFAULT);
        Inherit(*made.Get(), 1, *events.Get(), IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE);
        Check(made->LayOut());
    }
    *info = CRef<ITypeInfo>(m_controlClass).Detach();
    return S_OK;
} catch (const CComFailure& failure) {
    return failure.code;
}

}
