#include "engine/animation/FrameComposer.h"
#include <algorithm>

namespace engine {

namespace {

constexpr std::uint32_t Opaque = 0xFF000000u;
constexpr std::int32_t SideLimit = 4096;

std::uint32_t Pixel(const Color& color)
{
    return Opaque | (static_cast<std::uint32_t>(color.red) << 16) | (static_cast<std::uint32_t>(color.green) << 8) |
           color.blue;
}

class CPainter {
public:
    explicit CPainter(const Character& character) : m_character(character)
    {
        m_bitmap.size = {std::clamp(character.frameSize.width, 0, SideLimit),
                         std::clamp(character.frameSize.height, 0, SideLimit)};
        m_bitmap.pixels.assign(
            static_cast<std::size_t>(m_bitmap.size.width) * static_cast<std::size_t>(m_bitmap.size.height), 0);
    }

    void Draw(const PlacedPicture& placed, bool onlyInside)
    {
        const PictureRef picture = m_character.pictures ? m_character.pictures->Picture(placed.picture) : nullptr;
        if (!picture || picture->size.width <= 0 || !IsWhole(*picture))
            return;
        const std::int64_t firstRow = std::max<std::int64_t>(0, -std::int64_t{placed.offset.y});
        const std::int64_t rows =
            std::min<std::int64_t>(picture->size.height, m_bitmap.size.height - std::int64_t{placed.offset.y});
        for (std::int64_t row = firstRow; row < rows; ++row)
            DrawRow(*picture, placed.offset, row, onlyInside);
    }

    Bitmap Take() { return std::move(m_bitmap); }

private:
    static bool IsWhole(const IndexedPicture& picture)
    {
        return picture.size.height > 0 && picture.pixels.size() == static_cast<std::size_t>(picture.size.width) *
                                                                       static_cast<std::size_t>(picture.size.height);
    }

    void DrawRow(const IndexedPicture& picture, Point offset, std::int64_t row, bool onlyInside)
    {
        const std::int64_t first = std::max<std::int64_t>(0, -std::int64_t{offset.x});
        const std::int64_t last = std::min<std::int64_t>(picture.size.width, m_bitmap.size.width - std::int64_t{offset.x});
        const std::int64_t target = (row + offset.y) * m_bitmap.size.width + offset.x;
        for (std::int64_t column = first; column < last; ++column)
            DrawPixel(picture.pixels[static_cast<std::size_t>(row * picture.size.width + column)],
                      m_bitmap.pixels[static_cast<std::size_t>(target + column)], onlyInside);
    }

    void DrawPixel(std::uint8_t index, std::uint32_t& pixel, bool onlyInside)
    {
        if (index == m_character.transparentIndex || index >= m_character.palette.size())
            return;
        if (!onlyInside || pixel != 0)
            pixel = Pixel(m_character.palette[index]);
    }

    const Character& m_character;
    Bitmap m_bitmap;
};

}

const MouthOverlay* MouthOverlayOf(const Frame& frame, Mouth mouth)
{
    const auto find = [&](Mouth wanted) {
        return std::find_if(frame.mouths.begin(), frame.mouths.end(),
                            [&](const MouthOverlay& overlay) { return overlay.mouth == wanted; });
    };
    auto found = find(mouth);
    if (found == frame.mouths.end())
        found = find(Mouth::Closed);
    return found == frame.mouths.end() ? nullptr : &*found;
}

Bitmap ComposeFrame(const Character& character, const Frame& frame, const MouthOverlay* overlay)
{
    CPainter painter(character);
    const std::size_t top = overlay != nullptr && overlay->replacesTopPicture ? 1 : 0;
    for (std::size_t index = frame.pictures.size(); index > top; --index)
        painter.Draw(frame.pictures[index - 1], /*onlyInside*/ false);
    if (overlay != nullptr)
        painter.Draw(overlay->placed, /*onlyInside*/ !overlay->replacesTopPicture);
    return painter.Take();
}

}
