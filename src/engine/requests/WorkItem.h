#pragma once
#include "engine/requests/Request.h"
#include "engine/speech/PreparedSpeech.h"
#include <memory>
#include <string>

namespace engine {

enum class WorkKind : std::uint8_t { Show, Hide, Play, Speak, MoveTo };

// One piece of work in a character's queue. Kept small: a long reading queues thousands.
struct WorkItem {
    WorkKind kind = WorkKind::Play;
    bool fast = false;   // Show, Hide.
    std::int16_t x = 0;  // MoveTo.
    std::int16_t y = 0;
    std::int32_t milliseconds = 0;
    std::int32_t id = 0;
    std::weak_ptr<CRequest> request;
    std::string text;                          // Speak: with its tags. Play: the animation.
    std::unique_ptr<std::string> soundFile;    // Speak.
    std::unique_ptr<PreparedSpeech> prepared;  // Speak, once its turn is near.
};

}
