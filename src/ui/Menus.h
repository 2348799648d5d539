#pragma once

namespace ui {

// Sets the menus to a shown or hidden character, then re-evaluates the announcement timer. The status bar follows.
void RefreshMenu(bool shown);
// The announcement timer runs exactly while announcements are switched on. Failures are ignored.
void ReevaluateTimer();
// Opens the popup menu for a click on the character: the main window comes to the front first, so that the menu closes
// when the user clicks elsewhere.
void PopUpCharacterMenu();

}
