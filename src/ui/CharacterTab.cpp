#include "ui/CharacterTab.h"
#include "character/CharacterSession.h"
#include "character/CharacterState.h"
#include "common/bGlobal.h"
#include "common/zbErrorTrap.h"
#include "common/zbGetFileName.h"
#include "settings/OptionsRecord.h"
#include "settings/Paths.h"
#include "settings/bOptions.h"
#include "ui/frmParlune.h"

namespace characterTab {
namespace {

using character::Current;
using character::State;
using zbErrorTrap::IgnoreFailure;

constexpr char Module[] = "Parlune";

platform::ICharacterEngine& Engine()
{
    if (!State().engine)
        throw platform::failure::ObjectNotSet();
    return *State().engine;
}

// The name that the character was loaded by; "" while none is loaded.
std::string LoadedIdentity() { return State().loaded ? Current().Name() : std::string(); }

void LoadDefaultOrChooseIt()
{
    if (LoadedIdentity() == character::DefaultName)
        cmdSetDefault_Click();
    else
        character::CharLoad(character::DefaultName, /*show*/ true);
}

void LoadListed(const std::string& entry)
{
    if (entry == character::DefaultName)
        LoadDefaultOrChooseIt();
    else
        character::CharLoad(entry, /*show*/ true);
}

std::string FirstFolder()
{
    const std::string& last = settings::Options().LastCharFolder;
    return last.empty() ? settings::Paths().characterFolder : last;
}

std::string AskForCharacter()
{
    return zbGetFileName::GetFileName("OPEN", "Agent Characters (*.acs)|*.acs", 1, FirstFolder(), "", "ACS",
                                      "Select Agent Character");
}

}

void ShowLoadedCharacter()
{
    if (!State().loaded)
        return;
    const std::string shown = bGlobal::FileNamePart(LoadedIdentity());
    ui::CComboBox& list = MainWindow().cboChar;
    if (list.Text() == shown)
        return;
    if (list.Find(shown) < 0)
        list.Add(shown);
    list.SetText(shown);
}

void cmdLoadChar_Click()
{
    const zbErrorTrap::CGuard guard(Module, "cmdLoadChar_Click");
    guard([] { LoadListed(MainWindow().cboChar.Text()); });
    guard(ShowLoadedCharacter);
}

void cboBrowseChar_Click()
{
    const zbErrorTrap::CGuard guard(Module, "cboBrowseChar_Click");
    std::string file;

    guard([&] { file = AskForCharacter(); });
    if (file.empty())
        return;
    guard([&] { settings::Options().LastCharFolder = bGlobal::FolderPart(file); });
    guard([&] { character::CharLoad(file, /*show*/ true); });
    guard(ShowLoadedCharacter);
}

void cmdSaveCurrentPos_Click()
{
    if (!State().loaded)
        return;
    const zbErrorTrap::CGuard guard(Module, "cmdSaveCurrentPos_Click");
    settings::OptionsRecord& options = settings::Options();

    guard([&] { options.CharLeft = Current().Left(); });
    guard([&] { options.CharTop = Current().Top(); });
    guard([&] { bOptions::SetOption("CharLeft", options.CharLeft); });
    guard([&] { bOptions::SetOption("CharTop", options.CharTop); });
}

void chkSavePosOnClose_Click()
{
    const zbErrorTrap::CGuard guard(Module, "chkSavePosOnClose_Click");
    guard([] { MainWindow().cmdSaveCurrentPos.SetEnabled(!MainWindow().chkSavePosOnClose.Ticked()); });
}

void chkIdleOn_Click()
{
    IgnoreFailure([] { Current().SetIdleOn(MainWindow().chkIdleOn.Ticked()); });
}

void chkSoundEffectsOn_Click()
{
    IgnoreFailure([] { Current().SetSoundEffectsOn(MainWindow().chkSoundEffectsOn.Ticked()); });
}

void cmdCharacterOptions_Click()
{
    IgnoreFailure([] { Engine().SetPropertySheetVisible(true); });
}

void cmdSetDefault_Click()
{
    IgnoreFailure([] { Engine().ShowDefaultCharacterProperties(); });
}

}
