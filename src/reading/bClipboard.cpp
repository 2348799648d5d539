#include "reading/bClipboard.h"
#include "common/ProgramState.h"
#include "common/zbErrorTrap.h"
#include "platform/Clipboard.h"
#include "platform/Platform.h"
#include "reading/bRead.h"

namespace {

using platform::Current;
using zbErrorTrap::IgnoreFailure;

struct MonitorState {
    bool monitoring = false;
    bool busy = false;  // Inside SetClipboardMonitor.
};

MonitorState& State() { return common::StateOf<MonitorState>(); }

void ClipboardChanged()
{
    if (State().monitoring)
        bRead::ReadClipboard();
}

// Whether the system lets us watch is not checked: the user's choice holds either way.
void SwitchTo(bool enable)
{
    if (enable == State().monitoring)
        return;
    if (enable)
        IgnoreFailure([] { Current().clipboard.Watch(ClipboardChanged); });
    else
        IgnoreFailure([] { Current().clipboard.StopWatching(); });
    State().monitoring = enable;
}

}

void bClipboard::SetClipboardMonitor(bool enable)
{
    if (State().busy)
        return;
    State().busy = true;
    SwitchTo(enable);
    State().busy = false;
}

bool bClipboard::Monitoring() { return State().monitoring; }
