#pragma once
#include "engine/Geometry.h"
#include <optional>

namespace engine {

struct BalloonPlace {
    Rect window;  // On the screen.
    Rect body;    // Inside the window.
    Point tail;   // The tip, inside the window.
    friend bool operator==(const BalloonPlace&, const BalloonPlace&) = default;
};

// Where a balloon whose body has a size stands: centred above the character with its tail to the head; below, else beside
// the character where there is no room; always inside the work area as far as it fits.
BalloonPlace PlaceBalloon(const Rect& character, Size body, const Rect& workArea);

}
