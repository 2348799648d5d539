#pragma once
#include <cstdint>

// Everything that can move in the figure. Lengths are pixels, angles degrees; "left" is the figure's own left, which is
// on the viewer's right.
namespace nibbin {

// A hand's place: `out` from the body's middle line to its own side, `up` from the ground.
struct Arm {
    double out = 36;
    double up = 22;
    double bend = 5;    // How far the elbow leaves the straight line, outwards and down.
    double point = 0;   // 0..1: a finger stretched out along the arm.
    double behind = 0;  // Over 0.5: drawn behind the body.
};

struct Foot {
    double out = 12;
    double up = 0;
    double turn = 0;  // Toe down positive.
};

struct Eye {
    double lid = 0.13;  // 0 wide open .. 1 closed, from above.
    double smile = 0;   // 0..1, the lower lid pushed up.
    double brow = 0;    // Brow's height over its place.
    double slant = 0;   // Positive: inner end down, stern; negative: worried.
};

enum class Tool : std::uint8_t { None, Pencil, Magnifier, Wand, Horn };
enum class Effect : std::uint8_t {
    None,
    Sleep,
    Sparkles,
    Question,
    Exclaim,
    Bulb,
    Confetti,
    Thought,
    Waves,
    Drop,
    Seeds,
    Puff
};
enum class MouthShape : std::uint8_t { Own, Closed, Wide1, Wide2, Wide3, Wide4, Medium, Narrow };

struct Pose {
    double x = 0, y = 0;          // The figure's place against its usual one.
    double grow = 1;              // Whole size; 0 shows nothing.
    double turn = 0;              // The whole figure around its feet.
    double lean = 0;              // The body over the feet.
    double stretch = 0;           // Positive: taller and thinner.
    double faceX = 0, faceY = 0;  // -1..1, where the face is turned; positive is left (viewer's right), down.
    double quill = 0;             // Angle of the quill; positive to the viewer's right.
    double quillBend = 0;
    double quillSize = 1;
    double gazeX = 0, gazeY = 0;  // -1..1
    double pupil = 1;
    double mouthCurve = 0.7;  // 1 smile .. -1 sad.
    double mouthWidth = 1;
    double mouthOpen = 0;  // 0..1
    double blush = 0.6;
    Eye leftEye, rightEye;
    Arm left, right;
    Foot leftFoot, rightFoot;
    double book = 0;  // 0 away .. 1 held in front.
    double bookOpen = 0;
    double page = 0;                    // 0..1: a page on its way from the viewer's left to the right.
    double pad = 0;                     // The note pad in the left hand.
    double padLines = 0;                // 0..1: how much is written on it.
    double glasses = 0;                 // 0 none .. 1 on the nose.
    double toolSize = 0, toolTurn = 0;  // The tool in the right hand.
    double effect = 0;                  // 0..1: how far the effect has come.
    Tool tool = Tool::None;
    Effect kind = Effect::None;
    MouthShape mouth = MouthShape::Own;
};

// The pose `share` of the way from one to the other. What cannot be mixed is taken from `to` unless share is 0.
Pose Mix(const Pose& from, const Pose& to, double share);

}
