#include "ui/GreetingsTab.h"
#include "character/Greeting.h"
#include "common/zbErrorTrap.h"
#include "ui/frmParlune.h"

namespace greetingsTab {
namespace {

constexpr char Module[] = "Parlune";
constexpr std::int32_t Greetings = 5;

}

void tabGreetings_Click()
{
    const zbErrorTrap::CGuard guard(Module, "tabGreetings_Click");
    frmParlune& window = MainWindow();
    for (std::int32_t greeting = 0; greeting < Greetings; ++greeting) {
        const bool shown = greeting == window.tabGreetings.Selected();
        guard([&] { window.lblGreeting[greeting].SetVisible(shown); });
        guard([&] { window.txtGreeting[greeting].SetVisible(shown); });
        guard([&] { window.cboAnim[greeting].SetVisible(shown); });
    }
}

void cmdTestWelcome_Click()
{
    const zbErrorTrap::CGuard guard(Module, "cmdTestWelcome_Click");
    guard([] { character::Greet(MainWindow().tabGreetings.Selected(), /*check*/ false); });
}

}
