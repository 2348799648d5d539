#pragma once
#include "engine/Host.h"
#include "engine/hosts/qt/EspeakLibrary.h"
#include <functional>

namespace engine {

// Settings of the synthesiser for a segment. Values outside its range are brought inside; 0 is the voice's own.
CEspeakLibrary::Setting SettingOf(const SpeechSegment& segment);

// Makes the sound of one utterance, segment after segment, and gives it away in chunks: the first one as soon as there
// are samples, later ones a quarter of a second long.
class CUtterance final : private CEspeakLibrary::IListener {
public:
    using Deliver = std::function<void(SpeechChunk)>;
    using Proceed = std::function<bool(std::int64_t samplesMade)>;  // Asked again and again; false ends the utterance.
    CUtterance(CEspeakLibrary& library, std::string voiceKey, Deliver deliver, Proceed proceed);

    // Ends with a chunk that is the last, unless `proceed` says no. The library's lock must be held.
    void Speak(const std::vector<SpeechSegment>& segments);

private:
    bool SpeakSegment(const SpeechSegment& segment, bool isLast);
    bool SpeakText(const SpeechSegment& segment, bool isLast);
    bool AddSilence(std::int32_t milliseconds);
    void Word(std::int64_t sample, int position) override;
    void Phoneme(std::int64_t sample, std::string_view name) override;
    bool Samples(const std::int16_t* samples, std::size_t count) override;
    void AddMouth(std::int64_t sample, Mouth mouth);
    void AddMark(SpeechMark mark);
    void DeliverChunk(bool last, bool failed);

    CEspeakLibrary& m_library;
    std::string m_voiceKey;
    Deliver m_deliver;
    Proceed m_proceed;
    SpeechChunk m_chunk;
    class CSpeechText* m_text = nullptr;  // Of the segment being spoken.
    std::size_t m_segment = 0;
    std::int64_t m_made = 0;          // Samples of the whole utterance so far.
    std::int64_t m_segmentStart = 0;  // The first one of the segment's text.
    std::int64_t m_lastMark = 0;
    Mouth m_mouth = Mouth::Closed;
    bool m_firstDelivered = false;
    bool m_stopped = false;
};

}
