#pragma once
#include "engine/base/Timer.h"
#include <functional>
#include <memory>

namespace engine {

// The sound effects of one character's frames: one at a time, a new one replaces the running one.
class CSoundEffects {
public:
    explicit CSoundEffects(IHost& host) : m_host(host), m_timer(host.Timers()) {}

    // What cannot be decoded stays silent; a sound that has only just begun is not begun again. The file must live as long
    // as this object.
    void Play(const std::vector<std::uint8_t>& waveFile);
    void Stop();        // Silence now; whoever waits is called no more.
    void FallSilent();  // Silence now; whoever waits is called soon.
    bool Sounding() const { return m_timer.Running(); }
    // Calls back when no effect sounds any more: at once, before this returns, when none does.
    void WhenSilent(std::function<void()> call);
    void ForgetWaiting() { m_waiting = nullptr; }

private:
    void Poll();

    IHost& m_host;
    CTimer m_timer;
    std::unique_ptr<ISoundOutput> m_output;
    const std::vector<std::uint8_t>* m_last = nullptr;
    std::int64_t m_begun = 0;
    std::int64_t m_samples = 0;
    std::int64_t m_rate = 1;
    std::int64_t m_deadline = 0;
    std::function<void()> m_waiting;
};

}
