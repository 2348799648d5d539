#pragma once
#include "../drawing/Canvas.h"
#include "Pose.h"
#include <vector>

namespace nibbin {

inline constexpr int FrameSide = 128;

// The figure in one pose on a clear canvas of FrameSide x FrameSide pixels.
drawing::CCanvas DrawFigure(const Pose& pose);

// The same without face, arms, quill and whatever it holds: what many poses have in common. The whole figure covers at
// least the pixels of this.
drawing::CCanvas DrawTrunk(const Pose& pose);

// All that DrawTrunk depends on: poses with equal keys have the same trunk.
std::vector<double> TrunkKey(const Pose& pose);

}
