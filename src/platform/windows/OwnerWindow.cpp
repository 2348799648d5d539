#include "platform/windows/OwnerWindow.h"

namespace platform::windowsdesktop {
namespace {
bool CanOwn(HWND window) { return window != nullptr && IsWindowVisible(window) && IsWindowEnabled(window); }

// Tool tips, drop-down lists and the like are no owners: they have no caption.
BOOL CALLBACK TakeIfItCanOwn(HWND window, LPARAM found)
{
    if (!CanOwn(window) || (GetWindowLongW(window, GWL_STYLE) & WS_CAPTION) != WS_CAPTION)
        return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}
}

HWND OwnerForModalWindow()
{
    const HWND active = GetActiveWindow();
    if (CanOwn(active))
        return active;
    HWND found = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), TakeIfItCanOwn, reinterpret_cast<LPARAM>(&found));
    return found;
}

}
