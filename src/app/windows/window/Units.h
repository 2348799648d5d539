#pragma once
#include "app/windows/window/Window.h"
#include "ui/controls/CControl.h"

namespace appwindows {

// Dialog units in pixels.
struct Units {
    double x = 1.75;
    double y = 2;
    SIZE ToPixels(int width, int height) const;
    Rectangle ToPixels(const Rectangle& place) const;
};

// The units of a font: a quarter of the average character's width, an eighth of the height.
Units UnitsOf(HFONT font);

// The units of a font, enlarged until every caption of the form fits into its place and every box is as high as the system
// wants it.
Units UnitsThatFit(HFONT font, int dpi, const ui::CForm& form, const ui::layout::FormLayout& layout);

}
