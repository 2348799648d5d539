#include "platform/windows/WindowsEventPump.h"
#include <map>
#include <utility>

namespace platform::windowsdesktop {
namespace {
// A window that posts to itself without end, or a program that floods ours, must not keep the caller for ever.
constexpr int MostMessages = 10000;

// Of this thread, by the number of their timer.
std::map<UINT_PTR, std::function<void()>>& CallsDue()
{
    static std::map<UINT_PTR, std::function<void()>> calls;
    return calls;
}

void CALLBACK MakeCall(HWND, UINT, UINT_PTR timer, DWORD) noexcept
{
    KillTimer(nullptr, timer);
    if (const auto due = CallsDue().extract(timer))
        due.mapped()();
}
}

void CWindowsEventPump::Dispatch(MSG& message) const
{
    if (m_filter && m_filter(message))
        return;
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

void CWindowsEventPump::RunPendingEvents()
{
    MSG message = {};
    for (int run = 0; run < MostMessages && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0; ++run) {
        if (message.message == WM_QUIT)
            return PostQuitMessage(static_cast<int>(message.wParam));
        Dispatch(message);
    }
}

CWindowsEventPump::~CWindowsEventPump()
{
    for (const auto& [timer, call] : std::exchange(CallsDue(), {}))
        KillTimer(nullptr, timer);
}

void CWindowsEventPump::CallLater(std::int32_t milliseconds, std::function<void()> call)
{
    const UINT_PTR timer = SetTimer(nullptr, 0, static_cast<UINT>(milliseconds), MakeCall);
    if (timer != 0)
        CallsDue()[timer] = std::move(call);
}

void CWindowsEventPump::WaitForEvents(std::int32_t milliseconds)
{
    if (milliseconds > 0)
        MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(milliseconds), QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    RunPendingEvents();
}

}
