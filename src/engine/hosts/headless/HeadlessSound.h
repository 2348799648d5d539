#pragma once
#include "engine/Host.h"
#include <memory>
#include <vector>

namespace engine {

// One stream that was played: what was written and when it was.
struct PlayedStream {
    std::int32_t sampleRate = 0;
    std::int64_t begunAt = 0;  // Milliseconds.
    std::int64_t written = 0;
    std::int16_t loudest = 0;
    bool ended = false;
    bool stopped = false;
};

struct SoundRecord {
    bool broken = false;                // Outputs stand still: their position stays 0.
    std::int32_t latency = 0;           // Milliseconds from the first written sample until it is heard.
    std::vector<PlayedStream> streams;  // Of all outputs, in the order in which they begun.
};

// Plays on the virtual clock.
class CHeadlessSound final : public ISoundOutput {
public:
    CHeadlessSound(ITimers& timers, SoundRecord& record) : m_timers(timers), m_record(record) {}
    void Begin(std::int32_t sampleRate) override;
    void Write(const std::vector<std::int16_t>& samples) override;
    void End() override;
    void Stop() override;
    std::int64_t Position() const override;

private:
    PlayedStream& Stream() { return m_record.streams[m_stream]; }

    ITimers& m_timers;
    SoundRecord& m_record;
    std::size_t m_stream = 0;
    bool m_playing = false;
    std::int32_t m_rate = 1;
    std::int64_t m_written = 0;
    // Playback runs from `m_base` samples at the time `m_since`; it stands while nothing is left.
    std::int64_t m_base = 0;
    std::int64_t m_since = 0;
};

}
