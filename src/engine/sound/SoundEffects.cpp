#include "engine/sound/SoundEffects.h"
#include "engine/base/Constants.h"
#include "engine/sound/WaveFile.h"
#include <algorithm>

namespace engine {

void CSoundEffects::Play(const std::vector<std::uint8_t>& waveFile)
{
    const std::int64_t now = m_host.Timers().NowMilliseconds();
    if (&waveFile == m_last && Sounding() && now - m_begun < constants::EffectRepeatLimit)
        return;
    m_last = &waveFile;
    m_begun = now;
    const std::optional<WaveSound> sound = DecodeWave(waveFile);
    if (!sound || sound->samples.empty())
        return;
    if (!m_output)
        m_output = m_host.CreateSoundOutput();
    m_output->Begin(sound->sampleRate);
    m_output->Write(sound->samples);
    m_output->End();
    m_samples = static_cast<std::int64_t>(sound->samples.size());
    m_rate = sound->sampleRate;
    m_deadline = now + sound->Milliseconds() + constants::SoundStallLimit;
    m_timer.Start(sound->Milliseconds(), [this] { Poll(); });
}

void CSoundEffects::Stop()
{
    if (Sounding())
        m_output->Stop();
    m_timer.Stop();
    m_waiting = nullptr;
}

void CSoundEffects::FallSilent()
{
    if (!Sounding())
        return;
    m_output->Stop();
    m_deadline = m_host.Timers().NowMilliseconds();
    m_timer.Start(0, [this] { Poll(); });
}

void CSoundEffects::WhenSilent(std::function<void()> call)
{
    if (Sounding())
        m_waiting = std::move(call);
    else
        call();
}

void CSoundEffects::Poll()
{
    const std::int64_t left = (m_samples - m_output->Position()) * 1000 / m_rate;
    if (left > 0 && m_host.Timers().NowMilliseconds() < m_deadline) {
        m_timer.Start(static_cast<std::int32_t>(std::clamp<std::int64_t>(left, 1, 1000)), [this] { Poll(); });
        return;
    }
    if (const std::function<void()> waiting = std::exchange(m_waiting, nullptr))
        waiting();
}

}
