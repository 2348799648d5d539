#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// The handful of text operations that the program knows. All text is UTF-8; positions and lengths count characters. A
// byte that belongs to no valid character counts as one.
namespace text {

inline constexpr char LineBreak[] = "\r\n";
inline constexpr char DoubleLineBreak[] = "\r\n\r\n";

// Without the blanks (spaces only) at both ends.
std::string_view Trim(std::string_view text);
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

std::string Upper(std::string_view text);
std::string Lower(std::string_view text);
bool EqualIgnoringCase(std::string_view left, std::string_view right);
bool EndsWith(std::string_view text, std::string_view end);
// Byte offset of the first occurrence, or npos.
std::size_t FindIgnoringCase(std::string_view text, std::string_view what);

// The number at the start of a text, blanks skipped, "&H" for hexadecimal; 0 when there is none.
double LeadingNumber(std::string_view text);
// The number that the whole text denotes. Throws 13 (type mismatch) when it denotes none.
double WholeNumberText(std::string_view text);
// A number rounded half to even to 32 or 16 bits. Throws 6 (overflow) when it does not fit.
std::int32_t ToInt32(double number);
std::int16_t ToInt16(double number);
// Both steps in one: 13 or 6.
std::int32_t ToInt32(std::string_view text);
std::int16_t ToInt16(std::string_view text);

}
