#include "engine/files/Text.h"
#include <cstdint>

namespace engine::files {
namespace {

constexpr char32_t Replacement = 0xFFFD;

bool IsSurrogate(char32_t c) { return c >= 0xD800 && c <= 0xDFFF; }
bool IsHighSurrogate(char32_t c) { return c >= 0xD800 && c <= 0xDBFF; }
bool IsLowSurrogate(char32_t c) { return c >= 0xDC00 && c <= 0xDFFF; }

std::size_t SequenceLength(unsigned char first)
{
    if (first < 0x80)
        return 1;
    if (first >= 0xC2 && first <= 0xDF)
        return 2;
    if (first >= 0xE0 && first <= 0xEF)
        return 3;
    return first >= 0xF0 && first <= 0xF4 ? 4 : 0;
}

char32_t LowestOfLength(std::size_t length)
{
    static constexpr char32_t Lowest[] = {0, 0, 0x80, 0x800, 0x10000};
    return Lowest[length];
}

// Takes one character from the front; an invalid byte counts as one character.
char32_t TakeCharacter(std::string_view& text)
{
    const auto first = static_cast<unsigned char>(text[0]);
    const std::size_t length = SequenceLength(first);
    char32_t character = length == 1 ? first : first & (0x7FU >> length);
    bool valid = length > 0 && length <= text.size();
    for (std::size_t i = 1; valid && i < length; ++i) {
        valid = (static_cast<unsigned char>(text[i]) & 0xC0) == 0x80;
        character = character << 6 | (static_cast<unsigned char>(text[i]) & 0x3FU);
    }
    valid = valid && character >= LowestOfLength(length) && !IsSurrogate(character) && character <= 0x10FFFF;
    text.remove_prefix(valid ? length : 1);
    return valid ? character : Replacement;
}

char32_t TakeCharacter(std::u16string_view& text)
{
    char32_t character = text[0];
    text.remove_prefix(1);
    if (IsHighSurrogate(character) && !text.empty() && IsLowSurrogate(text[0])) {
        character = 0x10000 + ((character - 0xD800) << 10) + (text[0] - 0xDC00U);
        text.remove_prefix(1);
    }
    return IsSurrogate(character) ? Replacement : character;
}

void Append(std::string& text, char32_t character)
{
    if (character < 0x80) {
        text += static_cast<char>(character);
        return;
    }
    const int following = character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
    static constexpr unsigned Marks[] = {0, 0xC0, 0xE0, 0xF0};
    text += static_cast<char>(Marks[following] | character >> (6 * following));
    for (int left = following; left-- > 0;)
        text += static_cast<char>(0x80 | (character >> (6 * left) & 0x3F));
}

void Append(std::u16string& text, char32_t character)
{
    if (character < 0x10000) {
        text += static_cast<char16_t>(character);
        return;
    }
    text += static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10));
    text += static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FF));
}

bool Between(char32_t c, char32_t first, char32_t last) { return c >= first && c <= last; }

// Pairs of a capital and its small letter, one after the other; in two stretches the capital has the odd number.
bool IsSmallOfPair(char32_t c)
{
    const bool isOdd = (c & 1) != 0;
    if (Between(c, 0x139, 0x148) || Between(c, 0x179, 0x17E))
        return !isOdd;
    return isOdd && c != 0x131 && (Between(c, 0x100, 0x137) || Between(c, 0x14A, 0x177) || Between(c, 0x460, 0x481));
}

char32_t ToCapital(char32_t c)
{
    if (Between(c, U'a', U'z') || (Between(c, 0xE0, 0xFE) && c != 0xF7))
        return c - 32;
    if (c == 0xFF)
        return 0x178;
    if (IsSmallOfPair(c))
        return c - 1;
    if ((Between(c, 0x3B1, 0x3CB) && c != 0x3C2) || Between(c, 0x430, 0x44F))
        return c - 32;
    return Between(c, 0x450, 0x45F) ? c - 80 : c;
}

}

std::u16string ToUtf16(std::string_view utf8)
{
    std::u16string text;
    while (!utf8.empty())
        Append(text, TakeCharacter(utf8));
    return text;
}

std::string ToUtf8(std::u16string_view utf16)
{
    std::string text;
    while (!utf16.empty())
        Append(text, TakeCharacter(utf16));
    return text;
}

std::string UpperCase(std::string_view utf8)
{
    std::string text;
    while (!utf8.empty())
        Append(text, ToCapital(TakeCharacter(utf8)));
    return text;
}

}
