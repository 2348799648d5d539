#pragma once
#include "platform/windows/Win32.h"
#include "ui/controls/CControl.h"

namespace appwindows {

// Tells a form of a move of the mouse over what lies behind its controls: a place in pixels from the window's inside, and
// what the message says of buttons and keys.
void TellMouseMove(ui::CForm& form, WPARAM keys, POINT place);

}
