#pragma once
#include "../drawing/Canvas.h"
#include "Pose.h"

namespace nibbin {

inline constexpr int FrameSide = 128;

// The figure in one pose on a clear canvas of FrameSide x FrameSide pixels.
drawing::CCanvas DrawFigure(const Pose& pose);

}
