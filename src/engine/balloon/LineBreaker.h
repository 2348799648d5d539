#pragma once
#include "engine/Host.h"
#include <cstddef>
#include <string_view>

namespace engine {

struct TextLine {
    std::size_t begin = 0;  // Bytes of the text; blanks at both ends left out.
    std::size_t end = 0;
    friend bool operator==(const TextLine&, const TextLine&) = default;
};

// Cuts a text into lines of a width, one after another, in time linear in what it has cut. Lines break at white space and at
// U+200B; a word too long for a line is cut. The text must be valid UTF-8.
class CLineBreaker {
public:
    // Borrows measure and text. `width` in pixels; at least one character stands in every line.
    CLineBreaker(const ITextMeasure& measure, Font font, std::int32_t width, std::string_view text);
    bool Next(TextLine& line);  // False at the end.

private:
    struct Chunk {
        std::size_t end = 0;
        bool endless = false;  // The word goes on: it is longer than any line.
    };
    std::size_t SkipBlanks(std::size_t at) const;
    Chunk NextChunk(std::size_t at) const;
    std::int32_t Width(std::size_t begin, std::size_t end) const;
    std::size_t LongestFit(std::size_t begin, std::size_t end) const;

    const ITextMeasure& m_measure;
    Font m_font;
    std::int32_t m_width;
    std::int32_t m_blankWidth;
    std::size_t m_chunkLimit;  // Characters.
    std::string_view m_text;
    std::size_t m_at = 0;
};

}
