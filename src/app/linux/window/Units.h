#pragma once
#include "ui/controls/CControl.h"
#include "ui/layout/FormLayout.h"
#include <QRect>
#include <QWidget>

// Dialog units in pixels.
struct Units {
    double x = 1.75;
    double y = 2;
    QSize ToPixels(int width, int height) const;
    QRect ToPixels(const ui::layout::Rectangle& place) const;
};

// The units of a widget's font: a quarter of the average character's width, an eighth of the height.
Units UnitsOf(const QWidget& widget);

// The units of a widget's font, enlarged until every caption of the form fits into its place and every box is as high as the
// desktop's style wants it.
Units UnitsThatFit(const QWidget& widget, const ui::CForm& form, const ui::layout::FormLayout& layout);
