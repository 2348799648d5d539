#pragma once
#include <cstdint>

// What the Balloon tab does at once.
namespace balloonTab {

// Shows the style of the character's balloon in the boxes, and its font and lines where the tab shows none yet. Nothing
// while no character is loaded. Failures: not guarded, they reach the caller's guard.
void ShowBalloon();

// 0 "Set Font": gives the balloon the font, size and style of the tab and stores them for the character. A style that
// cannot be (it is reported by GetBalloonStyle) is left out. 1 "Reset to Default": gives it what the character brought
// with it, and removes what is stored. Failures: reported as Parlune:cmdSetFont_Click, then the next step runs; without a
// character that is one report, and nothing else happens.
void cmdSetFont_Click(std::int32_t index);

}
