#include "platform/windows/com/EventSink.h"
#include "platform/Failure.h"
#include "platform/windows/com/Failures.h"

namespace platform::windowsdesktop::com {

CEventSink::CEventSink(EventInterface events, EventQueueRef queue, RequestsRef requests)
    : m_events(std::move(events)), m_queue(std::move(queue)), m_requests(std::move(requests))
{
}

void CEventSink::Close()
{
    m_queue.reset();
    m_requests.reset();
}

HRESULT CEventSink::QueryInterface(REFIID id, void** object)
{
    if (!object)
        return E_POINTER;
    const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch) || IsEqualIID(id, m_events.id);
    *object = known ? this : nullptr;
    if (!known)
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG CEventSink::AddRef() { return static_cast<ULONG>(InterlockedIncrement(&m_references)); }

ULONG CEventSink::Release()
{
    const LONG references = InterlockedDecrement(&m_references);
    if (references == 0)
        delete this;
    return static_cast<ULONG>(references);
}

HRESULT CEventSink::GetTypeInfoCount(UINT* count)
{
    if (!count)
        return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT CEventSink::GetTypeInfo(UINT, LCID, ITypeInfo** info)
{
    if (info)
        *info = nullptr;
    return DISP_E_BADINDEX;
}

HRESULT CEventSink::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) { return DISP_E_UNKNOWNNAME; }

std::wstring_view CEventSink::NameOf(DISPID member) const
{
    if (m_events.names.empty())
        return EventName(member);
    const auto found = m_events.names.find(member);
    return found == m_events.names.end() ? std::wstring_view() : found->second;
}

// An event that cannot be understood is none: the engine has nothing to learn from our answer.
Delivery CEventSink::Read(DISPID member, const DISPPARAMS* parameters) const
{
    const RequestsRef requests = m_requests;  // The end may come while the event is being read.
    try {
        return DeliveryOf(NameOf(member), CEventArguments(parameters), requests);
    } catch (...) {
        return {};
    }
}

// Others may come while the event is being read: it has its place before.
HRESULT CEventSink::Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*, UINT*)
try {
    if (const EventQueueRef queue = m_queue) {
        const CEventQueue::Place place = queue->Reserve();
        queue->Fill(place, Read(member, parameters));
    }
    return S_OK;
} catch (...) {
    return S_OK;
}

CEventConnection::CEventConnection(const CInterface<IDispatch>& control, const EventQueueRef& queue,
                                   const RequestsRef& requests)
{
    const auto container = control.As<IConnectionPointContainer>();
    if (!container)
        throw FailureOf(E_NOINTERFACE);
    if (SUCCEEDED(ConnectTo(container, FindEventInterface(control), queue, requests)))
        return;
    Check(ConnectTo(container, KnownEventInterface(), queue, requests));
}

HRESULT CEventConnection::ConnectTo(const CInterface<IConnectionPointContainer>& container, const EventInterface& events,
                                    const EventQueueRef& queue, const RequestsRef& requests)
{
    const COutgoingCall call;
    CInterface<IConnectionPoint> point;
    HRESULT result = container->FindConnectionPoint(events.id, point.Receive());
    if (FAILED(result)) {
        point.Forget();
        return result;
    }
    CInterface<CEventSink> sink(new CEventSink(events, queue, requests));
    result = point->Advise(sink.Raw(), &m_cookie);
    if (FAILED(result))
        return result;
    m_sink = std::move(sink);
    m_point = std::move(point);
    return result;
}

CEventConnection::~CEventConnection()
{
    m_sink->Close();
    if (!Running())
        return;
    const COutgoingCall call;
    m_point->Unadvise(m_cookie);
}

}
