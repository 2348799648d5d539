#include "Parts.h"

namespace nibbin {

using namespace drawing;

namespace {

constexpr double ShoulderOut = 27, ShoulderUp = 37, HandRadius = 5.4;

CPath::Contour LineOf(const Arm& arm, double side)
{
    const Vec shoulder{side * ShoulderOut, -ShoulderUp}, hand = HandOf(arm, side);
    const Vec elbow{side * 1.5, 1.3};  // Always outwards and down, so that it never flips over.
    return CPath::Arc(shoulder, Mix(shoulder, hand, 0.5) + elbow * arm.bend, hand);
}

// The mitten with its thumb, which looks up and inwards, and the finger when it points; `rim` is added all around.
CPath Hand(const Arm& arm, double side, Vec along, double rim)
{
    const Vec hand = HandOf(arm, side);
    const Vec thumb{along.y * side, -along.x * side};
    CPath path = CPath::Tube({hand, hand + along * 2.0}, HandRadius + rim, HandRadius - 0.6 + rim);
    path.Add(CPath::Tube({hand + thumb * 2.5, hand + thumb * 5.6 + along * 2.4}, 2.4 + rim, 2.1 + rim));
    if (arm.point > 0.05)
        path.Add(CPath::Tube({hand, hand + along * (5 + 7.5 * arm.point)}, 2.9 + rim, 2.3 + rim));
    return path;
}

CPath Limb(const Arm& arm, double side, double rim)
{
    const CPath::Contour line = LineOf(arm, side);
    CPath limb = CPath::Tube(line, 4.2 + rim, 3.7 + rim);
    limb.Add(Hand(arm, side, Unit(line.back() - line[line.size() - 3]), rim));
    return limb;
}

}

Vec HandOf(const Arm& arm, double side) { return {side * arm.out, -arm.up}; }

void DrawArm(const CPen& body, const Arm& arm, double side)
{
    const Vec shoulder{side * ShoulderOut, -ShoulderUp};
    body.Fill(Limb(arm, side, colors::LineWidth), colors::Line);
    const Coverage joint = body.Cover(CPath::Ellipse(shoulder + Vec{-side * 1.5, -2.5}, 6, 6));
    body.Fill(Limb(arm, side, colors::LineWidth - 0.35), Hex(0xB5672F), &joint);
    body.Fill(Limb(arm, side, 0), CPaint::Line(shoulder, colors::Skin, HandOf(arm, side), colors::SkinLight));
}

}
