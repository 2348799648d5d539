#pragma once
#include "engine/character/CharacterData.h"
#include <vector>

// The outline of a picture: the rectangles that cover its opaque pixels.
namespace engine::files {

// Ordered by top, then left; runs of pixels, rows with equal runs merged. Empty for a picture without opaque pixels.
std::vector<Rect> RegionOf(const IndexedPicture& picture, std::uint8_t transparentIndex);

// The smallest rectangle around all of them; empty at 0, 0 for none.
Rect BoundsOf(const std::vector<Rect>& region);

// The region as character files hold it, not compressed.
std::vector<std::uint8_t> RegionBytes(const std::vector<Rect>& region);

}
