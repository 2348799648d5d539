#pragma once
#include "engine/character/CharacterData.h"
#include <string_view>

namespace engine {

// The mouth that speaks a phoneme, by its name at the synthesiser ("tS", "oU"). Names that are not known, such as the
// marks of a change of language, leave the mouth a little open.
Mouth MouthOfPhoneme(std::string_view phoneme);

}
