#include "startup/bInit.h"
#include "common/Version.h"
#include "common/zbErrorTrap.h"
#include "settings/bOptions.h"
#include "settings/zbRegistry.h"
#include "ui/frmParlune.h"
#include <string>

namespace bInit {
namespace {

bool IsRegistered(const std::string& applicationClass)
{
    return !zbRegistry::GetReg(zbRegistry::Root::ClassesRoot, applicationClass + "\\CLSID", "", "").empty();
}

void SetUpMenus()
{
    frmParlune& window = MainWindow();
    const bool wordPresent = IsRegistered("Word.Application");
    const bool excelPresent = IsRegistered("Excel.Application");
    window.mnuPopup.SetVisible(false);
    window.mnuPopReadWordDocument.SetVisible(wordPresent);
    window.mnuPopReadWordSelection.SetVisible(wordPresent);
    window.mnuPopReadExcelSelection.SetVisible(excelPresent);
    window.mnuPopCharSkip.SetVisible(false);
    window.mnuPopCharPause.SetVisible(false);
}

void SelectFirstTabs()
{
    MainWindow().tabMain.Select(0);
    MainWindow().tabTTS.Select(0);
    MainWindow().tabGreetings.Select(0);
}

void ShowVersion()
{
    MainWindow().lblVersion.SetCaption("Version " + std::to_string(version::Major) + "." + std::to_string(version::Minor) +
                                       "." + std::to_string(version::Revision));
}

void AddAll(ui::CComboBox& list, std::initializer_list<const char*> entries)
{
    for (const char* entry : entries)
        list.Add(entry);
}

}

void Initialize()
{
    const zbErrorTrap::CGuard guard("bInit", "Initialize");

    guard([] { SetUpFolders(); });
    guard([] { bOptions::GetOptions(); });
    if (!MainWindow().Loaded())  // The user has closed it while the document was opened.
        return;
    guard([] { InitCharacters(); });
    if (!MainWindow().Loaded())
        return;
    guard([] { SetUpMenus(); });
    guard([] { SelectFirstTabs(); });
    guard([] { ShowVersion(); });
    guard([] {
        AddAll(MainWindow().cboSayTime,
               {"The time is now {Time}.", "Good {TimeOfDay}!  It is now {Time}.", "It is now {Time} on {Date}."});
    });
    guard([] { AddAll(MainWindow().cboSayTimeFormat, {"h:nn AM/PM", "h:nn", "hh:nn"}); });
    // Deliberate: all four go into this list, the context list stays empty.
    guard([] { AddAll(MainWindow().cboChr, {"Monotone", "Whisper", "Email", "Address"}); });
}

}
