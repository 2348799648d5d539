#include "Canvas.h"
#include <algorithm>
#include <cmath>

namespace drawing {

namespace {

constexpr int SamplesPerRow = 6;

struct Crossing {
    double x;
    int direction;
};

struct Edge {
    Vec top;
    Vec bottom;
    int direction;
};

std::vector<Edge> EdgesOf(const CPath& path)
{
    std::vector<Edge> edges;
    for (const CPath::Contour& contour : path.Contours())
        for (std::size_t i = 0; i < contour.size(); ++i) {
            const Vec a = contour[i], b = contour[(i + 1) % contour.size()];
            if (a.y < b.y)
                edges.push_back({a, b, 1});
            else if (b.y < a.y)
                edges.push_back({b, a, -1});
        }
    std::sort(edges.begin(), edges.end(), [](const Edge& a, const Edge& b) { return a.top.y < b.top.y; });
    return edges;
}

// The pixels that the path can touch, as far as they lie on the canvas.
Coverage EmptyCoverage(const CPath& path, int width, int height)
{
    double left = width, top = height, right = 0, bottom = 0;
    for (const CPath::Contour& contour : path.Contours())
        for (const Vec point : contour) {
            left = std::min(left, point.x);
            right = std::max(right, point.x);
            top = std::min(top, point.y);
            bottom = std::max(bottom, point.y);
        }
    const auto within = [](double value, int limit) { return std::clamp(static_cast<int>(value), 0, limit); };
    Coverage cover{within(std::floor(left), width),
                   within(std::floor(top), height),
                   within(std::ceil(right), width),
                   within(std::ceil(bottom), height),
                   {}};
    if (cover.left < cover.right && cover.top < cover.bottom)
        cover.parts.resize(static_cast<std::size_t>(cover.right - cover.left) *
                           static_cast<std::size_t>(cover.bottom - cover.top));
    else
        cover.bottom = cover.top;
    return cover;
}

// Adds one sample line's span to its pixel row, partly covered pixels in proportion.
void AddSpan(Coverage& cover, int y, double from, double to)
{
    from = std::clamp(from, static_cast<double>(cover.left), static_cast<double>(cover.right));
    to = std::clamp(to, static_cast<double>(cover.left), static_cast<double>(cover.right));
    float* row = cover.Row(y);
    for (int x = static_cast<int>(from); x < cover.right && x < to; ++x) {
        const double part = std::min(to, x + 1.0) - std::max(from, static_cast<double>(x));
        row[x - cover.left] += static_cast<float>(part / SamplesPerRow);
    }
}

void AddSpans(Coverage& cover, int y, std::vector<Crossing>& crossings)
{
    std::sort(crossings.begin(), crossings.end(), [](const Crossing& a, const Crossing& b) { return a.x < b.x; });
    int winding = 0;
    double start = 0;
    for (const Crossing& crossing : crossings) {
        const int before = winding;
        winding += crossing.direction;
        if (before == 0)
            start = crossing.x;
        else if (winding == 0)
            AddSpan(cover, y, start, crossing.x);
    }
}

}

CCanvas::CCanvas(int width, int height)
    : m_width(width), m_height(height), m_pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height))
{
}

Coverage CCanvas::Cover(const CPath& path) const
{
    Coverage cover = EmptyCoverage(path, m_width, m_height);
    const std::vector<Edge> edges = EdgesOf(path);
    std::vector<Edge> active;
    std::vector<Crossing> crossings;
    std::size_t next = 0;
    for (int sample = cover.top * SamplesPerRow; sample < cover.bottom * SamplesPerRow; ++sample) {
        const double y = (sample + 0.5) / SamplesPerRow;
        while (next < edges.size() && edges[next].top.y <= y)
            active.push_back(edges[next++]);
        active.erase(std::remove_if(active.begin(), active.end(), [y](const Edge& e) { return e.bottom.y <= y; }),
                     active.end());
        crossings.clear();
        for (const Edge& e : active)
            crossings.push_back({e.top.x + (e.bottom.x - e.top.x) * (y - e.top.y) / (e.bottom.y - e.top.y), e.direction});
        AddSpans(cover, sample / SamplesPerRow, crossings);
    }
    return cover;
}

void CCanvas::Fill(const CPath& path, const CPaint& paint, const Coverage* clip)
{
    const Coverage cover = Cover(path);
    for (int y = cover.top; y < cover.bottom; ++y)
        for (int x = cover.left; x < cover.right; ++x) {
            const double part = cover.At(x, y) * (clip ? clip->At(x, y) : 1.0);
            if (part > 0.002)
                Lay(m_pixels[static_cast<std::size_t>(y * m_width + x)], paint.At({x + 0.5, y + 0.5}), std::min(part, 1.0));
        }
}

void CCanvas::Lay(Pixel& below, const Rgba& color, double cover) const
{
    const double alpha = color.alpha * cover, rest = 1 - alpha;
    below.red = below.red * rest + color.red * alpha;
    below.green = below.green * rest + color.green * alpha;
    below.blue = below.blue * rest + color.blue * alpha;
    below.alpha = below.alpha * rest + alpha;
}

Rgba CCanvas::At(int x, int y) const
{
    const Pixel& p = m_pixels[static_cast<std::size_t>(y * m_width + x)];
    if (p.alpha <= 0)
        return {0, 0, 0, 0};
    return {p.red / p.alpha, p.green / p.alpha, p.blue / p.alpha, p.alpha};
}

}
