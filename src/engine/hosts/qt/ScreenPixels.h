#pragma once
#include "engine/Geometry.h"
#include <QPoint>
#include <QPointF>
#include <QRect>

// Between Qt's positions and device pixels. A screen's origin is the same in both; inside the screen Qt's positions are
// device pixels divided by the screen's pixel ratio.
namespace engine {

// Where a rectangle of device pixels lies for Qt: the smallest rectangle of Qt's that holds it.
struct QtPlace {
    QRect geometry;    // For QWidget::setGeometry.
    QPoint offset;     // Device pixels from that rectangle's top left corner to the wanted one.
    double ratio = 1;  // Device pixels per unit of Qt.
};
QtPlace PlaceForQt(const Rect& pixels);

// A global position of Qt as device pixels.
Point PixelsOf(const QPointF& global);

// The usable part of the screen nearest to a point. An empty rectangle when there is no screen.
Rect WorkAreaNear(Point near);

// Device pixels per inch of the main screen, for fonts. At least 1.
double PixelsPerInch();

}
