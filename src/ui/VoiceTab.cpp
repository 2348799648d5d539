#include "ui/VoiceTab.h"
#include "character/CharacterProperties.h"
#include "character/CharacterState.h"
#include "character/bParlune.h"
#include "common/zbErrorTrap.h"
#include "settings/bOptions.h"
#include "ui/VoiceModifiers.h"
#include "ui/frmParlune.h"

namespace voiceTab {
namespace {

using character::Current;
using zbErrorTrap::CGuard;

constexpr char Module[] = "Parlune";
constexpr char Welcome[] = "Welcome to Parlune from Tarrowind Technologies!";
enum Page { TTSVoice, Modifiers };
enum Button { Test, ResetToDefault, Set };

bool ModifiersShown() { return MainWindow().tabTTS.Selected() == Modifiers; }

void FillEmptyTestText()
{
    ui::CTextBox& box = MainWindow().txtTestText;
    if (box.Text().find_first_not_of(" \t\r\n") == std::string::npos)
        box.SetText(Welcome);
}

void TestVoice(const CGuard& guard)
{
    guard([] { character::SaveCharProperties(); });
    guard([] { bParlune::CharSetTTSModeID(bParlune::GetSelectedTTSModeID()); });
    guard([] { bParlune::CharSpeak(MainWindow().txtTestText.Text(), "", /*isTest*/ true); });
}

void TestModifiers(const CGuard& guard)
{
    guard([] { bParlune::CharSpeak(MainWindow().txtTestText.Text()); });
}

void SetVoice(const CGuard& guard)
{
    std::string modeID;
    guard([&] { modeID = bParlune::GetSelectedTTSModeID(); });
    guard([&] { bOptions::SetCharOption("TTSModeID", modeID); });
    guard([&] { bParlune::CharSetTTSModeID(modeID); });
    guard([] { bParlune::CharSpeak("Voice Changed."); });
}

void SetModifiers(const CGuard& guard)
{
    guard([] { voiceModifiers::Store(); });
}

void ResetVoice(const CGuard& guard)
{
    guard([] { bOptions::SetCharOption("TTSModeID", ""); });
    guard([] { bParlune::CharSetTTSModeID(character::State().defaults.ttsModeID); });
    guard([] { bParlune::SetTTSModeID(); });
}

void PressTest(const CGuard& guard)
{
    if (ModifiersShown())
        TestModifiers(guard);
    else
        TestVoice(guard);
}

void PressReset(const CGuard& guard)
{
    if (ModifiersShown())
        voiceModifiers::Reset(guard);
    else
        ResetVoice(guard);
    guard([] { bParlune::CharSpeak("Voice Options are now Reset."); });
}

void PressSet(const CGuard& guard)
{
    if (ModifiersShown())
        SetModifiers(guard);
    else
        SetVoice(guard);
}

}

void tabTTS_Click()
{
    const CGuard guard(Module, "tabTTS_Click");
    guard([] { MainWindow().fraTTS.SetVisible(!ModifiersShown()); });
    guard([] { MainWindow().fraVoiceModifiers.SetVisible(ModifiersShown()); });
}

void cmdTTSVoice_Click(std::int32_t index)
{
    const CGuard guard(Module, "cmdTestVoice_Click");
    if (index == Test)
        guard(FillEmptyTestText);
    if (!character::State().current) {  // The steps would fail one by one, and keep a look that is none.
        guard(Current);
        return;
    }
    if (index == Test)
        PressTest(guard);
    else if (index == ResetToDefault)
        PressReset(guard);
    else if (index == Set)
        PressSet(guard);
}

void lstTTS_DblClick() { cmdTTSVoice_Click(Test); }

void sldAdvSpeak_Change(std::int32_t index)
{
    const CGuard guard(Module, "sldAdvSpeak_Change");
    guard([&] { MainWindow().lblAdvSpeak[index].SetCaption(std::to_string(MainWindow().sldAdvSpeak[index].Value())); });
}

}
