#include "ui/PopupMenu.h"
#include "character/CharacterSession.h"
#include "character/CharacterState.h"
#include "character/bParlune.h"
#include "common/zbErrorTrap.h"
#include "reading/bRead.h"
#include "settings/OptionsRecord.h"
#include "settings/bOptions.h"
#include "ui/Menus.h"
#include "ui/frmParlune.h"

using character::State;
using zbErrorTrap::IgnoreFailure;

namespace {

constexpr char Module[] = "Parlune";
constexpr char HideCaption[] = "&Hide";
constexpr char ShowCaption[] = "&Show";

// The box's click procedure applies the option. After a reset nothing is stored any more in this run.
void Toggle(const char* section, ui::CMenuItem& item, ui::CCheckBox& box, const char* option)
{
    const zbErrorTrap::CGuard guard(Module, section);
    guard([&] { item.SetChecked(!item.Checked()); });
    guard([&] { box.SetValue(item.Checked() ? 1 : 0); });
    if (!settings::Options().Reset)
        guard([&] { bOptions::SetOption(option, box.Value()); });
    guard([] { ui::ReevaluateTimer(); });
}

void ReadUnlessEmpty(const std::string& text)
{
    if (!text.empty())
        bRead::ReadContents(text);
}

void ShowCharacter(const zbErrorTrap::CGuard& guard)
{
    guard([] {
        if (!State().loaded)
            character::CharLoad(settings::Options().Character, /*show*/ true);
    });
    guard([] { bParlune::CharShow(); });
    guard([] { MainWindow().mnuPopHide.SetCaption(HideCaption); });
    guard([] { ui::RefreshMenu(/*shown*/ true); });
}

// Unloading frees what the engine holds, but would take the character from other programs too.
void PutCharacterAway(const zbErrorTrap::CGuard& guard)
{
    bool shared = false;
    guard([] { MainWindow().mnuPopHide.SetCaption(ShowCaption); });
    if (State().loaded) {
        guard([&] { shared = character::Current().HasOtherClients(); });
        guard([&] { shared ? bParlune::CharHide() : bParlune::CharUnload(/*waitForHide*/ true); });
    }
    guard([] { ui::RefreshMenu(/*shown*/ false); });
}

void StopAllSpeech()
{
    State().speechRequest = State().skipTarget;
    character::Current().StopAll(std::nullopt);
}

}

void popupMenu::mnuPopReadClipboard_Click() { bRead::ReadClipboard(); }

void popupMenu::mnuPopReadTextFile_Click() { bRead::ReadTextFile(""); }

void popupMenu::mnuPopReadWordDocument_Click()
{
    IgnoreFailure([] { ReadUnlessEmpty(bRead::ReadWordDocument()); });
}

void popupMenu::mnuPopReadWordSelection_Click()
{
    IgnoreFailure([] { ReadUnlessEmpty(bRead::ReadWordSelection()); });
}

// Deliberate: an empty selection is read too, with the animations of reading.
void popupMenu::mnuPopReadExcelSelection_Click()
{
    IgnoreFailure([] { bRead::ReadContents(bRead::ReadExcelSelection()); });
}

void popupMenu::mnuPopSayTime_Click()
{
    Toggle("mnuPopSayTime_Click", MainWindow().mnuPopSayTime, MainWindow().chkSayTime, "SayTime");
}

void popupMenu::mnuPopAutoReadClipboard_Click()
{
    Toggle("mnuPopAutoReadClipboard_Click", MainWindow().mnuPopAutoReadClipboard, MainWindow().chkMonitorClipboard,
           "MonitorClipboard");
}

void popupMenu::mnuPopHide_Click()
{
    const zbErrorTrap::CGuard guard(Module, "mnuPopHide_Click");
    if (MainWindow().mnuPopHide.Caption() != HideCaption)
        ShowCharacter(guard);
    else
        PutCharacterAway(guard);
}

void popupMenu::mnuPopCharSkip_Click()
{
    if (State().skipTarget)
        IgnoreFailure([] { character::Current().Stop(State().skipTarget); });
}

// Deliberate: whatever the caption says, it stops; nothing resumes and the caption stays.
void popupMenu::mnuPopCharPause_Click()
{
    const bool offersPause = MainWindow().mnuPopCharPause.Caption().find("Pause") != std::string::npos;
    if (offersPause)
        StopAllSpeech();
    else
        StopAllSpeech();
}

void popupMenu::mnuPopCharStop_Click()
{
    bParlune::CharStop();
    bParlune::CharPlay("RestPose");
}
