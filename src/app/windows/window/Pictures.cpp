#include "app/windows/window/Pictures.h"
#include "drawing/Canvas.h"
#include "ui/pictures/Picture.h"
#include <algorithm>
#include <cmath>

namespace appwindows::pictures {
namespace {

using drawing::CCanvas;
using drawing::CPath;
using drawing::Rgba;
using drawing::Vec;
using ui::pictures::Paint;
using ui::pictures::Picture;
using ui::pictures::Shape;
using ui::pictures::Verb;

constexpr int LargestSmallIcon = 24;
constexpr int ProgramIconId = 1;

// From a picture's own units to pixels.
struct Scale {
    double factor = 1;
    Vec shift;
    Vec operator()(const float* point) const
    {
        return {static_cast<double>(point[0]) * factor + shift.x, static_cast<double>(point[1]) * factor + shift.y};
    }
};

struct Outline {
    CPath path;
    bool closed = false;
};

std::vector<Outline> OutlinesOf(const Shape& shape, const Scale& scale)
{
    std::vector<Outline> outlines;
    const float* at = shape.points;
    for (std::size_t verb = 0; verb < shape.verbCount; ++verb) {
        switch (shape.verbs[verb]) {
        case Verb::Move:
            outlines.emplace_back().path.MoveTo(scale(at));
            at += 2;
            break;
        case Verb::Line:
            outlines.back().path.LineTo(scale(at));
            at += 2;
            break;
        case Verb::Curve:
            outlines.back().path.CurveTo(scale(at), scale(at + 2), scale(at + 4));
            at += 6;
            break;
        case Verb::Close:
            outlines.back().closed = true;
            break;
        }
    }
    return outlines;
}

Rgba FromArgb(std::uint32_t color) { return drawing::Hex(color & 0xFFFFFF, static_cast<double>(color >> 24) / 255); }

Rgba ColorOf(const Paint& paint, const Rgba& ink)
{
    Rgba color = paint.ink ? ink : FromArgb(paint.first);
    color.alpha = FromArgb(paint.first).alpha;
    return color;
}

drawing::CPaint FillOf(const Paint& paint, const Rgba& ink, const CPath& path)
{
    if (!paint.blended)
        return ColorOf(paint, ink);
    double top = 1e9, bottom = -1e9;
    for (const CPath::Contour& contour : path.Contours())
        for (const Vec& point : contour) {
            top = std::min(top, point.y);
            bottom = std::max(bottom, point.y);
        }
    return drawing::CPaint::Line({0, top}, FromArgb(paint.first), {0, bottom}, FromArgb(paint.last));
}

void DrawShape(CCanvas& canvas, const Shape& shape, const Scale& scale, const Rgba& ink)
{
    const std::vector<Outline> outlines = OutlinesOf(shape, scale);
    CPath whole, lines;
    for (const Outline& outline : outlines) {
        whole.Add(outline.path);
        if (shape.stroke.first >> 24 != 0)
            lines.Add(outline.path.Band(static_cast<double>(shape.strokeWidth) * scale.factor / 2, outline.closed));
    }
    if (shape.fill.first >> 24 != 0)
        canvas.Fill(whole, FillOf(shape.fill, ink, whole));
    if (shape.stroke.first >> 24 != 0)
        canvas.Fill(lines, ColorOf(shape.stroke, ink));
}

Scale ScaleInto(const Picture& picture, SIZE size)
{
    const double width = static_cast<double>(picture.width), height = static_cast<double>(picture.height);
    const double factor = std::min(static_cast<double>(size.cx) / width, static_cast<double>(size.cy) / height);
    return {factor,
            {(static_cast<double>(size.cx) - width * factor) / 2, (static_cast<double>(size.cy) - height * factor) / 2}};
}

// 0xAARRGGBB, premultiplied.
std::uint32_t PixelOf(const Rgba& color)
{
    const auto part = [](double value) {
        return static_cast<std::uint32_t>(std::lround(std::clamp(value, 0.0, 1.0) * 255));
    };
    return part(color.alpha) << 24 | part(color.red * color.alpha) << 16 | part(color.green * color.alpha) << 8 |
           part(color.blue * color.alpha);
}

struct Bitmap {
    Gdi<HBITMAP> handle;
    std::uint32_t* pixels = nullptr;
};

Bitmap MakeBitmap(SIZE size)
{
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = size.cx;
    info.bmiHeader.biHeight = -size.cy;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void* pixels = nullptr;
    Bitmap bitmap;
    bitmap.handle.reset(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0));
    bitmap.pixels = static_cast<std::uint32_t*>(pixels);
    return bitmap;
}

HICON DrawIcon(int pixels)
{
    const Gdi<HBITMAP> color = Draw(pixels <= LargestSmallIcon ? "icon-small" : "icon", {pixels, pixels}, 0);
    const std::vector<unsigned char> nothing(static_cast<std::size_t>((pixels + 15) / 16 * 2 * pixels), 0);
    const Gdi<HBITMAP> mask(CreateBitmap(pixels, pixels, 1, 1, nothing.data()));
    ICONINFO icon = {};
    icon.fIcon = TRUE;
    icon.hbmColor = color.get();
    icon.hbmMask = mask.get();
    return CreateIconIndirect(&icon);
}

}

Gdi<HBITMAP> Draw(std::string_view name, SIZE size, COLORREF ink)
{
    const Picture* picture = ui::pictures::Find(name);
    if (!picture || size.cx <= 0 || size.cy <= 0)
        return {};
    CCanvas canvas(static_cast<int>(size.cx), static_cast<int>(size.cy));
    const Scale scale = ScaleInto(*picture, size);
    const Rgba inkColor = {GetRValue(ink) / 255.0, GetGValue(ink) / 255.0, GetBValue(ink) / 255.0, 1};
    for (std::size_t shape = 0; shape < picture->shapeCount; ++shape)
        DrawShape(canvas, picture->shapes[shape], scale, inkColor);
    Bitmap bitmap = MakeBitmap(size);
    if (bitmap.pixels)
        for (int y = 0; y < canvas.Height(); ++y)
            for (int x = 0; x < canvas.Width(); ++x)
                bitmap.pixels[static_cast<std::ptrdiff_t>(y) * canvas.Width() + x] = PixelOf(canvas.At(x, y));
    return std::move(bitmap.handle);
}

void Lay(HDC dc, HBITMAP bitmap, const Rectangle& place)
{
    if (!bitmap)
        return;
    const CMemoryDc source;
    const CSelected selected(source.Get(), bitmap);
    const BLENDFUNCTION blend = {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
    GdiAlphaBlend(dc, place.x, place.y, place.width, place.height, source.Get(), 0, 0, place.width, place.height, blend);
}

HICON ProgramIcon(int pixels)
{
    HANDLE own = LoadImageW(ProgramInstance(), MAKEINTRESOURCEW(ProgramIconId), IMAGE_ICON, pixels, pixels, LR_DEFAULTCOLOR);
    return own ? static_cast<HICON>(own) : DrawIcon(pixels);
}

}
