#include "engine/speech/SpeechTags.h"
#include "base/text/Case.h"
#include "base/text/Text.h"
#include "base/text/Utf8.h"
#include "engine/base/CleanText.h"
#include "engine/speech/TagScanner.h"
#include "platform/CharacterEngine.h"
#include <algorithm>
#include <optional>
#include <utility>

namespace engine {

namespace {

namespace engineError = platform::engineError;

constexpr std::int64_t BookmarkLimit = 2147483645;
constexpr std::int64_t NumberCeiling = 1'000'000'000'000;
constexpr std::int32_t PauseLimit = 60000;

// A whole number, cut to plus or minus NumberCeiling; nothing for any other text.
std::optional<std::int64_t> WholeNumber(std::string_view text)
{
    const bool negative = !text.empty() && text.front() == '-';
    text.remove_prefix(negative ? 1 : 0);
    if (text.empty())
        return std::nullopt;
    std::int64_t value = 0;
    for (const char digit : text) {
        if (digit < '0' || digit > '9')
            return std::nullopt;
        value = std::min(NumberCeiling, value * 10 + (digit - '0'));
    }
    return negative ? -value : value;
}

bool SameSettings(const SpeechSegment& left, const SpeechSegment& right)
{
    return left.pitchHertz == right.pitchHertz && left.wordsPerMinute == right.wordsPerMinute &&
           left.volume == right.volume && left.monotone == right.monotone && left.whisper == right.whisper;
}

// Walks through one text and gathers what it says.
class CSpeechParse {
public:
    CSpeechParse(std::string_view text, const SpeechDefaults& defaults) : m_text(text), m_defaults(defaults) { Reset(); }

    SpokenText Run()
    {
        while (m_at < m_text.size())
            if (!TakeTag())
                TakeCharacter();
        CloseWord();
        if (m_pause > 0)
            EnsureSegment();
        m_result.repeatsLast = m_lastTag && m_result.error == 0;
        if (m_result.error != 0)
            DropSpeech();
        return std::move(m_result);
    }

private:
    void Reset()
    {
        m_settings = {};
        m_settings.pitchHertz = m_defaults.pitchHertz;
        m_settings.wordsPerMinute = m_defaults.wordsPerMinute;
    }

    void DropSpeech()
    {
        const std::int32_t error = m_result.error;
        m_result = {};
        m_result.error = error;
    }

    bool TakeTag()
    {
        if (m_text[m_at] != '\\')
            return false;
        const std::optional<SpeechTag> tag = ScanTag(m_text, m_at);
        if (!tag)
            return false;
        Apply(*tag);
        m_at += tag->length;
        return true;
    }

    void TakeCharacter()
    {
        const text::Character character = text::CharacterAt(m_text, m_at);
        const std::string_view bytes = m_text.substr(m_at, character.size);
        m_at += character.size;
        const TextPlace place = Say(bytes, 1);
        if (text::IsWhiteSpace(character.code))
            CloseWord();
        else
            OpenWord(place);
        m_result.shown += bytes;
    }

    // The place of the next spoken character, in a segment of the settings that now apply.
    TextPlace EnsureSegment()
    {
        auto& segments = m_result.segments;
        if (segments.empty() || m_pause > 0 || m_emphasis || !SameSettings(segments.back(), m_settings)) {
            segments.push_back(m_settings);
            segments.back().pauseMilliseconds = std::exchange(m_pause, 0);
            segments.back().emphasis = std::exchange(m_emphasis, false);
            m_position = 0;
        }
        return {segments.size() - 1, m_position};
    }

    TextPlace Say(std::string_view bytes, std::size_t characters)
    {
        const TextPlace place = EnsureSegment();
        m_result.segments.back().text += bytes;
        m_position += characters;
        return place;
    }

    TextPlace Here() const
    {
        return m_result.segments.empty() ? TextPlace{} : TextPlace{m_result.segments.size() - 1, m_position};
    }

    void OpenWord(TextPlace place)
    {
        if (!m_word)
            m_word = ShownWord{m_result.shown.size(), 0, place};
    }

    void CloseWord()
    {
        if (!m_word)
            return;
        m_word->end = m_result.shown.size();
        m_result.words.push_back(*m_word);
        m_word.reset();
    }

