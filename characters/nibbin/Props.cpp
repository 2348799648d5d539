#include "Parts.h"
#include <algorithm>
#include <cmath>

namespace nibbin {

using namespace drawing;

namespace {

constexpr double CoverWidth = 27, CoverHeight = 22;

// One half of the book as the viewer sees it: the outside of a cover, with the paper's edge above it.
void DrawHalf(const CPen& book, double side, double open)
{
    const double width = side * CoverWidth * (0.42 + 0.58 * open), drop = 3 * open;
    const CPath pages =
        CPath::Polygon({{0, -CoverHeight - 1}, {width * 0.95, -CoverHeight - 1 - drop}, {width * 0.95, -6}, {0, -3}});
    book.Shape(pages, CPaint::Line({0, -20}, colors::PaperShade, {width, -20}, colors::Paper), colors::Line, 1.1);
    const CPath cover = CPath::Polygon({{0, -CoverHeight + 1}, {width, -CoverHeight + 1 - drop}, {width, -drop}, {0, 0}});
    book.Shape(cover, CPaint::Line({0, 0}, colors::CoverDark, {width, -6}, colors::Cover), colors::Line, colors::LineWidth);
    if (open < 0.5)
        return;
    const CPath frame = CPath::Polygon({{width * 0.2, -CoverHeight + 4.5},
                                        {width * 0.84, -CoverHeight + 4 - drop},
                                        {width * 0.84, -3.4 - drop},
                                        {width * 0.2, -3.2}});
    book.Fill(frame.Band(0.5, true), colors::Gold);
}

// The page that is being turned: a sheet standing up from the spine.
void DrawPage(const CPen& book, double page)
{
    if (page <= 0.02 || page >= 0.98)
        return;
    const double angle = Pi * page, reach = -std::cos(angle) * (CoverWidth - 2), rise = std::sin(angle) * 15;
    const Vec tip{reach, -CoverHeight - 2 - rise};
    CPath sheet;
    sheet.MoveTo({0, -CoverHeight}).QuadTo({reach * 0.35, -CoverHeight - 3 - rise * 0.3}, tip);
    sheet.LineTo({reach, -CoverHeight + 4 - rise * 0.6}).LineTo({0, -CoverHeight + 4});
    book.Shape(sheet, CPaint::Line({0, 0}, colors::PaperShade, {reach, 0}, colors::Paper), colors::Line, 1.0);
}

void DrawPencil(const CPen& hand)
{
    hand.Shape(CPath::Polygon({{-2.1, -9}, {2.1, -9}, {2.1, 8}, {0, 13}, {-2.1, 8}}), colors::Gold, colors::Line, 1.2);
    hand.Fill(CPath::Polygon({{-2.1, 8}, {2.1, 8}, {0, 13}}), colors::Paper);
    hand.Fill(CPath::Polygon({{-0.9, 10.8}, {0.9, 10.8}, {0, 13}}), colors::Line);
    hand.Fill(CPath::Polygon({{-2.1, -9}, {2.1, -9}, {2.1, -6.5}, {-2.1, -6.5}}), colors::ShoeLight);
}

void DrawMagnifier(const CPen& hand)
{
    hand.Shape(CPath::Rounded({-2, -8}, {2, 8}, 1.8), colors::Shoe, colors::Line, 1.2);
    const CPath ring = CPath::Ellipse({0, -18}, 11, 11), glass = CPath::Ellipse({0, -18}, 9, 9);
    hand.Fill(ring.Band(colors::LineWidth, true), colors::Line);
    hand.Fill(ring.Band(0.4, true), colors::Metal);
    hand.Fill(glass.Band(1.6, true), colors::Metal);
    hand.Fill(glass, Hex(0xD7F0F7, 0.45));
    hand.Stroke(CPath::Arc({-5.5, -19}, {-4.5, -23.5}, {0, -24}), Hex(0xFFFFFF, 0.9), 1.6);
}

CPath Star(double radius, double waist)
{
    std::vector<Vec> points;
    for (int i = 0; i < 10; ++i)
        points.push_back(Direction(-90 + 36.0 * i) * (i % 2 == 0 ? radius : waist));
    return CPath::Polygon(points);
}

void DrawWand(const CPen& hand)
{
    hand.Shape(CPath::Rounded({-1.4, -14}, {1.4, 9}, 1.2), colors::Rim, colors::Line, 1.2);
    hand.On(Affine::Move({0, -18})).Shape(Star(7, 3.2), colors::Gold, colors::Line, 1.2);
}

void DrawHorn(const CPen& hand)
{
    CPath horn;
    horn.MoveTo({-2.2, 10})
        .CurveTo({-2.2, -6}, {-4, -15}, {-12, -23})
        .LineTo({12, -23})
        .CurveTo({4, -15}, {2.2, -6}, {2.2, 10});
    hand.Shape(horn, CPaint::Line({-9, -10}, colors::Cover, {9, -8}, colors::CoverDark), colors::Line, colors::LineWidth);
    hand.Shape(CPath::Ellipse({0, -23}, 12, 3.8), colors::Gold, colors::Line, 1.2);
    hand.Fill(CPath::Ellipse({0, -23}, 9.4, 2.4), Hex(0x7A4A1E));
}

}

void DrawBook(const CPen& body, const Pose& pose)
{
    if (pose.book <= 0.02)
        return;
    const double size = 0.35 + 0.65 * pose.book;
    const CPen book = body.On(Affine::Move({0, -3 - 3 * pose.book}) * Affine::Scale(size, size));
    DrawHalf(book, RightSide, pose.bookOpen);
    DrawHalf(book, LeftSide, pose.bookOpen);
    DrawPage(book, pose.page);
    book.Fill(CPath::Rounded({-1.8, -CoverHeight}, {1.8, 0.6}, 1.2), colors::CoverDark);
}

// A pad before the belly, its lower edge in the left hand.
void DrawPad(const CPen& body, const Pose& pose)
{
    if (pose.pad <= 0.02)
        return;
    const Vec hand = HandOf(pose.left, LeftSide);
    const CPen pad = body.On(Affine::Move(hand + Vec{-14, -5}) * Affine::Turn(-6) * Affine::Scale(pose.pad, pose.pad));
    pad.Shape(CPath::Rounded({-12, -13}, {12, 15}, 2), colors::Paper, colors::Line, colors::LineWidth);
    pad.Fill(CPath::Rounded({-12, -13}, {12, -9}, 2), colors::Cover);
    for (int line = 0; line < 5; ++line) {
        const double length = std::clamp(pose.padLines * 5 - line, 0.0, 1.0) * (line == 4 ? 10 : 17);
        if (length > 0.5)
            pad.Stroke({{-8.5, -5.5 + 4.0 * line}, {-8.5 + length, -5.5 + 4.0 * line}}, Hex(0x5B6FA8), 1.2);
    }
}

void DrawTool(const CPen& body, const Pose& pose)
{
    if (pose.toolSize <= 0.02 || pose.tool == Tool::None)
        return;
    const CPen hand = body.On(Affine::Move(HandOf(pose.right, RightSide)) * Affine::Turn(pose.toolTurn) *
                              Affine::Scale(pose.toolSize, pose.toolSize));
    switch (pose.tool) {
    case Tool::Pencil:
        return DrawPencil(hand);
    case Tool::Magnifier:
        return DrawMagnifier(hand);
    case Tool::Wand:
        return DrawWand(hand);
    case Tool::Horn:
        return DrawHorn(hand);
    case Tool::None:
        return;
    }
}

}
