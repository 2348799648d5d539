#pragma once
#include "engine/character/CharacterData.h"
#include <string>

namespace making {

// Writes one sheet per animation into the folder, which must exist: all frames in a row on light, mid and dark ground,
// and the mouths of the frames that can speak. `zoom` is 1 or more. Throws std::runtime_error when a file cannot be
// written.
void WritePreviews(const engine::Character& character, const std::string& folder, int zoom);

}
