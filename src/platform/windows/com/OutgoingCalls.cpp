#include "platform/windows/com/OutgoingCalls.h"
#include <utility>
#include <vector>

namespace platform::windowsdesktop::com {
namespace {

constexpr UINT CallTimerMilliseconds = 1000;

thread_local int callDepth = 0;
thread_local std::vector<std::pair<HWND, UINT>> owedMessages;
thread_local HWND watchingWindow = nullptr;
thread_local bool timerRuns = false;

// The timer is left running over the next calls, too: most are far too short for one of their own.
void StartTimer()
{
    if (watchingWindow && !timerRuns)
        timerRuns = SetTimer(watchingWindow, CallTimer, CallTimerMilliseconds, nullptr) != 0;
}

void PostOwedMessages()
{
    for (const auto& [window, message] : std::exchange(owedMessages, {}))
        PostMessageW(window, message, 0, 0);
}

}

COutgoingCall::COutgoingCall()
{
    if (callDepth++ == 0)
        StartTimer();
}

COutgoingCall::~COutgoingCall()
{
    if (--callDepth == 0 && !owedMessages.empty())
        PostOwedMessages();
}

bool COutgoingCall::InProgress() { return callDepth > 0; }

bool PostAfterCalls(HWND window, UINT message)
{
    if (!COutgoingCall::InProgress())
        return PostMessageW(window, message, 0, 0) != FALSE;
    owedMessages.emplace_back(window, message);
    return true;
}

void WatchCalls(HWND window)
{
    if (timerRuns)
        KillTimer(watchingWindow, CallTimer);
    timerRuns = false;
    watchingWindow = window;
}

void CallTimerTicked()
{
    if (COutgoingCall::InProgress())
        return;
    KillTimer(watchingWindow, CallTimer);
    timerRuns = false;
}

}
