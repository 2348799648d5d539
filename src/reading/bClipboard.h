#pragma once

namespace bClipboard {

// Watches the clipboard and reads every later copy of a text aloud, except one that is marked as a secret, or stops doing
// so. A copy during a read is read in its middle; of a flood, the copies that come too fast are left out, never the last.
// A call in the state already held, or from inside itself, changes nothing.
void SetClipboardMonitor(bool enable);
bool Monitoring();

}
