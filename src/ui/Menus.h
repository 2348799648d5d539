#pragma once

namespace ui {

// Sets the menus to a shown or hidden character, then re-evaluates the announcement timer.
void RefreshMenu(bool shown);
// The announcement timer runs exactly while announcements are switched on. Failures are ignored.
void ReevaluateTimer();

}
