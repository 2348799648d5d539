#include "windows/standins/Events.h"
#include "windows/standins/Scene.h"
#include <algorithm>

namespace standins {
namespace {

constexpr IID DocumentedEvents = {0xF5BE8BD4, 0x7DE6, 0x11D0, {0x91, 0xFE, 0x00, 0xC0, 0x4F, 0xD7, 0x01, 0xA5}};
constexpr IID OwnEvents = {0x6C1F2B70, 0x52D3, 0x4E0A, {0x9B, 0x1C, 0x3D, 0x58, 0x77, 0x20, 0xA4, 0xE1}};
constexpr DISPID OwnEventOffset = 1000;

// Counting of references for the small objects below.
template <class Interface> class CCounted : public Interface {
public:
    STDMETHODIMP QueryInterface(REFIID id, void** object) override
    {
        const bool known = id == IID_IUnknown || id == __uuidof(Interface);
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

protected:
    virtual ~CCounted() = default;

private:
    std::atomic<ULONG> m_references{1};
};

class CConnectionPoint final : public CCounted<IConnectionPoint> {
public:
    CConnectionPoint(IConnectionPointContainer* container, std::shared_ptr<CSinks> sinks, std::shared_ptr<CScene> scene)
        : m_container(CRef<IConnectionPointContainer>::Share(container)), m_sinks(std::move(sinks)),
          m_scene(std::move(scene))
    {
    }
    STDMETHODIMP GetConnectionInterface(IID* id) override
    {
        *id = EventInterface(*m_scene);
        return S_OK;
    }
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override
    {
        *container = CRef<IConnectionPointContainer>(m_container).Detach();
        return S_OK;
    }
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override { return m_sinks->Add(sink, cookie); }
    STDMETHODIMP Unadvise(DWORD cookie) override { return m_sinks->Remove(cookie); }
    STDMETHODIMP EnumConnections(IEnumConnections** connections) override
    {
        *connections = nullptr;
        return E_NOTIMPL;
    }

private:
    CRef<IConnectionPointContainer> m_container;
    std::shared_ptr<CSinks> m_sinks;
    std::shared_ptr<CScene> m_scene;
};

// The one point of a control.
class CPoints final : public CCounted<IEnumConnectionPoints> {
public:
    CPoints(CRef<IConnectionPoint> point, bool given) : m_point(std::move(point)), m_given(given) {}
    STDMETHODIMP Next(ULONG count, IConnectionPoint** points, ULONG* fetched) override
    {
        const ULONG given = m_given || count == 0 ? 0 : 1;
        if (given == 1)
            points[0] = CRef<IConnectionPoint>(m_point).Detach();
        if (fetched)
            *fetched = given;
        m_given = m_given || given == 1;
        return given == count ? S_OK : S_FALSE;
    }
    STDMETHODIMP Skip(ULONG count) override
    {
        const bool enough = count == 0 || (count == 1 && !m_given);
        m_given = m_given || count > 0;
        return enough ? S_OK : S_FALSE;
    }
    STDMETHODIMP Reset() override
    {
        m_given = false;
        return S_OK;
    }
    STDMETHODIMP Clone(IEnumConnectionPoints** copy) override
    {
        *copy = new CPoints(m_point, m_given);
        return S_OK;
    }

private:
    CRef<IConnectionPoint> m_point;
    bool m_given;
};

std::string Line(const CEventShape& shape, const std::vector<CValue>& arguments)
{
    std::string line = std::string("event ") + shape.name;
    for (std::size_t index = 0; index < arguments.size(); ++index)
        line += (index == 0 ? "(" : ", ") + Describe(arguments[index].Get());
    return arguments.empty() ? line : line + ")";
}

HRESULT Deliver(IDispatch& sink, DISPID id, const std::vector<CValue>& arguments)
{
    std::vector<VARIANT> reversed;
    for (auto value = arguments.rbegin(); value != arguments.rend(); ++value)
        reversed.push_back(value->Get());
    DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
    return sink.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr);
}

}

const std::vector<CEventShape>& EventShapes()
{
    static const std::vector<CEventShape> shapes = {{"ActivateInput", 1, "s"},
                                                    {"Click", 2, "snnnn"},
                                                    {"DeactivateInput", 3, "s"},
                                                    {"DblClick", 4, "snnnn"},
                                                    {"DragStart", 5, "snnnn"},
                                                    {"DragComplete", 6, "snnnn"},
                                                    {"Hide", 7, "sn"},
                                                    {"RequestStart", 9, "d"},
                                                    {"RequestComplete", 11, "d"},
                                                    {"Shutdown", 12, ""},
                                                    {"Show", 15, "sn"},
                                                    {"Bookmark", 16, "l"},
                                                    {"Command", 17, "d"},
                                                    {"IdleStart", 19, "s"},
                                                    {"IdleComplete", 20, "s"},
                                                    {"Restart", 21, ""},
                                                    {"Move", 22, "snnn"},
                                                    {"Size", 23, "snn"},
                                                    {"BalloonShow", 24, "s"},
                                                    {"BalloonHide", 25, "s"},
                                                    {"HelpComplete", 26, "ssn"},
                                                    {"ListenStart", 27, "s"},
                                                    {"ListenComplete", 28, "sn"},
                                                    {"DefaultCharacterChange", 30, "s"},
                                                    {"AgentPropertyChange", 31, ""},
                                                    {"ActiveClientChange", 32, "sb"}};
    return shapes;
}

const CEventShape* FindEvent(const std::string& name)
{
    const auto& shapes = EventShapes();
    const auto found =
        std::find_if(shapes.begin(), shapes.end(), [&](const CEventShape& shape) { return SameName(shape.name, name); });
    return found == shapes.end() ? nullptr : &*found;
}

IID EventInterface(const CScene& scene) { return scene.ownEvents ? OwnEvents : DocumentedEvents; }

DISPID EventID(const CScene& scene, const CEventShape& shape) { return shape.id + (scene.ownEvents ? OwnEventOffset : 0); }

HRESULT CSinks::Add(IUnknown* sink, DWORD* cookie)
{
    CRef<IDispatch> receiver;
    if (!sink || !cookie)
        return E_POINTER;
    // A receiver must answer to the event interface itself, not to IDispatch alone.
    void* found = nullptr;
    HRESULT result = sink->QueryInterface(EventInterface(m_scene), &found);
    if (FAILED(result) && m_scene.plainReceivers)
        result = sink->QueryInterface(IID_IDispatch, &found);
    m_scene.log.Write(SUCCEEDED(result) ? "advised" : "advise refused");
    if (FAILED(result))
        return CONNECT_E_CANNOTCONNECT;
    *cookie = ++m_lastCookie;
    m_sinks[*cookie] = CRef<IDispatch>::Adopt(static_cast<IDispatch*>(found));
    return S_OK;
}

HRESULT CSinks::Remove(DWORD cookie)
{
    const bool known = m_sinks.erase(cookie) == 1;
    m_scene.log.Write(known ? "unadvised" : "unadvise refused");
    return known ? S_OK : CONNECT_E_NOCONNECTION;
}

std::vector<std::pair<DWORD, CRef<IDispatch>>> CSinks::All() const { return {m_sinks.begin(), m_sinks.end()}; }

void CSinks::Raise(const CEventShape& shape, const std::vector<CValue>& arguments)
{
    const auto sinks = All();  // A receiver may detach itself while it is called.
    const std::string line = Line(shape, arguments);
    m_scene.log.Write(line + (sinks.empty() ? " unheard" : ""));
    for (const auto& [cookie, sink] : sinks)
        if (const HRESULT result = Deliver(*sink.Get(), EventID(m_scene, shape), arguments); FAILED(result))
            m_scene.log.Write("refused " + line.substr(6) + " " + HexCode(result));
}

CRef<IConnectionPoint> NewConnectionPoint(IConnectionPointContainer* container, std::shared_ptr<CSinks> sinks,
                                          std::shared_ptr<CScene> scene)
{
    return CRef<IConnectionPoint>::Adopt(new CConnectionPoint(container, std::move(sinks), std::move(scene)));
}

CRef<IEnumConnectionPoints> NewEnumeration(const CRef<IConnectionPoint>& point)
{
    return CRef<IEnumConnectionPoints>::Adopt(new CPoints(point, false));
}

}
