#include "base/text/Text.h"
#include "base/text/Utf8.h"
#include <algorithm>

namespace text {
namespace {

char AsciiLower(char letter) { return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter; }

bool SameLetter(char left, char right) { return AsciiLower(left) == AsciiLower(right); }

// Where the character number `count` (from 0) begins, in bytes; the text's size when there are fewer.
std::size_t OffsetOf(std::string_view text, std::size_t count)
{
    std::size_t offset = 0;
    for (; count > 0 && offset < text.size(); --count)
        offset += FirstCharacter(text.substr(offset)).size;
    return offset;
}

template <class Find> std::string ReplaceFound(std::string_view text, std::size_t length, std::string_view with, Find find)
{
    std::string result;
    for (std::size_t found = find(text); found != std::string_view::npos; found = find(text)) {
        result.append(text.substr(0, found)).append(with);
        text.remove_prefix(found + length);
    }
    return result.append(text);
}

}

bool IsWhiteSpace(char32_t code)
{
    if (code <= 0x20)
        return code == 0x20 || (code >= 0x09 && code <= 0x0D);
    return code == 0x85 || code == 0x1680 || (code >= 0x2000 && code <= 0x200A) || code == 0x2028 || code == 0x2029 ||
           code == 0x205F || code == 0x3000;
}

std::string_view Trim(std::string_view text, std::string_view blanks)
{
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::size_t Length(std::string_view text)
{
    std::size_t length = 0;
    for (std::size_t offset = 0; offset < text.size(); ++length)
        offset += FirstCharacter(text.substr(offset)).size;
    return length;
}

std::string_view Left(std::string_view text, std::size_t count) { return text.substr(0, OffsetOf(text, count)); }

std::string_view Mid(std::string_view text, std::size_t start)
{
    return text.substr(OffsetOf(text, start == 0 ? 0 : start - 1));
}

std::string_view Mid(std::string_view text, std::size_t start, std::size_t count) { return Left(Mid(text, start), count); }

std::string Replace(std::string_view text, std::string_view what, std::string_view with)
{
    if (what.empty())
        return std::string(text);
    return ReplaceFound(text, what.size(), with, [&](std::string_view rest) { return rest.find(what); });
}

std::string ReplaceIgnoringCase(std::string_view text, std::string_view what, std::string_view with)
{
    if (what.empty())
        return std::string(text);
    return ReplaceFound(text, what.size(), with, [&](std::string_view rest) { return FindIgnoringCase(rest, what); });
}

bool EndsWith(std::string_view text, std::string_view end) { return text.ends_with(end); }

std::size_t FindIgnoringCase(std::string_view text, std::string_view what)
{
    const auto found = std::search(text.begin(), text.end(), what.begin(), what.end(), SameLetter);
    if (found == text.end() && !what.empty())
        return std::string_view::npos;
    return static_cast<std::size_t>(found - text.begin());
}

}
