#pragma once
#include "engine/character/CharacterData.h"
#include "engine/files/AcsFormat.h"
#include <set>
#include <span>

namespace engine::files {

// What frames may refer to.
struct PartCounts {
    std::size_t pictures = 0;
    std::size_t sounds = 0;
};

// All animations of a file. Pictures, sounds, exits, branches and return animations that do not exist are left out, of
// branches also what goes beyond 100 percent. Throws platform::CFailure (invalid data) for a damaged list or record.
std::vector<Animation> ReadAnimations(std::span<const std::uint8_t> file, Locator list, const PartCounts& counts);

using NameSet = std::set<std::string, std::less<>>;

// The names in capitals.
NameSet NamesOf(const std::vector<Animation>& animations);

}
