#pragma once
#include "engine/Host.h"
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

namespace engine {

// libespeak-ng, which is not made for threads and can be started once per process only. Every call but Get needs the
// lock; what fills the samples is called inside Speak.
class CEspeakLibrary {
public:
    struct Setting {
        int wordsPerMinute = 0;
        int pitch = 50;    // 0 to 99.
        int range = 50;    // 0 monotone.
        int volume = 100;  // 0 to 100.
    };
    class IListener {
    public:
        virtual ~IListener() = default;
        // Samples are counted from the start of the text.
        virtual void Word(std::int64_t sample, int position) = 0;
        virtual void Phoneme(std::int64_t sample, std::string_view name) = 0;
        virtual bool Samples(const std::int16_t* samples, std::size_t count) = 0;  // False: no more, please.
    };

    static CEspeakLibrary& Get();
    std::unique_lock<std::mutex> Lock() { return std::unique_lock(m_mutex); }

    // Starts the library at the first call; later ones answer the same. Why it cannot speak, or "".
    const std::string& Start();
    std::int32_t SampleRate() const { return m_sampleRate; }
    // The voices that need nothing but the library's own data, by language.
    std::vector<Voice> Voices() const;
    bool SelectVoice(const std::string& key, bool whisper);
    void Set(const Setting& setting);
    // Makes the whole text, UTF-8, as fast as it can. False on failure; stopping by the listener is none. What the listener
    // throws stops the text and comes out here.
    bool Speak(const std::string& text, bool endPause, IListener& listener);

private:
    CEspeakLibrary() = default;
    std::mutex m_mutex;
    bool m_started = false;
    std::string m_failure;
    std::int32_t m_sampleRate = 22050;
};

}
