#include "engine/balloon/LineBreaker.h"
#include "base/text/Text.h"
#include "base/text/Utf8.h"
#include "engine/base/CleanText.h"
#include <algorithm>
#include <vector>

namespace engine {

CLineBreaker::CLineBreaker(const ITextMeasure& measure, Font font, std::int32_t width, std::string_view text)
    : m_measure(measure), m_font(std::move(font)), m_width(std::max(1, width)), m_blankWidth(measure.Width(m_font, " ")),
      m_text(text)
{
    const std::int32_t average = std::max(1, measure.AverageCharacterWidth(m_font));
    m_chunkLimit = static_cast<std::size_t>(m_width / average) * 4 + 16;
}

bool CLineBreaker::Next(TextLine& line)
{
    m_at = SkipBlanks(m_at);
    line = {m_at, m_at};
    std::int32_t used = 0;
    for (std::size_t begin = m_at; begin < m_text.size();) {
        const Chunk chunk = NextChunk(begin);
        const std::int32_t gap = line.end == line.begin ? 0 : static_cast<std::int32_t>(begin - line.end) * m_blankWidth;
        const std::int32_t width = Width(begin, chunk.end);
        if (chunk.endless || gap + width > m_width - used) {
            if (line.end == line.begin)
                line.end = width > m_width ? LongestFit(begin, chunk.end) : chunk.end;
            break;
        }
        used += gap + width;
        line.end = chunk.end;
        begin = SkipBlanks(chunk.end);
    }
    m_at = line.end;
    return line.end > line.begin;
}

std::size_t CLineBreaker::SkipBlanks(std::size_t at) const
{
    while (at < m_text.size()) {
        const text::Character character = text::CharacterAt(m_text, at);
        if (!text::IsWhiteSpace(character.code))
            break;
        at += character.size;
    }
    return at;
}

// Up to the next blank or past the next U+200B.
CLineBreaker::Chunk CLineBreaker::NextChunk(std::size_t at) const
{
    for (std::size_t count = 0; at < m_text.size(); ++count) {
        const text::Character character = text::CharacterAt(m_text, at);
        if (text::IsWhiteSpace(character.code))
            return {at, false};
        if (count == m_chunkLimit)
            return {at, true};
        at += character.size;
        if (character.code == ZeroWidthSpace)
            return {at, false};
    }
    return {at, false};
}

std::int32_t CLineBreaker::Width(std::size_t begin, std::size_t end) const
{
    return m_measure.Width(m_font, m_text.substr(begin, end - begin));
}

// The end of the longest part, of one character at least, that fits into a line.
std::size_t CLineBreaker::LongestFit(std::size_t begin, std::size_t end) const
{
    std::vector<std::size_t> ends;
    for (std::size_t at = begin; at < end;) {
        at += text::CharacterAt(m_text, at).size;
        ends.push_back(at);
    }
    const auto tooLong = std::partition_point(ends.begin() + 1, ends.end(),
                                              [&](std::size_t candidate) { return Width(begin, candidate) <= m_width; });
    return *(tooLong - 1);
}

}
