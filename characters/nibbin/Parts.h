#pragma once
#include "../drawing/Pen.h"
#include "Colors.h"
#include "Pose.h"

// The parts of the figure, each drawn by one procedure. Body coordinates: the origin is the ground between the feet,
// the figure reaches up to about y = -108.
namespace nibbin {

inline constexpr double LeftSide = 1;  // The figure's left is on the viewer's right.
inline constexpr double RightSide = -1;

void DrawFoot(const drawing::CPen& root, const Foot& foot, double side);
void DrawQuill(const drawing::CPen& body, const Pose& pose);
void DrawBody(const drawing::CPen& body, const Pose& pose);
void DrawHusk(const drawing::CPen& body, const Pose& pose);
void DrawFace(const drawing::CPen& body, const Pose& pose);
void DrawMouth(const drawing::CPen& face, const Pose& pose);
void DrawGlasses(const drawing::CPen& body, const Pose& pose);
void DrawArm(const drawing::CPen& body, const Arm& arm, double side);
drawing::Vec HandOf(const Arm& arm, double side);
void DrawBook(const drawing::CPen& body, const Pose& pose);
void DrawPad(const drawing::CPen& body, const Pose& pose);
void DrawTool(const drawing::CPen& body, const Pose& pose);
void DrawEffect(const drawing::CPen& root, const Pose& pose);

drawing::Vec FaceCenter(const Pose& pose);
// The face's turn as the trunk shows it: in steps of a half.
drawing::Vec TrunkTurn(const Pose& pose);

}
