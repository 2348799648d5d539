#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace platform::text {

// The words of a command line: separated by blanks, except inside double quotes, which are not part of the word. A
// backslash before a double quote inside quotes makes it part of the word. An open quote reaches to the end.
std::vector<std::string> SplitCommandLine(std::string_view commandLine);

// One command line of words, which SplitCommandLine takes apart into the same ones: a word that is empty or holds a blank or
// a quote is put in double quotes.
std::string JoinCommandLine(const std::vector<std::string>& words);

}
