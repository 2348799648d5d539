#pragma once
#include "platform/EventPump.h"
#include "platform/windows/Win32.h"
#include <functional>

namespace platform::windowsdesktop {

// The message queue of the user-interface thread.
class CWindowsEventPump final : public IEventPump {
public:
    CWindowsEventPump() = default;
    ~CWindowsEventPump() override;
    CWindowsEventPump(const CWindowsEventPump&) = delete;
    CWindowsEventPump& operator=(const CWindowsEventPump&) = delete;
    // The wish to end the program is left in the queue, for the loop that can end it.
    void RunPendingEvents() override;
    void WaitForEvents(std::int32_t milliseconds) override;
    // Comes in the loop of a message box, too. 10 ms at least, and when nothing else is to be done.
    void CallLater(std::int32_t milliseconds, std::function<void()> call) override;

    // Asked for every message before it is dispatched; true when it was an accelerator's or a dialog key and is done with.
    void SetFilter(std::function<bool(MSG&)> filter) { m_filter = std::move(filter); }
    // What a loop does with one message.
    void Dispatch(MSG& message) const;

private:
    std::function<bool(MSG&)> m_filter;
};

}
