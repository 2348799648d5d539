// The program's resources. For the resource compiler, too: nothing but numbers.
#pragma once
#define PARLUNE_ICON 1
// The pictures of the tool bar's buttons side by side, in the order of the buttons; the number is the height in pixels.
#define PARLUNE_TOOLBAR_20 20
#define PARLUNE_TOOLBAR_25 25
#define PARLUNE_TOOLBAR_30 30
#define PARLUNE_TOOLBAR_40 40
