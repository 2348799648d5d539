#pragma once
#include "engine/base/Timer.h"
#include <functional>
#include <memory>

namespace engine {

// The sound effects of one character's frames: one at a time, a new one replaces the running one.
class CSoundEffects {
public:
    explicit CSoundEffects(IHost& host) : m_host(host), m_timer(host.Timers()) {}

    void Play(const std::vector<std::uint8_t>& waveFile);  // What cannot be decoded stays silent.
    void Stop();                                           // Silence now; whoever waits is called no more.
    bool Sounding() const { return m_timer.Running(); }
    // Calls back when no effect sounds any more: at once, before this returns, when none does.
    void WhenSilent(std::function<void()> call);
    void ForgetWaiting() { m_waiting = nullptr; }

private:
    void Poll();

    IHost& m_host;
    CTimer m_timer;
    std::unique_ptr<ISoundOutput> m_output;
    std::int64_t m_samples = 0;
    std::int64_t m_rate = 1;
    std::int64_t m_deadline = 0;
    std::function<void()> m_waiting;
};

}
