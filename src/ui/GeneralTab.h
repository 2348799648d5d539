#pragma once

// What the boxes and buttons of the General tab do at once. Failures: reported as Parlune, under the procedure's own name.
namespace generalTab {

// Watches the clipboard exactly while the box holds 1. On a desktop that cannot be watched, the user is told so, once in
// a run and not while the options are loaded.
void chkMonitorClipboard_Click();
// Shows the character and reads the clipboard.
void cmdReadClipboard_Click();
// The announcement timer runs exactly while announcements are switched on.
void chkSayTime_Click();
void chkSayTimeShowIfHidden_Click();

// What the box last said. Deliberate: kept, and asked by nobody; an announcement always shows a hidden character.
bool ShowIfHidden();

}
