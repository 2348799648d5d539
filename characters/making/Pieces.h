#pragma once
#include "../drawing/Picture.h"
#include <vector>

namespace making {

// Takes a picture with clear ground apart: every large connected piece becomes a picture of its own, all small ones
// together make one more. All have the size of the whole; laid over each other in any order they give it back. Pieces
// such as a resting arm or an open eye come back in many poses and are then kept only once.
std::vector<drawing::Picture> PiecesOf(const drawing::Picture& whole);

}
