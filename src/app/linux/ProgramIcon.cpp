#include "app/linux/ProgramIcon.h"
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace {
constexpr QColor Body(0x2F, 0x7F, 0x8C);
constexpr QColor Edge(0x1B, 0x4E, 0x57);
constexpr QColor Face(0xFF, 0xFF, 0xFF);

// All in a square of 32 units.
QPainterPath Balloon()
{
    QPainterPath body, tail;
    body.addRoundedRect(QRectF(2, 3, 28, 20), 8, 8);
    tail.moveTo(8, 20);
    tail.lineTo(7, 30);
    tail.lineTo(17, 21);
    tail.closeSubpath();
    return body.united(tail);
}

void DrawFace(QPainter& painter)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(Face);
    painter.drawEllipse(QRectF(9.5, 8, 4, 5));
    painter.drawEllipse(QRectF(18.5, 8, 4, 5));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Face, 2, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(QRectF(11, 8, 10, 10), 200 * 16, 140 * 16);
}

QPixmap Picture(int pixels)
{
    QPixmap picture(pixels, pixels);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(pixels / 32.0, pixels / 32.0);
    painter.setPen(QPen(Edge, 1.5));
    painter.setBrush(Body);
    painter.drawPath(Balloon());
    DrawFace(painter);
    return picture;
}
}

QIcon ProgramIcon()
{
    QIcon icon;
    for (const int pixels : {16, 22, 24, 32, 48, 64, 128, 256})
        icon.addPixmap(Picture(pixels));
    return icon;
}
