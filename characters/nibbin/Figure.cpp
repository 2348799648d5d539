#include "Figure.h"
#include "Parts.h"
#include <cmath>

namespace nibbin {

using namespace drawing;

namespace {

constexpr Vec Ground{64, 125};

double ToSteps(double value, double step) { return std::round(value / step) * step; }

// The trunk moves in small steps, too small to be seen, so that many poses share one.
Pose Stepped(Pose pose)
{
    pose.lean = ToSteps(pose.lean, 1.5);
    pose.stretch = ToSteps(pose.stretch, 0.015);
    pose.x = ToSteps(pose.x, 0.5);
    pose.y = ToSteps(pose.y, 0.5);
    return pose;
}

Affine BodyMap(const Pose& pose)
{
    const double high = 1 + pose.stretch;
    return Affine::Turn(pose.lean) * Affine::Scale(1 / std::sqrt(high), high);
}

CPen RootOf(CCanvas& canvas, const Pose& pose)
{
    return CPen(canvas,
                Affine::Move(Ground + Vec{pose.x, pose.y}) * Affine::Turn(pose.turn) * Affine::Scale(pose.grow, pose.grow));
}

void DrawArms(const CPen& body, const Pose& pose, bool behind)
{
    if ((pose.left.behind > 0.5) == behind)
        DrawArm(body, pose.left, LeftSide);
    if ((pose.right.behind > 0.5) == behind)
        DrawArm(body, pose.right, RightSide);
}

void DrawTrunk(const CPen& root, const CPen& body, const Pose& pose)
{
    DrawFoot(root, pose.leftFoot, LeftSide);
    DrawFoot(root, pose.rightFoot, RightSide);
    DrawBody(body, pose);
    DrawHusk(body, pose);
}

void DrawHeld(const CPen& body, const Pose& pose)
{
    DrawGlasses(body, pose);
    DrawBook(body, pose);
    DrawPad(body, pose);
    DrawTool(body, pose);
}

}

CCanvas DrawFigure(const Pose& wanted)
{
    const Pose pose = Stepped(wanted);
    CCanvas canvas(FrameSide, FrameSide);
    if (pose.grow > 0.02) {
        const CPen root = RootOf(canvas, pose), body = root.On(BodyMap(pose));
        DrawArms(body, pose, /*behind*/ true);
        DrawQuill(body, pose);
        DrawTrunk(root, body, pose);
        DrawFace(body, pose);
        DrawHeld(body, pose);
        DrawArms(body, pose, /*behind*/ false);
    }
    DrawEffect(CPen(canvas, Affine::Move(Ground)), pose);
    return canvas;
}

CCanvas DrawTrunk(const Pose& wanted)
{
    const Pose pose = Stepped(wanted);
    CCanvas canvas(FrameSide, FrameSide);
    if (pose.grow > 0.02)
        DrawTrunk(RootOf(canvas, pose), RootOf(canvas, pose).On(BodyMap(pose)), pose);
    return canvas;
}

std::vector<double> TrunkKey(const Pose& wanted)
{
    const Pose pose = Stepped(wanted);
    std::vector<double> key{pose.x,    pose.y,       pose.grow,         pose.turn,
                            pose.lean, pose.stretch, TrunkTurn(pose).x, TrunkTurn(pose).y};
    for (const Foot& foot : {pose.leftFoot, pose.rightFoot})
        key.insert(key.end(), {foot.out, foot.up, foot.turn});
    return key;
}

}
