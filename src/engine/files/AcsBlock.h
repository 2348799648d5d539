#pragma once
#include "engine/files/AcsAnimations.h"

namespace engine::files {

// Throws platform::CFailure (too old, too new) unless this program knows the version of the character block.
void RequireKnownVersion(std::span<const std::uint8_t> file, Locator block);

// Fills in what the character block says: all but animations, pictures and sounds. States keep only animations out of
// `animationNames` (in capitals). Throws platform::CFailure (invalid data) for a damaged block.
void ReadBlock(std::span<const std::uint8_t> file, Locator block, const NameSet& animationNames, Character& character);

}
