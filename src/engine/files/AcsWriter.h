#pragma once
#include "engine/character/CharacterData.h"
#include "engine/files/Lz.h"
#include <cstdint>
#include <vector>

// Writes characters as files for every engine that reads the format.
namespace engine {

// The bytes of a character file, always the same for the same character. Names of animations are kept as given in the
// list of animations and become capitals everywhere else. Palette: at most 256 entries; give all 256 for safety. A
// character without a name for English gets its first name for that too. Throws platform::CFailure (invalid argument, its
// text names the fault) for a character that the format cannot hold or whose parts name what it does not have.
std::vector<std::uint8_t> WriteCharacterFile(const Character& character, lz::Effort effort = lz::Effort::Thorough);

}
