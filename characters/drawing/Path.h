#pragma once
#include "Geometry.h"
#include <vector>

namespace drawing {

// An outline of closed or open contours, kept as short straight pieces. Filled by the non-zero rule.
class CPath {
public:
    using Contour = std::vector<Vec>;

    CPath& MoveTo(Vec point);
    CPath& LineTo(Vec point);
    CPath& QuadTo(Vec control, Vec point);
    CPath& CurveTo(Vec control1, Vec control2, Vec point);
    CPath& Add(const CPath& other);

    static CPath Ellipse(Vec center, double radiusX, double radiusY);
    static CPath Rounded(Vec topLeft, Vec bottomRight, double radius);
    static CPath Polygon(std::vector<Vec> points);
    // A closed curve that runs softly through the points.
    static CPath Smooth(const std::vector<Vec>& points);
    // A thick line with round ends whose radius goes evenly from the first to the last point.
    static CPath Tube(const Contour& line, double firstRadius, double lastRadius);
    // The quadratic curve between two points, as a line for Tube.
    static Contour Arc(Vec from, Vec control, Vec to);

    CPath Mapped(const Affine& map) const;
    // The band of `radius` on both sides of the contours; `closed` also joins each one's end to its start.
    CPath Band(double radius, bool closed) const;

    const std::vector<Contour>& Contours() const { return m_contours; }

private:
    void AddCapsule(Vec from, double fromRadius, Vec to, double toRadius);
    std::vector<Contour> m_contours;
};

}
