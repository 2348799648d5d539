#pragma once
#include "Geometry.h"

namespace drawing {

// Parts 0..1, not premultiplied.
struct Rgba {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;
};

// 0xRRGGBB as an opaque colour.
constexpr Rgba Hex(unsigned value, double alpha = 1)
{
    return {((value >> 16) & 255) / 255.0, ((value >> 8) & 255) / 255.0, (value & 255) / 255.0, alpha};
}
Rgba Mix(const Rgba& a, const Rgba& b, double share);

// What a shape is filled with: one colour, or two along a line, or two from a centre outwards.
class CPaint {
public:
    CPaint(const Rgba& color) : m_first(color), m_last(color) {}
    static CPaint Line(Vec from, const Rgba& first, Vec to, const Rgba& last);
    static CPaint Glow(Vec center, const Rgba& middle, double radius, const Rgba& edge);

    CPaint Mapped(const Affine& map) const;
    Rgba At(Vec point) const;

private:
    enum class Kind { Plain, Line, Glow };
    Kind m_kind = Kind::Plain;
    Rgba m_first;
    Rgba m_last;
    Vec m_from;
    Vec m_to;
    double m_radius = 1;
};

}
