#pragma once
#include <cstddef>
#include <string>
#include <string_view>

// Text as characters.
namespace engine {

struct Utf8Character {
    char32_t value = 0;
    std::size_t bytes = 1;
    bool valid = true;  // False: one byte that belongs to no character; its value is U+FFFD.
};

// The character that starts at byte `at`, which must lie inside the text.
Utf8Character CharacterAt(std::string_view text, std::size_t at);

std::size_t CountCharacters(std::string_view text);

// The same text as valid UTF-8: stray bytes become U+FFFD, control characters other than line ends and tabs blanks.
std::string CleanText(std::string_view text);

bool IsWhiteSpace(char32_t character);
inline constexpr char32_t ZeroWidthSpace = 0x200B;  // A place where a line may break.

bool EqualIgnoringCase(std::string_view left, std::string_view right);  // ASCII letters only.
std::string UpperCase(std::string_view text);                           // ASCII letters only.
std::string_view TrimBlanks(std::string_view text);

}
