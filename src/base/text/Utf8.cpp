#include "base/text/Utf8.h"
#include <algorithm>
#include <cstdint>
#include <cstring>

namespace text {
namespace {

struct Form {
    std::size_t size;
    char32_t leadBits;
    char32_t smallest;  // A smaller code has a shorter form and must use it.
};

Form FormOf(unsigned char lead)
{
    if ((lead & 0xE0U) == 0xC0U)
        return {2, lead & 0x1FU, 0x80};
    if ((lead & 0xF0U) == 0xE0U)
        return {3, lead & 0x0FU, 0x800};
    if ((lead & 0xF8U) == 0xF0U)
        return {4, lead & 0x07U, 0x10000};
    return {1, 0, 1};
}

bool IsHighSurrogate(char32_t code) { return code >= 0xD800 && code <= 0xDBFF; }
bool IsLowSurrogate(char32_t code) { return code >= 0xDC00 && code <= 0xDFFF; }
bool IsCharacter(char32_t code) { return code <= 0x10FFFF && !IsHighSurrogate(code) && !IsLowSurrogate(code); }

char TailByte(char32_t code, unsigned shift) { return static_cast<char>(0x80U | (code >> shift & 0x3FU)); }

// How many bytes at the start are ASCII.
std::size_t LeadingAscii(std::string_view text)
{
    std::size_t count = 0;
    for (std::uint64_t eight = 0; text.size() - count >= sizeof eight; count += sizeof eight) {
        std::memcpy(&eight, text.data() + count, sizeof eight);
        if ((eight & 0x8080808080808080U) != 0)
            break;
    }
    while (count < text.size() && static_cast<unsigned char>(text[count]) < 0x80)
        ++count;
    return count;
}

void AppendUnits(std::u16string& text, char32_t code)
{
    if (code < 0x10000) {
        text += static_cast<char16_t>(code);
        return;
    }
    text += static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10U));
    text += static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FFU));
}

// Takes one character from the front of a text that is not empty.
char32_t TakeCharacter(std::u16string_view& text)
{
    char32_t code = text.front();
    text.remove_prefix(1);
    if (IsHighSurrogate(code) && !text.empty() && IsLowSurrogate(text.front())) {
        code = 0x10000 + ((code - 0xD800) << 10U) + (text.front() - 0xDC00U);
        text.remove_prefix(1);
    }
    return code;
}

}

Character FirstWideCharacter(std::string_view text)
{
    constexpr Character strayByte;
    const Form form = FormOf(static_cast<unsigned char>(text.front()));
    if (form.size == 1 || form.size > text.size())
        return strayByte;
    char32_t code = form.leadBits;
    for (const char tail : text.substr(1, form.size - 1)) {
        if ((static_cast<unsigned char>(tail) & 0xC0U) != 0x80U)
            return strayByte;
        code = code << 6U | (static_cast<unsigned char>(tail) & 0x3FU);
    }
    return code >= form.smallest && IsCharacter(code) ? Character{code, form.size} : strayByte;
}

void AppendCharacter(std::string& text, char32_t code)
{
    if (!IsCharacter(code))
        code = Replacement;
    if (code < 0x80) {
        text += static_cast<char>(code);
    } else if (code < 0x800) {
        text += {static_cast<char>(0xC0U | code >> 6U), TailByte(code, 0)};
    } else if (code < 0x10000) {
        text += {static_cast<char>(0xE0U | code >> 12U), TailByte(code, 6), TailByte(code, 0)};
    } else {
        text += {static_cast<char>(0xF0U | code >> 18U), TailByte(code, 12), TailByte(code, 6), TailByte(code, 0)};
    }
}

bool IsUtf8(std::string_view text)
{
    for (text.remove_prefix(LeadingAscii(text)); !text.empty(); text.remove_prefix(LeadingAscii(text))) {
        const Character character = FirstCharacter(text);
        if (!character.IsValid())
            return false;
        text.remove_prefix(character.size);
    }
    return true;
}

std::string_view CutBetweenCharacters(std::string_view text, std::size_t bytes)
{
    if (bytes >= text.size())
        return text;
    // The last character that may be cut through starts at most three bytes before the cut.
    for (std::size_t start = bytes - std::min<std::size_t>(bytes, 3); start < bytes; ++start)
        if (start + CharacterAt(text, start).size > bytes)
            return text.substr(0, start);
    return text.substr(0, bytes);
}

std::u16string ToUtf16(std::string_view utf8)
{
    std::u16string text;
    text.reserve(utf8.size());
    while (!utf8.empty()) {
        const Character character = FirstCharacter(utf8);
        AppendUnits(text, character.IsValid() ? character.code : Replacement);
        utf8.remove_prefix(character.size);
    }
    return text;
}

std::string ToUtf8(std::u16string_view utf16)
{
    std::string text;
    text.reserve(utf16.size());
    while (!utf16.empty())
        AppendCharacter(text, TakeCharacter(utf16));
    return text;
}

}
