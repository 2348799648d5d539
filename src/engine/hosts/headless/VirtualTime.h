#pragma once
#include "engine/Host.h"
#include <map>
#include <set>
#include <utility>

namespace engine {

// Timers on a clock that only the test moves.
class CVirtualTime final : public ITimers {
public:
    std::int64_t NowMilliseconds() const override { return m_now; }
    TimerID CallLater(std::int32_t milliseconds, std::function<void()> call) override;
    void Cancel(TimerID timer) override;

    // Lets so much time pass; runs what falls due, in order.
    void Advance(std::int64_t milliseconds);
    // Runs timer after timer until none is left, or until so much time has passed. True when none is left.
    bool RunUntilIdle(std::int64_t mostMilliseconds);
    // Runs the timers that are due without letting time pass.
    void RunDue() { Advance(0); }
    bool HasDue() const { return !m_calls.empty() && m_calls.begin()->first.first <= m_now; }
    // Lets so much time pass in which nothing runs, as when the program is held up: what falls due is late.
    void HoldUp(std::int64_t milliseconds) { m_now += milliseconds; }
    std::size_t Waiting() const { return m_calls.size(); }
    std::uint64_t CallsMade() const { return m_made; }

private:
    using Key = std::pair<std::int64_t, TimerID>;
    void RunFirst();

    std::int64_t m_now = 0;
    TimerID m_last = 0;
    std::uint64_t m_made = 0;
    std::map<Key, std::function<void()>> m_calls;  // By due time, then in the order of their making.
    std::map<TimerID, std::int64_t> m_due;
};

}
