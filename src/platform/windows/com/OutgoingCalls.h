#pragma once
#include "platform/windows/Win32.h"

namespace platform::windowsdesktop::com {

// While one of these lives, this thread is inside a call that may leave the program. COM handles messages meanwhile, so that
// windows may be called; what must not happen inside a call has to ask here.
class COutgoingCall {
public:
    COutgoingCall();
    ~COutgoingCall();
    COutgoingCall(const COutgoingCall&) = delete;
    COutgoingCall& operator=(const COutgoingCall&) = delete;

    // Whether this thread is inside of any.
    static bool InProgress();
};

// Posts a message as soon as this thread has left all of its calls; at once when it is in none. False when it cannot be
// posted at once; a later failure stays unseen.
bool PostAfterCalls(HWND window, UINT message);

// Every second of a call, `window` of this thread gets a WM_TIMER of this id; null ends that. A waiting thread looks after
// its call only when a message arrives.
void WatchCalls(HWND window);
inline constexpr UINT_PTR CallTimer = 1;
// What that window has to call for the message.
void CallTimerTicked();

}
