#pragma once
#include <cstddef>
#include <string>
#include <string_view>

namespace platform::text {

// One character of a UTF-8 text. A byte that belongs to no well-formed character is an invalid character of one byte.
struct Utf8Character {
    char32_t code = 0;
    std::size_t bytes = 1;
    bool valid = false;
};

// The character that starts at `position`, which must lie inside the text.
Utf8Character CharacterAt(std::string_view text, std::size_t position);

bool IsUtf8(std::string_view text);

// Appends one character; a number that is no character is appended as U+FFFD.
void AppendUtf8(std::string& text, char32_t code);

// The longest start of the text of at most `bytes` bytes that ends between two characters.
std::string_view CutBetweenCharacters(std::string_view text, std::size_t bytes);

// The text with its letters folded to one case, for comparing names: Latin, Greek and Cyrillic letters; all else, invalid
// bytes included, stays.
std::string FoldCase(std::string_view text);

bool SameName(std::string_view left, std::string_view right);

}
