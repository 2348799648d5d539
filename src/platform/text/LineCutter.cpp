#include "platform/text/LineCutter.h"
#include <algorithm>
#include <string_view>
#include <utility>

namespace platform::text {

bool CLineCutter::IsUtf16()
{
    return (!m_piece.empty() || Fill()) && (m_piece.starts_with("\xFF\xFE") || m_piece.starts_with("\xFE\xFF"));
}

void CLineCutter::ReadFrom(std::string wholeText)
{
    m_piece = std::move(wholeText);
    m_at = 0;
    m_lineFeed = m_piece.find('\n');
    m_atEnd = true;
}

bool CLineCutter::Fill()
{
    if (m_atEnd)
        return false;
    m_at = 0;
    m_source(m_piece);
    m_lineFeed = m_piece.find('\n');
    m_atEnd = m_piece.empty();
    return !m_atEnd;
}

bool CLineCutter::HasMore()
{
    while (m_at < m_piece.size() || Fill()) {
        if (!std::exchange(m_afterReturn, false) || m_piece[m_at] != '\n')
            return true;
        ++m_at;
        --m_ends.cr;
        ++m_ends.crLf;
    }
    return false;
}

// Where the line that begins at m_at ends in the piece; the piece's size when it goes on in the next one.
std::size_t CLineCutter::EndOfLine()
{
    if (m_lineFeed < m_at)
        m_lineFeed = m_piece.find('\n', m_at);
    const std::size_t end = std::min(m_lineFeed, m_piece.size());
    const std::size_t carriageReturn = std::string_view(m_piece).substr(m_at, end - m_at).find('\r');
    return carriageReturn == std::string_view::npos ? end : m_at + carriageReturn;
}

bool CLineCutter::AppendLine(std::string& lines)
{
    bool begun = false;
    while (HasMore()) {
        const std::size_t end = EndOfLine();
        lines.append(m_piece, m_at, end - m_at);
        begun = true;
        m_ends.lastLineEnds = end < m_piece.size();
        m_at = end;
        if (m_ends.lastLineEnds) {
            m_afterReturn = m_piece[m_at++] == '\r';
            ++(m_afterReturn ? m_ends.cr : m_ends.lf);
            break;
        }
    }
    return begun;
}

}
