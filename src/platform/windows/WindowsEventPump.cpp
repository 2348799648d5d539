#include "platform/windows/WindowsEventPump.h"

namespace platform::windowsdesktop {
namespace {
// A window that posts to itself without end, or a program that floods ours, must not keep the caller for ever.
constexpr int MostMessages = 10000;
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

void CWindowsEventPump::WaitForEvents(std::int32_t milliseconds)
{
    if (milliseconds > 0)
        MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(milliseconds), QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    RunPendingEvents();
}

}
