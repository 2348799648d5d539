#pragma once
#include "engine/character/CharacterData.h"
#include <cstdint>
#include <memory>
#include <vector>

// Reads character files of version 2.
namespace engine {

// The character that the bytes of a file hold. All but pixels is checked now; a picture is unpacked when it is asked for,
// from `bytes`, which the character keeps. References to what the file does not have are left out. Pictures are for one
// thread. Throws platform::CFailure: not a character file, too old, too new, or invalid data (damaged).
CharacterRef ReadCharacterFile(std::shared_ptr<const std::vector<std::uint8_t>> bytes);

}
