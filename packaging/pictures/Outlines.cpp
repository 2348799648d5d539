#include "Svg.h"
#include <cctype>
#include <regex>
#include <stdexcept>

namespace svg {
namespace {

using ui::pictures::Verb;

constexpr double Round = 0.5522847498;  // Of a quarter circle's radius: where its curve's handles are.

// Walks through a path's commands.
class CPathWalk {
public:
    explicit CPathWalk(Shape& shape) : m_shape(shape) {}
    void Run(char command, const std::vector<double>& values)
    {
        const bool relative = std::islower(static_cast<unsigned char>(command)) != 0;
        const std::size_t step = StepOf(static_cast<char>(std::toupper(static_cast<unsigned char>(command))));
        if (step == 0)
            return Close();
        if (values.empty() || values.size() % step != 0)
            throw std::runtime_error(std::string("path command ") + command + " has a wrong count of numbers");
        for (std::size_t at = 0; at < values.size(); at += step) {
            m_from[0] = relative ? m_x : 0;
            m_from[1] = relative ? m_y : 0;
            One(static_cast<char>(std::toupper(static_cast<unsigned char>(command))), values.data() + at, at > 0);
        }
    }
    void MoveTo(double x, double y)
    {
        m_startX = x;
        m_startY = y;
        Add(Verb::Move, x, y);
    }
    void LineTo(double x, double y) { Add(Verb::Line, x, y); }
    void CurveTo(double x1, double y1, double x2, double y2, double x, double y)
    {
        m_shape.verbs.push_back(Verb::Curve);
        Point(x1, y1);
        Point(x2, y2);
        m_handleX = x2;
        m_handleY = y2;
        Point(m_x = x, m_y = y);
    }
    void Close()
    {
        m_shape.verbs.push_back(Verb::Close);
        m_x = m_startX;
        m_y = m_startY;
    }

private:
    static std::size_t StepOf(char command)
    {
        switch (command) {
        case 'M':
        case 'L':
            return 2;
        case 'H':
        case 'V':
            return 1;
        case 'C':
            return 6;
        case 'S':
        case 'Q':
            return 4;
        case 'Z':
            return 0;
        default:
            throw std::runtime_error(std::string("path command ") + command + " is not known");
        }
    }
    void One(char command, const double* v, bool again)
    {
        const double dx = m_from[0], dy = m_from[1];
        if (command == 'M' && !again)
            MoveTo(v[0] + dx, v[1] + dy);
        else if (command == 'M' || command == 'L')
            LineTo(v[0] + dx, v[1] + dy);
        else if (command == 'H')
            LineTo(v[0] + dx, m_y);
        else if (command == 'V')
            LineTo(m_x, v[0] + dy);
        else if (command == 'C')
            CurveTo(v[0] + dx, v[1] + dy, v[2] + dx, v[3] + dy, v[4] + dx, v[5] + dy);
        else if (command == 'S')
            CurveTo(2 * m_x - m_handleX, 2 * m_y - m_handleY, v[0] + dx, v[1] + dy, v[2] + dx, v[3] + dy);
        else
            QuadTo(v[0] + dx, v[1] + dy, v[2] + dx, v[3] + dy);
    }
    void QuadTo(double hx, double hy, double x, double y)
    {
        CurveTo(m_x + (hx - m_x) * 2 / 3, m_y + (hy - m_y) * 2 / 3, x + (hx - x) * 2 / 3, y + (hy - y) * 2 / 3, x, y);
    }
    void Add(Verb verb, double x, double y)
    {
        m_shape.verbs.push_back(verb);
        Point(m_x = m_handleX = x, m_y = m_handleY = y);
    }
    void Point(double x, double y)
    {
        m_shape.points.push_back(static_cast<float>(x));
        m_shape.points.push_back(static_cast<float>(y));
    }
    Shape& m_shape;
    double m_x = 0, m_y = 0, m_startX = 0, m_startY = 0, m_handleX = 0, m_handleY = 0;
    double m_from[2] = {0, 0};
};

void AddRounded(Shape& shape, double x, double y, double w, double h, double rx, double ry)
{
    CPathWalk walk(shape);
    const double kx = rx * (1 - Round), ky = ry * (1 - Round);
    walk.MoveTo(x + rx, y);
    walk.LineTo(x + w - rx, y);
    walk.CurveTo(x + w - kx, y, x + w, y + ky, x + w, y + ry);
    walk.LineTo(x + w, y + h - ry);
    walk.CurveTo(x + w, y + h - ky, x + w - kx, y + h, x + w - rx, y + h);
    walk.LineTo(x + rx, y + h);
    walk.CurveTo(x + kx, y + h, x, y + h - ky, x, y + h - ry);
    walk.LineTo(x, y + ry);
    walk.CurveTo(x, y + ky, x + kx, y, x + rx, y);
    walk.Close();
}

void AddEllipse(Shape& shape, double cx, double cy, double rx, double ry)
{
    AddRounded(shape, cx - rx, cy - ry, 2 * rx, 2 * ry, rx, ry);
}

}

void AddPath(Shape& shape, const std::string& data)
{
    static const std::regex part("([A-Za-z])([^A-Za-z]*)");
    CPathWalk walk(shape);
    for (std::sregex_iterator found(data.begin(), data.end(), part), end; found != end; ++found)
        walk.Run((*found)[1].str()[0], Numbers((*found)[2]));
}

void AddBasic(Shape& shape, const Tag& tag)
{
    if (tag.name == "rect") {
        const double rx = tag.Number("rx");
        AddRounded(shape, tag.Number("x"), tag.Number("y"), tag.Number("width"), tag.Number("height"), rx,
                   tag.Number("ry", rx));
    } else if (tag.name == "circle") {
        AddEllipse(shape, tag.Number("cx"), tag.Number("cy"), tag.Number("r"), tag.Number("r"));
    } else if (tag.name == "ellipse") {
        AddEllipse(shape, tag.Number("cx"), tag.Number("cy"), tag.Number("rx"), tag.Number("ry"));
    } else if (tag.name == "line") {
        CPathWalk walk(shape);
        walk.MoveTo(tag.Number("x1"), tag.Number("y1"));
        walk.LineTo(tag.Number("x2"), tag.Number("y2"));
    } else {
        throw std::runtime_error("element " + tag.name + " is not known");
    }
}

}
