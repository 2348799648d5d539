#pragma once

// The boxes that tie the program into the desktop. Both act at once; what the registry refuses is not reported, and the
// next click tries again. Other failures: reported as Parlune, under the procedure's own name.
namespace shellIntegration {

// Has the session start the program, or no longer. Other programs' entries stay as they are.
void chkStartWithWindows_Click();
// Offers "Read with Parlune" in the browser's context menu, or no longer.
void chkIEMenu_Click();

}
