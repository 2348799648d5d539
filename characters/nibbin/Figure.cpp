#include "Figure.h"
#include "Parts.h"
#include <cmath>

namespace nibbin {

using namespace drawing;

namespace {

constexpr Vec Ground{64, 122};

Affine BodyMap(const Pose& pose)
{
    const double high = 1 + pose.stretch;
    return Affine::Turn(pose.lean) * Affine::Scale(1 / std::sqrt(high), high);
}

void DrawArms(const CPen& body, const Pose& pose, bool behind)
{
    if ((pose.left.behind > 0.5) == behind)
        DrawArm(body, pose.left, LeftSide);
    if ((pose.right.behind > 0.5) == behind)
        DrawArm(body, pose.right, RightSide);
}

}

CCanvas DrawFigure(const Pose& pose)
{
    CCanvas canvas(FrameSide, FrameSide);
    const CPen ground(canvas, Affine::Move(Ground));
    if (pose.grow > 0.02) {
        const CPen root =
            ground.On(Affine::Move({pose.x, pose.y}) * Affine::Turn(pose.turn) * Affine::Scale(pose.grow, pose.grow));
        const CPen body = root.On(BodyMap(pose));
        DrawArms(body, pose, /*behind*/ true);
        DrawFoot(root, pose.leftFoot, LeftSide);
        DrawFoot(root, pose.rightFoot, RightSide);
        DrawQuill(body, pose);
        DrawBody(body, pose);
        DrawHusk(body, pose);
        DrawFace(body, pose);
        DrawGlasses(body, pose);
        DrawBook(body, pose);
        DrawPad(body, pose);
        DrawTool(body, pose);
        DrawArms(body, pose, /*behind*/ false);
    }
    DrawEffect(ground, pose);
    return canvas;
}

}
