#include "platform/windows/com/EventQueue.h"
#include "platform/windows/com/OutgoingCalls.h"
#include <utility>

namespace platform::windowsdesktop::com {
namespace {

constexpr UINT DeliverMessage = WM_APP;

}

CEventQueue::Place CEventQueue::Reserve()
{
    auto place = std::make_shared<Delivery>();
    if (!m_closed)
        m_deliveries.push_back(place);
    return place;
}

void CEventQueue::Fill(const Place& place, Delivery delivery)
{
    if (delivery)
        *place = std::move(delivery);
    else
        std::erase(m_deliveries, place);
    if (NextIsReady())
        Announce();
}

void CEventQueue::Announce()
{
    if (m_announced)
        return;
    m_announced = true;
    PostAfterCalls(m_window.Handle(), DeliverMessage);
}

bool CEventQueue::Receive(UINT message, WPARAM wParam)
{
    const bool timer = message == WM_TIMER && wParam == DeliverMessage;
    if (timer)
        KillTimer(m_window.Handle(), DeliverMessage);
    if (!timer && message != DeliverMessage)
        return false;
    const EventQueueRef alive = shared_from_this();  // The receiver may let go of the control.
    m_announced = false;
    DeliverNext();
    return true;
}

void CEventQueue::DeliverNext()
{
    if (!NextIsReady())
        return;
    if (COutgoingCall::InProgress()) {  // The call's own loop has found the message.
        Announce();
        return;
    }
    const Place next = m_deliveries.front();
    m_deliveries.pop_front();
    if (NextIsReady())
        Announce();
    ICharacterEngineEvents nobody;
    (*next)(m_receiver ? *m_receiver : nobody);
}

void CEventQueue::Close()
{
    m_closed = true;
    m_receiver = nullptr;
    std::exchange(m_deliveries, {});
}

}
