#include "engine/base/Postbox.h"

namespace engine {

void CPostbox::Post(std::function<void()> call)
{
    if (m_closed)
        return;
    m_calls.push_back(std::move(call));
    if (!m_timer.Running())
        Schedule();
}

void CPostbox::Close()
{
    m_closed = true;
    m_timer.Stop();
    m_calls.clear();
}

void CPostbox::Schedule()
{
    m_timer.Start(0, [this] { DeliverOne(); });
}

void CPostbox::DeliverOne()
{
    const std::shared_ptr<CPostbox> keepAlive = shared_from_this();
    const std::function<void()> call = std::move(m_calls.front());
    m_calls.pop_front();
    // Before the call: it may pump the event loop and wait for the very next one.
    if (!m_calls.empty())
        Schedule();
    call();
}

}
