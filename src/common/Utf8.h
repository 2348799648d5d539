#pragma once
#include <cstddef>
#include <string>
#include <string_view>

// One character of a UTF-8 text at a time.
namespace text {

struct Character {
    char32_t code;     // The code point; for a byte that belongs to no valid character NoCode.
    std::size_t size;  // Bytes, 1 to 4.
};

inline constexpr char32_t NoCode = 0xFFFFFFFF;

// The character of several bytes, or the stray byte, at the start of a text that is not empty.
Character FirstWideCharacter(std::string_view text);

// The character at the start of a text that is not empty.
inline Character FirstCharacter(std::string_view text)
{
    const unsigned char first = static_cast<unsigned char>(text.front());
    return first < 0x80 ? Character{first, 1} : FirstWideCharacter(text);
}

void AppendCharacter(std::string& text, char32_t code);

}
