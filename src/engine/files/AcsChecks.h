#pragma once
#include "engine/character/CharacterData.h"

// What a character must fulfil to be written as a file.
namespace engine::files {

// Throws platform::CFailure (invalid argument) with `fault` in its text unless `holds`.
void Require(bool holds, const char* fault);

void RequireWritable(const Character& character);

}
