#include "ui/OptionTabs.h"
#include "character/CharacterState.h"
#include "character/bParlune.h"
#include "common/ProgramState.h"
#include "common/zbErrorTrap.h"
#include "platform/Platform.h"
#include "platform/Screen.h"
#include "ui/BalloonTab.h"
#include "ui/CharacterTab.h"
#include "ui/frmParlune.h"

namespace optionTabs {
namespace {

using platform::Pointer;
using zbErrorTrap::CGuard;

constexpr char Module[] = "Parlune";
enum Tab { General, Character, Voice, Balloon, Read, Greetings, About };

struct TabState {
    Fills fills;
    bool voicesFilled = false;
    bool fontsFilled = false;
};

TabState& State() { return common::StateOf<TabState>(); }

struct TabFrame {
    ui::CFrame frmParlune::*frame;
    Tab tab;
};
constexpr TabFrame Frames[] = {
    {&frmParlune::fraStartup, General},     {&frmParlune::fraClipboard, General}, {&frmParlune::fraTime, General},
    {&frmParlune::fraCharacter, Character}, {&frmParlune::fraVoice, Voice},       {&frmParlune::fraBalloon, Balloon},
    {&frmParlune::fraGreetings, Greetings}, {&frmParlune::fraAbout, About},
};

std::string SelectedCaption()
{
    return MainWindow().tabMain.Tabs().at(static_cast<std::size_t>(MainWindow().tabMain.Selected()));
}

void EnableFrames(const CGuard& guard)
{
    const std::int32_t selected = MainWindow().tabMain.Selected();
    for (const TabFrame& each : Frames)
        guard([&] { (MainWindow().*each.frame).SetEnabled(each.tab == selected); });
}

void FillUnderHourglass(const char* section, const std::function<void()>& fill)
{
    const CGuard guard(Module, section);
    guard([] { platform::Current().screen.SetPointer(Pointer::Hourglass); });
    guard([&] {
        if (fill)
            fill();
    });
    guard([] { platform::Current().screen.SetPointer(Pointer::Default); });
}

void VisitCharacter(const CGuard& guard)
{
    guard(characterTab::ShowLoadedCharacter);
    guard([] { MainWindow().cboChar.SetFocus(); });
}

void VisitVoice(const CGuard& guard)
{
    if (!std::exchange(State().voicesFilled, true))
        guard(InitTTSTab);
    if (character::State().loaded)
        guard([] { bParlune::SetTTSModeID(); });
}

void VisitBalloon(const CGuard& guard)
{
    if (!std::exchange(State().fontsFilled, true))
        guard(InitBalloonTab);
    guard(balloonTab::ShowBalloon);
    if (SelectedCaption() == "Balloon")  // While the lists were filled, the user may have gone on.
        guard([] { MainWindow().cboFontName.SetFocus(); });
}

void Visit(const CGuard& guard, const std::string& caption)
{
    if (caption == "General")
        guard([] { MainWindow().chkStartWithWindows.SetFocus(); });
    else if (caption == "Character")
        VisitCharacter(guard);
    else if (caption == "Voice")
        VisitVoice(guard);
    else if (caption == "Balloon")
        VisitBalloon(guard);
    else if (caption == "Greetings")
        guard([] { MainWindow().txtUserName.SetFocus(); });
    else if (caption == "Read")
        guard([] { MainWindow().txtRead.SetFocus(); });
}

}

void SetFills(Fills fills) { State().fills = std::move(fills); }

void tabMain_Click()
{
    const CGuard guard(Module, "tabMain_Click");
    EnableFrames(guard);
    Visit(guard, SelectedCaption());
}

void InitTTSTab() { FillUnderHourglass("InitTTSTab", State().fills.voices); }

void InitBalloonTab() { FillUnderHourglass("InitBalloonTab", State().fills.fonts); }

}
