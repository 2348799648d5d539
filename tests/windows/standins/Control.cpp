#include "windows/standins/Character.h"
#include "windows/standins/Engine.h"
#include "windows/standins/TypeInformation.h"

namespace standins {
namespace {

constexpr HRESULT NotConnected = static_cast<HRESULT>(0x80042502);

class CSheet final : public CAutomationObject {
public:
    explicit CSheet(std::shared_ptr<CClient> client)
        : CAutomationObject(client->scene, "PropertySheet"), m_client(std::move(client))
    {
        Constant("Left", 1, CValue(std::int16_t{0}));
        Constant("Top", 2, CValue(std::int16_t{0}));
        Constant("Height", 3, CValue(std::int16_t{0}));
        Constant("Width", 4, CValue(std::int16_t{0}));
        Variable("Page", 5, 's', m_client->sheet["Page"]);
        Variable("Visible", 6, 'b', m_client->sheet["Visible"]);
    }

private:
    std::shared_ptr<CClient> m_client;
};

class CAudioOutput final : public CAutomationObject {
public:
    explicit CAudioOutput(std::shared_ptr<CScene> scene) : CAutomationObject(std::move(scene), "AudioOutput")
    {
        Constant("Enabled", 1, CValue(true));
        Constant("SoundEffects", 2, CValue(true));
        Constant("Status", 3, CValue(std::int16_t{0}));
    }
};

class CControl final : public CAutomationObject, public IConnectionPointContainer, public IProvideClassInfo2 {
public:
    explicit CControl(const std::shared_ptr<CScene>& scene)
        : CAutomationObject(scene, "Control"), m_client(std::make_shared<CClient>(scene))
    {
        m_client->sheet["Page"] = CValue("Output");
        m_client->sheet["Visible"] = CValue(false);
        scene->clients.push_back(m_client);
        AddMembers();
    }

    STDMETHODIMP QueryInterface(REFIID id, void** object) override { return CAutomationObject::QueryInterface(id, object); }
    STDMETHODIMP_(ULONG) AddRef() override { return CAutomationObject::AddRef(); }
    STDMETHODIMP_(ULONG) Release() override { return CAutomationObject::Release(); }

    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override
    {
        *points = NewEnumeration(Point()).Detach();
        return S_OK;
    }
    STDMETHODIMP FindConnectionPoint(REFIID id, IConnectionPoint** point) override
    {
        const bool known = id == EventInterface(Scene());
        *point = known ? Point().Detach() : nullptr;
        return known ? S_OK : CONNECT_E_NOCONNECTION;
    }
    STDMETHODIMP GetClassInfo(ITypeInfo** info) override { return Scene().Types().OfControlClass(*this, info); }
    STDMETHODIMP GetGUID(DWORD kind, GUID* id) override
    {
        if (!id)
            return E_POINTER;
        *id = EventInterface(Scene());
        return kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID ? S_OK : E_INVALIDARG;
    }

protected:
    ~CControl() override
    {
        m_client->sinks->Clear();
        for (const auto& [id, state] : m_client->characters) {
            state->alive = false;
            state->queue->Clear();
        }
    }
    void* Interface(REFIID id) override
    {
        const ClassInfo told = Scene().classInfo;
        if (id == IID_IConnectionPointContainer)
            return static_cast<IConnectionPointContainer*>(this);
        if (id == IID_IProvideClassInfo2 && told == ClassInfo::Both)
            return static_cast<IProvideClassInfo2*>(this);
        if (id == IID_IProvideClassInfo && (told == ClassInfo::Both || told == ClassInfo::One))
            return static_cast<IProvideClassInfo*>(this);
        return nullptr;
    }
    void BeforeCall(const CMember& member) override
    {
        if (!m_client->connected && member.name != "Connected")
            throw CComFailure{NotConnected};
    }

private:
    void AddMembers()
    {
        ReadOnly("Characters", 3, 'd', [this] { return CValue(NewCharacters(m_client).Get()); });
        ReadOnly("AudioOutput", 4, 'd',
                 [this] { return CValue(CRef<IDispatch>::Adopt(new CAudioOutput(SharedScene())).Get()); });
        ReadOnly("PropertySheet", 8, 'd', [this] { return CValue(CRef<IDispatch>::Adopt(new CSheet(m_client)).Get()); });
        ReadWrite(
            "Connected", 9, 'b', [this] { return CValue(m_client->connected); },
            [this](const CValue& value) { m_client->connected = m_client->connected || value.Truth(); });
        ReadOnly("Suspended", 14, 'b', [] { return CValue(false); });
        Callable("ShowDefaultCharacterProperties", 20, "VV", ' ', [](const CCall&) { return CValue(); });
        ReadWrite(
            "RaiseRequestErrors", 21, 'b', [this] { return CValue(m_client->raiseRequestErrors); },
            [this](const CValue& value) { m_client->raiseRequestErrors = value.Truth(); });
    }
    CRef<IConnectionPoint> Point() { return NewConnectionPoint(this, m_client->sinks, SharedScene()); }

    std::shared_ptr<CClient> m_client;
};

}

CRef<IDispatch> NewControl(const std::shared_ptr<CScene>& scene) { return CRef<IDispatch>::Adopt(new CControl(scene)); }

}
