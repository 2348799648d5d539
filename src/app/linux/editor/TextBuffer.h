#pragma once
#include "app/linux/editor/GapBuffer.h"
#include <string>
#include <string_view>

// A text of any size, in UTF-8, with its lines found. Positions are bytes. Lines end with "\r\n" and are cut further into
// blocks of a few thousand bytes, so that whoever lays text out never meets a long one. A change costs what it changes, and
// the way from the last change.
class CTextBuffer {
public:
    CTextBuffer() { SetText(""); }
    void SetText(std::string_view text);
    void Replace(std::size_t begin, std::size_t end, std::string_view text);

    std::size_t Size() const { return m_bytes.Size(); }
    char operator[](std::size_t position) const { return m_bytes[position]; }
    std::string Text(std::size_t begin, std::size_t end) const;

    // There is always a block; the first begins at 0.
    std::size_t BlockCount() const { return m_starts.Size(); }
    std::size_t BlockBegin(std::size_t block) const;
    std::size_t BlockEnd(std::size_t block) const;     // Of its text: before the line end.
    std::size_t BlockBehind(std::size_t block) const;  // Where the next block begins.
    bool EndsLine(std::size_t block) const { return BlockEnd(block) != BlockBehind(block); }
    std::size_t BlockAt(std::size_t position) const;

    std::size_t CharactersBefore(std::size_t position) const;
    std::size_t PositionOfCharacter(std::size_t number) const;  // The end when there are fewer.

private:
    void FindBlocks(std::size_t begin, std::size_t end, std::vector<std::size_t>& starts) const;
    void CutLine(std::size_t begin, std::size_t end, std::vector<std::size_t>& starts) const;
    std::size_t CutBefore(std::size_t begin, std::size_t limit) const;
    std::size_t FindLineFeed(std::size_t begin, std::size_t end) const;
    CGapBuffer<char> m_bytes;
    CGapBuffer<std::size_t> m_starts;  // Behind the gap: the distance from the text's end.
};
