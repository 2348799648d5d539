#include "app/linux/editor/BlockLayout.h"
#include "base/text/Utf8.h"
#include <QFontMetrics>
#include <QTextOption>
#include <cmath>

namespace {
constexpr int TabsPerWidth = 8;  // Characters.

// A character that shows what has no look of its own, or would break the layout.
char32_t Shown(char32_t code)
{
    if (code == '\t' || (code >= 0x20 && code != 0x7F && code != 0x2028 && code != 0x2029))
        return code;
    return code < 0x20 ? 0x2400 + code : 0xFFFD;
}
}

CBlockLayout::CBlockLayout(const CTextBuffer& buffer, std::size_t block, const QFont& font, int width,
                           const Preedit& preedit)
    : m_begin(buffer.BlockBegin(block))
{
    Decode(buffer.Text(m_begin, buffer.BlockEnd(block)));
    m_layout.setText(m_text);
    if (!preedit.text.isEmpty() && buffer.BlockAt(preedit.position) == block) {
        m_layout.setPreeditArea(IndexOf(preedit.position), preedit.text);
        m_layout.setFormats(preedit.formats);
    }
    Wrap(font, width);
}

void CBlockLayout::Decode(const std::string& bytes)
{
    m_offsets.reserve(bytes.size() + 1);
    m_text.reserve(static_cast<qsizetype>(bytes.size()));
    for (std::size_t at = 0; at < bytes.size();) {
        const ::text::Character character = ::text::CharacterAt(bytes, at);
        const char32_t shown = character.IsValid() ? Shown(character.code) : 0xFFFD;
        m_text += QString::fromUcs4(&shown, 1);
        while (m_offsets.size() < static_cast<std::size_t>(m_text.size()))
            m_offsets.push_back(at);
        at += character.size;
    }
    m_offsets.push_back(bytes.size());
}

void CBlockLayout::Wrap(const QFont& font, int width)
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setTabStopDistance(QFontMetricsF(font).horizontalAdvance(' ') * TabsPerWidth);
    m_layout.setTextOption(option);
    m_layout.setFont(font);
    m_layout.setCacheEnabled(true);
    m_layout.beginLayout();
    for (QTextLine line = m_layout.createLine(); line.isValid(); line = m_layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition(QPointF(0, m_height));
        m_height += static_cast<int>(std::ceil(line.height()));
    }
    m_layout.endLayout();
}

int CBlockLayout::IndexOf(std::size_t position) const
{
    const auto found = std::lower_bound(m_offsets.begin(), m_offsets.end(), position - m_begin);
    return static_cast<int>(std::min<std::ptrdiff_t>(found - m_offsets.begin(), m_text.size()));
}

std::size_t CBlockLayout::PositionOf(int index) const
{
    return m_begin + m_offsets[static_cast<std::size_t>(std::clamp<int>(index, 0, static_cast<int>(m_text.size())))];
}

// The last place of a row at which the caret is still shown in it: a wrapped row ends before its last character.
int CBlockLayout::LastIndexOf(int row) const
{
    const QTextLine line = m_layout.lineAt(row);
    const int end = line.textStart() + line.textLength();
    return row + 1 < Rows() ? m_layout.previousCursorPosition(end) : end;
}

std::size_t CBlockLayout::PositionAt(int row, double x, QTextLine::CursorPosition which) const
{
    return PositionOf(std::min(m_layout.lineAt(row).xToCursor(x, which), LastIndexOf(row)));
}
