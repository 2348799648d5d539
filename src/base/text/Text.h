#pragma once
#include <cstddef>
#include <string>
#include <string_view>

// The handful of operations on UTF-8 texts that the program knows. Positions and lengths count characters; a stray byte
// (Utf8.h) counts as one.
namespace text {

inline constexpr char LineBreak[] = "\r\n";
inline constexpr char DoubleLineBreak[] = "\r\n\r\n";

// Blanks, tabs, ends of lines and the blanks of other widths; not the one that holds two words together (U+00A0).
bool IsWhiteSpace(char32_t code);

// Without what it has of `blanks` at both ends; spaces only, unless more are named.
std::string_view Trim(std::string_view text, std::string_view blanks = " ");
std::size_t Length(std::string_view text);
// The first `count` characters, or all.
std::string_view Left(std::string_view text, std::size_t count);
// From the character at `start` on, counted from 1; "" beyond the end.
std::string_view Mid(std::string_view text, std::size_t start);
std::string_view Mid(std::string_view text, std::size_t start, std::size_t count);

// Every occurrence replaced, from left to right; the replacement is not searched again. An empty `what` changes nothing.
std::string Replace(std::string_view text, std::string_view what, std::string_view with);
// The same without regard to letter case (ASCII letters).
std::string ReplaceIgnoringCase(std::string_view text, std::string_view what, std::string_view with);

bool EndsWith(std::string_view text, std::string_view end);
// Byte offset of the first occurrence, or npos.
std::size_t FindIgnoringCase(std::string_view text, std::string_view what);

}
