#include "engine/balloon/BalloonStyle.h"

namespace engine {

std::optional<BalloonStyle> ParseBalloonStyle(std::int32_t word)
{
    const auto bits = static_cast<std::uint32_t>(word);
    BalloonStyle style;
    style.on = (bits & 0x1u) != 0;
    style.sizeToText = (bits & 0x2u) != 0;
    style.autoHide = (bits & 0x4u) != 0;
    style.autoPace = (bits & 0x8u) != 0;
    style.charsPerLine = static_cast<std::int32_t>((bits >> 16) & 0xFFu);
    style.lines = static_cast<std::int32_t>(bits >> 24);
    if (style.charsPerLine < 8 || style.lines < 1 || style.lines > 128)
        return std::nullopt;
    return style;
}

std::int32_t BalloonStyleWord(const BalloonStyle& style)
{
    const std::uint32_t flags = (style.on ? 0x1u : 0u) | (style.sizeToText ? 0x2u : 0u) | (style.autoHide ? 0x4u : 0u) |
                                (style.autoPace ? 0x8u : 0u);
    return static_cast<std::int32_t>(flags | (static_cast<std::uint32_t>(style.charsPerLine) << 16) |
                                     (static_cast<std::uint32_t>(style.lines) << 24));
}

}
