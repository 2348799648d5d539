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

// Posts a message to a window of this thread as soon as the thread has left all of its calls; at once when it is in none.
// While the thread's queue of messages is full, the window gets a WM_TIMER of the message's number instead, which it must
// end.
void PostAfterCalls(HWND window, UINT message);

// Whoever waits in COM for an answer looks after the call only when a message arrives. So this one posts a message to a
// window of this thread in every second of a call. One at a time.
class CCallWatch {
public:
    // Without a timer of the system, calls go unwatched.
    CCallWatch(HWND window, UINT message);
    ~CCallWatch();
    CCallWatch(const CCallWatch&) = delete;
    CCallWatch& operator=(const CCallWatch&) = delete;
};

}
