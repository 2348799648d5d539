#pragma once
#include "platform/windows/Win32.h"
#include <functional>

// The chain of clipboard viewers. The window that joins has its message procedure replaced until it leaves; one window of
// the process at a time. User-interface thread only; the results of the system's calls are not checked.
namespace platform::windowsdesktop::clipboardChain {

// `changed` is called for every later change of the clipboard, never for what it holds now. Changes nothing but `changed`
// when a window has joined already.
void Join(HWND window, std::function<void()> changed);
void Leave();
bool Joined();

// What the chain is at now; for tests.
struct State {
    bool monitoring = false;
    HWND nextViewer = nullptr;
    HWND hookedWindow = nullptr;
    LONG_PTR previousProcedure = 0;
};
const State& CurrentState();

}
