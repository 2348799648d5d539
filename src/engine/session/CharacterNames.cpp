#include "engine/session/CharacterNames.h"
#include <algorithm>

namespace engine {

namespace {

constexpr std::uint16_t PrimaryLanguage = 0x3FF;
constexpr std::uint16_t English = 0x09;

int Score(std::uint16_t has, std::uint16_t wanted)
{
    if (has == wanted)
        return 3;
    if ((has & PrimaryLanguage) == (wanted & PrimaryLanguage))
        return 2;
    return (has & PrimaryLanguage) == English ? 1 : 0;
}

}

LocalizedName NamesFor(const Character& character, std::uint16_t languageId)
{
    const auto best = std::max_element(character.names.begin(), character.names.end(),
                                       [&](const LocalizedName& left, const LocalizedName& right) {
                                           return Score(left.languageId, languageId) < Score(right.languageId, languageId);
                                       });
    return best == character.names.end() ? LocalizedName{} : *best;
}

// The first three groups stand in the file with their lowest byte first.
std::string GuidOf(const Character& character)
{
    static constexpr std::size_t Order[] = {3, 2, 1, 0, 5, 4, 7, 6, 8, 9, 10, 11, 12, 13, 14, 15};
    static constexpr char Digits[] = "0123456789ABCDEF";
    std::string text = "{";
    for (std::size_t index = 0; index < std::size(Order); ++index) {
        if (index == 4 || index == 6 || index == 8 || index == 10)
            text += '-';
        const std::uint8_t byte = character.id[Order[index]];
        text += Digits[byte >> 4];
        text += Digits[byte & 15];
    }
    return text + "}";
}

}
