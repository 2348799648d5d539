#pragma once
#include "engine/Host.h"
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// The tags inside a text to speak: "\Spd=150\", "\Map="spoken"="shown"\" and so on.
namespace engine {

// What applies before any tag and after "\Rst\". 0: the voice's own.
struct SpeechDefaults {
    std::int32_t pitchHertz = 0;
    std::int32_t wordsPerMinute = 0;
};

// A place in what is spoken: an index of segments and one of characters in that segment's text.
struct TextPlace {
    std::size_t segment = 0;
    std::size_t position = 0;
    friend auto operator<=>(const TextPlace&, const TextPlace&) = default;
};

struct ShownWord {
    std::size_t begin = 0;  // Bytes of the shown text.
    std::size_t end = 0;
    TextPlace spoken;  // Where the word begins in what is spoken.
    friend bool operator==(const ShownWord&, const ShownWord&) = default;
};

struct SpeechBookmark {
    std::int32_t number = 0;
    TextPlace at;
    friend bool operator==(const SpeechBookmark&, const SpeechBookmark&) = default;
};

struct SpokenText {
    std::vector<SpeechSegment> segments;
    std::string shown;  // The balloon's text.
    std::vector<ShownWord> words;
    std::vector<SpeechBookmark> bookmarks;
    bool repeatsLast = false;  // The text was "\Lst\": the last statement is to be spoken again.
    std::int32_t error = 0;    // LastTagNotAlone or BadBookmark: nothing is to be spoken.
};

// The alternative of a text "a|b|c" that a random fraction (0 or more, below 1) picks: a part of `text`. A "|" inside a tag
// separates nothing.
std::string_view ChooseAlternative(std::string_view text, double fraction);

// Takes a text of any bytes apart. Stray bytes are spoken and shown as U+FFFD. Tags with unknown names or unusable values
// are removed; what only resembles a tag stays text.
SpokenText ParseSpeech(std::string_view text, const SpeechDefaults& defaults = {});

// How many of the shown words have begun when speech is at `place`.
std::size_t WordsBegunAt(const SpokenText& text, TextPlace place);

}
