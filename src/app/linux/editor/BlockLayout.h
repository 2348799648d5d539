#pragma once
#include "app/linux/editor/TextBuffer.h"
#include <QTextLayout>

// One block of a text, wrapped to a width. Rows are counted from 0; positions are bytes of the whole text.
class CBlockLayout {
public:
    // What an input method shows at the caret before it commits it.
    struct Preedit {
        std::size_t position = 0;
        QString text;
        int cursor = 0;
        QList<QTextLayout::FormatRange> formats;
    };

    CBlockLayout(const CTextBuffer& buffer, std::size_t block, const QFont& font, int width, const Preedit& preedit);

    const QTextLayout& Layout() const { return m_layout; }
    const QString& Text() const { return m_text; }
    int Rows() const { return m_layout.lineCount(); }
    int RowTop(int row) const { return row < Rows() ? qRound(m_layout.lineAt(row).y()) : m_height; }
    int Height() const { return m_height; }

    // Between the places of the text and those of the layout, which counts UTF-16.
    int IndexOf(std::size_t position) const;
    std::size_t PositionOf(int index) const;
    int RowOf(int index) const { return m_layout.lineForTextPosition(index).lineNumber(); }
    double XOf(int index) const { return m_layout.lineForTextPosition(index).cursorToX(index); }
    std::size_t PositionAt(int row, double x, QTextLine::CursorPosition which = QTextLine::CursorBetweenCharacters) const;
    std::size_t RowBegin(int row) const { return PositionOf(m_layout.lineAt(row).textStart()); }
    std::size_t RowEnd(int row) const { return PositionOf(LastIndexOf(row)); }

private:
    void Decode(const std::string& bytes);
    void Wrap(const QFont& font, int width);
    int LastIndexOf(int row) const;
    std::size_t m_begin;
    QString m_text;
    std::vector<std::size_t> m_offsets;  // Of each UTF-16 unit, and of the end.
    QTextLayout m_layout;
    int m_height = 0;
};
