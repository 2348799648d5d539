#include "engine/session/GuardedHost.h"
#include "engine/base/Failures.h"
#include <utility>

namespace engine {

TimerID CGuardedTimers::CallLater(std::int32_t milliseconds, std::function<void()> call)
{
    return m_timers.CallLater(milliseconds, [weak = std::weak_ptr(m_failed), call = std::move(call)] {
        try {
            call();
        } catch (const platform::CProgramEnded&) {
            throw;
        } catch (...) {
            if (const auto failed = weak.lock())
                (*failed)(NumberOfFailure());
            throw;
        }
    });
}

}
