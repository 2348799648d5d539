#include "ui/MenuBar.h"
#include "common/Version.h"
#include "common/WebAddresses.h"
#include "common/zbErrorTrap.h"
#include "common/zbShellEx.h"
#include "platform/Files.h"
#include "platform/MessageBoxes.h"
#include "platform/Platform.h"
#include "settings/OptionsJournal.h"
#include "settings/OptionsRecord.h"
#include "settings/Paths.h"
#include "settings/bOptions.h"
#include "settings/zbRegistry.h"
#include "ui/frmParlune.h"

using zbErrorTrap::IgnoreFailure;

namespace {

constexpr char Module[] = "Parlune";
constexpr std::int32_t AboutTab = 6;

bool ConfirmsReset()
{
    const platform::MessageBox question{
        .text = "Are you sure you want to reset all options\r\nto their original installation defaults?",
        .title = version::Title,
        .buttons = platform::BoxButtons::YesNo,
        .icon = platform::BoxIcon::Exclamation,
        .secondButtonIsDefault = true};
    return platform::Current().messageBoxes.Show(question) == platform::BoxAnswer::Yes;
}

void TellOfReset()
{
    platform::Current().messageBoxes.Show(
        {.text = "All options have been reset to their original installation defaults.\r\n\r\nPlease restart Parlune.",
         .title = version::Title,
         .buttons = platform::BoxButtons::Ok,
         .icon = platform::BoxIcon::Information});
}

// Deliberate: the file beside the program, also where the options are read from the user's own folder.
void PutSettingsFileAside()
{
    const std::string folder = settings::Paths().programFolder;
    IgnoreFailure([&] { platform::Current().files.Delete(folder + "Parlune.old"); });
    IgnoreFailure([&] { platform::Current().files.Rename(folder + "Parlune.ini", folder + "Parlune.old"); });
}

}

void menuBar::mnuDownloadCharacters_Click() { zbShellEx::ShellEx(web::Characters); }

void menuBar::mnuDownloadTTSEngines_Click() { zbShellEx::ShellEx(web::SpeechEngines); }

void menuBar::frmHelpAbout_Click()
{
    const zbErrorTrap::CGuard guard(Module, "frmHelpAbout_Click");
    guard([] { MainWindow().tabMain.Select(AboutTab); });
}

void menuBar::mnuFileResetDefaults_Click()
{
    const zbErrorTrap::CGuard guard(Module, "mnuFileResetDefaults_Click");
    bool confirmed = false;
    guard([&] { confirmed = ConfirmsReset(); });
    if (!confirmed)
        return;
    PutSettingsFileAside();
    optionsJournal::Forget();
    IgnoreFailure([] { zbRegistry::DelReg(zbRegistry::Root::CurrentUser, bOptions::OptionKey, ""); });
    settings::Options().Reset = true;
    IgnoreFailure([] { TellOfReset(); });
    IgnoreFailure([] { MainWindow().Unload(ui::UnloadMode::Code); });
}
