#include "base/text/Text.h"
#include "character/CharLoadSteps.h"
#include "character/CharacterState.h"
#include "common/Numbers.h"
#include "common/zbErrorTrap.h"
#include "reading/CParser.h"
#include "settings/bOptions.h"
#include "ui/frmParlune.h"
#include <algorithm>

namespace character {
namespace {

constexpr std::int32_t FieldsOfRecord = 6;
constexpr int Boxes = 5;
constexpr int Sliders = 3;

zbErrorTrap::CGuard Guard() { return {SessionModule, "CharLoad_AdvSpeechTags"}; }

std::string RecordOfCharacter()
{
    std::int32_t pitch = 0;
    std::int32_t speed = 0;
    Guard()([&] { pitch = std::clamp(Current().Pitch(), 50, 400); });
    Guard()([&] { speed = std::clamp(Current().Speed(), 50, 250); });
    return "00000," + std::to_string(pitch) + "," + std::to_string(speed) + ",32767,-1,-1";
}

// Each voice keeps modifiers of its own.
std::string StoredRecord()
{
    std::string record = RecordOfCharacter();
    std::string modeID;
    Guard()([&] { modeID = Current().TTSModeID(); });
    Guard()([&] { record = bOptions::GetCharOption(modeID.empty() ? "AdvSpeak" : modeID, record); });
    return record;
}

void ShowCharactersOwnVoice()
{
    frmParlune& window = MainWindow();
    Guard()([&] { window.sldAdvSpeak[0].SetValue(Current().Pitch()); });
    Guard()([&] { window.sldAdvSpeak[1].SetValue(Current().Speed()); });
    Guard()([&] { window.sldAdvSpeak[2].SetValue(Current().NamedNumber("Volume")); });
    Guard()([&] { window.cboChr.SetIndex(-1); });
    Guard()([&] { window.cboCtx.SetIndex(-1); });
}

int BoxValue(std::string_view digits, int box)
{
    const double digit = text::LeadingNumber(text::Mid(digits, static_cast<std::size_t>(box) + 1, 1));
    return digit == 0 ? 0 : 1;
}

void ShowRecord(const CParser& record)
{
    frmParlune& window = MainWindow();
    // The lists come first: choosing an entry ticks its box, and the record decides about the boxes.
    Guard()([&] { window.cboChr.SetIndex(text::ToInt32(record.Field(5))); });
    Guard()([&] { window.cboCtx.SetIndex(text::ToInt32(record.Field(6))); });
    for (int box = 0; box < Boxes; ++box)
        Guard()([&] { window.chkAdvSpkTags[box].SetValue(BoxValue(record.Field(1), box)); });
    for (int slider = 0; slider < Sliders; ++slider)
        Guard()([&] { window.sldAdvSpeak[slider].SetValue(text::ToInt32(record.Field(slider + 2))); });
}

void ShowSliderValues()
{
    frmParlune& window = MainWindow();
    for (int slider = 0; slider < Sliders; ++slider)
        Guard()([&] { window.lblAdvSpeak[slider].SetCaption(std::to_string(window.sldAdvSpeak[slider].Value())); });
}

}

void CharLoad_AdvSpeechTags()
{
    CParser record;
    record.ParseIt(StoredRecord(), ",");
    if (record.FieldCount() == FieldsOfRecord)
        ShowRecord(record);
    else
        ShowCharactersOwnVoice();
    ShowSliderValues();
}

}
