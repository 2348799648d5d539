#pragma once
#include "platform/windows/Win32.h"

namespace platform::windowsdesktop {

// The window of this thread that a modal window belongs to: the active one, or the uppermost other that the user can see and
// use; null when there is none.
HWND OwnerForModalWindow();

}
