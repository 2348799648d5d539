#include "Parts.h"
#include <algorithm>
#include <array>
#include <cmath>

namespace nibbin {

using namespace drawing;

namespace {

// Grows in, stands, shrinks out over 0..1.
double Swell(double phase) { return std::clamp(std::min(phase / 0.25, (1 - phase) / 0.2), 0.0, 1.0); }

CPath Star4(Vec at, double radius)
{
    const double waist = radius * 0.3;
    CPath path;
    path.MoveTo(at + Vec{0, -radius});
    for (const Vec d : {Vec{1, 0}, Vec{0, 1}, Vec{-1, 0}, Vec{0, -1}}) {
        const Vec before{d.y, -d.x};
        path.QuadTo(at + (d + before) * (waist * 0.5), at + d * radius);
    }
    return path;
}

void DrawLetterZ(const CPen& root, Vec at, double size)
{
    const CPath::Contour z{at + Vec{-size, -size}, at + Vec{size, -size}, at + Vec{-size, size}, at + Vec{size, size}};
    root.Stroke(z, colors::Line, 4.4);
    root.Stroke(z, colors::Sky, 1.9);
}

void DrawSleep(const CPen& root, double phase)
{
    for (int i = 0; i < 3; ++i) {
        const double own = std::fmod(phase + i / 3.0, 1.0);
        if (own < 0.92)
            DrawLetterZ(root, {24 + own * 22 + std::sin(own * 6) * 2.5, -70 - own * 38}, 1.6 + own * 3.2);
    }
}

void DrawSparkles(const CPen& root, double phase)
{
    constexpr std::array<Vec, 7> Places{{{-46, -60}, {42, -84}, {-38, -96}, {50, -46}, {-52, -30}, {30, -104}, {-18, -106}}};
    for (std::size_t i = 0; i < Places.size(); ++i) {
        const double own = std::sin(Pi * std::clamp(phase * 1.9 - static_cast<double>(i) * 0.14, 0.0, 1.0));
        if (own > 0.1)
            root.Shape(Star4(Places[i], 3 + 5 * own), i % 2 == 0 ? colors::Gold : colors::White, colors::Line, 1.0);
    }
}

void DrawQuestion(const CPen& root, double phase)
{
    const CPen pen = root.On(Affine::Move({34, -90}) * Affine::Scale(Swell(phase), Swell(phase)) * Affine::Turn(10));
    CPath curve;
    curve.MoveTo({-5, -8}).CurveTo({-5, -16}, {7, -16}, {6, -8}).CurveTo({5, -3}, {0, -3}, {0, 3});
    const CPath::Contour line = curve.Contours().front();
    pen.Stroke(line, colors::Line, 6.4);
    pen.Fill(CPath::Ellipse({0, 9}, 3.7, 3.7), colors::Line);
    pen.Stroke(line, colors::Gold, 3.4);
    pen.Fill(CPath::Ellipse({0, 9}, 2.2, 2.2), colors::Gold);
}

void DrawExclaim(const CPen& root, double phase)
{
    const CPen pen = root.On(Affine::Move({36, -88}) * Affine::Scale(Swell(phase), Swell(phase)) * Affine::Turn(12));
    const CPath bar = CPath::Polygon({{-3, -15}, {3, -15}, {1.6, 2}, {-1.6, 2}});
    pen.Shape(bar, Hex(0xF0704F), colors::Line, 1.5);
    pen.Shape(CPath::Ellipse({0, 8}, 2.5, 2.5), Hex(0xF0704F), colors::Line, 1.5);
}

void DrawBulb(const CPen& root, double phase)
{
    const CPen pen = root.On(Affine::Move({35, -92}) * Affine::Scale(Swell(phase), Swell(phase)));
    CPath glass;
    glass.MoveTo({-3.5, 6}).CurveTo({-4, 2}, {-9, 0}, {-9, -6}).CurveTo({-9, -18}, {9, -18}, {9, -6});
    glass.CurveTo({9, 0}, {4, 2}, {3.5, 6});
    pen.Shape(glass, CPaint::Glow({-2, -8}, Hex(0xFFFBD6), 11, Hex(0xFFD75E)), colors::Line, 1.3);
    pen.Shape(CPath::Rounded({-3.4, 6}, {3.4, 10.5}, 1.4), colors::Metal, colors::Line, 1.2);
    for (const double angle : {-160.0, -125.0, -90.0, -55.0, -20.0}) {
        const Vec ray = Direction(angle), middle{0, -6};
        pen.Stroke({middle + ray * 12, middle + ray * 15.5}, colors::Line, 3.4);
        pen.Stroke({middle + ray * 12, middle + ray * 15.5}, colors::Gold, 1.7);
    }
}

void DrawConfetti(const CPen& root, double phase)
{
    constexpr std::array Colors{0xF0704FU, 0xF2C14EU, 0x63C2B0U, 0x7F8FE0U, 0xD77A9CU};
    constexpr std::array<Vec, 18> Pieces{{{-44, 0},
                                          {31, 8},
                                          {-9, 3},
                                          {50, 17},
                                          {-27, 21},
                                          {12, 12},
                                          {-52, 30},
                                          {40, 33},
                                          {-17, 38},
                                          {4, 27},
                                          {25, 42},
                                          {-37, 9},
                                          {-3, 45},
                                          {46, 5},
                                          {-47, 19},
                                          {19, 24},
                                          {-22, 29},
                                          {35, 39}}};
    double turn = 0;
    for (std::size_t i = 0; i < Pieces.size(); ++i, turn += 50) {
        const double own = std::clamp((phase - Pieces[i].y / 100) / 0.55, 0.0, 1.0);
        if (own <= 0.01 || own >= 0.97)
            continue;
        const Vec at{Pieces[i].x + 4 * std::sin(own * 7 + turn), -121 + 118 * own * (0.55 + 0.45 * own)};
        const CPen piece = root.On(Affine::Move(at) * Affine::Turn(own * 400 + turn) *
                                   Affine::Scale(1, 0.5 + 0.5 * std::fabs(std::sin(own * 8 + turn))));
        piece.Shape(CPath::Polygon({{-2.6, -2.2}, {2.6, -2.2}, {2.6, 2.2}, {-2.6, 2.2}}), Hex(Colors[i % Colors.size()]),
                    colors::Line, 0.9);
    }
}

// A small cloud with dots that come one by one.
void DrawThought(const CPen& root, double phase)
{
    root.Shape(CPath::Ellipse({25, -80}, 2.4, 2.2), colors::White, colors::Line, 1.2);
    root.Shape(CPath::Ellipse({30, -86}, 3.4, 3), colors::White, colors::Line, 1.2);
    CPath cloud;
    for (const Vec at : {Vec{33, -99}, Vec{42, -104}, Vec{51, -99}, Vec{42, -96}})
        cloud.Add(CPath::Ellipse(at, 8.2, 7.2));
    root.Shape(cloud, colors::White, colors::Line, 1.4);
    for (int dot = 0; dot < 3; ++dot)
        if (phase * 4 > dot + 0.5)
            root.Fill(CPath::Ellipse({36 + 6.0 * dot, -99.5}, 1.8, 1.8), colors::Cover);
}

// Sound that comes to the ear on the viewer's right.
void DrawWaves(const CPen& root, double phase)
{
    for (int i = 0; i < 3; ++i) {
        const double own = std::fmod(phase + i / 3.0, 1.0), distance = 17 - own * 14;
        const CPath::Contour wave = CPath::Arc({43 + distance, -58 - distance * 0.7}, {47 + distance * 1.3, -50},
                                               {43 + distance, -42 + distance * 0.7});
        root.Stroke(wave, colors::Line, 3.6);
        root.Stroke(wave, colors::Sky, 1.6);
    }
}

void DrawDrop(const CPen& root, double phase)
{
    const CPen pen = root.On(Affine::Move({27, -76 + phase * 14}) * Affine::Scale(Swell(phase), Swell(phase)));
    CPath drop;
    drop.MoveTo({0, -8})
        .CurveTo({2, -3}, {5, 0}, {4.5, 3.5})
        .CurveTo({4, 8}, {-4, 8}, {-4.5, 3.5})
        .CurveTo({-5, 0}, {-2, -3}, {0, -8});
    pen.Shape(drop, CPaint::Line({0, -6}, colors::White, {0, 6}, Hex(0x86C5E0)), colors::Line, 1.2);
}

// Three seeds thrown from hand to hand, up to over the quill.
void DrawSeeds(const CPen& root, double phase)
{
    for (int i = 0; i < 3; ++i) {
        const double way = std::fmod(phase + i / 3.0, 1.0) * 2, t = std::fmod(way, 1.0), side = way < 1 ? 1 : -1;
        const Vec at{side * (-32 + 64 * t), -58 - 54 * 4 * t * (1 - t)};
        const CPen seed = root.On(Affine::Move(at) * Affine::Turn(way * 180));
        seed.Shape(CPath::Smooth({{0, -5.5}, {3.6, 0.5}, {0, 4.5}, {-3.6, 0.5}}),
                   CPaint::Glow({-1, -1}, colors::SkinLight, 6, colors::SkinDark), colors::Line, 1.3);
        seed.Fill(CPath::Ellipse({0, 2.6}, 2.8, 1.9), colors::Husk);
    }
}

// Little clouds of dust that run apart over the ground.
void DrawPuff(const CPen& root, double phase)
{
    struct Cloud {
        double start, run, rise, size;
    };
    constexpr std::array<Cloud, 5> Clouds{
        {{-16, -24, 3, 6}, {18, 22, 2, 6.5}, {-8, -34, 9, 3.5}, {10, 34, 8, 4}, {24, 8, 14, 2.6}}};
    for (const Cloud& cloud : Clouds) {
        const double size = cloud.size * std::sin(Pi * std::clamp(phase * 0.85 + 0.15, 0.0, 1.0));
        if (size > 0.9)
            root.Shape(CPath::Ellipse({cloud.start + cloud.run * phase, -size - cloud.rise * phase}, size, size * 0.85),
                       Hex(0xF1E6D2), colors::SoftLine, 1.1);
    }
}

}

void DrawEffect(const CPen& root, const Pose& pose)
{
    if (pose.kind == Effect::None || pose.effect <= 0 || pose.effect >= 1)
        return;
    constexpr std::array Drawers{DrawSleep,   DrawSparkles, DrawQuestion, DrawExclaim, DrawBulb, DrawConfetti,
                                 DrawThought, DrawWaves,    DrawDrop,     DrawSeeds,   DrawPuff};
    Drawers[static_cast<std::size_t>(pose.kind) - 1](root, pose.effect);
}

}
