#include "platform/text/FileLines.h"

namespace platform::text {

CFileLines::CFileLines(std::string_view bytes, Encoding encoding)
    : m_bytes(bytes), m_width(encoding == Encoding::Utf16Little || encoding == Encoding::Utf16Big ? 2 : 1),
      m_bigEndian(encoding == Encoding::Utf16Big)
{
}

bool CFileLines::IsUnit(std::size_t unit, char c) const
{
    if (m_width == 1)
        return m_bytes[unit] == c;
    const char first = m_bytes[unit * 2], second = m_bytes[unit * 2 + 1];
    return m_bigEndian ? first == '\0' && second == c : first == c && second == '\0';
}

// Counted in units, from the first one to the end of its content and to what is behind the line. A byte too many, which is
// no unit, belongs to the last line.
FileLine CFileLines::Line(std::size_t first, std::size_t end, std::size_t behind) const
{
    if (end == Units())
        return {m_bytes.substr(first * m_width), m_bytes.substr(m_bytes.size())};
    return {m_bytes.substr(first * m_width, (end - first) * m_width),
            m_bytes.substr(end * m_width, (behind - end) * m_width)};
}

FileLine CFileLines::Front() const
{
    std::size_t end = 0;
    while (end < Units() && !IsEnd(end))
        ++end;
    const bool pair = end + 1 < Units() && IsUnit(end, '\r') && IsUnit(end + 1, '\n');
    return Line(0, end, end + (pair ? 2U : 1U));
}

FileLine CFileLines::Back() const
{
    std::size_t end = Units();
    const bool whole = m_bytes.size() % m_width == 0;
    if (whole && IsEnd(end - 1))
        end -= end > 1 && IsUnit(end - 1, '\n') && IsUnit(end - 2, '\r') ? 2U : 1U;
    std::size_t first = end;
    while (first > 0 && !IsEnd(first - 1))
        --first;
    return Line(first, end, Units());
}

void CFileLines::DropFront()
{
    const FileLine line = Front();
    m_bytes.remove_prefix(line.content.size() + line.end.size());
}

void CFileLines::DropBack()
{
    const FileLine line = Back();
    m_bytes.remove_suffix(line.content.size() + line.end.size());
}

CFileLines CFileLines::None() const
{
    CFileLines none = *this;
    none.m_bytes = m_bytes.substr(m_bytes.size());
    return none;
}

void CFileLines::TakeBefore(const FileLine& line)
{
    const std::size_t size = line.content.size() + line.end.size();
    m_bytes = std::string_view(m_bytes.data() - size, m_bytes.size() + size);
}

}
