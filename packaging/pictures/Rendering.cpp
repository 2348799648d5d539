#include "Rendering.h"
#include "drawing/Pen.h"
#include <algorithm>

namespace ui::pictures {
namespace {

using drawing::Affine;
using drawing::CPaint;
using drawing::CPath;
using drawing::Rgba;
using drawing::Vec;

Vec PointAt(const float* points) { return {static_cast<double>(points[0]), static_cast<double>(points[1])}; }

CPath PathOf(const Shape& shape)
{
    CPath path;
    const float* at = shape.points;
    Vec start;
    for (std::size_t verb = 0; verb < shape.verbCount; ++verb) {
        switch (shape.verbs[verb]) {
        case Verb::Move:
            start = PointAt(at);
            path.MoveTo(start);
            at += 2;
            break;
        case Verb::Line:
            path.LineTo(PointAt(at));
            at += 2;
            break;
        case Verb::Curve:
            path.CurveTo(PointAt(at), PointAt(at + 2), PointAt(at + 4));
            at += 6;
            break;
        case Verb::Close:
            path.LineTo(start);
            break;
        }
    }
    return path;
}

Rgba ColorOf(std::uint32_t argb) { return drawing::Hex(argb & 0xFFFFFFU, (argb >> 24) / 255.0); }

Rgba ColorOf(const Paint& paint, const Rgba& ink)
{
    Rgba color = paint.ink ? ink : ColorOf(paint.first);
    color.alpha = (paint.first >> 24) / 255.0;
    return color;
}

struct Bounds {
    double top = 1e9, bottom = -1e9;
};

Bounds BoundsOf(const CPath& path)
{
    Bounds bounds;
    for (const CPath::Contour& contour : path.Contours())
        for (const Vec& point : contour) {
            bounds.top = std::min(bounds.top, point.y);
            bounds.bottom = std::max(bounds.bottom, point.y);
        }
    return bounds;
}

CPaint PaintOf(const Paint& paint, const Rgba& ink, const CPath& path)
{
    if (!paint.blended)
        return ColorOf(paint, ink);
    const Bounds bounds = BoundsOf(path);
    return CPaint::Line({0, bounds.top}, ColorOf(paint.first), {0, bounds.bottom}, ColorOf(paint.last));
}

void Draw(const drawing::CPen& pen, const Shape& shape, const Rgba& ink)
{
    const CPath path = PathOf(shape);
    if (shape.fill.first >> 24 != 0)
        pen.Fill(path, PaintOf(shape.fill, ink, path));
    if (shape.stroke.first >> 24 != 0)
        pen.Fill(path.Band(static_cast<double>(shape.strokeWidth) / 2, /*closed*/ false), ColorOf(shape.stroke, ink));
}

}

drawing::CCanvas Render(const Picture& picture, int width, int height, const Rgba& ink)
{
    drawing::CCanvas canvas(width, height);
    const double pictureWidth = static_cast<double>(picture.width), pictureHeight = static_cast<double>(picture.height);
    const double scale = std::min(width / pictureWidth, height / pictureHeight);
    const Vec corner{(width - pictureWidth * scale) / 2, (height - pictureHeight * scale) / 2};
    const drawing::CPen pen(canvas, Affine::Move(corner) * Affine::Scale(scale, scale));
    for (std::size_t shape = 0; shape < picture.shapeCount; ++shape)
        Draw(pen, picture.shapes[shape], ink);
    return canvas;
}

}