    void Apply(const SpeechTag& tag)
    {
        const std::string parameter = tag.parameters.empty() ? std::string() : tag.parameters.front();
        const std::optional<std::int64_t> number = WholeNumber(parameter);
        if (tag.name == "LST")
            RepeatLast(tag.length);
        else if (tag.name == "RST")
            Reset();
        else if (tag.name == "EMP")
            m_emphasis = true;
        else if (tag.name == "MAP" && tag.parameters.size() == 2)
            Map(parameter, tag.parameters[1]);
        else if (tag.name == "CHR")
            SetVoiceCharacter(parameter);
        else if (number)
            ApplyNumber(tag.name, *number);
    }

    void ApplyNumber(const std::string& name, std::int64_t number)
    {
        const auto clamped = [&](std::int64_t least, std::int64_t most) {
            return static_cast<std::int32_t>(std::clamp(number, least, most));
        };
        if (name == "VOL")
            m_settings.volume = clamped(0, 65535);
        else if (name == "PIT")
            m_settings.pitchHertz = clamped(50, 400);
        else if (name == "SPD")
            m_settings.wordsPerMinute = clamped(50, 250);
        else if (name == "PAU")
            m_pause = std::min(PauseLimit, m_pause + clamped(0, PauseLimit));
        else if (name == "MRK")
            Mark(number);
    }

    // Names that a voice does not know, and the contexts "Email" and "Address", change nothing.
    void SetVoiceCharacter(const std::string& name)
    {
        const bool normal = text::EqualIgnoringCase(name, "Normal");
        const bool monotone = text::EqualIgnoringCase(name, "Monotone");
        const bool whisper = text::EqualIgnoringCase(name, "Whisper");
        if (!normal && !monotone && !whisper)
            return;
        m_settings.monotone = monotone;
        m_settings.whisper = whisper;
    }

    void Mark(std::int64_t number)
    {
        if (number < 1 || number > BookmarkLimit)
            m_result.error = engineError::BadBookmark;
        else
            m_result.bookmarks.push_back({static_cast<std::int32_t>(number), Here()});
    }

    void Map(const std::string& spoken, const std::string& shown)
    {
        CloseWord();
        const TextPlace place = spoken.empty() ? Here() : Say(spoken, text::Length(spoken));
        if (shown.empty())
            return;
        OpenWord(place);
        m_result.shown += shown;
        CloseWord();
    }

    void RepeatLast(std::size_t length)
    {
        m_lastTag = true;
        if (text::Trim(m_text).size() != length)
            m_result.error = engineError::LastTagNotAlone;
    }

    std::string_view m_text;
    SpeechDefaults m_defaults;
    SpokenText m_result;
    SpeechSegment m_settings;
    std::size_t m_at = 0;
    std::size_t m_position = 0;  // Characters in the last segment.
    std::int32_t m_pause = 0;
    bool m_emphasis = false;
    bool m_lastTag = false;
    std::optional<ShownWord> m_word;
};

}

std::string_view ChooseAlternative(std::string_view text, double fraction)
{
    std::vector<std::string_view> alternatives;
    std::size_t begin = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '\\') {
            if (const std::optional<SpeechTag> tag = ScanTag(text, at))
                at += tag->length - 1;
        } else if (text[at] == '|') {
            alternatives.push_back(text.substr(begin, at - begin));
            begin = at + 1;
        }
    }
    alternatives.push_back(text.substr(begin));
    const double scaled = std::clamp(fraction, 0.0, 1.0) * static_cast<double>(alternatives.size());
    return alternatives[std::min(static_cast<std::size_t>(scaled), alternatives.size() - 1)];
}

SpokenText ParseSpeech(std::string_view text, const SpeechDefaults& defaults)
{
    const std::string clean = CleanText(text);
    return CSpeechParse(clean, defaults).Run();
}

std::size_t WordsBegunAt(const SpokenText& text, TextPlace place)
{
    const auto after = std::upper_bound(text.words.begin(), text.words.end(), place,
                                        [](TextPlace at, const ShownWord& word) { return at < word.spoken; });
    return static_cast<std::size_t>(after - text.words.begin());
}

}
