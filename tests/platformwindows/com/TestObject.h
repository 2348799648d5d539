#pragma once
#include "platform/windows/com/Bstr.h"
#include "platform/windows/com/Variant.h"
#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

// Objects of COM that do what a test tells them, and write down every call.
namespace comtest {

using platform::windowsdesktop::com::CBstr;
using platform::windowsdesktop::com::CInterface;
using platform::windowsdesktop::com::CVariant;

// One line a call, in order: "get Sheet.Visible", "put Character.Left I2 5", "call Character.Speak - BSTR a.wav".
using Journal = std::vector<std::string>;

struct CallOfMember {
    WORD flags = 0;
    DISPPARAMS* parameters = nullptr;
    VARIANT* result = nullptr;  // Null when the caller wants none.
    EXCEPINFO* exception = nullptr;
};
using Answer = std::function<HRESULT(const CallOfMember&)>;

// A value as the journal shows it: its type and its text; "-" for an omitted argument.
std::string Shown(const VARIANT& value);

Answer Giving(const CVariant& value);
Answer GivingRaw(VARIANT value);  // Not copied.
Answer Failing(HRESULT result);
Answer Raising(HRESULT code, const std::wstring& description);

// COM's interfaces have no virtual destructor: objects end themselves.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

class CTestObject : public IDispatch {
public:
    CTestObject(std::string name, std::shared_ptr<Journal> journal);
    CTestObject(const CTestObject&) = delete;
    CTestObject& operator=(const CTestObject&) = delete;
    static std::atomic<long> living;  // Objects that have not ended.

    std::map<std::wstring, Answer> answers;  // Of members; others answer with nothing.
    std::set<std::wstring> missing;          // Members that it does not have.
    IID alias = IID_NULL;                    // A further name of its interface.
    bool callableByName = true;              // False: it denies IDispatch under its own name.
    int nameQueries = 0;
    ULONG References() const { return m_references; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID language, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID language, DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID id, LCID language, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

    CVariant Value() { return CVariant(CInterface<IDispatch>(this)); }

protected:
    virtual ~CTestObject() { --living; }
    virtual void* Other(REFIID) { return nullptr; }  // A further interface, not yet counted.

private:
    std::string m_name;
    std::shared_ptr<Journal> m_journal;
    std::map<std::wstring, DISPID> m_ids;
    ULONG m_references = 0;
};
using TestRef = CInterface<CTestObject>;

// The engine's control: it has one receiver of events.
class CTestControl final : public CTestObject, public IConnectionPointContainer, public IConnectionPoint {
public:
    explicit CTestControl(std::shared_ptr<Journal> journal) : CTestObject("Control", journal), m_journal(std::move(journal))
    {
    }

    static const IID Events;
    IID point = Events;
    HRESULT adviseResult = S_OK;
    CInterface<IDispatch> receiver;
    // Raises an event; the arguments in the order of its parameters.
    void Raise(DISPID event, std::vector<CVariant> arguments) const;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override
    {
        return CTestObject::QueryInterface(id, object);
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return CTestObject::AddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return CTestObject::Release(); }
    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id, IConnectionPoint** found) override;
    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* id) override;
    HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }

protected:
    virtual ~CTestControl() = default;
    void* Other(REFIID id) override;

private:
    std::shared_ptr<Journal> m_journal;
};
using ControlRef = CInterface<CTestControl>;

// What enumerates values, one after another.
class CTestEnumeration final : public IEnumVARIANT {
public:
    explicit CTestEnumeration(std::vector<CVariant> values) : m_values(std::move(values)) { ++CTestObject::living; }
    bool endless = false;
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* values, ULONG* fetched) override;
    HRESULT STDMETHODCALLTYPE Skip(ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reset() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT**) override { return E_NOTIMPL; }

private:
    virtual ~CTestEnumeration() { --CTestObject::living; }
    std::vector<CVariant> m_values;
    std::size_t m_next = 0;
    ULONG m_references = 0;
};

// Makes one object again and again, served under a class of this process.
class CTestClass final : public IClassFactory {
public:
    using Maker = std::function<CInterface<IUnknown>()>;  // May answer with none: then creating fails.
    CTestClass(const CLSID& id, Maker maker);
    virtual ~CTestClass();
    CTestClass(const CTestClass&) = delete;
    CTestClass& operator=(const CTestClass&) = delete;
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

private:
    Maker m_maker;
    DWORD m_cookie = 0;
};
#pragma GCC diagnostic pop

// The registry's word for which class a name stands, as long as this lives.
class CProgramName {
public:
    CProgramName(std::wstring name, const CLSID& id);
    ~CProgramName();
    CProgramName(const CProgramName&) = delete;
    CProgramName& operator=(const CProgramName&) = delete;

private:
    std::wstring m_name;
};

// Delivers what is waiting in this thread's queue of messages.
void RunMessages();

}
