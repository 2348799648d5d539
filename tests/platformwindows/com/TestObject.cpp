#include "platformwindows/com/TestObject.h"
#include "platform/windows/Text.h"
#include <array>

namespace comtest {
namespace {

using platform::windowsdesktop::FromWide;

std::string KindOf(WORD flags)
{
    if ((flags & DISPATCH_PROPERTYPUT) != 0)
        return "put";
    if ((flags & DISPATCH_METHOD) != 0)
        return (flags & DISPATCH_PROPERTYGET) != 0 ? "get-or-call" : "call";
    return "get";
}

std::string TypeName(VARTYPE type)
{
    switch (type) {
    case VT_BSTR:
        return "BSTR ";
    case VT_BOOL:
        return "BOOL ";
    case VT_I2:
        return "I2 ";
    case VT_I4:
        return "I4 ";
    default:
        return "type " + std::to_string(type) + " ";
    }
}

}

std::string Shown(const VARIANT& value)
{
    if (V_VT(&value) == VT_DISPATCH)
        return "object";
    const CVariant copy = CVariant::Copy(value);
    return copy.IsOmitted() ? "-" : TypeName(V_VT(&value)) + copy.Text();
}

Answer Giving(const CVariant& value)
{
    return [value](const CallOfMember& call) {
        return call.result ? VariantCopy(call.result, &const_cast<CVariant&>(value).Raw()) : S_OK;
    };
}

Answer GivingRaw(VARIANT value)
{
    return [value](const CallOfMember& call) {
        *call.result = value;
        return S_OK;
    };
}

Answer Failing(HRESULT result)
{
    return [result](const CallOfMember&) { return result; };
}

Answer Raising(HRESULT code, const std::wstring& description)
{
    return [code, description](const CallOfMember& call) {
        call.exception->scode = code;
        call.exception->bstrSource = SysAllocString(L"test");
        call.exception->bstrDescription = description.empty() ? nullptr : SysAllocString(description.c_str());
        return DISP_E_EXCEPTION;
    };
}

std::atomic<long> CTestObject::living = 0;

CTestObject::CTestObject(std::string name, std::shared_ptr<Journal> journal)
    : m_name(std::move(name)), m_journal(std::move(journal))
{
    ++living;
}

HRESULT CTestObject::QueryInterface(REFIID id, void** object)
{
    *object = nullptr;
    if (IsEqualIID(id, IID_IUnknown) || (IsEqualIID(id, IID_IDispatch) && callableByName) || IsEqualIID(id, alias))
        *object = static_cast<IDispatch*>(this);
    else
        *object = Other(id);
    if (!*object)
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG CTestObject::Release()
{
    const ULONG references = --m_references;
    if (references == 0)
        delete this;
    return references;
}

HRESULT CTestObject::GetTypeInfoCount(UINT* count)
{
    *count = 0;
    return S_OK;
}

HRESULT CTestObject::GetTypeInfo(UINT, LCID, ITypeInfo**) { return E_NOTIMPL; }

HRESULT CTestObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids)
{
    ++nameQueries;
    if (missing.count(names[0]) != 0)
        return DISP_E_UNKNOWNNAME;
    *ids = m_ids.emplace(names[0], static_cast<DISPID>(100 + m_ids.size())).first->second;
    return S_OK;
}

HRESULT CTestObject::Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                            EXCEPINFO* exception, UINT*)
{
    std::wstring name = member == DISPID_NEWENUM ? L"_NewEnum" : L"?";
    for (const auto& [text, id] : m_ids)
        if (id == member)
            name = text;
    std::string line = KindOf(flags) + " " + m_name + "." + FromWide(name);
    for (UINT index = parameters->cArgs; index > 0; --index)
        line += " " + Shown(parameters->rgvarg[index - 1]);
    m_journal->push_back(line);
    const auto answer = answers.find(name);
    return answer == answers.end() ? S_OK : Answer(answer->second)({flags, parameters, result, exception});
}

const IID CTestControl::Events = {0xF5BE8BD4, 0x7DE6, 0x11D0, {0x91, 0xFE, 0x00, 0xC0, 0x4F, 0xD7, 0x01, 0xA5}};

void* CTestControl::Other(REFIID id)
{
    return IsEqualIID(id, IID_IConnectionPointContainer) ? static_cast<IConnectionPointContainer*>(this) : nullptr;
}

HRESULT CTestControl::FindConnectionPoint(REFIID id, IConnectionPoint** found)
{
    *found = nullptr;
    if (!IsEqualIID(id, point))
        return CONNECT_E_NOCONNECTION;
    *found = this;
    AddRef();
    return S_OK;
}

HRESULT CTestControl::GetConnectionInterface(IID* id)
{
    *id = point;
    return S_OK;
}

HRESULT CTestControl::Advise(IUnknown* sink, DWORD* cookie)
{
    m_journal->push_back("advise");
    *cookie = 7;
    if (FAILED(adviseResult))
        return adviseResult;
    return sink->QueryInterface(point, receiver.ReceiveAny());
}

HRESULT CTestControl::Unadvise(DWORD cookie)
{
    m_journal->push_back("unadvise " + std::to_string(cookie));
    receiver = {};
    return S_OK;
}

void CTestControl::Raise(DISPID event, std::vector<CVariant> arguments) const
{
    std::vector<VARIANT> reversed;
    for (auto value = arguments.rbegin(); value != arguments.rend(); ++value)
        reversed.push_back(value->Raw());
    DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
    const CInterface<IDispatch> alive = receiver;
    alive->Invoke(event, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr);
}

HRESULT CTestEnumeration::QueryInterface(REFIID id, void** object)
{
    const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IEnumVARIANT);
    *object = known ? this : nullptr;
    if (!known)
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG CTestEnumeration::Release()
{
    const ULONG references = --m_references;
    if (references == 0)
        delete this;
    return references;
}

HRESULT CTestEnumeration::Next(ULONG count, VARIANT* values, ULONG* fetched)
{
    *fetched = 0;
    while (*fetched < count && m_next < m_values.size()) {
        VariantCopy(&values[*fetched], &m_values[m_next].Raw());
        ++*fetched;
        m_next = endless ? 0 : m_next + 1;
    }
    return *fetched == count ? S_OK : S_FALSE;
}

CTestClass::CTestClass(const CLSID& id, Maker maker) : m_maker(std::move(maker))
{
    CoRegisterClassObject(id, this, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &m_cookie);
}

CTestClass::~CTestClass() { CoRevokeClassObject(m_cookie); }

HRESULT CTestClass::QueryInterface(REFIID id, void** object)
{
    const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IClassFactory);
    *object = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
}

HRESULT CTestClass::CreateInstance(IUnknown*, REFIID id, void** object)
{
    *object = nullptr;
    const CInterface<IUnknown> made = m_maker();
    return made ? made->QueryInterface(id, object) : E_FAIL;
}

CProgramName::CProgramName(std::wstring name, const CLSID& id) : m_name(std::move(name))
{
    std::array<wchar_t, 64> text{};
    StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
    const std::wstring key = m_name + L"\\CLSID";
    RegSetValueW(HKEY_CLASSES_ROOT, key.c_str(), REG_SZ, text.data(), 0);
}

CProgramName::~CProgramName() { RegDeleteTreeW(HKEY_CLASSES_ROOT, m_name.c_str()); }

void RunMessages()
{
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

}
