#include "engine/base/Utf8.h"
#include <algorithm>
#include <cstdint>

namespace engine {

namespace {

constexpr Utf8Character Stray{0xFFFD, 1, false};

std::size_t SequenceLength(unsigned char first)
{
    if (first < 0x80)
        return 1;
    if (first >= 0xC2 && first < 0xE0)
        return 2;
    if (first >= 0xE0 && first < 0xF0)
        return 3;
    return first >= 0xF0 && first < 0xF5 ? 4 : 0;
}

// Over-long forms, surrogates and values above U+10FFFF are no characters.
bool IsCharacter(char32_t value, std::size_t bytes)
{
    constexpr char32_t Smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    return value >= Smallest[bytes] && value <= 0x10FFFF && !(value >= 0xD800 && value <= 0xDFFF);
}

char UpperLetter(char letter) { return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter; }

}

Utf8Character CharacterAt(std::string_view text, std::size_t at)
{
    const auto byte = [&](std::size_t index) { return static_cast<unsigned char>(text[index]); };
    const std::size_t length = SequenceLength(byte(at));
    if (length == 1)
        return {byte(at), 1, true};
    if (length == 0 || length > text.size() - at)
        return Stray;
    char32_t value = byte(at) & (0xFFu >> (length + 1));
    for (std::size_t index = at + 1; index < at + length; ++index) {
        if ((byte(index) & 0xC0u) != 0x80u)
            return Stray;
        value = (value << 6) | (byte(index) & 0x3Fu);
    }
    return IsCharacter(value, length) ? Utf8Character{value, length, true} : Stray;
}

std::size_t CountCharacters(std::string_view text)
{
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); at += CharacterAt(text, at).bytes)
        ++count;
    return count;
}

std::string CleanText(std::string_view text)
{
    std::string clean;
    clean.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const Utf8Character character = CharacterAt(text, at);
        if (!character.valid)
            clean += "\xEF\xBF\xBD";
        else if ((character.value < 0x20 && !IsWhiteSpace(character.value)) || character.value == 0x7F)
            clean += ' ';
        else
            clean += text.substr(at, character.bytes);
        at += character.bytes;
    }
    return clean;
}

bool IsWhiteSpace(char32_t character)
{
    if (character <= 0x20)
        return character == 0x20 || (character >= 0x09 && character <= 0x0D);
    return character == 0x85 || character == 0x1680 || (character >= 0x2000 && character <= 0x200A) || character == 0x2028 ||
           character == 0x2029 || character == 0x205F || character == 0x3000;
}

bool EqualIgnoringCase(std::string_view left, std::string_view right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char one, char other) { return UpperLetter(one) == UpperLetter(other); });
}

std::string UpperCase(std::string_view text)
{
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(), UpperLetter);
    return upper;
}

std::string_view TrimBlanks(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}
