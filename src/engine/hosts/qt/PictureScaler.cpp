#include "engine/hosts/qt/PictureScaler.h"
#include <algorithm>
#include <cstring>

namespace engine {
namespace {

constexpr std::int32_t LargestDoubled = 2048;
constexpr double OutlineSteepness = 1.6;

bool Fits(const Bitmap& picture)
{
    const Size size = picture.size;
    return size.width > 0 && size.height > 0 && size.width <= 16000 && size.height <= 16000 &&
           picture.pixels.size() == static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height);
}

QRgb* Row(QImage& image, int y) { return reinterpret_cast<QRgb*>(image.scanLine(y)); }
const QRgb* Row(const QImage& image, int y) { return reinterpret_cast<const QRgb*>(image.constScanLine(y)); }

// All transparent pixels alike, so that comparing colours finds the outline. With alpha 0 or 255 only, such pixels are
// premultiplied already.
QImage ImageOf(const Bitmap& picture)
{
    QImage image(picture.size.width, picture.size.height, QImage::Format_ARGB32_Premultiplied);
    const std::uint32_t* from = picture.pixels.data();
    for (int y = 0; y < picture.size.height; ++y, from += picture.size.width)
        std::transform(from, from + picture.size.width, Row(image, y),
                       [](std::uint32_t pixel) { return (pixel >> 24) >= 128 ? (pixel | 0xFF000000U) : 0U; });
    return image;
}

// One pixel becomes four; a corner takes the colour of two equal neighbours that meet there.
void DoublePixel(QRgb centre, QRgb up, QRgb down, QRgb left, QRgb right, QRgb* upper, QRgb* lower)
{
    const bool edge = up != down && left != right;
    upper[0] = edge && left == up ? left : centre;
    upper[1] = edge && up == right ? right : centre;
    lower[0] = edge && left == down ? left : centre;
    lower[1] = edge && down == right ? right : centre;
}

QImage Doubled(const QImage& image)
{
    QImage result(image.size() * 2, image.format());
    const int lastX = image.width() - 1;
    const int lastY = image.height() - 1;
    for (int y = 0; y <= lastY; ++y) {
        const QRgb* above = Row(image, std::max(y - 1, 0));
        const QRgb* row = Row(image, y);
        const QRgb* below = Row(image, std::min(y + 1, lastY));
        QRgb* upper = Row(result, 2 * y);
        QRgb* lower = Row(result, 2 * y + 1);
        for (int x = 0; x <= lastX; ++x)
            DoublePixel(row[x], above[x], below[x], row[std::max(x - 1, 0)], row[std::min(x + 1, lastX)], upper + 2 * x,
                        lower + 2 * x);
    }
    return result;
}

// Enough pixels for the smoothing that follows: at least twice the wanted size when the picture grows.
QImage DoubledFor(QImage image, const QSize& size)
{
    const bool grows = size.width() > image.width() || size.height() > image.height();
    while (grows && (image.width() < 2 * size.width() || image.height() < 2 * size.height()) &&
           std::max(image.width(), image.height()) < LargestDoubled)
        image = Doubled(image);
    return image;
}

// Smoothing spreads the outline over several pixels; a steeper course of alpha makes it crisp again.
int Steeper(int alpha, bool soft)
{
    if (!soft)
        return alpha >= 128 ? 255 : 0;
    return std::clamp(static_cast<int>((alpha - 127.5) * OutlineSteepness + 127.5), 0, 255);
}

QRgb WithOutline(QRgb pixel, bool soft)
{
    const int alpha = qAlpha(pixel);
    if (alpha == 0 || alpha == 255)
        return pixel;
    const QRgb color = qUnpremultiply(pixel);
    return qPremultiply(qRgba(qRed(color), qGreen(color), qBlue(color), Steeper(alpha, soft)));
}

}

QImage ScalePicture(const Bitmap& picture, const QSize& size, bool softEdges)
{
    if (!Fits(picture) || size.isEmpty())
        return {};
    const QImage image = ImageOf(picture);
    if (image.size() == size)
        return image;
    QImage result = DoubledFor(image, size).scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    result.convertTo(QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < result.height(); ++y)
        std::transform(Row(result, y), Row(result, y) + result.width(), Row(result, y),
                       [softEdges](QRgb pixel) { return WithOutline(pixel, softEdges); });
    return result;
}

}
