#pragma once
#include <cstdint>
#include <functional>

namespace platform {

class IEventPump {
public:
    virtual ~IEventPump() = default;
    // Lets every pending event run and returns.
    virtual void RunPendingEvents() = 0;
    // Waits for the next events, at most so long, and lets them run.
    virtual void WaitForEvents(std::int32_t milliseconds) = 0;
    // Has `call` made once, as an event, so much later (0: when the present event is over). Calls that are still due when
    // the program ends are forgotten. `call` throws nothing.
    virtual void CallLater(std::int32_t milliseconds, std::function<void()> call) = 0;
};

}
