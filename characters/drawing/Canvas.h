#pragma once
#include "Paint.h"
#include "Path.h"
#include <cstdint>
#include <vector>

namespace drawing {

// How much of each pixel of a box a shape covers, 0..1; nothing outside of the box.
struct Coverage {
    int left = 0, top = 0, right = 0, bottom = 0;
    std::vector<float> parts;

    float* Row(int y) { return &parts[static_cast<std::size_t>((y - top) * (right - left))]; }
    double At(int x, int y) const
    {
        const bool inside = x >= left && x < right && y >= top && y < bottom;
        return inside ? static_cast<double>(parts[static_cast<std::size_t>((y - top) * (right - left) + x - left)]) : 0;
    }
};

// A picture in memory on which shapes are laid one over the other, edges smoothed.
class CCanvas {
public:
    CCanvas(int width, int height);
    int Width() const { return m_width; }
    int Height() const { return m_height; }

    Coverage Cover(const CPath& path) const;
    // `clip` keeps the paint inside that shape; null paints everywhere.
    void Fill(const CPath& path, const CPaint& paint, const Coverage* clip = nullptr);
    Rgba At(int x, int y) const;  // Not premultiplied; alpha 0 where nothing was painted.

private:
    struct Pixel {
        double red = 0, green = 0, blue = 0, alpha = 0;
    };
    void Lay(Pixel& below, const Rgba& color, double cover) const;

    int m_width;
    int m_height;
    std::vector<Pixel> m_pixels;  // Premultiplied.
};

}
