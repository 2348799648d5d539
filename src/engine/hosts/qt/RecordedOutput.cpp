#include "engine/hosts/qt/RecordedOutput.h"
#include <algorithm>

namespace engine {
namespace {

// The same sound in another number of samples.
std::vector<std::int16_t> Resampled(const std::vector<std::int16_t>& samples, std::int64_t count)
{
    std::vector<std::int16_t> result(static_cast<std::size_t>(count));
    for (std::size_t index = 0; index < result.size(); ++index)
        result[index] = samples[std::min(samples.size() - 1, index * samples.size() / result.size())];
    return result;
}

}

void CRecordedOutput::Begin(std::int32_t sampleRate)
{
    Finish();
    m_clock.Begin(sampleRate);
    m_rate = std::max(sampleRate, 1);
    m_ended = false;
    m_recorded = 0;
    m_place = m_recorder->BeginStretch();
    m_sounding = true;
}

void CRecordedOutput::Write(const std::vector<std::int16_t>& samples)
{
    m_clock.Write(samples);
    m_unheard.insert(m_unheard.end(), samples.begin(), samples.end());
}

void CRecordedOutput::Stop()
{
    Finish();
    m_clock.Stop();
}

std::int64_t CRecordedOutput::Position() const
{
    const std::int64_t position = m_clock.Position();
    if (m_sounding)
        RecordUpTo(position);
    return position;
}

void CRecordedOutput::RecordUpTo(std::int64_t position) const
{
    const auto count =
        std::min(m_unheard.size(), static_cast<std::size_t>(std::max<std::int64_t>(position - m_recorded, 0)));
    if (count == 0)
        return;
    const auto end = m_unheard.begin() + static_cast<std::ptrdiff_t>(count);
    const auto scaled = [this](std::int64_t samples) { return samples * CWavRecorder::SampleRate / m_rate; };
    const std::int64_t from = scaled(m_recorded);
    m_recorded += static_cast<std::int64_t>(count);
    m_recorder->Mix(m_place + from, Resampled({m_unheard.begin(), end}, scaled(m_recorded) - from));
    m_unheard.erase(m_unheard.begin(), end);
}

void CRecordedOutput::Finish()
{
    if (m_sounding) {
        RecordUpTo(m_clock.Position());
        m_recorder->EndStretch();
    }
    m_sounding = false;
    m_unheard.clear();
}

}
