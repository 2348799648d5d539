#pragma once

namespace bClipboard {

// Watches the clipboard and reads every later change aloud, or stops doing so. A call in the state already held, or from
// inside itself, changes nothing.
void SetClipboardMonitor(bool enable);
bool Monitoring();

}
