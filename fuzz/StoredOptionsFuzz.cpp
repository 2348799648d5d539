#include "Require.h"
#include "platform/headless/Desktop.h"
#include "settings/OptionsRecord.h"
#include "settings/bOptions.h"
#include "ui/frmParlune.h"

// Stored options of any content, one a line: the first byte names the option, the rest is its value. Every box is ticked or
// not afterwards, and what was saved loads the same again.
namespace {

constexpr const char* Names[] = {
    "FirstTime",         "Character",      "CharTop",          "CharLeft",          "CharWidth",       "CharHeight",
    "LastFolder",        "LastCharFolder", "CharSize",         "UserName",          "Greeting1",       "GreetingAnimation1",
    "ShowIfHidden",      "SavePosOnClose", "StartWithWindows", "StartUpHideInTray", "IdleOn",          "SoundEffectsOn",
    "QueueReadCommands", "ReadGreeting",   "ShowSplash",       "TTSTestText",       "MinimizeOnClose", "PlayReadAnimation",
    "SayTime",           "SayTimeText",    "SayTimeInterval",  "SayTimeFormat",     "FileName",        "MonitorClipboard"};

void PutAll(CHeadlessDesktop& desktop, std::string_view lines)
{
    while (!lines.empty()) {
        const std::string_view line = lines.substr(0, lines.find('\n'));
        lines.remove_prefix(std::min(line.size() + 1, lines.size()));
        if (line.empty())
            continue;
        const char* name = Names[static_cast<std::uint8_t>(line.front()) % std::size(Names)];
        desktop.registry.PutBytes(platform::Root::CurrentUser, bOptions::OptionKey, name, std::string(line.substr(1)));
    }
}

std::string WhatIsSet()
{
    const frmParlune& window = MainWindow();
    const settings::OptionsRecord& record = settings::Options();
    std::string all;
    for (const ui::CCheckBox* box :
         {&window.chkCustomSize, &window.chkShowIfHidden, &window.chkSavePosOnClose, &window.chkStartWithWindows,
          &window.chkIdleOn, &window.chkSoundEffectsOn, &window.chkQueueReadCommands, &window.chkReadGreeting,
          &window.chkShowSplash, &window.chkMinimizeOnClose, &window.chkPlayReadAnimation, &window.chkSayTime,
          &window.chkMonitorClipboard}) {
        Require(box->Value() == 0 || box->Value() == 1);
        all += std::to_string(box->Value());
    }
    return all + " " + std::to_string(record.CharWidth) + " " + std::to_string(record.CharHeight) + " " + record.LastFolder +
           "|" + window.cboSayTimeInterval.Text() + "|" + window.cboSayTimeFormat.Text();
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    CHeadlessDesktop desktop;
    PutAll(desktop, TextOf(data, size));
    bOptions::GetOptions();
    bOptions::SetOptions();
    const std::string before = WhatIsSet();
    bOptions::GetOptions();
    Require(WhatIsSet() == before);
    return 0;
}
