#pragma once
#include <cstddef>
#include <cstdint>
#include <string_view>

// The program counts texts in characters, the system in UTF-16 units.
namespace appwindows {

inline bool IsFirstOfPair(wchar_t unit) { return (unit & 0xFC00) == 0xD800; }
inline bool IsSecondOfPair(wchar_t unit) { return (unit & 0xFC00) == 0xDC00; }

inline std::int32_t CharactersIn(std::wstring_view text)
{
    std::int32_t count = 0;
    for (std::size_t at = 0; at < text.size(); ++at)
        if (at == 0 || !IsSecondOfPair(text[at]) || !IsFirstOfPair(text[at - 1]))
            ++count;
    return count;
}

// How many units the character at an index takes.
inline std::size_t UnitsAt(std::wstring_view text, std::size_t at)
{
    const bool pair = IsFirstOfPair(text[at]) && at + 1 < text.size() && IsSecondOfPair(text[at + 1]);
    return pair ? 2U : 1U;
}

// The index of the character with this number, counted from 0; the end of the text beyond its last one.
inline std::size_t IndexOfCharacter(std::wstring_view text, std::int32_t number)
{
    std::size_t at = 0;
    for (; number > 0 && at < text.size(); --number)
        at += UnitsAt(text, at);
    return at;
}

}
