#include "platform/windows/ClipboardChain.h"

namespace platform::windowsdesktop::clipboardChain {
namespace {
State state;
bool isUnicode = false;  // Of the hooked window: the calls must fit it, or the system translates every message.
std::function<void()> changedCall;

LONG_PTR ReplaceProcedure(HWND window, LONG_PTR procedure)
{
    return isUnicode ? SetWindowLongPtrW(window, GWLP_WNDPROC, procedure)
                     : SetWindowLongPtrA(window, GWLP_WNDPROC, procedure);
}

LRESULT CallPrevious(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const auto previous = reinterpret_cast<WNDPROC>(state.previousProcedure);
    return isUnicode ? CallWindowProcW(previous, window, message, wParam, lParam)
                     : CallWindowProcA(previous, window, message, wParam, lParam);
}

// Deliberate: what goes on in place of lParam is the address of our copy of it.
void PassOn(UINT message, WPARAM wParam, const LPARAM& lParam)
{
    SendMessageA(state.nextViewer, message, wParam, reinterpret_cast<LPARAM>(&lParam));
}

// Inside a message that another thread waits for, the component model lets no call out: that thread is answered first.
void AnswerSender()
{
    if ((InSendMessageEx(nullptr) & (ISMEX_REPLIED | ISMEX_SEND)) == ISMEX_SEND)
        ReplyMessage(0);
}

// A copy is called, for the procedure may leave the chain. Nothing may be thrown through the system.
void TellOfChange()
{
    try {
        const std::function<void()> call = changedCall;
        if (call)
            call();
    } catch (...) {
        return;
    }
}

LRESULT CALLBACK ClipboardWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!state.monitoring)
        return CallPrevious(window, message, wParam, lParam);
    switch (message) {
    case WM_DRAWCLIPBOARD:
        AnswerSender();
        TellOfChange();
        PassOn(message, wParam, lParam);
        return 0;
    case WM_CHANGECBCHAIN:
        // Deliberate: when the next viewer leaves, the link to it stays.
        if (reinterpret_cast<HWND>(wParam) == state.nextViewer)
            state.nextViewer = reinterpret_cast<HWND>(wParam);
        else
            PassOn(message, wParam, lParam);
        return 0;
    default:
        return CallPrevious(window, message, wParam, lParam);
    }
}
}

// The system tells a new viewer of the present content at once. Then the window is not hooked yet: that is not read.
void Join(HWND window, std::function<void()> changed)
{
    changedCall = std::move(changed);
    if (state.monitoring)
        return;
    state.nextViewer = SetClipboardViewer(window);
    isUnicode = IsWindowUnicode(window) != 0;
    state.hookedWindow = window;
    state.previousProcedure = ReplaceProcedure(window, reinterpret_cast<LONG_PTR>(ClipboardWindowProc));
    state.monitoring = true;
}

void Leave()
{
    if (!state.monitoring)
        return;
    ChangeClipboardChain(state.hookedWindow, state.nextViewer);
    ReplaceProcedure(state.hookedWindow, state.previousProcedure);
    state.monitoring = false;
    changedCall = nullptr;
}

bool Joined() { return state.monitoring; }

const State& CurrentState() { return state; }

}
