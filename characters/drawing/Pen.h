#pragma once
#include "Canvas.h"

namespace drawing {

// Draws shapes given in a part's own coordinates: carries the map from there to the frame.
class CPen {
public:
    CPen(CCanvas& canvas, const Affine& map) : m_canvas(&canvas), m_map(map) {}

    CPen On(const Affine& inner) const { return {*m_canvas, m_map * inner}; }
    const Affine& Map() const { return m_map; }
    Coverage Cover(const CPath& path) const { return m_canvas->Cover(path.Mapped(m_map)); }

    void Fill(const CPath& path, const CPaint& paint, const Coverage* clip = nullptr) const;
    // A line of `width` around the shape's outside.
    void Outline(const CPath& path, const Rgba& color, double width, const Coverage* clip = nullptr) const;
    void Shape(const CPath& path, const CPaint& paint, const Rgba& line, double width) const;
    void Stroke(const CPath::Contour& line, const Rgba& color, double width, const Coverage* clip = nullptr) const;

private:
    CCanvas* m_canvas;
    Affine m_map;
};

}
