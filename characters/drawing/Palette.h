#pragma once
#include "Picture.h"
#include <map>
#include <unordered_map>

namespace drawing {

// How often each colour (0xRRGGBB) occurs.
using Histogram = std::map<std::uint32_t, std::uint32_t>;

// Counts the solid pixels of the picture.
void Count(const Picture& picture, Histogram& histogram);

// At most `limit` colours that stand for those of the histogram with little error, always the same ones for the same
// histogram: the colours are split at their means where they differ most, then every group is drawn to its middle.
std::vector<std::uint32_t> ChooseColors(const Histogram& histogram, std::size_t limit);

// Finds the nearest colour of a palette; remembers what was asked before.
class CNearest {
public:
    explicit CNearest(std::vector<std::uint32_t> colors) : m_colors(std::move(colors)) {}
    std::size_t IndexOf(std::uint32_t color);

private:
    std::vector<std::uint32_t> m_colors;
    std::unordered_map<std::uint32_t, std::size_t> m_known;
};

}
