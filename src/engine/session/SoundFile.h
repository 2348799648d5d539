#pragma once
#include "engine/sound/WaveFile.h"
#include <string>

namespace engine {

// The sound of a file on disk. Throws CFailure FileNotFound when it cannot be read, NotASoundFile when it is not a sound
// that can be played.
WaveSound LoadSoundFile(const std::string& path);

}
