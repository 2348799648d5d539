#include "character/OptionListHandlers.h"
#include "startup/WiringParts.h"

namespace startup {

void WireTabs(frmParlune& window)
{
    for (std::int32_t index = 0; index < 5; ++index)
        window.cboAnim[index].onClick = [index] { character::cboAnim_Click(index); };
    window.cboChr.onClick = character::cboChr_Click;
    window.cboCtx.onClick = character::cboCtx_Click;
    window.cboFontName.onClick = character::cboFontName_Click;
    window.cboFontSize.onClick = character::cboFontSize_Click;
}

}
