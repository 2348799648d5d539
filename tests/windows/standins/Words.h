#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace standins {

// The words of a command, split at blanks. A word in double quotes may hold blanks, and \" \\ \r \n \t in it stand for
// themselves as usual. Outside of quotes a backslash is a letter like any other.
struct CWord {
    std::string text;
    std::size_t begin = 0;  // Where it begins in the command.
};
std::vector<CWord> SplitWords(const std::string& command);
std::optional<std::int32_t> NumberOf(const std::string& text);  // Decimal, or 0x and hexadecimal digits.

}
