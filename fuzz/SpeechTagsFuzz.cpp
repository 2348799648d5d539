#include "Require.h"
#include "base/text/Text.h"
#include "base/text/Utf8.h"
#include "engine/speech/SpeechTags.h"
#include <algorithm>

// Any bytes make a speech whose parts fit together: valid text, words inside it and in order, settings in their ranges.
namespace {

using engine::SpokenText;
using engine::TextPlace;

void RequireWhole(std::string_view text)
{
    for (std::size_t at = 0; at < text.size();) {
        const text::Character character = text::CharacterAt(text, at);
        Require(character.IsValid());
        at += character.size;
    }
}

void RequirePlace(const SpokenText& speech, TextPlace place)
{
    if (speech.segments.empty())
        return Require(place == TextPlace{});
    Require(place.segment < speech.segments.size());
    Require(place.position <= text::Length(speech.segments[place.segment].text));
}

void RequireSegments(const SpokenText& speech)
{
    for (const engine::SpeechSegment& segment : speech.segments) {
        RequireWhole(segment.text);
        Require(segment.volume >= 0 && segment.volume <= 65535);
        Require(segment.pitchHertz == 0 || (segment.pitchHertz >= 50 && segment.pitchHertz <= 400));
        Require(segment.wordsPerMinute == 0 || (segment.wordsPerMinute >= 50 && segment.wordsPerMinute <= 250));
        Require(segment.pauseMilliseconds >= 0 && segment.pauseMilliseconds <= 60000);
        Require(!segment.text.empty() || segment.pauseMilliseconds > 0);
    }
}

void RequireWords(const SpokenText& speech)
{
    engine::ShownWord before;
    std::size_t count = 0;
    for (const engine::ShownWord& word : speech.words) {
        Require(word.begin < word.end && word.end <= speech.shown.size());
        Require(word.begin >= before.end && word.spoken >= before.spoken);
        RequirePlace(speech, word.spoken);
        Require(engine::WordsBegunAt(speech, word.spoken) >= ++count);
        before = word;
    }
}

void RequireBookmarks(const SpokenText& speech)
{
    TextPlace before;
    for (const engine::SpeechBookmark& bookmark : speech.bookmarks) {
        Require(bookmark.number > 0 && bookmark.at >= before);
        RequirePlace(speech, bookmark.at);
        before = bookmark.at;
    }
}

void RequireSpeech(std::string_view text)
{
    const SpokenText speech = engine::ParseSpeech(text);
    RequireWhole(speech.shown);
    RequireSegments(speech);
    RequireWords(speech);
    RequireBookmarks(speech);
    Require(speech.error == 0 || (speech.segments.empty() && speech.shown.empty() && !speech.repeatsLast));
}

}

// The first byte picks the alternative.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
    const std::string_view chosen = engine::ChooseAlternative(text, data[0] / 256.0);
    Require(chosen.size() <= text.size() && text.find(chosen) != std::string_view::npos);
    Require(chosen.size() == text.size() || text.find('|') != std::string_view::npos);
    RequireSpeech(chosen);
    RequireSpeech(text);
    return 0;
}
