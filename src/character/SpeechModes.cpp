#include "base/text/Case.h"
#include "character/CTTSEngines.h"
#include "character/CharacterState.h"
#include "character/bParlune.h"
#include "common/zbErrorTrap.h"
#include "platform/EventPump.h"
#include "platform/Platform.h"
#include "ui/frmParlune.h"

namespace {

constexpr char Module[] = "bParlune";

std::string BareModeID(const std::string& modeID)
{
    const std::string upper = text::Upper(modeID);
    std::string_view bare = upper;
    if (bare.starts_with('{'))
        bare.remove_prefix(1);
    if (bare.ends_with('}'))
        bare.remove_suffix(1);
    return std::string(bare);
}

const std::string& ModeIDOfEntry(std::int32_t index)
{
    return SpeechCatalogue().ModeID(MainWindow().lstTTS.ItemData(index));
}

// Deliberate: of several entries with the voice, the last one stays selected.
void SelectEntriesOf(const std::string& modeID)
{
    const std::string bareModeID = BareModeID(modeID);
    ui::CListBox& list = MainWindow().lstTTS;
    for (std::int32_t index = 0; index < list.Count(); ++index)
        if (BareModeID(ModeIDOfEntry(index)) == bareModeID)
            list.SetIndex(index);
}

}

std::string bParlune::GetSelectedTTSModeID()
{
    const zbErrorTrap::CGuard guard(Module, "GetSelectedTTSModeID");
    std::string modeID;
    guard([&] {
        const std::int32_t selected = MainWindow().lstTTS.Index();
        if (selected >= 0)
            modeID = ModeIDOfEntry(selected);
    });
    return modeID;
}

void bParlune::SetTTSModeID()
{
    const zbErrorTrap::CGuard guard(Module, "SetTTSModeID");
    guard([] {
        SelectEntriesOf(character::Current().TTSModeID());
        ui::CListBox& list = MainWindow().lstTTS;
        if (list.Count() > 0 && list.Index() == -1)
            list.SetIndex(0);
        platform::Current().events.RunPendingEvents();
    });
}

void bParlune::CharSetTTSModeID(const std::string& modeID)
{
    zbErrorTrap::IgnoreFailure([&] { character::Current().SetTTSModeID(modeID); });
}
