#include "engine/base/Postbox.h"
#include <new>

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
    ScheduleIfPossible();
    call();
    if (!m_calls.empty() && !m_timer.Running())
        Schedule();
}

void CPostbox::ScheduleIfPossible()
{
    try {
        if (!m_calls.empty())
            Schedule();
    } catch (const std::bad_alloc&) {
        m_timer.Stop();
    }
}

}
