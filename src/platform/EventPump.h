#pragma once
#include <cstdint>

namespace platform {

class IEventPump {
public:
    virtual ~IEventPump() = default;
    // Lets every pending event run and returns.
    virtual void RunPendingEvents() = 0;
    // Waits for the next events, at most so long, and lets them run.
    virtual void WaitForEvents(std::int32_t milliseconds) = 0;
};

}
