#include "app/linux/window/Pictures.h"
#include "ui/pictures/Picture.h"
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>
#include <algorithm>

namespace pictures {
namespace {

using ui::pictures::Paint;
using ui::pictures::Picture;
using ui::pictures::Shape;
using ui::pictures::Verb;

constexpr int LargestSmallIcon = 24;
constexpr qreal DisabledOpacity = 0.4;

QPointF PointAt(const float* points) { return {static_cast<qreal>(points[0]), static_cast<qreal>(points[1])}; }

QPainterPath PathOf(const Shape& shape)
{
    QPainterPath path;
    const float* at = shape.points;
    for (std::size_t verb = 0; verb < shape.verbCount; ++verb) {
        switch (shape.verbs[verb]) {
        case Verb::Move:
            path.moveTo(PointAt(at));
            at += 2;
            break;
        case Verb::Line:
            path.lineTo(PointAt(at));
            at += 2;
            break;
        case Verb::Curve:
            path.cubicTo(PointAt(at), PointAt(at + 2), PointAt(at + 4));
            at += 6;
            break;
        case Verb::Close:
            path.closeSubpath();
            break;
        }
    }
    return path;
}

QColor ColorOf(const Paint& paint, const QColor& ink)
{
    QColor color = paint.ink ? ink : QColor::fromRgba(paint.first);
    color.setAlpha(static_cast<int>(paint.first >> 24));
    return color;
}

QBrush BrushOf(const Paint& paint, const QColor& ink, const QRectF& bounds)
{
    if (!paint.blended)
        return ColorOf(paint, ink);
    QLinearGradient gradient(bounds.topLeft(), bounds.bottomLeft());
    gradient.setColorAt(0, QColor::fromRgba(paint.first));
    gradient.setColorAt(1, QColor::fromRgba(paint.last));
    return gradient;
}

void DrawShape(QPainter& painter, const Shape& shape, const QColor& ink)
{
    const QPainterPath path = PathOf(shape);
    if (shape.fill.first >> 24 != 0)
        painter.fillPath(path, BrushOf(shape.fill, ink, path.boundingRect()));
    if (shape.stroke.first >> 24 != 0)
        painter.strokePath(path, QPen(ColorOf(shape.stroke, ink), static_cast<qreal>(shape.strokeWidth), Qt::SolidLine,
                                      Qt::RoundCap, Qt::RoundJoin));
}

class CPictureEngine final : public QIconEngine {
public:
    explicit CPictureEngine(std::string_view name) : m_name(name) {}
    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State) override
    {
        painter->save();
        if (mode == QIcon::Disabled)
            painter->setOpacity(DisabledOpacity);
        Draw(*painter, m_name, place, QGuiApplication::palette().color(QPalette::ButtonText));
        painter->restore();
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return picture;
    }
    QIconEngine* clone() const override { return new CPictureEngine(m_name); }

private:
    std::string m_name;
};

QPixmap IconPicture(int pixels)
{
    QPixmap picture(pixels, pixels);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    Draw(painter, pixels <= LargestSmallIcon ? "icon-small" : "icon", picture.rect(), Qt::black);
    return picture;
}

}

void Draw(QPainter& painter, std::string_view name, const QRectF& place, const QColor& ink)
{
    const Picture* picture = ui::pictures::Find(name);
    if (!picture || place.isEmpty())
        return;
    const qreal width = static_cast<qreal>(picture->width), height = static_cast<qreal>(picture->height);
    const qreal scale = std::min(place.width() / width, place.height() / height);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(place.center() - QPointF(width, height) * scale / 2);
    painter.scale(scale, scale);
    for (std::size_t shape = 0; shape < picture->shapeCount; ++shape)
        DrawShape(painter, picture->shapes[shape], ink);
    painter.restore();
}

QIcon IconOf(std::string_view name) { return QIcon(new CPictureEngine(name)); }

QIcon ProgramIcon()
{
    QIcon icon;
    for (const int pixels : {16, 22, 24, 32, 48, 64, 128, 256})
        icon.addPixmap(IconPicture(pixels));
    return icon;
}

}
