#include "Pose.h"
#include <array>

namespace nibbin {

namespace {

constexpr std::array PoseParts = {
    &Pose::x,          &Pose::y,          &Pose::grow,      &Pose::turn,      &Pose::lean,     &Pose::stretch,  &Pose::faceX,
    &Pose::faceY,      &Pose::quill,      &Pose::quillBend, &Pose::quillSize, &Pose::gazeX,    &Pose::gazeY,    &Pose::pupil,
    &Pose::mouthCurve, &Pose::mouthWidth, &Pose::mouthOpen, &Pose::blush,     &Pose::book,     &Pose::bookOpen, &Pose::page,
    &Pose::pad,        &Pose::padLines,   &Pose::glasses,   &Pose::toolSize,  &Pose::toolTurn, &Pose::effect};
constexpr std::array EyeParts = {&Eye::lid, &Eye::smile, &Eye::brow, &Eye::slant};
constexpr std::array ArmParts = {&Arm::out, &Arm::up, &Arm::bend, &Arm::point, &Arm::behind};
constexpr std::array FootParts = {&Foot::out, &Foot::up, &Foot::turn};

template <class Part, class Members> void MixInto(Part& result, const Part& from, const Members& members, double share)
{
    for (const auto member : members)
        result.*member = from.*member + (result.*member - from.*member) * share;
}

}

Pose Mix(const Pose& from, const Pose& to, double share)
{
    if (share <= 0)
        return from;
    Pose result = to;
    MixInto(result, from, PoseParts, share);
    MixInto(result.leftEye, from.leftEye, EyeParts, share);
    MixInto(result.rightEye, from.rightEye, EyeParts, share);
    MixInto(result.left, from.left, ArmParts, share);
    MixInto(result.right, from.right, ArmParts, share);
    MixInto(result.leftFoot, from.leftFoot, FootParts, share);
    MixInto(result.rightFoot, from.rightFoot, FootParts, share);
    return result;
}

}
