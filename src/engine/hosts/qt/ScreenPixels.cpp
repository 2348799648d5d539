#include "engine/hosts/qt/ScreenPixels.h"
#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <cmath>
#include <limits>

namespace engine {
namespace {

// A rectangle inside a screen, from Qt's units to pixels.
QRect ToPixels(const QRect& units, const QScreen& screen)
{
    const QPoint origin = screen.geometry().topLeft();
    const double ratio = screen.devicePixelRatio();
    const QPoint topLeft = origin + ((units.topLeft() - origin).toPointF() * ratio).toPoint();
    return {topLeft, (units.size().toSizeF() * ratio).toSize()};
}

int DistanceOutside(int value, int first, int last) { return std::max({first - value, value - last, 0}); }

// How far a point lies outside a rectangle, in pixels along both axes together.
std::int64_t Distance(const QRect& area, const QPoint& point)
{
    return std::int64_t{DistanceOutside(point.x(), area.left(), area.right())} +
           DistanceOutside(point.y(), area.top(), area.bottom());
}

template <class AreaOf> const QScreen* Nearest(const QPoint& point, AreaOf areaOf)
{
    const QScreen* nearest = nullptr;
    auto best = std::numeric_limits<std::int64_t>::max();
    for (const QScreen* screen : QGuiApplication::screens()) {
        const std::int64_t distance = Distance(areaOf(*screen), point);
        if (distance < best) {
            best = distance;
            nearest = screen;
        }
    }
    return nearest;
}

const QScreen* ScreenAtPixel(const QPoint& pixel)
{
    return Nearest(pixel, [](const QScreen& screen) { return ToPixels(screen.geometry(), screen); });
}

int Bounded(double value) { return static_cast<int>(std::clamp(value, -1e6, 1e6)); }

// Characters may be told to stand anywhere; X knows 16 bits.
int BoundedPixel(std::int32_t value) { return std::clamp(value, -30000, 30000); }

}

QtPlace PlaceForQt(const Rect& pixels)
{
    const QRect wanted(BoundedPixel(pixels.left), BoundedPixel(pixels.top), std::clamp(pixels.width, 1, 16000),
                       std::clamp(pixels.height, 1, 16000));
    const QScreen* screen = ScreenAtPixel(wanted.center());
    if (!screen || screen->devicePixelRatio() == 1.0)
        return {wanted, {}, 1};
    const QPoint origin = screen->geometry().topLeft();
    const double ratio = screen->devicePixelRatio();
    const QPoint corner = wanted.topLeft() - origin;
    const QPoint first(Bounded(std::floor(corner.x() / ratio)), Bounded(std::floor(corner.y() / ratio)));
    const QPoint offset(corner.x() - qRound(first.x() * ratio), corner.y() - qRound(first.y() * ratio));
    const QSize size(Bounded(std::ceil((offset.x() + wanted.width()) / ratio)),
                     Bounded(std::ceil((offset.y() + wanted.height()) / ratio)));
    return {QRect(origin + first, size), offset, ratio};
}

Point PixelsOf(const QPointF& global)
{
    const QScreen* screen = Nearest(global.toPoint(), [](const QScreen& each) { return each.geometry(); });
    if (!screen)
        return {qRound(global.x()), qRound(global.y())};
    const QPointF origin = screen->geometry().topLeft();
    const QPointF pixel = origin + (global - origin) * screen->devicePixelRatio();
    return {qRound(pixel.x()), qRound(pixel.y())};
}

Rect WorkAreaNear(Point near)
{
    const QScreen* screen = ScreenAtPixel({near.x, near.y});
    if (!screen)
        return {};
    const QRect area = ToPixels(screen->availableGeometry(), *screen);
    return {area.left(), area.top(), area.width(), area.height()};
}

double PixelsPerInch()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? std::max(1.0, screen->logicalDotsPerInchY() * screen->devicePixelRatio()) : 96.0;
}

}
