#pragma once
#include "windows/standins/Automation.h"
#include <map>
#include <vector>

// The control's events, and how clients attach to them.
namespace standins {

struct CEventShape {
    const char* name;
    DISPID id;
    const char* parameters;  // Letters as in CMember; the event gets them in this order.
};

const std::vector<CEventShape>& EventShapes();
const CEventShape* FindEvent(const std::string& name);

// The event interface and its identifiers: the documented ones, or others of our own, which only a client knows that reads
// the type information.
IID EventInterface(const CScene& scene);
DISPID EventID(const CScene& scene, const CEventShape& shape);

// The receivers that are attached to one control.
class CSinks {
public:
    explicit CSinks(CScene& scene) : m_scene(scene) {}
    HRESULT Add(IUnknown* sink, DWORD* cookie);
    HRESULT Remove(DWORD cookie);
    void Clear() { m_sinks.clear(); }
    std::vector<std::pair<DWORD, CRef<IDispatch>>> All() const;
    // Calls every receiver now.
    void Raise(const CEventShape& shape, const std::vector<CValue>& arguments);

private:
    CScene& m_scene;
    std::map<DWORD, CRef<IDispatch>> m_sinks;
    DWORD m_lastCookie = 0;
};

// The connection point of a control for its receivers.
CRef<IConnectionPoint> NewConnectionPoint(IConnectionPointContainer* container, std::shared_ptr<CSinks> sinks,
                                          std::shared_ptr<CScene> scene);
CRef<IEnumConnectionPoints> NewEnumeration(const CRef<IConnectionPoint>& point);

}
