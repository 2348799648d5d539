#pragma once

// The entries of the popup menu, which the character and the icon in the notification area show. Failures: reported as
// Parlune under the procedure's name, unless it says otherwise.
namespace popupMenu {

void mnuPopReadClipboard_Click();
void mnuPopReadTextFile_Click();  // Asks for a file.
// These three read what the application shows, or that it is not open. Failures are ignored.
void mnuPopReadWordDocument_Click();
void mnuPopReadWordSelection_Click();
void mnuPopReadExcelSelection_Click();

// The check marks invert themselves and set the box of the same option, never the other way round. The option is stored
// at once, unless all of them were reset in this run.
void mnuPopSayTime_Click();
void mnuPopAutoReadClipboard_Click();

// Shows the character, or puts it away: unloaded, unless another program shows it too. The caption tells which.
void mnuPopHide_Click();
// Ends the last line spoken; what is queued goes on. Nothing before the first line. Failures are ignored.
void mnuPopCharSkip_Click();
void mnuPopCharPause_Click();  // Ends all speech; there is no way to resume it. Failures reach the caller.
void mnuPopCharStop_Click();   // Ends all speech and rests. Failures are ignored.

}
