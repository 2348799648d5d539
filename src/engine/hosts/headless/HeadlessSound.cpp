#include "engine/hosts/headless/HeadlessSound.h"
#include <algorithm>

namespace engine {

void CHeadlessSound::Begin(std::int32_t sampleRate)
{
    m_stream = m_record.streams.size();
    m_record.streams.push_back({sampleRate, m_timers.NowMilliseconds(), 0, 0, false, false});
    m_playing = true;
    m_rate = std::max(1, sampleRate);
    m_written = 0;
    m_base = 0;
    m_since = m_timers.NowMilliseconds() + m_record.latency;
}

void CHeadlessSound::Write(const std::vector<std::int16_t>& samples)
{
    if (!m_playing)
        return;
    const std::int64_t position = Position();
    if (position == m_written) {
        m_base = position;
        m_since = std::max(m_since, m_timers.NowMilliseconds());
    }
    m_written += static_cast<std::int64_t>(samples.size());
    Stream().written = m_written;
    if (!samples.empty())
        Stream().loudest = std::max(Stream().loudest, *std::max_element(samples.begin(), samples.end()));
}

void CHeadlessSound::End()
{
    if (m_playing)
        Stream().ended = true;
}

void CHeadlessSound::Stop()
{
    if (m_playing)
        Stream().stopped = true;
    m_playing = false;
}

std::int64_t CHeadlessSound::Position() const
{
    if (m_record.broken)
        return 0;
    const std::int64_t elapsed = std::max<std::int64_t>(0, m_timers.NowMilliseconds() - m_since);
    return std::min(m_written, m_base + elapsed * m_rate / 1000);
}

}
