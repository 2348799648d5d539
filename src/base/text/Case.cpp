#include "base/text/Case.h"
#include "base/text/Utf8.h"
#include <algorithm>
#include <cstdint>
#include <iterator>
#include <span>

namespace text {
namespace {

// Letters `first` to `last`, every one or every second, whose counterparts are so far behind them.
struct Range {
    char32_t first;
    char32_t last;
    char32_t step;
    std::int32_t distance;
};

#include "base/text/LetterCase.inc"

char32_t Counterpart(std::span<const Range> ranges, char32_t code)
{
    const auto range = std::lower_bound(ranges.begin(), ranges.end(), code,
                                        [](const Range& candidate, char32_t wanted) { return candidate.last < wanted; });
    if (range == ranges.end() || code < range->first || (code - range->first) % range->step != 0)
        return code;
    return static_cast<char32_t>(static_cast<std::int32_t>(code) + range->distance);
}

// Nearly every letter is one of ASCII; the tables are only asked for the others.
char32_t UpperOf(char32_t code)
{
    if (code < 0x80)
        return code >= 'a' && code <= 'z' ? code - 32 : code;
    return Counterpart(Capitals, code);
}

char32_t LowerOf(char32_t code)
{
    if (code < 0x80)
        return code >= 'A' && code <= 'Z' ? code + 32 : code;
    return Counterpart(Smalls, code);
}

char32_t FoldedOf(char32_t code) { return code < 0x80 ? LowerOf(code) : Counterpart(Foldings, code); }

template <char32_t (*Map)(char32_t)> std::string Mapped(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const Character character = FirstCharacter(text);
        if (character.IsValid())
            AppendCharacter(result, Map(character.code));
        else
            result += text.front();
        text.remove_prefix(character.size);
    }
    return result;
}

}

std::string Upper(std::string_view text) { return Mapped<UpperOf>(text); }

std::string Lower(std::string_view text) { return Mapped<LowerOf>(text); }

std::string FoldCase(std::string_view text) { return Mapped<FoldedOf>(text); }

bool EqualIgnoringCase(std::string_view left, std::string_view right)
{
    while (!left.empty() && !right.empty()) {
        const Character one = FirstCharacter(left);
        const Character other = FirstCharacter(right);
        const bool bothStray = !one.IsValid() && !other.IsValid();
        if (bothStray ? left.front() != right.front() : FoldedOf(one.code) != FoldedOf(other.code))
            return false;
        left.remove_prefix(one.size);
        right.remove_prefix(other.size);
    }
    return left.empty() && right.empty();
}

}
