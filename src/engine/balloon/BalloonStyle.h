#pragma once
#include <cstdint>
#include <optional>

namespace engine {

// The balloon's style word, taken apart.
struct BalloonStyle {
    bool on = true;                  // Bit 0: a balloon appears at all.
    bool sizeToText = true;          // Bit 1: its height follows the text.
    bool autoHide = true;            // Bit 2
    bool autoPace = true;            // Bit 3: words appear when they are spoken.
    std::int32_t charsPerLine = 32;  // Bits 16 to 23: 8 to 255.
    std::int32_t lines = 2;          // Bits 24 to 31: 1 to 128.
    friend bool operator==(const BalloonStyle&, const BalloonStyle&) = default;
};

// Nothing when the word asks for a number of characters or lines that is out of range. The bits between are ignored.
std::optional<BalloonStyle> ParseBalloonStyle(std::int32_t word);
std::int32_t BalloonStyleWord(const BalloonStyle& style);

}
