#include "Pen.h"

namespace drawing {

void CPen::Fill(const CPath& path, const CPaint& paint, const Coverage* clip) const
{
    m_canvas->Fill(path.Mapped(m_map), paint.Mapped(m_map), clip);
}

void CPen::Outline(const CPath& path, const Rgba& color, double width, const Coverage* clip) const
{
    m_canvas->Fill(path.Mapped(m_map).Band(width, /*closed*/ true), color, clip);
}

void CPen::Shape(const CPath& path, const CPaint& paint, const Rgba& line, double width) const
{
    Outline(path, line, width);
    Fill(path, paint);
}

void CPen::Stroke(const CPath::Contour& line, const Rgba& color, double width, const Coverage* clip) const
{
    m_canvas->Fill(CPath::Tube(line, width / 2, width / 2).Mapped(m_map), color, clip);
}

}
