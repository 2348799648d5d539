#include "character/CharacterState.h"
#include "common/Numbers.h"
#include "common/bGlobal.h"
#include "common/zbErrorTrap.h"
#include "settings/OptionsRecord.h"
#include "settings/bOptions.h"
#include "settings/bOptionsControls.h"
#include "settings/zbRegistry.h"
#include "ui/EditorDocument.h"

namespace {

using settings::ControlOption;
using settings::OptionsRecord;
using zbErrorTrap::CGuard;

constexpr char Module[] = "bOptions";
constexpr char BrowserEntry[] = "Software\\Microsoft\\Internet Explorer\\MenuExt\\Read with Parlune";
constexpr char DefaultInterval[] = "30";  // Minutes.

constexpr ControlOption CustomSize{"CharSize", &frmParlune::chkCustomSize};
constexpr ControlOption UserName{"UserName", &frmParlune::txtUserName};
constexpr ControlOption MonitorClipboard{"MonitorClipboard", &frmParlune::chkMonitorClipboard, "0"};

// Loaded and saved in the same order.
constexpr ControlOption Common[] = {
    {"ShowIfHidden", &frmParlune::chkShowIfHidden},
    {"SavePosOnClose", &frmParlune::chkSavePosOnClose},
    {"StartWithWindows", &frmParlune::chkStartWithWindows},
    {"StartUpHideInTray", &frmParlune::chkStartUpHideInTray},
    {"IdleOn", &frmParlune::chkIdleOn},
    {"SoundEffectsOn", &frmParlune::chkSoundEffectsOn},
    {"ReadClipboardOnDblClick", &frmParlune::chkReadClipBoardOnDblClick},
    {"QueueReadCommands", &frmParlune::chkQueueReadCommands},
    {"ReadGreeting", &frmParlune::chkReadGreeting},
    {"ShowSplash", &frmParlune::chkShowSplash},
    {"MinimizeOnClose", &frmParlune::chkMinimizeOnClose},
    {"TTSTestText", &frmParlune::txtTestText},
};

// What follows them, in the order of loading and in that of saving.
constexpr ControlOption LoadedLast[] = {
    {"PlayReadAnimation", &frmParlune::chkPlayReadAnimation},
    {"SayTime", &frmParlune::chkSayTime},
    {"SayTimeText", &frmParlune::cboSayTime},
    {"SayTimeInterval", &frmParlune::cboSayTimeInterval, DefaultInterval},
    {"SayTimeFormat", &frmParlune::cboSayTimeFormat},
    {"SayTimeShowIfHidden", &frmParlune::chkSayTimeShowIfHidden},
};
constexpr ControlOption SavedLast[] = {
    {"SayTime", &frmParlune::chkSayTime},
    {"SayTimeInterval", &frmParlune::cboSayTimeInterval},
    {"SayTimeText", &frmParlune::cboSayTime},
    {"SayTimeFormat", &frmParlune::cboSayTimeFormat},
    {"SayTimeShowIfHidden", &frmParlune::chkSayTimeShowIfHidden},
    {"PlayReadAnimation", &frmParlune::chkPlayReadAnimation},
    MonitorClipboard,
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

template <std::size_t N> void SaveControls(const CGuard& guard, frmParlune& window, const ControlOption (&options)[N])
{
    for (const ControlOption& option : options)
        guard([&] { SaveControl(window, option); });
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

void SaveCharacter(const CGuard& guard, frmParlune& window, OptionsRecord& record)
{
    if (window.chkSavePosOnClose.Ticked()) {
        zbErrorTrap::IgnoreFailure([&] { record.CharLeft = character::Current().Left(); });
        zbErrorTrap::IgnoreFailure([&] { record.CharTop = character::Current().Top(); });
    }
    guard([&] { bOptions::SetOption("CharWidth", record.CharWidth); });
    guard([&] { bOptions::SetOption("CharHeight", record.CharHeight); });
    guard([&] { SaveControl(window, CustomSize); });
}

void SaveRecord(const CGuard& guard, frmParlune& window, const OptionsRecord& record)
{
    guard([&] { bOptions::SetOption("FirstTime", "0"); });
    guard([&] { bOptions::SetOption("Character", record.Character); });
    guard([&] { SaveControl(window, UserName); });
    guard([&] { bOptions::SetOption("LastFolder", record.LastFolder); });
    guard([&] { bOptions::SetOption("LastCharFolder", record.LastCharFolder); });
}

// Deliberate: a greeting that the user cleared keeps its stored text.
void SaveGreetings(const CGuard& guard, frmParlune& window)
{
    for (std::size_t index = 0; index < std::size(window.txtGreeting); ++index) {
        const std::string& greeting = window.txtGreeting[index].Text();
        if (!greeting.empty())
            guard([&] { bOptions::SetOption(NumberedKey("Greeting", index), greeting); });
        guard([&] { bOptions::SetOption(NumberedKey("GreetingAnimation", index), window.cboAnim[index].Text()); });
    }
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
        SaveCharacter(guard, window, record);
    SaveRecord(guard, window, record);
    SaveGreetings(guard, window);
    SaveControls(guard, window, Common);
    SaveControls(guard, window, SavedLast);
    guard([] { SetOption("FileName", ui::Document().currentFile); });
}
