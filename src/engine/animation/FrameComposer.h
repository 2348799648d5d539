#pragma once
#include "engine/Host.h"
#include <optional>

namespace engine {

// The overlay of a frame for a mouth: of that shape, else the closed one, else none.
const MouthOverlay* MouthOverlayOf(const Frame& frame, Mouth mouth);

// Draws a frame in the character's own size. `overlay` may be null. Pictures are clipped to the frame; an overlay that does
// not replace the top picture is clipped to what the frame draws.
Bitmap ComposeFrame(const Character& character, const Frame& frame, const MouthOverlay* overlay);

}
