#pragma once
#include <cstdint>

namespace engine {

struct Point {
    std::int32_t x = 0;
    std::int32_t y = 0;
    friend bool operator==(const Point&, const Point&) = default;
};

struct Size {
    std::int32_t width = 0;
    std::int32_t height = 0;
    friend bool operator==(const Size&, const Size&) = default;
};

struct Rect {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::int32_t Right() const { return left + width; }
    std::int32_t Bottom() const { return top + height; }
    friend bool operator==(const Rect&, const Rect&) = default;
};

}
