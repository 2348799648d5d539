#include "platform/text/Utf8.h"
#include <algorithm>
#include <cstdint>
#include <cstring>

namespace platform::text {
namespace {
constexpr char32_t Replacement = 0xFFFD;

std::uint8_t ByteAt(std::string_view text, std::size_t position) { return static_cast<std::uint8_t>(text[position]); }

// Bytes of the character that a lead byte announces; 0 for a byte that leads none.
std::size_t AnnouncedBytes(std::uint8_t lead)
{
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead <= 0xDF)
        return 2;
    if (lead >= 0xE0 && lead <= 0xEF)
        return 3;
    return lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
}

bool IsCharacter(char32_t code) { return code <= 0x10FFFF && !(code >= 0xD800 && code <= 0xDFFF); }

// Whether the code needs as many bytes as were used: shorter forms are the only well-formed ones.
bool NeedsBytes(char32_t code, std::size_t bytes)
{
    constexpr char32_t Least[] = {0, 0, 0x80, 0x800, 0x10000};
    return code >= Least[bytes];
}

bool IsBetween(char32_t code, char32_t first, char32_t last) { return code >= first && code <= last; }

char32_t FoldedLatin(char32_t code)
{
    if (IsBetween(code, U'A', U'Z') || (IsBetween(code, 0xC0, 0xDE) && code != 0xD7))
        return code + 0x20;
    if (code == 0x178)
        return 0xFF;
    const bool upperIsEven = IsBetween(code, 0x100, 0x137) || IsBetween(code, 0x14A, 0x177);
    const bool upperIsOdd = IsBetween(code, 0x139, 0x148) || IsBetween(code, 0x179, 0x17E);
    if ((upperIsEven && code % 2 == 0) || (upperIsOdd && code % 2 == 1))
        return code == 0x130 ? code : code + 1;
    return code;
}

char32_t FoldedGreekOrCyrillic(char32_t code)
{
    if (IsBetween(code, 0x391, 0x3AB) && code != 0x3A2)
        return code + 0x20;
    if (IsBetween(code, 0x410, 0x42F))
        return code + 0x20;
    return IsBetween(code, 0x400, 0x40F) ? code + 0x50 : code;
}

char32_t Folded(char32_t code) { return code < 0x180 ? FoldedLatin(code) : FoldedGreekOrCyrillic(code); }
}

Utf8Character CharacterAt(std::string_view text, std::size_t position)
{
    const std::uint8_t lead = ByteAt(text, position);
    const std::size_t bytes = AnnouncedBytes(lead);
    const Utf8Character invalid{lead, 1, false};
    if (bytes == 0 || bytes > text.size() - position)
        return invalid;
    char32_t code = bytes == 1 ? lead : lead & (0x7Fu >> bytes);
    for (std::size_t i = 1; i < bytes; ++i) {
        const std::uint8_t next = ByteAt(text, position + i);
        if ((next & 0xC0) != 0x80)
            return invalid;
        code = (code << 6) | (next & 0x3Fu);
    }
    return IsCharacter(code) && NeedsBytes(code, bytes) ? Utf8Character{code, bytes, true} : invalid;
}

// How many bytes at the start are ASCII.
static std::size_t LeadingAscii(std::string_view text)
{
    std::size_t count = 0;
    for (std::uint64_t eight = 0; text.size() - count >= sizeof eight; count += sizeof eight) {
        std::memcpy(&eight, text.data() + count, sizeof eight);
        if ((eight & 0x8080808080808080u) != 0)
            break;
    }
    while (count < text.size() && ByteAt(text, count) < 0x80)
        ++count;
    return count;
}

bool IsUtf8(std::string_view text)
{
    for (std::size_t position = 0; position < text.size();) {
        position += LeadingAscii(text.substr(position));
        if (position == text.size())
            break;
        const Utf8Character character = CharacterAt(text, position);
        if (!character.valid)
            return false;
        position += character.bytes;
    }
    return true;
}

void AppendUtf8(std::string& text, char32_t code)
{
    if (!IsCharacter(code))
        code = Replacement;
    const auto append = [&](char32_t byte) { text += static_cast<char>(static_cast<std::uint8_t>(byte)); };
    if (code < 0x80)
        return append(code);
    if (code < 0x800)
        append(0xC0 | (code >> 6));
    if (code >= 0x800 && code < 0x10000)
        append(0xE0 | (code >> 12));
    if (code >= 0x10000) {
        append(0xF0 | (code >> 18));
        append(0x80 | ((code >> 12) & 0x3F));
    }
    if (code >= 0x800)
        append(0x80 | ((code >> 6) & 0x3F));
    append(0x80 | (code & 0x3F));
}

std::string_view CutBetweenCharacters(std::string_view text, std::size_t bytes)
{
    if (bytes >= text.size())
        return text;
    // The last character that may be cut through starts at most three bytes before the cut.
    for (std::size_t start = bytes - std::min<std::size_t>(bytes, 3); start < bytes; ++start) {
        const Utf8Character character = CharacterAt(text, start);
        if (character.valid && start + character.bytes > bytes)
            return text.substr(0, start);
    }
    return text.substr(0, bytes);
}

std::string FoldCase(std::string_view text)
{
    std::string folded;
    folded.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        const Utf8Character character = CharacterAt(text, position);
        if (character.valid)
            AppendUtf8(folded, Folded(character.code));
        else
            folded += text[position];
        position += character.bytes;
    }
    return folded;
}

bool SameName(std::string_view left, std::string_view right) { return FoldCase(left) == FoldCase(right); }

}
