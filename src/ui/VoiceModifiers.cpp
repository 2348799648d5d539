#include "ui/VoiceModifiers.h"
#include "character/CharacterState.h"
#include "settings/bOptions.h"
#include "ui/frmParlune.h"

namespace voiceModifiers {
namespace {

using character::Current;

constexpr std::int32_t DefaultVolume = 32767;

// Each voice keeps modifiers of its own.
std::string RecordKey()
{
    const std::string modeID = Current().TTSModeID();
    return modeID.empty() ? "AdvSpeak" : modeID;
}

void Show(std::int32_t index, std::int32_t value)
{
    ui::CSlider& slider = MainWindow().sldAdvSpeak[index];
    slider.SetValue(value);
    MainWindow().lblAdvSpeak[index].SetCaption(std::to_string(slider.Value()));
}

}

std::string Record()
{
    const frmParlune& window = MainWindow();
    std::string record;
    for (const ui::CCheckBox& box : window.chkAdvSpkTags)
        record += box.Ticked() ? '1' : '0';
    for (const ui::CSlider& slider : window.sldAdvSpeak)
        record += "," + std::to_string(slider.Value());
    return record + "," + std::to_string(window.cboChr.Index()) + "," + std::to_string(window.cboCtx.Index());
}

void Store() { bOptions::SetCharOption(RecordKey(), Record()); }

void Reset(const zbErrorTrap::CGuard& guard)
{
    frmParlune& window = MainWindow();
    guard([] { Show(0, Current().Pitch()); });
    guard([] { Show(1, Current().Speed()); });
    guard([] { Show(2, DefaultVolume); });
    guard([&] { window.cboChr.SetIndex(-1); });
    guard([&] { window.cboCtx.SetIndex(-1); });
    for (ui::CCheckBox& box : window.chkAdvSpkTags)
        guard([&] { box.SetValue(0); });
    guard([] { bOptions::SetCharOption(RecordKey(), ""); });
}

}
