#include "Parts.h"

namespace nibbin {

using namespace drawing;

namespace {

// The seed: round below, drawn out to a soft point above.
CPath Seed()
{
    CPath path;
    path.MoveTo({0, -82}).CurveTo({7, -80}, {30, -69}, {31.5, -40}).CurveTo({32.5, -19}, {19, -6}, {0, -6});
    path.CurveTo({-19, -6}, {-32.5, -19}, {-31.5, -40}).CurveTo({-30, -69}, {-7, -80}, {0, -82});
    return path;
}

// The green cup it sits in: leaves around the lower half, their tips lower in front.
CPath Cup(double shift)
{
    const double s = shift;
    CPath path;
    path.MoveTo({32.5, -37}).CurveTo({34, -19}, {21, -4.5}, {0, -4.5}).CurveTo({-21, -4.5}, {-34, -19}, {-32.5, -37});
    path.CurveTo({-28, -33}, {-25, -29}, {-23 + s, -23}).CurveTo({-21 + s, -27}, {-19 + s, -29}, {-14 + s, -31});
    path.CurveTo({-11 + s, -28}, {-9 + s, -24}, {-7.5 + s, -19}).CurveTo({-5 + s, -23}, {-3 + s, -25}, {s, -28});
    path.CurveTo({3 + s, -25}, {5 + s, -23}, {7.5 + s, -19}).CurveTo({9 + s, -24}, {11 + s, -28}, {14 + s, -31});
    path.CurveTo({19 + s, -29}, {21 + s, -27}, {23 + s, -23}).CurveTo({25, -29}, {28, -33}, {32.5, -37});
    return path;
}

CPath QuillBlade(double bend)
{
    const double b = bend;
    CPath path;
    path.MoveTo({0, -5}).CurveTo({-8, -9}, {-11 + b * 0.4, -18}, {-4 + b, -30});
    path.LineTo({0.5 + b * 1.1, -33}).CurveTo({8 + b, -24}, {9 + b * 0.4, -13}, {0, -5});
    return path;
}

}

void DrawFoot(const CPen& root, const Foot& foot, double side)
{
    const Vec place{side * foot.out, -4.5 - foot.up};
    const CPen pen = root.On(Affine::Move(place) * Affine::Turn(side * foot.turn) * Affine::Scale(side, 1));
    const CPath shoe = CPath::Smooth({{-7, 1}, {-5.5, -5}, {2, -6}, {8.5, -2.5}, {10, 2}, {6, 4}, {-4, 4}});
    pen.Shape(shoe, CPaint::Line({0, -6}, colors::ShoeLight, {2, 4}, colors::Shoe), colors::Line, colors::LineWidth);
}

void DrawQuill(const CPen& body, const Pose& pose)
{
    const CPen pen =
        body.On(Affine::Move({0, -81}) * Affine::Turn(16 + pose.quill) * Affine::Scale(pose.quillSize, pose.quillSize));
    const CPath blade = QuillBlade(pose.quillBend);
    const double b = pose.quillBend;
    const CPath::Contour stem = CPath::Arc({0, 2}, {0, -14}, {-1 + b * 0.9, -28});
    pen.Outline(CPath::Tube(CPath::Arc({0, 3}, {0, 0}, {0, -7}), 1.7, 1.5), colors::Line, colors::LineWidth);
    pen.Shape(blade, CPaint::Line({-7, -16}, colors::QuillLight, {8, -20}, colors::Quill), colors::Line, colors::LineWidth);
    const Coverage clip = pen.Cover(blade);
    pen.Fill(CPath::Polygon({{0, 0}, {b, -34}, {14 + b, -30}, {12, -6}}), Hex(0x22586F, 0.35), &clip);
    pen.Stroke({{-12, -13}, {-5.5, -14.5}}, colors::Line, 1.2, &clip);
    pen.Stroke({{12 + b * 0.5, -19}, {5.5 + b * 0.5, -17}}, colors::Line, 1.2, &clip);
    pen.Fill(CPath::Tube(CPath::Arc({0, 3}, {0, 0}, {0, -7}), 1.7, 1.4), colors::QuillVein);
    pen.Fill(CPath::Tube(stem, 1.3, 0.5), colors::QuillVein);
}

Vec TrunkTurn(const Pose& pose) { return {std::round(pose.faceX * 2) / 2, std::round(pose.faceY * 2) / 2}; }

void DrawBody(const CPen& body, const Pose& pose)
{
    const CPath seed = Seed();
    body.Shape(seed, CPaint::Glow({-9, -60}, colors::SkinLight, 62, colors::SkinDark), colors::Line, colors::LineWidth);
    const Coverage clip = body.Cover(seed);
    Pose turned;
    turned.faceX = TrunkTurn(pose).x;
    turned.faceY = TrunkTurn(pose).y;
    const Vec face = FaceCenter(turned);
    body.Fill(CPath::Ellipse(face + Vec{0, 3}, 25.5, 22.5), CPaint::Glow(face + Vec{0, 2}, colors::Face, 34, Hex(0xF9D08A)),
              &clip);
}

void DrawHusk(const CPen& body, const Pose& pose)
{
    const double shift = TrunkTurn(pose).x * 2;
    const CPath cup = Cup(shift);
    body.Shape(cup, CPaint::Line({-16, -34}, colors::HuskLight, {14, -2}, colors::HuskDark), colors::Line,
               colors::LineWidth);
    const Coverage clip = body.Cover(cup);
    for (const double rib : {-14.0, 0.0, 14.0})
        body.Stroke(CPath::Arc({rib + shift, -26 + std::fabs(rib) * -0.18}, {rib * 1.08 + shift, -16}, {rib * 0.6, -5}),
                    Hex(0x3F7048, 0.75), 1.3, &clip);
}

}
