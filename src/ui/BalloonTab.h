#pragma once
#include <cstdint>

// What the Balloon tab does at once.
namespace balloonTab {

// Shows style, lines and font of the balloon of the present character; nothing of it when one of them cannot be had.
// Nothing while no character is loaded. Failures: not guarded, they reach the caller's guard.
void ShowBalloon();

// The same, but only while the Balloon tab is the selected one: for whoever has changed the character or its balloon.
void Refresh();

// 0 "Set Font": gives the balloon the font, size and style of the tab and stores them for the character. A style that
// cannot be is reported by GetBalloonStyle and once more here, and the stored one stays. 1 "Reset to Default": gives it
// what the character brought with it, and removes what is stored. Failures: reported as Parlune:cmdSetFont_Click, then the
// next step runs; without a character that is one report, and nothing else happens.
void cmdSetFont_Click(std::int32_t index);

}
