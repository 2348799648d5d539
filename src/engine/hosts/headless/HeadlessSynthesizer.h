#pragma once
#include "engine/Host.h"
#include <deque>
#include <vector>

namespace engine {

// A voice that can be reckoned by hand: so many samples for each character, a word mark at the first character of each word,
// an open mouth there and a closed one at blanks. Chunks arrive one after another with virtual delays.
class CHeadlessSynthesizer final : public ISynthesizer {
public:
    explicit CHeadlessSynthesizer(ITimers& timers);

    // What the test sets.
    bool available = true;
    std::vector<Voice> voices;
    std::int32_t sampleRate = 10000;
    std::int32_t samplesPerCharacter = 600;  // 60 milliseconds.
    std::int32_t latency = 5;                // Milliseconds from the order to the first chunk.
    std::size_t charactersPerChunk = 50;
    bool silent = false;       // Never answers.
    int failAfterChunks = -1;  // 0 or more: the chunk after so many good ones fails.

    struct Order {
        std::string modeId;
        std::vector<SpeechSegment> segments;
        bool cancelled = false;
    };
    // Everything that was ordered, oldest first.
    const std::vector<Order>& Orders() const { return m_orders; }
    void ForgetOrders();  // For tests that run for long.

    bool Available() const override { return available; }
    std::int32_t SampleRate() const override { return sampleRate; }
    std::vector<Voice> Voices() override { return available ? voices : std::vector<Voice>{}; }
    UtteranceID Synthesize(const std::string& modeId, std::vector<SpeechSegment> segments,
                           std::function<void(SpeechChunk)> receive) override;
    void Cancel(UtteranceID utterance) override;

private:
    struct Job {
        UtteranceID id = 0;
        std::deque<SpeechChunk> chunks;
        std::function<void(SpeechChunk)> receive;
    };
    std::deque<SpeechChunk> Make(const std::vector<SpeechSegment>& segments) const;
    void Deliver();

    ITimers& m_timers;
    std::vector<Order> m_orders;
    std::size_t m_forgotten = 0;
    std::deque<Job> m_jobs;
    TimerID m_timer = 0;
};

}
