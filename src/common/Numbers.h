#pragma once
#include <cstdint>
#include <string_view>

// Numbers that texts denote.
namespace text {

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
