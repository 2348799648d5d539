#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace standins {

// The words of a command, split at blanks. A word in double quotes may hold blanks, and \" \\ \r \n \t \0 in it mean what
// they mean in C. Outside of quotes a backslash is a letter like any other.
struct CToken {
    std::string text;
    std::size_t begin = 0;  // Where it begins in the command.
};
std::vector<CToken> SplitWords(const std::string& command);
std::optional<std::int32_t> NumberOf(const std::string& text);  // Decimal, or 0x and hexadecimal digits.

}
