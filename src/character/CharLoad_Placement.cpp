#include "character/CharLoadSteps.h"
#include "character/CharacterState.h"
#include "common/Numbers.h"
#include "common/bGlobal.h"
#include "common/zbErrorTrap.h"
#include "settings/OptionsRecord.h"
#include "ui/frmParlune.h"

namespace character {
namespace {

constexpr std::int32_t CornerDistance = 50;

zbErrorTrap::CGuard Guard() { return {SessionModule, "CharLoad"}; }

std::int16_t Pixels(std::int32_t pixels) { return text::ToInt16(static_cast<double>(pixels)); }

// One direction of the screen.
struct Span {
    std::int32_t position;
    std::int32_t size;
};

std::int32_t OnCentreOf(const Span& former, std::int32_t size) { return former.position + former.size / 2 - size / 2; }

// Half of the character may stand off the screen; beyond that it is pulled back as a whole.
std::int32_t PulledBack(const Span& character, std::int32_t screen)
{
    if (character.position < -(character.size / 2))
        return 0;
    if (character.position > screen - character.size / 2)
        return screen - character.size;
    return character.position;
}

}

void CharLoad_CustomSize()
{
    frmParlune& window = MainWindow();
    if (window.chkCustomSize.Value() == 1) {
        Guard()([] { Current().SetWidth(Pixels(settings::Options().CharWidth)); });
        Guard()([] { Current().SetHeight(Pixels(settings::Options().CharHeight)); });
    }
    Guard()([&] { window.txtSize[0].SetText(std::to_string(Current().Width())); });
    Guard()([&] { window.txtSize[1].SetText(std::to_string(Current().Height())); });
}

void CharLoad_Placement(const std::optional<ScreenFrame>& former)
{
    settings::OptionsRecord& options = settings::Options();
    std::int32_t width = 0;
    std::int32_t height = 0;
    Guard()([&] { width = Current().Width(); });
    Guard()([&] { height = Current().Height(); });
    const std::int32_t screenWidth = bGlobal::ScreenWidth();
    const std::int32_t screenHeight = bGlobal::ScreenHeight();

    if (options.CharLeft == -1 && options.CharTop == -1) {
        options.CharLeft = screenWidth - width - CornerDistance;
        options.CharTop = screenHeight - height - CornerDistance;
    } else if (former) {
        options.CharLeft = OnCentreOf({former->left, former->width}, width);
        options.CharTop = OnCentreOf({former->top, former->height}, height);
    }
    options.CharLeft = PulledBack({options.CharLeft, width}, screenWidth);
    options.CharTop = PulledBack({options.CharTop, height}, screenHeight);
    Guard()([&] { Current().MoveTo(Pixels(options.CharLeft), Pixels(options.CharTop), std::nullopt); });
}

}
