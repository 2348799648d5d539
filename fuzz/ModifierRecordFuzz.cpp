#include "DressedCharacter.h"
#include "character/CharacterSession.h"

// A stored voice-modifier record of any content: the sliders stay inside their ranges, the boxes are 0 or 1, the lists'
// selections exist, and what fails is reported.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    DressedCharacter dressed;
    dressed.Store(dressed.desktop.engine.character.ttsModeID, {data, size});
    character::CharLoad("", /*show*/ false);

    const frmParlune& window = MainWindow();
    for (const ui::CSlider& slider : window.sldAdvSpeak)
        Require(slider.Value() >= slider.Minimum() && slider.Value() <= slider.Maximum());
    for (const ui::CCheckBox& box : window.chkAdvSpkTags)
        Require(box.Value() == 0 || box.Value() == 1);
    for (int slider = 0; slider < 3; ++slider)
        Require(window.lblAdvSpeak[slider].Caption() == std::to_string(window.sldAdvSpeak[slider].Value()));
    Require(window.cboChr.Index() >= -1 && window.cboChr.Index() < window.cboChr.Count());
    Require(window.cboCtx.Index() >= -1 && window.cboCtx.Index() < window.cboCtx.Count());
    Require(character::State().loaded);
    return 0;
}
