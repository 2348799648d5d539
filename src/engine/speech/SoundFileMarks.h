#pragma once
#include "engine/sound/WaveFile.h"
#include "engine/speech/SpeechFeed.h"
#include <vector>

namespace engine {

// What happens during a recorded sound with a text: the words spread over it by their length, the mouth follows its
// loudness.
std::vector<FeedMark> MarksOfSound(const WaveSound& sound, const SpokenText& text);

}
