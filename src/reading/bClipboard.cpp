#include "reading/bClipboard.h"
#include "common/ProgramState.h"
#include "common/zbErrorTrap.h"
#include "platform/Clipboard.h"
#include "platform/Platform.h"
#include "reading/bRead.h"
#include "ui/StatusBar.h"

namespace {

using platform::Current;
using zbErrorTrap::IgnoreFailure;

// A change during a read is read in its middle; a flood of copies must not nest without end.
constexpr int MostNestedReads = 8;

struct MonitorState {
    bool monitoring = false;
    bool busy = false;          // Inside SetClipboardMonitor.
    int reads = 0;              // Running, each in the middle of the one before.
    bool changedAgain = false;  // While as many as may be were running.
};

MonitorState& State() { return common::StateOf<MonitorState>(); }

// A clipboard that cannot say counts as secret: what is read aloud cannot be taken back.
bool HoldsSecret()
{
    bool secret = true;
    IgnoreFailure([&] { secret = Current().clipboard.IsSecret(); });
    return secret;
}

void ReadUnlessSecret()
{
    if (State().monitoring && !HoldsSecret())
        bRead::ReadClipboard();
}

// Counts a running read, however it ends.
class CReadCount {
public:
    CReadCount() { ++State().reads; }
    ~CReadCount() { --State().reads; }
    CReadCount(const CReadCount&) = delete;
    CReadCount& operator=(const CReadCount&) = delete;
};

// Of the copies that come while no further read may begin, the last one is read afterwards.
void ClipboardChangedEvent()
{
    const zbErrorTrap::CEventHandler handler;
    State().changedAgain = true;
    if (State().reads == MostNestedReads)
        return;
    const CReadCount count;
    while (State().changedAgain) {
        State().changedAgain = false;
        ReadUnlessSecret();
    }
}

// Whether the system lets us watch is not checked: the user's choice holds either way.
void SwitchTo(bool enable)
{
    if (enable == State().monitoring)
        return;
    if (enable)
        IgnoreFailure([] { Current().clipboard.Watch(ClipboardChangedEvent); });
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
    statusBar::Refresh();
}

bool bClipboard::Monitoring() { return State().monitoring; }
