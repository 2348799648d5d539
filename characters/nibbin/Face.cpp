#include "Parts.h"
#include <algorithm>

namespace nibbin {

using namespace drawing;

namespace {

constexpr double EyeX = 11.5, EyeY = -3, EyeWidth = 7.4, EyeHeight = 9.0;

// The lid's edge at `share` of the eye's height from its top; the middle hangs a little lower than the corners.
CPath UpperLid(double share)
{
    const double edge = -EyeHeight - 1 + (2 * EyeHeight + 0.6) * share;
    CPath lid;
    lid.MoveTo({-EyeWidth - 3, -EyeHeight - 4}).LineTo({-EyeWidth - 3, edge + 1.5});
    lid.QuadTo({0, edge - 2.5 + 5 * share}, {EyeWidth + 3, edge + 1.5}).LineTo({EyeWidth + 3, -EyeHeight - 4});
    return lid;
}

CPath LowerLid(double share)
{
    const double edge = EyeHeight + 1.5 - EyeHeight * 1.1 * share;
    CPath lid;
    lid.MoveTo({-EyeWidth - 3, EyeHeight + 4}).LineTo({-EyeWidth - 3, edge + 2});
    lid.QuadTo({0, edge - 5 * share}, {EyeWidth + 3, edge + 2}).LineTo({EyeWidth + 3, EyeHeight + 4});
    return lid;
}

void DrawPupil(const CPen& eye, const Pose& pose, const Coverage& clip)
{
    const Vec at{pose.gazeX * 3.4, pose.gazeY * 3.8 + 0.5};
    eye.Fill(CPath::Ellipse(at, 5.0 * pose.pupil, 5.9 * pose.pupil), colors::Iris, &clip);
    eye.Fill(CPath::Ellipse(at, 3.7 * pose.pupil, 4.6 * pose.pupil), colors::Pupil, &clip);
    eye.Fill(CPath::Ellipse(at + Vec{-1.6, -2.3}, 1.9, 2.0), colors::White, &clip);
    eye.Fill(CPath::Ellipse(at + Vec{1.9, 2.5}, 0.9, 0.9), Hex(0xFFFDF6, 0.7), &clip);
}

void DrawClosedEye(const CPen& eye, double smile)
{
    const double middle = 4 - 8 * std::min(1.0, smile);
    eye.Stroke(CPath::Arc({-EyeWidth, 1 + smile * 2}, {0, 1 + middle * 1.4}, {EyeWidth, 1 + smile * 2}), colors::Line, 2.2);
}

void DrawEye(const CPen& face, const Pose& pose, const Eye& part, double side)
{
    const double far = 1 - 0.16 * std::max(0.0, side * pose.faceX);
    const CPen eye = face.On(Affine::Move({side * EyeX * (1 - 0.05 * std::fabs(pose.faceX)), EyeY}) * Affine::Scale(far, 1));
    if (part.lid > 0.74 || part.lid + part.smile * 0.75 > 1)
        return DrawClosedEye(eye, part.smile);
    const CPath ball = CPath::Ellipse({}, EyeWidth, EyeHeight);
    eye.Shape(ball, CPaint::Line({0, -9}, colors::EyeShade, {0, -2}, colors::White), colors::SoftLine, 0.9);
    const Coverage clip = eye.Cover(ball);
    DrawPupil(eye, pose, clip);
    const Coverage lidClip = eye.Cover(CPath::Ellipse({}, EyeWidth + 0.9, EyeHeight + 0.9));
    const CPath lid = UpperLid(part.lid);
    eye.Outline(lid, colors::Line, 1.5, &lidClip);
    eye.Fill(lid, CPaint::Line({0, -9}, Hex(0xF7CB8C), {0, 7}, Hex(0xF0B26C)), &lidClip);
    if (part.smile < 0.05)
        return;
    eye.Outline(LowerLid(part.smile), colors::SoftLine, 1.0, &lidClip);
    eye.Fill(LowerLid(part.smile), Hex(0xFCDDA9), &lidClip);
}

void DrawBrow(const CPen& face, const Pose& pose, const Eye& part, double side)
{
    const double x = side * EyeX * (1 - 0.05 * std::fabs(pose.faceX)), y = EyeY - EyeHeight - 4.2 - part.brow;
    const Vec inner{x - side * 4.5, y + part.slant * 0.13}, outer{x + side * 5.0, y - part.slant * 0.09 + 1.2};
    face.Fill(CPath::Tube(CPath::Arc(inner, {x, y - 2.2}, outer), 1.35, 0.8), colors::SoftLine);
}

void DrawCheek(const CPen& face, const Pose& pose, double side)
{
    const Vec at{side * 18.5, 9.5};
    const double alpha = std::clamp(pose.blush, 0.0, 1.0) * 0.8;
    face.Fill(CPath::Ellipse(at, 5, 3.4), CPaint::Glow(at, Hex(0xF08A66, alpha), 5.2, Hex(0xF08A66, alpha * 0.25)));
}

CPath Lens(double side) { return CPath::Ellipse({side * EyeX, EyeY + 1.5}, 9.6, 9.6); }

}

Vec FaceCenter(const Pose& pose) { return {pose.faceX * 6.5, -51 + pose.faceY * 3.5}; }

void DrawFace(const CPen& body, const Pose& pose)
{
    const CPen face = body.On(Affine::Move(FaceCenter(pose)));
    for (const double side : {LeftSide, RightSide})
        DrawCheek(face, pose, side);
    DrawMouth(face, pose);
    DrawEye(face, pose, pose.leftEye, LeftSide);
    DrawEye(face, pose, pose.rightEye, RightSide);
    DrawBrow(face, pose, pose.leftEye, LeftSide);
    DrawBrow(face, pose, pose.rightEye, RightSide);
}

// On their way they come down from the forehead.
void DrawGlasses(const CPen& body, const Pose& pose)
{
    if (pose.glasses <= 0.02)
        return;
    const CPen face = body.On(Affine::Move(FaceCenter(pose) + Vec{0, -15 * (1 - pose.glasses)}));
    for (const double side : {LeftSide, RightSide}) {
        face.Fill(Lens(side), Hex(0xCFEAF2, 0.08));
        face.Fill(Lens(side).Band(1.0, true), colors::Rim);
        face.Stroke({{side * 21, EyeY}, {side * 26, EyeY - 2.5}}, colors::Rim, 1.7);
    }
    face.Stroke(CPath::Arc({-2.4, EyeY}, {0, EyeY - 2.4}, {2.4, EyeY}), colors::Rim, 1.8);
}

}
