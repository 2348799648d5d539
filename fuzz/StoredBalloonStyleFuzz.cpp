#include "DressedCharacter.h"
#include "character/CharacterSession.h"
#include "character/bParlune.h"

// A stored balloon style of any content: only a text of ten characters may change the boxes, and what the tab then shows
// makes a style word of ten characters again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    DressedCharacter dressed;
    dressed.Store("BalloonStyle", {data, size});
    character::CharLoad("", /*show*/ false);

    const frmParlune& window = MainWindow();
    if (size < 10)
        for (const ui::CCheckBox& box : window.chkBalloon)
            Require(box.Value() == 0);
    const std::string style = bParlune::GetBalloonStyle();
    Require(style.empty() || style.size() == 10);
    Require(character::State().loaded);
    return 0;
}
