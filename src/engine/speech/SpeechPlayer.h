#pragma once
#include "engine/base/Timer.h"
#include "engine/sound/WaveFile.h"
#include "engine/speech/PreparedSpeech.h"
#include <deque>
#include <memory>
#include <optional>

namespace engine {

// What happens while a text is spoken. Nothing of it comes from inside a call of the player, except from Play itself.
class ISpeechListener {
public:
    virtual ~ISpeechListener() = default;
    virtual void WordsBegun(std::size_t count) = 0;  // Of the shown words; never fewer than before.
    virtual void BookmarkReached(std::int32_t number) = 0;
    virtual void MouthTurned(std::optional<Mouth> mouth) = 0;  // Without value: at rest.
    virtual void SpeechEnded() = 0;
};

// Speaks one text at a time: with a voice, with a recorded sound, or in silence at reading pace. What is heard drives the
// words; without sound, or where sound fails, a clock does.
class CSpeechPlayer {
public:
    CSpeechPlayer(IHost& host, ISpeechListener& listener) : m_host(host), m_listener(listener), m_timer(host.Timers()) {}

    void Play(std::unique_ptr<PreparedSpeech> speech, std::int32_t readingWordsPerMinute);
    void PlaySound(std::unique_ptr<PreparedSpeech> speech, const WaveSound& sound, std::int32_t readingWordsPerMinute);
    void Stop();  // Silence now; nothing more is told.
    bool Speaking() const { return m_speech != nullptr; }

private:
    void Begin(std::unique_ptr<PreparedSpeech> speech, std::int32_t readingWordsPerMinute);
    void OpenOutput(std::int32_t sampleRate);
    void Pump();
    void Write(FeedPart& part);
    void Poll();
    bool Stalled(std::int64_t position);
    void PassMarks(std::int64_t position);
    void Pass(const FeedMark& mark);
    void PassBookmarks(TextPlace place, bool startOfSegment);
    void GoSilent();
    void ReadOneWord();
    void End();

    IHost& m_host;
    ISpeechListener& m_listener;
    CTimer m_timer;
    std::unique_ptr<ISoundOutput> m_output;  // From the first sound on.
    std::unique_ptr<PreparedSpeech> m_speech;
    std::int32_t m_readingPace = 0;
    std::deque<FeedMark> m_marks;
    std::int32_t m_sampleRate = 1;
    std::int64_t m_written = 0;
    bool m_sounding = false;
    bool m_allWritten = false;
    std::int64_t m_lastPosition = 0;
    std::int64_t m_lastProgress = 0;  // Milliseconds.
    std::size_t m_wordsBegun = 0;
    std::size_t m_bookmarksPassed = 0;
};

}
