#include "Parts.h"

namespace nibbin {

using namespace drawing;

namespace {

struct Opening {
    double width;  // Half, in pixels.
    double open;   // Height in pixels.
    double curve;  // How far the corners lie over the middle.
};

// While it speaks the mood shows less, but stays.
Opening OpeningOf(const Pose& pose)
{
    const double curve = pose.mouthCurve * 2;
    switch (pose.mouth) {
    case MouthShape::Own:
        return {7 * pose.mouthWidth, 11 * pose.mouthOpen, pose.mouthCurve * 3.6};
    case MouthShape::Closed:
        return {6.6, 0, curve * 1.4};
    case MouthShape::Wide1:
        return {6.8, 2.6, curve};
    case MouthShape::Wide2:
        return {7.2, 5.0, curve};
    case MouthShape::Wide3:
        return {7.5, 7.6, curve};
    case MouthShape::Wide4:
        return {7.8, 10.2, curve * 0.8};
    case MouthShape::Medium:
        return {5.2, 5.6, curve * 0.5};
    case MouthShape::Narrow:
        return {3.2, 4.6, 0};
    }
    return {7, 0, 0};
}

CPath Lips(const Opening& o)
{
    CPath lips;
    const double up = -o.curve - o.open * 0.12, low = o.open;
    lips.MoveTo({-o.width, up})
        .CurveTo({-o.width * 0.5, up + o.curve * 1.1}, {o.width * 0.5, up + o.curve * 1.1}, {o.width, up});
    lips.CurveTo({o.width * 0.95, low * 1.05 + o.curve * 0.4}, {o.width * 0.45, low * 1.15 + o.curve * 0.4},
                 {0, low * 1.15 + o.curve * 0.4});
    lips.CurveTo({-o.width * 0.45, low * 1.15 + o.curve * 0.4}, {-o.width * 0.95, low * 1.05 + o.curve * 0.4},
                 {-o.width, up});
    return lips;
}

}

void DrawMouth(const CPen& face, const Pose& pose)
{
    const CPen pen = face.On(Affine::Move({pose.faceX * 0.8, 12}));
    const Opening o = OpeningOf(pose);
    if (o.open < 0.9)
        return pen.Stroke(CPath::Arc({-o.width, -o.curve}, {0, o.curve * 1.5}, {o.width, -o.curve}), colors::Line, 1.9);
    const CPath lips = Lips(o);
    pen.Shape(lips, colors::MouthInside, colors::Line, 1.0);
    const Coverage clip = pen.Cover(lips);
    if (o.open > 4)
        pen.Fill(CPath::Ellipse({0, o.open * 1.2 + 1}, o.width * 0.75, o.open * 0.5), colors::Tongue, &clip);
    if (o.width > 5 && o.open > 3)
        pen.Fill(CPath::Rounded({-o.width * 0.6, -6}, {o.width * 0.6, o.open * 0.08 + 0.6}, 0.8), colors::White, &clip);
}

}
