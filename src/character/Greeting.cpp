#include "character/Greeting.h"
#include "character/CharacterState.h"
#include "character/bParlune.h"
#include "common/zbErrorTrap.h"
#include "settings/bOptions.h"
#include "ui/frmParlune.h"

using zbErrorTrap::IgnoreFailure;

namespace character {
namespace {

constexpr std::int32_t Greetings = 5;

void ListAnimations()
{
    std::vector<std::string> names;
    IgnoreFailure([&] { names = Current().AnimationNames(); });
    State().animationNames.clear();
    for (ui::CComboBox& list : MainWindow().cboAnim)
        list.Clear();
    for (const std::string& name : names) {
        State().animationNames.push_back(name);
        for (ui::CComboBox& list : MainWindow().cboAnim)
            list.Add(name);
    }
}

bool Select(ui::CComboBox& list, const std::string& name)
{
    return IgnoreFailure([&] { list.Select(name); });
}

// The animation of the character's appearance is never a greeting.
std::string StoredAnimation(std::int32_t greeting)
{
    const std::string name = bOptions::GetOption("GreetingAnimation" + std::to_string(greeting + 1), "Greet");
    return name == "Show" ? "Greet" : name;
}

// Returns false when a list offers neither its stored animation nor "Greet".
bool SelectStoredAnimations()
{
    bool allSelected = true;
    for (std::int32_t greeting = 0; greeting < Greetings; ++greeting) {
        ui::CComboBox& list = MainWindow().cboAnim[greeting];
        if (!Select(list, StoredAnimation(greeting)) && !Select(list, "Greet"))
            allSelected = false;
    }
    return allSelected;
}

void SelectAnnouncements()
{
    for (ui::CComboBox& list : MainWindow().cboAnim)
        if (!Select(list, "Announce") && list.Count() > 0)
            IgnoreFailure([&] { list.SetIndex(0); });
}

}

void FillGreetingLists()
{
    ListAnimations();
    State().fillingGreetingLists = "True";
    if (!SelectStoredAnimations())
        SelectAnnouncements();
    State().fillingGreetingLists = "False";
}

void Greet(std::int32_t index, bool check)
{
    const frmParlune& window = MainWindow();
    const bool wanted = !check || window.chkReadGreeting.Ticked();
    if (!State().loaded || !wanted || index < 0 || index >= Greetings)
        return;
    const ui::CComboBox& list = window.cboAnim[index];
    if (list.Index() >= 0)
        bParlune::CharPlay(list.Item(list.Index()));
    bParlune::CharSpeak(window.txtGreeting[index].Text());
    bParlune::CharPlay("RestPose");
}

}
