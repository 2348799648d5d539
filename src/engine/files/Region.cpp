#include "engine/files/Region.h"
#include "engine/files/ByteWriter.h"
#include <algorithm>

namespace engine::files {
namespace {

constexpr std::uint32_t RegionHeaderSize = 32;
constexpr std::uint32_t RectanglesKind = 1;
constexpr std::uint32_t RectangleSize = 16;

std::vector<Rect> RunsOfRow(const std::uint8_t* row, std::int32_t width, std::int32_t top, std::uint8_t transparentIndex)
{
    std::vector<Rect> runs;
    for (std::int32_t x = 0; x < width; ++x) {
        if (row[x] == transparentIndex)
            continue;
        if (!runs.empty() && runs.back().Right() == x)
            ++runs.back().width;
        else
            runs.push_back({x, top, 1, 1});
    }
    return runs;
}

bool HaveEqualColumns(const Rect& a, const Rect& b) { return a.left == b.left && a.width == b.width; }

// Adds a row; when it equals the `bandSize` rectangles added last, these grow by it instead. Returns the size of the last
// band.
std::size_t AddRow(std::vector<Rect>& region, std::size_t bandSize, const std::vector<Rect>& runs)
{
    const auto band = region.end() - static_cast<std::ptrdiff_t>(bandSize);
    if (!std::equal(band, region.end(), runs.begin(), runs.end(), HaveEqualColumns)) {
        region.insert(region.end(), runs.begin(), runs.end());
        return runs.size();
    }
    std::for_each(band, region.end(), [](Rect& rectangle) { ++rectangle.height; });
    return bandSize;
}

void WriteRectangle(CByteWriter& writer, const Rect& rectangle)
{
    writer.I32(rectangle.left);
    writer.I32(rectangle.top);
    writer.I32(rectangle.Right());
    writer.I32(rectangle.Bottom());
}

}

std::vector<Rect> RegionOf(const IndexedPicture& picture, std::uint8_t transparentIndex)
{
    std::vector<Rect> region;
    std::size_t bandSize = 0;
    const std::uint8_t* row = picture.pixels.data();
    for (std::int32_t y = 0; y < picture.size.height; ++y, row += picture.size.width)
        bandSize = AddRow(region, bandSize, RunsOfRow(row, picture.size.width, y, transparentIndex));
    return region;
}

Rect BoundsOf(const std::vector<Rect>& region)
{
    if (region.empty())
        return {};
    std::int32_t left = region.front().left;
    std::int32_t right = 0;
    for (const Rect& rectangle : region) {
        left = std::min(left, rectangle.left);
        right = std::max(right, rectangle.Right());
    }
    return {left, region.front().top, right - left, region.back().Bottom() - region.front().top};
}

std::vector<std::uint8_t> RegionBytes(const std::vector<Rect>& region)
{
    CByteWriter writer;
    const auto count = static_cast<std::uint32_t>(region.size());
    writer.U32(RegionHeaderSize);
    writer.U32(RectanglesKind);
    writer.U32(count);
    writer.U32(count * RectangleSize);
    WriteRectangle(writer, BoundsOf(region));
    for (const Rect& rectangle : region)
        WriteRectangle(writer, rectangle);
    return writer.Take();
}

}
