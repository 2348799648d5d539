#pragma once
#include "engine/Host.h"
#include <QTimer>
#include <map>
#include <utility>

namespace engine {

// Timers of the event loop: one QTimer stands for the earliest call, and none runs while no call is waiting. Calls due at
// the same time come in the order in which they were asked for, one turn of the loop after they were asked for or later.
class CQtTimers final : public ITimers {
public:
    CQtTimers();
    std::int64_t NowMilliseconds() const override;
    TimerID CallLater(std::int32_t milliseconds, std::function<void()> call) override;
    void Cancel(TimerID timer) override;

private:
    using Key = std::pair<std::int64_t, TimerID>;  // Due, in microseconds; the number keeps the order.
    void Arm();
    void RunDueCalls();
    bool RunNext(std::int64_t due, TimerID last);

    std::map<Key, std::function<void()>> m_calls;
    std::map<TimerID, std::int64_t> m_due;
    TimerID m_lastTimer = 0;
    QTimer m_timer;
};

}
