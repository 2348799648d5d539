#include "character/CharacterProperties.h"
#include "character/CharLoadSteps.h"
#include "character/CharacterState.h"
#include "common/Numbers.h"
#include "common/ProgramState.h"
#include "common/zbErrorTrap.h"
#include "ui/BalloonTab.h"

namespace character {
namespace {

struct Snapshot {
    bool saved = false;
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::string balloonFontName;
    std::string balloonFontSize;
    std::int32_t balloonStyle = 0;
    std::string ttsModeID;
};

Snapshot& Kept() { return common::StateOf<Snapshot>(); }

std::int16_t Pixels(std::int32_t pixels) { return text::ToInt16(static_cast<double>(pixels)); }

}

void SaveCharProperties()
{
    Snapshot& kept = Kept();
    if (kept.saved)
        return;
    kept.saved = true;
    const zbErrorTrap::CGuard guard(SessionModule, "SaveCharProperties");
    guard([&] { kept.width = Current().Width(); });
    guard([&] { kept.height = Current().Height(); });
    guard([&] { kept.balloonFontName = Current().Balloon()->FontName(); });
    guard([&] { kept.balloonFontSize = std::to_string(Current().Balloon()->FontSize()); });
    guard([&] { kept.balloonStyle = Current().Balloon()->Style(); });
    guard([&] { kept.ttsModeID = Current().TTSModeID(); });
}

void RestoreCharProperties()
{
    const Snapshot& kept = Kept();
    const zbErrorTrap::CGuard guard(SessionModule, "RestoreCharProperties");
    guard([&] { Current().SetWidth(Pixels(kept.width)); });
    guard([&] { Current().SetHeight(Pixels(kept.height)); });
    guard([&] { Current().Balloon()->SetFontName(kept.balloonFontName); });
    guard([&] { Current().Balloon()->SetFontSize(text::ToInt32(kept.balloonFontSize)); });
    guard([&] { Current().Balloon()->SetStyle(kept.balloonStyle); });
    guard([&] { Current().SetTTSModeID(kept.ttsModeID); });
    guard(balloonTab::Refresh);
}

}
