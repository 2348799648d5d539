#pragma once
#include "engine/character/CharacterData.h"

namespace engine {

// The texts of a character for a language: of that very language, else of the same primary language, else the English ones,
// else the first. Empty texts when the character has none.
LocalizedName NamesFor(const Character& character, std::uint16_t languageId);

// The character's identity as text: "{8-4-4-4-12}" in upper case.
std::string GuidOf(const Character& character);

}
