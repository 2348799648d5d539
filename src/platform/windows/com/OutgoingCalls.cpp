#include "platform/windows/com/OutgoingCalls.h"
#include <atomic>
#include <cstdint>
#include <utility>
#include <vector>

namespace platform::windowsdesktop::com {
namespace {

constexpr UINT FullQueueMilliseconds = 10;
constexpr std::int64_t WatchMilliseconds = 1000;
constexpr std::int64_t TicksAMillisecond = 10000;  // Of the system's times.

thread_local int callDepth = 0;
thread_local bool watched = false;
thread_local std::vector<std::pair<HWND, UINT>> owedMessages;

// Shared with the thread of the timer.
std::atomic<bool> inWatchedCall = false;
std::atomic<bool> timerRuns = false;
std::atomic<HWND> watchWindow = nullptr;
std::atomic<UINT> watchMessage = 0;
PTP_TIMER watchTimer = nullptr;

void RunTimer()
{
    ULARGE_INTEGER soon{};
    soon.QuadPart = static_cast<ULONGLONG>(-WatchMilliseconds * TicksAMillisecond);  // Negative: from now on.
    FILETIME due{soon.LowPart, soon.HighPart};
    SetThreadpoolTimer(watchTimer, &due, static_cast<DWORD>(WatchMilliseconds), 0);
}

// It is left running over the next calls: most are far too short for a timer of their own.
void RunTimerOnce()
{
    if (!timerRuns.exchange(true))
        RunTimer();
}

void StopTimer()
{
    SetThreadpoolTimer(watchTimer, nullptr, 0, 0);
    timerRuns = false;
    if (inWatchedCall)  // It began in this moment and took the timer for running.
        RunTimerOnce();
}

void CALLBACK Tick(PTP_CALLBACK_INSTANCE, void*, PTP_TIMER)
{
    if (inWatchedCall)
        PostMessageW(watchWindow, watchMessage, 0, 0);
    else
        StopTimer();
}

void Post(HWND window, UINT message)
{
    if (!PostMessageW(window, message, 0, 0))
        SetTimer(window, message, FullQueueMilliseconds, nullptr);
}

void PostOwedMessages()
{
    for (const auto& [window, message] : std::exchange(owedMessages, {}))
        Post(window, message);
}

}

COutgoingCall::COutgoingCall()
{
    if (callDepth++ > 0 || !watched)
        return;
    inWatchedCall = true;
    RunTimerOnce();
}

COutgoingCall::~COutgoingCall()
{
    if (--callDepth > 0)
        return;
    if (watched)
        inWatchedCall = false;
    if (!owedMessages.empty())
        PostOwedMessages();
}

bool COutgoingCall::InProgress() { return callDepth > 0; }

void PostAfterCalls(HWND window, UINT message)
{
    if (COutgoingCall::InProgress())
        owedMessages.emplace_back(window, message);
    else
        Post(window, message);
}

CCallWatch::CCallWatch(HWND window, UINT message)
{
    watchWindow = window;
    watchMessage = message;
    watchTimer = CreateThreadpoolTimer(Tick, nullptr, nullptr);
    watched = watchTimer != nullptr;
}

CCallWatch::~CCallWatch()
{
    if (!watched)
        return;
    watched = false;
    inWatchedCall = false;
    SetThreadpoolTimer(watchTimer, nullptr, 0, 0);
    WaitForThreadpoolTimerCallbacks(watchTimer, TRUE);
    CloseThreadpoolTimer(std::exchange(watchTimer, nullptr));
    timerRuns = false;
}

}
