#pragma once
#include <algorithm>
#include <cstdint>

namespace engine {

// The position of a loudspeaker that is not there: it plays what was written at the sample rate and stands still when it
// has run out of samples. Times are microseconds of a steady clock.
class CPlayClock {
public:
    // From a position on, with so many samples written already.
    void Start(std::int32_t sampleRate, std::int64_t position, std::int64_t written, std::int64_t now)
    {
        m_rate = std::max(sampleRate, 1);
        m_written = written;
        Restart(std::min(position, written), now);
    }
    void Add(std::int64_t samples, std::int64_t now)
    {
        if (Elapsed(now) >= m_written)
            Restart(m_written, now);
        m_written += samples;
    }
    void Stop(std::int64_t now) { m_written = Position(now); }
    std::int64_t Position(std::int64_t now) const { return std::min(m_written, Elapsed(now)); }

private:
    void Restart(std::int64_t position, std::int64_t now)
    {
        m_base = position;
        m_since = now;
    }
    std::int64_t Elapsed(std::int64_t now) const
    {
        return m_base + std::max<std::int64_t>(now - m_since, 0) * m_rate / 1000000;
    }

    std::int32_t m_rate = 22050;
    std::int64_t m_written = 0;
    std::int64_t m_base = 0;
    std::int64_t m_since = 0;
};

}
