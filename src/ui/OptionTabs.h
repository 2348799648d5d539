#pragma once
#include <functional>

// The main window's tab strip.
namespace optionTabs {

// What fills the lists that take long: each runs once in a run of the program, when its tab is first visited.
struct Fills {
    std::function<void()> voices;
    std::function<void()> fonts;
};
void SetFills(Fills fills);

// Enables the frames of the selected tab and disables all others, brings the tab up to date and moves the focus to its
// first control. Failures: reported as Parlune:tabMain_Click.
void tabMain_Click();

// Fill the voice list and the font lists under the hourglass. Failures: reported as Parlune:InitTTSTab and
// Parlune:InitBalloonTab.
void InitTTSTab();
void InitBalloonTab();

}
