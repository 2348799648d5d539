#pragma once
#include "engine/Host.h"
#include "engine/hosts/qt/PlayClock.h"
#include "engine/hosts/qt/SteadyClock.h"

namespace engine {

// Plays nothing, in time.
class CClockOutput final : public ISoundOutput {
public:
    void Begin(std::int32_t sampleRate) override { m_clock.Start(sampleRate, 0, 0, SteadyMicroseconds()); }
    void Write(const std::vector<std::int16_t>& samples) override
    {
        m_clock.Add(static_cast<std::int64_t>(samples.size()), SteadyMicroseconds());
    }
    void End() override {}
    void Stop() override { m_clock.Stop(SteadyMicroseconds()); }
    std::int64_t Position() const override { return m_clock.Position(SteadyMicroseconds()); }

private:
    CPlayClock m_clock;
};

}
