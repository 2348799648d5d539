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
