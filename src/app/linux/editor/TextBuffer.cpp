#include "app/linux/editor/TextBuffer.h"
#include <cstring>

namespace {
constexpr std::size_t BlockLimit = 4000;         // Bytes.
constexpr std::size_t LookBackForABlank = 1000;  // Bytes.

bool IsInsideCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

// A plain loop over a plain array, which the compiler makes fast.
std::size_t CharactersIn(std::span<const char> bytes)
{
    std::size_t count = 0;
    for (const char byte : bytes)
        count += IsInsideCharacter(byte) ? 0U : 1U;
    return count;
}
}

void CTextBuffer::SetText(std::string_view text)
{
    m_bytes.Clear();
    m_bytes.InsertAtGap(text);
    m_starts.Clear();
    std::vector<std::size_t> starts{0};
    starts.reserve(text.size() / 64 + 1);
    FindBlocks(0, text.size(), starts);
    m_starts.InsertAtGap(starts);
}

std::string CTextBuffer::Text(std::size_t begin, std::size_t end) const
{
    std::string text;
    text.reserve(end - begin);
    const std::size_t gap = m_bytes.Gap();
    const auto append = [&](std::span<const char> bytes, std::size_t from, std::size_t to) {
        if (from < to)
            text.append(bytes.data() + from, to - from);
    };
    append(m_bytes.Before(), begin, std::min(end, gap));
    append(m_bytes.Behind(), std::max(begin, gap) - gap, std::max(end, gap) - gap);
    return text;
}

std::size_t CTextBuffer::BlockBegin(std::size_t block) const
{
    return block < m_starts.Gap() ? m_starts[block] : Size() - m_starts[block];
}

std::size_t CTextBuffer::BlockBehind(std::size_t block) const
{
    return block + 1 < BlockCount() ? BlockBegin(block + 1) : Size();
}

std::size_t CTextBuffer::BlockEnd(std::size_t block) const
{
    const std::size_t begin = BlockBegin(block);
    std::size_t end = BlockBehind(block);
    if (end > begin && m_bytes[end - 1] == '\n')
        --end;
    else
        return end;
    return end > begin && m_bytes[end - 1] == '\r' ? end - 1 : end;
}

std::size_t CTextBuffer::BlockAt(std::size_t position) const
{
    std::size_t low = 0;
    for (std::size_t high = BlockCount(); high - low > 1;) {
        const std::size_t middle = low + (high - low) / 2;
        (BlockBegin(middle) <= position ? low : high) = middle;
    }
    return low;
}

void CTextBuffer::Replace(std::size_t begin, std::size_t end, std::string_view text)
{
    const std::size_t first = BlockAt(begin);
    std::size_t last = BlockAt(end);
    // A cut line may have become short enough to be put together again.
    if (last + 1 < BlockCount() && !EndsLine(last))
        ++last;
    const std::size_t from = BlockBegin(first);
    const std::size_t behind = BlockBehind(last) - (end - begin) + text.size();
    const std::size_t formerSize = Size();
    m_starts.MoveGap(first + 1, [&](std::size_t start) { return formerSize - start; });
    m_starts.EraseBehindGap(last - first);
    m_bytes.MoveGap(begin);
    m_bytes.EraseBehindGap(end - begin);
    m_bytes.InsertAtGap(text);
    std::vector<std::size_t> starts;
    FindBlocks(from, behind, starts);
    m_starts.InsertAtGap(starts);
}

std::size_t CTextBuffer::FindLineFeed(std::size_t begin, std::size_t end) const
{
    const auto find = [](std::span<const char> bytes, std::size_t from, std::size_t to) -> const char* {
        return from < to ? static_cast<const char*>(std::memchr(bytes.data() + from, '\n', to - from)) : nullptr;
    };
    const std::size_t gap = m_bytes.Gap();
    if (const char* found = find(m_bytes.Before(), begin, std::min(end, gap)))
        return static_cast<std::size_t>(found - m_bytes.Before().data());
    if (const char* found = find(m_bytes.Behind(), std::max(begin, gap) - gap, std::max(end, gap) - gap))
        return static_cast<std::size_t>(found - m_bytes.Behind().data()) + gap;
    return end;
}

// The starts of the blocks between two places, without the first; a line end at the end of the text begins an empty one.
void CTextBuffer::FindBlocks(std::size_t begin, std::size_t end, std::vector<std::size_t>& starts) const
{
    while (begin < end) {
        const std::size_t lineFeed = FindLineFeed(begin, end);
        CutLine(begin, lineFeed, starts);
        begin = lineFeed + 1;
        if (lineFeed < end && (begin < end || begin == Size()))
            starts.push_back(begin);
    }
}

void CTextBuffer::CutLine(std::size_t begin, std::size_t end, std::vector<std::size_t>& starts) const
{
    while (end - begin > BlockLimit) {
        begin = CutBefore(begin, begin + BlockLimit);
        starts.push_back(begin);
    }
}

// Behind a blank, else between two characters, and never inside a line end.
std::size_t CTextBuffer::CutBefore(std::size_t begin, std::size_t limit) const
{
    for (std::size_t at = limit; at > std::max(begin, limit - LookBackForABlank); --at)
        if (m_bytes[at - 1] == ' ')
            return at;
    std::size_t at = limit;
    while (at > limit - 4 && (IsInsideCharacter(m_bytes[at]) || m_bytes[at] == '\r'))
        --at;
    return at;
}

std::size_t CTextBuffer::CharactersBefore(std::size_t position) const
{
    const std::size_t gap = m_bytes.Gap();
    return CharactersIn(m_bytes.Before().first(std::min(position, gap))) +
           CharactersIn(m_bytes.Behind().first(std::max(position, gap) - gap));
}

std::size_t CTextBuffer::PositionOfCharacter(std::size_t number) const
{
    constexpr std::size_t Step = 4096;
    std::size_t position = 0;
    for (std::size_t passed = 0; position < Size();) {
        const std::string piece = Text(position, std::min(position + Step, Size()));
        const std::size_t inside = CharactersIn(piece);
        if (passed + inside <= number) {
            passed += inside;
            position += piece.size();
            continue;
        }
        std::size_t at = 0;
        for (; at < piece.size(); ++at)
            if (!IsInsideCharacter(piece[at]) && passed++ == number)
                break;
        return position + at;
    }
    return Size();
}
