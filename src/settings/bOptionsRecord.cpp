#include "character/CharacterState.h"
#include "common/Numbers.h"
#include "common/bGlobal.h"
#include "common/zbErrorTrap.h"
#include "settings/OptionTables.h"
#include "settings/OptionsRecord.h"
#include "settings/SavedOptions.h"
#include "settings/bOptions.h"
#include "settings/zbRegistry.h"
#include "ui/EditorDocument.h"

namespace {

using namespace settings::tables;
using settings::ControlOption;
using settings::OptionsRecord;
using zbErrorTrap::CGuard;

constexpr char Module[] = "bOptions";
constexpr char BrowserEntry[] = "Software\\Microsoft\\Internet Explorer\\MenuExt\\Read with Parlune";
constexpr char DefaultInterval[] = "30";  // Minutes.

// What follows the common ones in the order of loading.
constexpr ControlOption LoadedLast[] = {
    {"PlayReadAnimation", &frmParlune::chkPlayReadAnimation},
    {"SayTime", &frmParlune::chkSayTime},
    {"SayTimeText", &frmParlune::cboSayTime},
    {"SayTimeInterval", &frmParlune::cboSayTimeInterval, DefaultInterval},
    {"SayTimeFormat", &frmParlune::cboSayTimeFormat},
    {"SayTimeShowIfHidden", &frmParlune::chkSayTimeShowIfHidden},
};

std::string NumberedKey(const char* key, std::size_t index) { return key + std::to_string(index + 1); }

std::int32_t NumberOption(const char* key, const char* defaultValue)
{
    return text::ToInt32(bOptions::GetOption(key, defaultValue));
}

template <std::size_t N> void LoadControls(const CGuard& guard, frmParlune& window, const ControlOption (&options)[N])
{
    for (const ControlOption& option : options)
        guard([&] { LoadControl(window, option); });
}

void LoadRecord(const CGuard& guard, OptionsRecord& record)
{
    guard([&] { record.FirstTime = text::ToInt32(bOptions::GetOption("FirstTime", "1", /*validate*/ true)) != 0; });
    guard([&] { record.Character = bOptions::GetOption("Character", ""); });
    guard([&] { record.CharTop = NumberOption("CharTop", "-1"); });
    guard([&] { record.CharLeft = NumberOption("CharLeft", "-1"); });
    guard([&] { record.CharWidth = NumberOption("CharWidth", ""); });
    guard([&] { record.CharHeight = NumberOption("CharHeight", ""); });
}

void LoadFolders(const CGuard& guard, OptionsRecord& record)
{
    guard([&] { record.LastFolder = bOptions::GetOption("LastFolder", ""); });
    guard([&] { record.LastCharFolder = bOptions::GetOption("LastCharFolder", ""); });
}

void LoadGreetings(const CGuard& guard, frmParlune& window)
{
    for (std::size_t index = 0; index < std::size(window.txtGreeting); ++index) {
        ui::CTextBox& greeting = window.txtGreeting[index];
        ui::CComboBox& animation = window.cboAnim[index];
        guard([&] { greeting.SetText(bOptions::GetOption(NumberedKey("Greeting", index), greeting.Text())); });
        guard([&] { animation.SetText(bOptions::GetOption(NumberedKey("GreetingAnimation", index), animation.Text())); });
    }
}

void RepairInterval(ui::CComboBox& interval)
{
    if (text::LeadingNumber(interval.Text()) == 0)
        interval.SetText(DefaultInterval);
}

void LoadClipboardMonitorAgain(const CGuard& guard, frmParlune& window)
{
    guard([&] { LoadControl(window, MonitorClipboard); });
    guard([&] { window.mnuPopSayTime.SetChecked(window.chkSayTime.Ticked()); });
    guard([&] { window.mnuPopAutoReadClipboard.SetChecked(window.chkMonitorClipboard.Ticked()); });
}

// The document of the last run. Deliberate: its name is the current file's only while it is opened.
void ReopenDocument()
{
    const std::string file = bOptions::GetOption("FileName", "");
    if (!bGlobal::FileExists(file))
        return;
    ui::Document().currentFile = file;
    bOptions::OpenFile(file);
    ui::Document().currentFile.clear();
}

void LoadBrowserEntry(frmParlune& window)
{
    const std::string page = zbRegistry::GetReg(zbRegistry::Root::CurrentUser, BrowserEntry, "", "");
    window.chkIEMenu.SetValue(page.empty() ? 0 : 1);
}

// Kept for the rest of this run only.
void RememberPosition(const frmParlune& window, OptionsRecord& record)
{
    if (!window.chkSavePosOnClose.Ticked())
        return;
    zbErrorTrap::IgnoreFailure([&] { record.CharLeft = character::Current().Left(); });
    zbErrorTrap::IgnoreFailure([&] { record.CharTop = character::Current().Top(); });
}

void Save(const settings::SavedOption& option)
{
    if (option.IsWritten())
        bOptions::SetOption(option.key, option.Value());
}

}

void bOptions::GetOptions()
{
    const CGuard guard(Module, "GetOptions");
    frmParlune& window = MainWindow();
    OptionsRecord& record = settings::Options();

    guard([&] { window.Load(); });
    LoadRecord(guard, record);
    guard([&] { LoadControl(window, CustomSize); });
    LoadFolders(guard, record);
    guard([&] { LoadControl(window, UserName); });
    LoadGreetings(guard, window);
    LoadControls(guard, window, Common);
    LoadControls(guard, window, LoadedLast);
    guard([&] { RepairInterval(window.cboSayTimeInterval); });
    guard([&] { LoadControl(window, MonitorClipboard); });
    guard([] { ReopenDocument(); });
    if (!window.Loaded())  // Closed while events ran: nothing may be switched on any more.
        return;
    LoadClipboardMonitorAgain(guard, window);
    guard([&] { LoadBrowserEntry(window); });
}

void bOptions::SetOptions()
{
    const CGuard guard(Module, "SetOptions");
    frmParlune& window = MainWindow();
    OptionsRecord& record = settings::Options();
    if (record.Reset)
        return;

    guard([&] { window.Load(); });
    if (character::State().loaded)
        RememberPosition(window, record);
    settings::VisitSavedOptions([&](const settings::SavedOption& option) { guard([&] { Save(option); }); });
}
