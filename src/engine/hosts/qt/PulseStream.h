#pragma once
#include "engine/hosts/qt/PulseServer.h"
#include <cstdint>
#include <optional>
#include <vector>

struct pa_operation;
struct pa_stream;

namespace engine {

// An answer of the server that is awaited. It does not come any more once this has gone. Called with the server's lock held.
class CPulseAnswer {
public:
    CPulseAnswer() = default;
    ~CPulseAnswer() { Await(nullptr); }
    CPulseAnswer(const CPulseAnswer&) = delete;
    CPulseAnswer& operator=(const CPulseAnswer&) = delete;
    void Await(pa_operation* operation);  // Takes it over; may be null. What was awaited before does not come any more.
    bool Awaited() const;

private:
    pa_operation* m_operation = nullptr;
};

// One stream of samples to the sound server, used once: it waits corked until its first sample is there and is closed
// after its last one. Made and called with the server's lock held, except where it says otherwise.
class CPulseStream {
public:
    CPulseStream(pa_context* context, std::int32_t sampleRate);
    ~CPulseStream();
    CPulseStream(const CPulseStream&) = delete;
    CPulseStream& operator=(const CPulseStream&) = delete;

    std::int32_t SampleRate() const { return m_rate; }
    bool Broken() const;
    void Add(const std::vector<std::int16_t>& samples);
    void End();                           // Nothing is added after it.
    bool Over() const { return m_over; }  // All was heard; the loudspeaker is given back.
    // Samples heard so far, never fewer than at the last question.
    std::int64_t Heard();
    // Silence now.
    void Stop();

private:
    static void StateChanged(pa_stream* stream, void* self);
    static void Wanted(pa_stream* stream, std::size_t bytes, void* self);
    static void RanDry(pa_stream* stream, void* self);
    static void TimingCame(pa_stream* stream, int success, void* self);
    static void Drained(pa_stream* stream, int success, void* self);
    void Feed();
    void SendQueued(std::size_t count);
    void StartPlaying();
    void DrainWhenSent();
    void AskForTiming();
    std::int64_t Estimate() const;
    std::int64_t SamplesIn(std::int64_t microseconds) const;
    bool Starved() const;
    void Close();

    pa_stream* m_stream;
    std::int32_t m_rate;
    std::vector<std::int16_t> m_queue;
    std::size_t m_taken = 0;  // Of the queue.
    std::int64_t m_sent = 0;
    std::int64_t m_heard = 0;
    std::int64_t m_timingAskedAt = 0;
    std::int64_t m_played = 0;               // The place in the server's stream that was heard ...
    std::optional<std::int64_t> m_playedAt;  // ... at this time.
    bool m_playing = false;
    bool m_dry = false;
    bool m_ended = false;
    bool m_draining = false;
    bool m_over = false;
    CPulseAnswer m_timing;
    CPulseAnswer m_drained;
};

}
