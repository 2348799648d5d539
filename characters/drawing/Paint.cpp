#include "Paint.h"
#include <algorithm>

namespace drawing {

Rgba Mix(const Rgba& a, const Rgba& b, double share)
{
    const double rest = 1 - share;
    return {a.red * rest + b.red * share, a.green * rest + b.green * share, a.blue * rest + b.blue * share,
            a.alpha * rest + b.alpha * share};
}

CPaint CPaint::Line(Vec from, const Rgba& first, Vec to, const Rgba& last)
{
    CPaint paint(first);
    paint.m_kind = Kind::Line;
    paint.m_last = last;
    paint.m_from = from;
    paint.m_to = to;
    return paint;
}

CPaint CPaint::Glow(Vec center, const Rgba& middle, double radius, const Rgba& edge)
{
    CPaint paint(middle);
    paint.m_kind = Kind::Glow;
    paint.m_last = edge;
    paint.m_from = center;
    paint.m_radius = radius;
    return paint;
}

CPaint CPaint::Mapped(const Affine& map) const
{
    CPaint paint = *this;
    paint.m_from = map(m_from);
    paint.m_to = map(m_to);
    paint.m_radius = m_radius * map.MeanScale();
    return paint;
}

Rgba CPaint::At(Vec point) const
{
    if (m_kind == Kind::Plain)
        return m_first;
    double share = Length(point - m_from) / m_radius;
    if (m_kind == Kind::Line) {
        const Vec along = m_to - m_from, offset = point - m_from;
        share = (offset.x * along.x + offset.y * along.y) / (along.x * along.x + along.y * along.y);
    }
    return Mix(m_first, m_last, std::clamp(share, 0.0, 1.0));
}

}
