#include "windows/standins/Words.h"
#include <charconv>

namespace standins {
namespace {

bool IsBlank(char letter) { return letter == ' ' || letter == '\t' || letter == '\r' || letter == '\n'; }

char Unescaped(char letter)
{
    switch (letter) {
    case 'r':
        return '\r';
    case 'n':
        return '\n';
    case 't':
        return '\t';
    case '0':
        return '\0';
    default:
        return letter;
    }
}

std::string QuotedWord(const std::string& command, std::size_t& at)
{
    std::string text;
    for (++at; at < command.size() && command[at] != '"'; ++at) {
        const bool escape = command[at] == '\\' && at + 1 < command.size();
        text += escape ? Unescaped(command[++at]) : command[at];
    }
    ++at;
    return text;
}

std::string PlainWord(const std::string& command, std::size_t& at)
{
    const std::size_t begin = at;
    while (at < command.size() && !IsBlank(command[at]))
        ++at;
    return command.substr(begin, at - begin);
}

}

std::vector<CToken> SplitWords(const std::string& command)
{
    std::vector<CToken> words;
    for (std::size_t at = 0;;) {
        while (at < command.size() && IsBlank(command[at]))
            ++at;
        if (at >= command.size())
            return words;
        const std::size_t begin = at;
        words.push_back({command[at] == '"' ? QuotedWord(command, at) : PlainWord(command, at), begin});
    }
}

std::optional<std::int32_t> NumberOf(const std::string& text)
{
    const bool hexadecimal = text.compare(0, 2, "0x") == 0;
    const char* begin = text.data() + (hexadecimal ? 2 : 0);
    const char* end = text.data() + text.size();
    std::uint32_t bits = 0;
    std::int32_t number = 0;
    const auto result = hexadecimal ? std::from_chars(begin, end, bits, 16) : std::from_chars(begin, end, number);
    if (result.ec != std::errc() || result.ptr != end)
        return std::nullopt;
    return hexadecimal ? static_cast<std::int32_t>(bits) : number;
}

}
