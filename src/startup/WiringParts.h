#pragma once
#include "ui/frmParlune.h"

// The main window's wiring, by subject.
namespace startup {

void WireTabs(frmParlune& window);    // The option controls of every tab.
void WireMenus(frmParlune& window);   // Menus, the icon's window and the announcement timer.
void WireEditor(frmParlune& window);  // The text editor and its toolbar.

}
