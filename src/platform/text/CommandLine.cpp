#include "platform/text/CommandLine.h"

namespace platform::text {
namespace {
constexpr std::string_view Blanks = " \t";

// Takes one word from the start of `rest`, which starts with no blank.
std::string TakeWord(std::string_view& rest)
{
    std::string word;
    bool quoted = false;
    while (!rest.empty() && (quoted || Blanks.find(rest[0]) == std::string_view::npos)) {
        if (quoted && rest.starts_with("\\\"")) {
            word += '"';
            rest.remove_prefix(1);
        } else if (rest[0] == '"') {
            quoted = !quoted;
        } else {
            word += rest[0];
        }
        rest.remove_prefix(1);
    }
    return word;
}

// Backslashes at the end stand behind the closing quote, which the last of them would make a part of the word.
std::string Quoted(const std::string& word)
{
    if (!word.empty() && word.find_first_of(" \t\"") == std::string::npos)
        return word;
    const std::size_t end = word.find_last_not_of('\\') + 1;
    std::string quoted = "\"";
    for (const char c : std::string_view(word).substr(0, end))
        quoted += c == '"' ? std::string("\\\"") : std::string(1, c);
    return quoted + '"' + word.substr(end);
}
}

std::vector<std::string> SplitCommandLine(std::string_view commandLine)
{
    std::vector<std::string> words;
    for (std::string_view rest = commandLine;;) {
        const std::size_t start = rest.find_first_not_of(Blanks);
        if (start == std::string_view::npos)
            return words;
        rest.remove_prefix(start);
        words.push_back(TakeWord(rest));
    }
}

std::string JoinCommandLine(const std::vector<std::string>& words)
{
    std::string line;
    for (const std::string& word : words) {
        line.append(line.empty() ? "" : " ");
        line.append(Quoted(word));
    }
    return line;
}

}
