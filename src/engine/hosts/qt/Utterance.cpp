#include "engine/hosts/qt/Utterance.h"
#include "engine/hosts/qt/MouthShapes.h"
#include "engine/hosts/qt/SpeechText.h"
#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace engine {
namespace {

constexpr int OwnWordsPerMinute = 175;
constexpr int OwnPitch = 50;
constexpr int OwnRange = 50;
constexpr std::int32_t LongestPauseMilliseconds = 600000;

// Hertz at the pitches 0, 10, 20 ... 90, 99, measured; without inflection the voice lies lower.
constexpr std::array<double, 11> InflectedHertz{69, 75, 81, 86, 95, 104, 115, 127, 140, 156, 174};
constexpr std::array<double, 11> MonotoneHertz{54, 59, 65, 72, 80, 89, 100, 112, 126, 142, 159};

int PitchOfHertz(double hertz, const std::array<double, 11>& table)
{
    if (hertz <= table.front())
        return 0;
    const auto above = std::lower_bound(table.begin(), table.end(), hertz);
    if (above == table.end())
        return 99;
    const double below = *std::prev(above);
    const auto step = static_cast<double>(above - table.begin() - 1);
    return std::min(99, static_cast<int>(10 * (step + (hertz - below) / (*above - below)) + 0.5));
}

int PitchOf(const SpeechSegment& segment)
{
    if (segment.pitchHertz <= 0)
        return OwnPitch;
    return PitchOfHertz(segment.pitchHertz, segment.monotone ? MonotoneHertz : InflectedHertz);
}

}

CEspeakLibrary::Setting SettingOf(const SpeechSegment& segment)
{
    CEspeakLibrary::Setting setting;
    const int pace = segment.wordsPerMinute <= 0 ? OwnWordsPerMinute : std::min(segment.wordsPerMinute, 800);
    setting.wordsPerMinute = std::clamp(pace * std::clamp(segment.speedPercent, 10, 1000) / 100, 80, 800);
    setting.pitch = PitchOf(segment);
    setting.range = segment.monotone ? 0 : OwnRange;
    setting.volume = (std::clamp(segment.volume, 0, 65535) * 100 + 32767) / 65535;
    return setting;
}

CUtterance::CUtterance(CEspeakLibrary& library, std::string voiceKey, Deliver deliver, Proceed proceed)
    : m_library(library), m_voiceKey(std::move(voiceKey)), m_deliver(std::move(deliver)), m_proceed(std::move(proceed))
{
}

void CUtterance::Speak(const std::vector<SpeechSegment>& segments)
{
    bool fine = true;
    for (m_segment = 0; m_segment < segments.size() && fine && !m_stopped; ++m_segment)
        fine = SpeakSegment(segments[m_segment], m_segment + 1 == segments.size());
    if (m_stopped)
        return;
    if (m_mouth != Mouth::Closed)
        AddMouth(m_made, Mouth::Closed);
    DeliverChunk(/*last*/ true, !fine);
}

bool CUtterance::SpeakSegment(const SpeechSegment& segment, bool isLast)
{
    m_chunk.segmentStarts.push_back(m_made);
    if (!AddSilence(std::min(segment.pauseMilliseconds, LongestPauseMilliseconds)))
        return true;
    return SpeakText(segment, isLast);
}

bool CUtterance::SpeakText(const SpeechSegment& segment, bool isLast)
{
    CSpeechText text(segment.text, segment.emphasis);
    if (text.Blank())
        return true;
    if (!m_library.SelectVoice(m_voiceKey, segment.whisper))
        return false;
    m_library.Set(SettingOf(segment));
    m_text = &text;
    m_segmentStart = m_made;
    const bool fine = m_library.Speak(text.Spoken(), isLast, *this);
    m_text = nullptr;
    return fine;
}

bool CUtterance::AddSilence(std::int32_t milliseconds)
{
    auto left = static_cast<std::int64_t>(std::max(milliseconds, 0)) * m_library.SampleRate() / 1000;
    if (left > 0)
        AddMouth(m_made, Mouth::Closed);
    const std::vector<std::int16_t> silence(4096);
    for (; left > 0 && !m_stopped; left -= static_cast<std::int64_t>(silence.size()))
        Samples(silence.data(), std::min(silence.size(), static_cast<std::size_t>(left)));
    return !m_stopped;
}

void CUtterance::Word(std::int64_t sample, int position)
{
    const std::optional<std::size_t> word = m_text ? m_text->WordAt(position) : std::nullopt;
    if (word)
        AddMark({SpeechMarkKind::Word, m_segmentStart + sample, m_segment, *word, Mouth::Closed});
}

void CUtterance::Phoneme(std::int64_t sample, std::string_view name)
{
    AddMouth(m_segmentStart + sample, MouthOfPhoneme(name));
}

void CUtterance::AddMouth(std::int64_t sample, Mouth mouth)
{
    if (std::exchange(m_mouth, mouth) != mouth)
        AddMark({SpeechMarkKind::Mouth, sample, m_segment, 0, mouth});
}

// Marks never go back, whatever the library says.
void CUtterance::AddMark(SpeechMark mark)
{
    mark.sample = std::max(mark.sample, m_lastMark);
    m_lastMark = mark.sample;
    m_chunk.marks.push_back(mark);
}

bool CUtterance::Samples(const std::int16_t* samples, std::size_t count)
{
    m_chunk.samples.insert(m_chunk.samples.end(), samples, samples + count);
    m_made += static_cast<std::int64_t>(count);
    const auto quarterSecond = static_cast<std::size_t>(m_library.SampleRate()) / 4;
    if (!m_firstDelivered || m_chunk.samples.size() >= quarterSecond)
        DeliverChunk(/*last*/ false, /*failed*/ false);
    m_stopped = m_stopped || !m_proceed(m_made);
    return !m_stopped;
}

void CUtterance::DeliverChunk(bool last, bool failed)
{
    m_firstDelivered = true;
    m_chunk.last = last;
    m_chunk.failed = failed;
    m_deliver(std::exchange(m_chunk, {}));
}

}
