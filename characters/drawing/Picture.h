#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace drawing {

// 0xAARRGGBB per pixel, rows from the top.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;

    std::uint32_t At(int x, int y) const { return pixels[static_cast<std::size_t>(y * width + x)]; }
    void Put(int x, int y, std::uint32_t value) { pixels[static_cast<std::size_t>(y * width + x)] = value; }
    friend bool operator==(const Picture&, const Picture&) = default;
};

class CCanvas;

// The canvas with hard outer edges: every pixel is fully there or not at all. Pixels that the figure covers only in part
// keep a softer tone of their colour, so that the edge looks smooth on light and on dark ground.
Picture HardEdged(const CCanvas& canvas);

// The picture as a PNG file. Throws std::runtime_error when the file cannot be written.
void WritePng(const Picture& picture, const std::string& fileName);

}
