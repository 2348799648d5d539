#include "common/Text.h"
#include "common/Utf8.h"
#include <algorithm>
#include <iterator>

namespace text {
namespace {

// Capital letters `first` to `last`, every one or every second; each small letter is so far behind its capital.
struct LetterRange {
    char32_t first;
    char32_t last;
    std::int32_t distance;
    char32_t step;
};

constexpr LetterRange Letters[] = {
    {0xC0, 0xD6, 32, 1},    {0xD8, 0xDE, 32, 1},     {0x100, 0x12E, 1, 2},  {0x132, 0x136, 1, 2},   {0x139, 0x147, 1, 2},
    {0x14A, 0x176, 1, 2},   {0x178, 0x178, -121, 1}, {0x179, 0x17D, 1, 2},  {0x18F, 0x18F, 202, 1}, {0x1A0, 0x1A4, 1, 2},
    {0x1AF, 0x1AF, 1, 1},   {0x1CD, 0x1DB, 1, 2},    {0x1DE, 0x1EE, 1, 2},  {0x1F4, 0x1F4, 1, 1},   {0x1F8, 0x21E, 1, 2},
    {0x222, 0x232, 1, 2},   {0x386, 0x386, 38, 1},   {0x388, 0x38A, 37, 1}, {0x38C, 0x38C, 64, 1},  {0x38E, 0x38F, 63, 1},
    {0x391, 0x3A1, 32, 1},  {0x3A3, 0x3AB, 32, 1},   {0x400, 0x40F, 80, 1}, {0x410, 0x42F, 32, 1},  {0x460, 0x480, 1, 2},
    {0x48A, 0x4BE, 1, 2},   {0x4C0, 0x4C0, 15, 1},   {0x4C1, 0x4CD, 1, 2},  {0x4D0, 0x52E, 1, 2},   {0x531, 0x556, 48, 1},
    {0x1E00, 0x1E94, 1, 2}, {0x1EA0, 0x1EFE, 1, 2},
};

struct OneWay {
    char32_t from;
    char32_t to;
};
// Letters whose counterpart has another counterpart itself: micro sign, dotless i, long s, final sigma; dotted I.
constexpr OneWay OnlyUpper[] = {{0xB5, 0x39C}, {0x131, 0x49}, {0x17F, 0x53}, {0x3C2, 0x3A3}};
constexpr OneWay OnlyLower[] = {{0x130, 0x69}};

char32_t Moved(char32_t code, std::int32_t distance)
{
    return static_cast<char32_t>(static_cast<std::int32_t>(code) + distance);
}

bool Holds(const LetterRange& range, char32_t capital)
{
    return capital >= range.first && capital <= range.last && (capital - range.first) % range.step == 0;
}

char32_t UpperOf(char32_t code)
{
    if (code < 0x80)  // Nearly every letter; the tables are only asked for the others.
        return code >= 'a' && code <= 'z' ? code - 32 : code;
    for (const OneWay& letter : OnlyUpper)
        if (letter.from == code)
            return letter.to;
    const auto range = std::find_if(std::begin(Letters), std::end(Letters), [&](const LetterRange& candidate) {
        return Holds(candidate, Moved(code, -candidate.distance));
    });
    return range == std::end(Letters) ? code : Moved(code, -range->distance);
}

char32_t LowerOf(char32_t code)
{
    if (code < 0x80)
        return code >= 'A' && code <= 'Z' ? code + 32 : code;
    for (const OneWay& letter : OnlyLower)
        if (letter.from == code)
            return letter.to;
    const auto range = std::find_if(std::begin(Letters), std::end(Letters),
                                    [&](const LetterRange& candidate) { return Holds(candidate, code); });
    return range == std::end(Letters) ? code : Moved(code, range->distance);
}

template <char32_t (*Map)(char32_t)> std::string Mapped(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const Character character = FirstCharacter(text);
        if (character.code == NoCode)
            result += text.front();
        else
            AppendCharacter(result, Map(character.code));
        text.remove_prefix(character.size);
    }
    return result;
}

}

std::string Upper(std::string_view text) { return Mapped<UpperOf>(text); }

std::string Lower(std::string_view text) { return Mapped<LowerOf>(text); }

bool EqualIgnoringCase(std::string_view left, std::string_view right)
{
    while (!left.empty() && !right.empty()) {
        const Character one = FirstCharacter(left);
        const Character other = FirstCharacter(right);
        const bool bothStray = one.code == NoCode && other.code == NoCode;
        if (bothStray ? left.front() != right.front() : UpperOf(one.code) != UpperOf(other.code))
            return false;
        left.remove_prefix(one.size);
        right.remove_prefix(other.size);
    }
    return left.empty() && right.empty();
}

}
