#include "base/text/Text.h"
#include "character/CharacterState.h"
#include "common/Version.h"
#include "common/bGlobal.h"
#include "common/zbErrorTrap.h"
#include "common/zbGetFiles.h"
#include "platform/EventPump.h"
#include "platform/MessageBoxes.h"
#include "platform/Platform.h"
#include "settings/Paths.h"
#include "startup/bInit.h"
#include "ui/frmParlune.h"

namespace {

using platform::Current;

// The name up to the first ".acs" in any case; "" when there is nothing before it.
std::string DisplayedName(const std::string& fileName)
{
    const std::size_t end = text::FindIgnoringCase(fileName, ".acs");
    return end == std::string::npos ? std::string() : bGlobal::ProperCase(fileName.substr(0, end));
}

void AddCharacter(const std::string& fileName)
{
    const std::string name = DisplayedName(fileName);
    if (!name.empty())
        MainWindow().cboChar.Add(name);
}

void TellThatThereAreNone()
{
    Current().messageBoxes.Show({"Parlune is unable to find any .ACS character files in your\r\n" +
                                     settings::Paths().characterFolder + " character folder.",
                                 version::Title, platform::BoxButtons::Ok, platform::BoxIcon::Exclamation});
}

}

void bInit::InitCharacters()
{
    const zbErrorTrap::CGuard guard("bInit", "InitCharacters");
    std::vector<std::string> files;
    std::int32_t count = 0;

    guard([&] { MainWindow().cboChar.Add(character::DefaultName); });
    guard([&] { zbGetFiles::GetFiles(settings::Paths().characterFolder + "*.acs", files, count); });
    for (const std::string& file : files) {
        guard([&] { Current().events.RunPendingEvents(); });
        guard([&] { AddCharacter(file); });
    }
    if (count == 0)
        guard(TellThatThereAreNone);
    guard([&] { Current().events.RunPendingEvents(); });
}
