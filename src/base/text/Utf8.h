#pragma once
#include <cstddef>
#include <string>
#include <string_view>

// UTF-8 text, one character at a time. A byte that belongs to no well-formed character (stray, cut off, of too long a form,
// a surrogate, beyond U+10FFFF) is a stray one: it counts as one character, and no procedure here changes or drops it unless
// it says so.
namespace text {

inline constexpr char32_t NoCode = 0xFFFFFFFF;
inline constexpr char32_t Replacement = 0xFFFD;

struct Character {
    char32_t code = NoCode;  // The code point; NoCode for a stray byte.
    std::size_t size = 1;    // Bytes, 1 to 4.

    bool IsValid() const { return code != NoCode; }
};

// The character of several bytes, or the stray byte, at the start of a text that is not empty.
Character FirstWideCharacter(std::string_view text);

// The character at the start of a text that is not empty.
inline Character FirstCharacter(std::string_view text)
{
    const unsigned char first = static_cast<unsigned char>(text.front());
    return first < 0x80 ? Character{first, 1} : FirstWideCharacter(text);
}

// The character that starts at byte `at`, which must lie inside the text.
inline Character CharacterAt(std::string_view text, std::size_t at) { return FirstCharacter(text.substr(at)); }

// Appends one character; a number that is no character, NoCode among them, is appended as U+FFFD.
void AppendCharacter(std::string& text, char32_t code);

// Whether there is no stray byte in it.
bool IsUtf8(std::string_view text);

// The longest start of the text of at most `bytes` bytes that ends between two characters.
std::string_view CutBetweenCharacters(std::string_view text, std::size_t bytes);

// From and to UTF-16. What is no character (a stray byte, a surrogate without its partner) becomes U+FFFD.
std::u16string ToUtf16(std::string_view utf8);
std::string ToUtf8(std::u16string_view utf16);

}
