#include "common/zbErrorTrap.h"
#include "startup/WiringParts.h"
#include "ui/KeptText.h"
#include "ui/TextEditor.h"

namespace startup {

void WireEditor(frmParlune& window)
{
    window.mnuFileNew.onClick = textEditor::mnuFileNew_Click;
    window.mnuFileOpen.onClick = textEditor::mnuFileOpen_Click;
    window.mnuFileSave.onClick = textEditor::mnuFileSave_Click;
    window.mnuFileRead.onClick = textEditor::mnuFileRead_Click;
    window.mnuFileStop.onClick = textEditor::mnuFileStop_Click;
    window.mnuFileClose.onClick = textEditor::mnuFileClose_Click;
    window.tlbToolbar.onButtonClick = textEditor::tlbToolbar_ButtonClick;
    window.txtRead.onChange = textEditor::txtRead_Change;
    keptText::Follow();
    zbErrorTrap::BeforeEnd(keptText::KeepForNextStart);
}

}
