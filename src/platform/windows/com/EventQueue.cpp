#include "platform/windows/com/EventQueue.h"
#include "platform/windows/com/OutgoingCalls.h"
#include <utility>

namespace platform::windowsdesktop::com {
namespace {

constexpr UINT DeliverMessage = WM_APP;

}

void CEventQueue::Add(Delivery delivery)
{
    if (m_closed)
        return;
    m_deliveries.push_back(std::move(delivery));
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
    if (m_deliveries.empty())
        return;
    if (COutgoingCall::InProgress()) {  // The call's own loop has found the message.
        Announce();
        return;
    }
    const Delivery delivery = std::move(m_deliveries.front());
    m_deliveries.pop_front();
    if (!m_deliveries.empty())
        Announce();
    ICharacterEngineEvents nobody;
    delivery(m_receiver ? *m_receiver : nobody);
}

void CEventQueue::Close()
{
    m_closed = true;
    m_receiver = nullptr;
    std::exchange(m_deliveries, {});
}

}
