#pragma once
#include "platform/CharacterEngine.h"
#include "platform/windows/com/MessageWindow.h"
#include <deque>
#include <functional>
#include <memory>
#include <utility>

namespace platform::windowsdesktop::com {

// One event on its way: it calls the procedure of the receiver that it is meant for.
using Delivery = std::function<void(ICharacterEngineEvents& receiver)>;

// Events that wait for the message loop. One message delivers one event, in their order, and never inside a call of the
// program. A receiver may run a message loop of its own: that one delivers the next events.
class CEventQueue final : public IMessageReceiver, public std::enable_shared_from_this<CEventQueue> {
public:
    CEventQueue() : m_window(*this) {}
    void Add(Delivery delivery) { Fill(Reserve(), std::move(delivery)); }
    // A place behind all others, for an event that is still being read; it and those behind it wait until it is filled. An
    // empty delivery gives the place up.
    using Place = std::shared_ptr<Delivery>;
    Place Reserve();
    void Fill(const Place& place, Delivery delivery);
    // Borrowed; null for nobody: events then end here.
    void SetReceiver(ICharacterEngineEvents* receiver) { m_receiver = receiver; }
    // Nothing is delivered any more.
    void Close();
    bool Receive(UINT message, WPARAM wParam) override;

private:
    bool NextIsReady() const { return !m_deliveries.empty() && *m_deliveries.front(); }
    void Announce();
    void DeliverNext();

    std::deque<Place> m_deliveries;
    ICharacterEngineEvents* m_receiver = nullptr;
    bool m_announced = false;  // A message is on its way.
    bool m_closed = false;
    CMessageWindow m_window;
};
using EventQueueRef = std::shared_ptr<CEventQueue>;

}
