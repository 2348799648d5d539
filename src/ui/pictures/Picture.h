#pragma once
#include <cstddef>
#include <cstdint>
#include <string_view>

// The program's own pictures as shapes: drawn in any size and for light and dark desktops alike. Their sources are the SVG
// files of packaging/pictures, which the build turns into these tables.
namespace ui::pictures {

// Move and Line take one point, Curve three, Close none.
enum class Verb : std::uint8_t { Move, Line, Curve, Close };

// 0xAARRGGBB; alpha 0 is nothing. `ink`: the colour of the text around the picture, with the alpha of `first`.
struct Paint {
    std::uint32_t first = 0;
    std::uint32_t last = 0;  // At the lower edge of the shape's bounds when `blended`.
    bool blended = false;
    bool ink = false;
};

struct Shape {
    const Verb* verbs;
    std::size_t verbCount;
    const float* points;  // x, y.
    Paint fill;
    Paint stroke;
    float strokeWidth;  // Ends and corners are round.
};

struct Picture {
    std::string_view name;
    float width, height;
    const Shape* shapes;
    std::size_t shapeCount;
};

// Null when there is none of that name.
const Picture* Find(std::string_view name);

}
