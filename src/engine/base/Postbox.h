#pragma once
#include "engine/base/Timer.h"
#include <deque>
#include <functional>
#include <memory>

namespace engine {

// Calls kept for the event loop, made one by one in the order in which they were posted. A posted call may post, pump
// the event loop or destroy everything, this box included.
class CPostbox : public std::enable_shared_from_this<CPostbox> {
public:
    explicit CPostbox(ITimers& timers) : m_timer(timers) {}
    void Post(std::function<void()> call);
    // Drops what waits and stops for good.
    void Close();

private:
    void Schedule();
    void ScheduleIfPossible();
    void DeliverOne();

    CTimer m_timer;
    std::deque<std::function<void()>> m_calls;
    bool m_closed = false;
};

}
