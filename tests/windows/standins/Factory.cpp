#include "windows/standins/Engine.h"
#include "windows/standins/Registry.h"
#include <array>

namespace standins {

const CLSID EngineClass = {0xD45FD31B, 0x5C6E, 0x11D1, {0x9E, 0xC1, 0x00, 0xC0, 0x4F, 0xD7, 0x08, 0x1F}};
const CLSID SpeechClass = {0xEEE78591, 0xFE22, 0x11D0, {0x8B, 0xEF, 0x00, 0x60, 0x08, 0x18, 0x41, 0xDE}};
const IID SpeechInterface = {0xEEE78590, 0xFE22, 0x11D0, {0x8B, 0xEF, 0x00, 0x60, 0x08, 0x18, 0x41, 0xDE}};

namespace {

constexpr wchar_t ProgramName[] = L"Agent.Control.2";
constexpr wchar_t EngineText[] = L"{D45FD31B-5C6E-11D1-9EC1-00C04FD7081F}";
constexpr wchar_t SpeechText[] = L"{EEE78591-FE22-11D0-8BEF-0060081841DE}";
class CFactory final : public IClassFactory {
public:
    explicit CFactory(Maker make) : m_make(std::move(make)) {}
    STDMETHODIMP QueryInterface(REFIID id, void** object) override
    {
        const bool known = id == IID_IUnknown || id == IID_IClassFactory;
        *object = known ? this : nullptr;
        if (known)
            AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_references; }
    STDMETHODIMP_(ULONG) Release() override
    {
        const ULONG left = --m_references;
        if (left == 0)
            delete this;
        return left;
    }
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** object) override
    try {
        *object = nullptr;
        if (outer)
            return CLASS_E_NOAGGREGATION;
        const CRef<IDispatch> made = m_make();
        return made->QueryInterface(id, object);
    } catch (const CComFailure& failure) {
        return failure.code;
    } catch (...) {
        return E_UNEXPECTED;
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }

private:
    virtual ~CFactory() = default;
    Maker m_make;
    std::atomic<ULONG> m_references{1};
};

bool RegisterClass(const wchar_t* id, const std::string& server, const std::wstring& file)
{
    const std::wstring key = std::wstring(L"CLSID\\") + id;
    return SetClassesDefault(key, L"Stand-in for tests") && SetClassesDefault(key + L"\\" + Wide(server), file);
}

DWORD Serve(REFCLSID id, Maker make)
{
    DWORD cookie = 0;
    const CRef<IClassFactory> factory = NewFactory(std::move(make));
    CoRegisterClassObject(id, factory.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie);
    return cookie;
}

}

CRef<IClassFactory> NewFactory(Maker make) { return CRef<IClassFactory>::Adopt(new CFactory(std::move(make))); }

CInProcess::CInProcess(const std::shared_ptr<CScene>& scene, bool engine, bool speech)
{
    RegisterProgramName();
    if (engine)
        m_engine = Serve(EngineClass, [scene] { return NewControl(scene); });
    if (speech)
        m_speech = Serve(SpeechClass, [scene] { return NewSpeech(scene); });
}

CInProcess::~CInProcess()
{
    for (const DWORD cookie : {m_engine, m_speech})
        if (cookie != 0)
            CoRevokeClassObject(cookie);
    Unregister();
}

bool RegisterProgramName() { return SetClassesDefault(std::wstring(ProgramName) + L"\\CLSID", EngineText); }

bool Register(const std::string& server, const std::wstring& file)
{
    // No proxy of the system's carries the speech service's own interface: it is always in the client's process.
    const std::wstring folder = file.substr(0, file.find_last_of(L"\\/") + 1);
    return RegisterProgramName() && RegisterClass(EngineText, server, file) &&
           RegisterClass(SpeechText, "InprocServer32", folder + L"agentstandin.dll");
}

void Unregister()
{
    DeleteClassesKey(ProgramName);
    for (const wchar_t* id : {EngineText, SpeechText})
        DeleteClassesKey(std::wstring(L"CLSID\\") + id);
}

}
