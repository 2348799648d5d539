#include "app/windows/window/Pictures.h"
#include "app/windows/ResourceIds.h"
#include "packaging/pictures/Rendering.h"
#include <algorithm>
#include <cmath>

namespace appwindows::pictures {
namespace {

using drawing::CCanvas;
using drawing::Rgba;
using ui::pictures::Picture;

constexpr int LargestSmallIcon = 24;

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
    const Rgba inkColor = {GetRValue(ink) / 255.0, GetGValue(ink) / 255.0, GetBValue(ink) / 255.0, 1};
    const CCanvas canvas = ui::pictures::Render(*picture, static_cast<int>(size.cx), static_cast<int>(size.cy), inkColor);
    Bitmap bitmap = MakeBitmap(size);
    if (bitmap.pixels)
        for (int y = 0; y < canvas.Height(); ++y)
            for (int x = 0; x < canvas.Width(); ++x)
                bitmap.pixels[static_cast<std::ptrdiff_t>(y) * canvas.Width() + x] = PixelOf(canvas.At(x, y));
    return std::move(bitmap.handle);
}

Gdi<HBITMAP> ToolBarStrip(int pixels, COLORREF ink)
{
    constexpr COLORREF InkOfResources = RGB(0, 0, 0);
    if (ink != InkOfResources)
        return {};
    return Gdi<HBITMAP>(static_cast<HBITMAP>(
        LoadImageW(ProgramInstance(), MAKEINTRESOURCEW(pixels), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION)));
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
    HANDLE own = LoadImageW(ProgramInstance(), MAKEINTRESOURCEW(PARLUNE_ICON), IMAGE_ICON, pixels, pixels, LR_DEFAULTCOLOR);
    return own ? static_cast<HICON>(own) : DrawIcon(pixels);
}

}
