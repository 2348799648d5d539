#pragma once
#include "engine/speech/SpeechFeed.h"
#include "engine/speech/SpeechTags.h"
#include <memory>
#include <string>

namespace engine {

// What a person would repeat: a text after its alternative was chosen, and its sound file.
struct Statement {
    std::string text;
    std::string soundFile;  // "": none.
};

// A Speak request taken apart, its synthesis under way.
struct PreparedSpeech {
    Statement statement;
    SpokenText spoken;
    std::string modeId;
    std::int32_t speedPercent = 100;
    std::unique_ptr<CSpeechFeed> feed;  // Null when nothing can or need be synthesised.
};

}
