#pragma once
#include "engine/files/ByteWriter.h"

namespace engine::files {

// Writes what a file says of a character beside animations, pictures and sounds. Returns where it lies.
Locator WriteBlock(const Character& character, CByteWriter& writer);

}
