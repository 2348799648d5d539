#pragma once
#include "platform/windows/com/AgentEvents.h"
#include "platform/windows/com/EventInterface.h"

namespace platform::windowsdesktop::com {

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"  // No interface of COM has one: objects end themselves.

// What the control calls for its events, by name and with arguments of any type. Each event is put into the queue. Lives as
// long as somebody holds it; after Close it takes the calls and does nothing.
class CEventSink final : public IDispatch {
public:
    CEventSink(EventInterface events, EventQueueRef queue, RequestsRef requests);
    void Close();

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID language, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID language, DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID id, LCID language, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

private:
    virtual ~CEventSink() = default;
    std::wstring_view NameOf(DISPID member) const;
    Delivery Read(DISPID member, const DISPPARAMS* parameters) const;

    EventInterface m_events;
    EventQueueRef m_queue;  // Null when closed.
    RequestsRef m_requests;
    LONG m_references = 0;
};
#pragma GCC diagnostic pop

// The tie between a control and a sink of ours, cut at the end.
class CEventConnection {
public:
    // Throws CFailure when the control raises no events.
    CEventConnection(const CInterface<IDispatch>& control, const EventQueueRef& queue, const RequestsRef& requests);
    ~CEventConnection();
    CEventConnection(const CEventConnection&) = delete;
    CEventConnection& operator=(const CEventConnection&) = delete;

private:
    HRESULT ConnectTo(const CInterface<IConnectionPointContainer>& container, const EventInterface& events,
                      const EventQueueRef& queue, const RequestsRef& requests);

    CInterface<CEventSink> m_sink;
    CInterface<IConnectionPoint> m_point;
    DWORD m_cookie = 0;
};

}
