#include "Path.h"

namespace drawing {

namespace {

constexpr int CurvePieces = 14;
constexpr int CapPieces = 9;

Vec Bezier(Vec a, Vec b, Vec c, Vec d, double t)
{
    const Vec ab = Mix(a, b, t), bc = Mix(b, c, t), cd = Mix(c, d, t);
    return Mix(Mix(ab, bc, t), Mix(bc, cd, t), t);
}

}

CPath& CPath::MoveTo(Vec point)
{
    m_contours.push_back({point});
    return *this;
}

CPath& CPath::LineTo(Vec point)
{
    m_contours.back().push_back(point);
    return *this;
}

CPath& CPath::QuadTo(Vec control, Vec point)
{
    const Vec start = m_contours.back().back();
    return CurveTo(Mix(start, control, 2.0 / 3), Mix(point, control, 2.0 / 3), point);
}

CPath& CPath::CurveTo(Vec control1, Vec control2, Vec point)
{
    const Vec start = m_contours.back().back();
    for (int piece = 1; piece <= CurvePieces; ++piece)
        LineTo(Bezier(start, control1, control2, point, static_cast<double>(piece) / CurvePieces));
    return *this;
}

CPath& CPath::Add(const CPath& other)
{
    m_contours.insert(m_contours.end(), other.m_contours.begin(), other.m_contours.end());
    return *this;
}

CPath CPath::Ellipse(Vec center, double radiusX, double radiusY)
{
    constexpr int Pieces = 40;
    CPath path;
    for (int piece = 0; piece < Pieces; ++piece) {
        const Vec d = Direction(360.0 * piece / Pieces);
        const Vec point = center + Vec{d.x * radiusX, d.y * radiusY};
        piece == 0 ? path.MoveTo(point) : path.LineTo(point);
    }
    return path;
}

CPath CPath::Rounded(Vec topLeft, Vec bottomRight, double radius)
{
    const double l = topLeft.x, t = topLeft.y, r = bottomRight.x, b = bottomRight.y;
    CPath path;
    path.MoveTo({l + radius, t}).LineTo({r - radius, t}).QuadTo({r, t}, {r, t + radius});
    path.LineTo({r, b - radius}).QuadTo({r, b}, {r - radius, b});
    path.LineTo({l + radius, b}).QuadTo({l, b}, {l, b - radius});
    path.LineTo({l, t + radius}).QuadTo({l, t}, {l + radius, t});
    return path;
}

CPath CPath::Polygon(std::vector<Vec> points)
{
    CPath path;
    path.m_contours.push_back(std::move(points));
    return path;
}

CPath CPath::Smooth(const std::vector<Vec>& points)
{
    const std::size_t count = points.size();
    CPath path;
    path.MoveTo(points.front());
    for (std::size_t i = 0; i < count; ++i) {
        const Vec before = points[(i + count - 1) % count], from = points[i];
        const Vec to = points[(i + 1) % count], after = points[(i + 2) % count];
        path.CurveTo(from + (to - before) * (1.0 / 6), to - (after - from) * (1.0 / 6), to);
    }
    return path;
}

CPath CPath::Tube(const Contour& line, double firstRadius, double lastRadius)
{
    CPath path;
    const double last = static_cast<double>(line.size() - 1);
    for (std::size_t i = 0; i + 1 < line.size(); ++i) {
        const double share = static_cast<double>(i) / last, next = static_cast<double>(i + 1) / last;
        path.AddCapsule(line[i], firstRadius + (lastRadius - firstRadius) * share, line[i + 1],
                        firstRadius + (lastRadius - firstRadius) * next);
    }
    return path;
}

CPath::Contour CPath::Arc(Vec from, Vec control, Vec to)
{
    CPath path;
    path.MoveTo(from).QuadTo(control, to);
    return path.m_contours.front();
}

CPath CPath::Mapped(const Affine& map) const
{
    CPath result = *this;
    for (Contour& contour : result.m_contours)
        for (Vec& point : contour)
            point = map(point);
    return result;
}

CPath CPath::Band(double radius, bool closed) const
{
    CPath band;
    for (const Contour& contour : m_contours) {
        for (std::size_t i = 0; i + 1 < contour.size(); ++i)
            band.AddCapsule(contour[i], radius, contour[i + 1], radius);
        if (closed || contour.size() == 1)
            band.AddCapsule(contour.back(), radius, contour.front(), radius);
    }
    return band;
}

// All capsules run the same way round, so that the non-zero rule unites them.
void CPath::AddCapsule(Vec from, double fromRadius, Vec to, double toRadius)
{
    const double angle = AngleOf(to - from);
    Contour capsule;
    for (int i = 0; i <= CapPieces; ++i)
        capsule.push_back(to + Direction(angle - 90 + 180.0 * i / CapPieces) * toRadius);
    for (int i = 0; i <= CapPieces; ++i)
        capsule.push_back(from + Direction(angle + 90 + 180.0 * i / CapPieces) * fromRadius);
    m_contours.push_back(std::move(capsule));
}

}
