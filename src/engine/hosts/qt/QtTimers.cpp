#include "engine/hosts/qt/QtTimers.h"
#include "engine/hosts/qt/SteadyClock.h"
#include <algorithm>
#include <chrono>

namespace engine {

CQtTimers::CQtTimers()
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { RunDueCalls(); });
}

std::int64_t CQtTimers::NowMilliseconds() const { return SteadyMicroseconds() / 1000; }

TimerID CQtTimers::CallLater(std::int32_t milliseconds, std::function<void()> call)
{
    const TimerID timer = ++m_lastTimer;
    const std::int64_t due = SteadyMicroseconds() + std::int64_t{std::max(milliseconds, 0)} * 1000;
    m_due.emplace(timer, due);
    m_calls.emplace(Key(due, timer), std::move(call));
    if (m_calls.begin()->first.second == timer)
        Arm();
    return timer;
}

void CQtTimers::Cancel(TimerID timer)
{
    const auto found = m_due.find(timer);
    if (found == m_due.end())
        return;
    m_calls.erase(Key(found->second, timer));
    m_due.erase(found);
    if (m_calls.empty())
        m_timer.stop();
}

void CQtTimers::Arm()
{
    if (m_calls.empty())
        return m_timer.stop();
    const std::int64_t wait = m_calls.begin()->first.first - SteadyMicroseconds();
    m_timer.start(std::chrono::milliseconds(std::max<std::int64_t>((wait + 999) / 1000, 0)));
}

// Calls asked for by the calls that run here wait for the next turn of the loop, or a call that renews itself with no
// delay would never let the loop go on.
void CQtTimers::RunDueCalls()
{
    const std::int64_t now = SteadyMicroseconds();
    const TimerID last = m_lastTimer;
    while (RunNext(now, last)) {
    }
}

// Runs the first call if it is due. The timer is set for the others before, because the call may run an event loop of its
// own, for a box, in which they are to go on.
bool CQtTimers::RunNext(std::int64_t due, TimerID last)
{
    const auto first =
        std::find_if(m_calls.begin(), m_calls.end(), [last](const auto& call) { return call.first.second <= last; });
    if (first == m_calls.end() || first->first.first > due) {
        Arm();
        return false;
    }
    const std::function<void()> call = std::move(first->second);
    m_due.erase(first->first.second);
    m_calls.erase(first);
    Arm();
    call();
    return true;
}

}
