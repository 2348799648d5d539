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

}
