#pragma once
#include <cstdint>

// The character's custom size, in pixels, on the Character tab.
namespace characterSize {

// Ticked: opens the size boxes and gives the character the size that they show, if both numbers are above 0. Cleared:
// closes them, and the character returns to its own size, which they show then. Failures are ignored, one by one.
void chkCustomSize_Click();

// Gives the character the numbers above 0 of the size boxes, while the custom size is on; "Proportional" first sets the
// other box from box `index` (0 width, 1 height). Without a character they are kept for the next one. A call while one is
// running does nothing. Failures: reported as Parlune:txtSize_LostFocus.
void txtSize_LostFocus(std::int32_t index);

}
