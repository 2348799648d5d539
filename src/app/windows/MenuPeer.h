#pragma once
#include "platform/windows/Win32.h"
#include "ui/controls/Controls.h"
#include <initializer_list>

// The program's menus as native ones. Entries carry the identifiers of ControlIds.h and are brought up to date whenever a
// menu opens.
namespace appwindows {

// The caller destroys it, or the window to which it is given.
HMENU MakeMenuBar(const ui::CForm& form, std::initializer_list<const ui::CMenuItem*> menus);

// Shows a menu at the mouse position and returns when it has closed. The owner is told about the chosen entry. Nothing
// happens when the menu has no entry.
void PopUpMenu(HWND owner, const ui::CForm& form, const ui::CMenuItem& menu);

// For the owner's WM_INITMENUPOPUP: brings the menu that opens up to date.
void RefreshOpening(HMENU native, const ui::CForm& form);

// For the owner's WM_COMMAND: clicks the entry. False when there is none of that identifier.
bool ClickEntry(const ui::CForm& form, int id);

}
