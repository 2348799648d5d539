#include "reading/bRead.h"
#include "startup/WiringParts.h"

namespace startup {

void WireEditor(frmParlune& window) { window.mnuFileRead.onClick = bRead::ReadText; }

}
