#pragma once
#include "engine/Host.h"
#include <functional>
#include <utility>

namespace engine {

// One timer that dies with its owner. Starting it anew replaces what it waited for.
class CTimer {
public:
    explicit CTimer(ITimers& timers) : m_timers(timers) {}
    ~CTimer() { Stop(); }
    CTimer(const CTimer&) = delete;
    CTimer& operator=(const CTimer&) = delete;

    void Start(std::int32_t milliseconds, std::function<void()> call)
    {
        Stop();
        m_call = std::move(call);
        m_id = m_timers.CallLater(milliseconds, [this] { Run(); });
    }
    void Stop()
    {
        if (m_id != 0)
            m_timers.Cancel(std::exchange(m_id, 0));
        m_call = nullptr;
    }
    bool Running() const { return m_id != 0; }

private:
    void Run()
    {
        m_id = 0;
        const std::function<void()> call = std::exchange(m_call, nullptr);
        call();  // May start this timer again or destroy it.
    }

    ITimers& m_timers;
    TimerID m_id = 0;
    std::function<void()> m_call;
};

}
