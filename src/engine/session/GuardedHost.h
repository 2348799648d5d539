#pragma once
#include "engine/Host.h"
#include <functional>
#include <memory>

namespace engine {

// Timers whose owner is told when one of their calls throws. The exception goes on to the event loop, which reports it.
class CGuardedTimers final : public ITimers {
public:
    using Failed = std::function<void(std::int32_t number)>;  // Called inside the catch clause.
    CGuardedTimers(ITimers& timers, Failed failed)
        : m_timers(timers), m_failed(std::make_shared<const Failed>(std::move(failed)))
    {
    }
    std::int64_t NowMilliseconds() const override { return m_timers.NowMilliseconds(); }
    TimerID CallLater(std::int32_t milliseconds, std::function<void()> call) override;
    void Cancel(TimerID timer) override { m_timers.Cancel(timer); }

private:
    ITimers& m_timers;
    const std::shared_ptr<const Failed> m_failed;  // Not called any more once these timers are gone.
};

// The host as the parts of a control see it: as it is, but with guarded timers.
class CGuardedHost final : public IHost {
public:
    CGuardedHost(IHost& host, CGuardedTimers::Failed failed) : m_host(host), m_timers(host.Timers(), std::move(failed)) {}
    std::unique_ptr<ICharacterWindow> CreateCharacterWindow(IMouseEvents& mouse) override
    {
        return m_host.CreateCharacterWindow(mouse);
    }
    std::unique_ptr<IBalloonWindow> CreateBalloonWindow() override { return m_host.CreateBalloonWindow(); }
    ITextMeasure& Text() override { return m_host.Text(); }
    ITimers& Timers() override { return m_timers; }
    ISynthesizer& Synthesizer() override { return m_host.Synthesizer(); }
    std::unique_ptr<ISoundOutput> CreateSoundOutput() override { return m_host.CreateSoundOutput(); }
    IDesktop& Desktop() override { return m_host.Desktop(); }
    ISettingsFile& SettingsFile() override { return m_host.SettingsFile(); }
    ILoadedCharacters& LoadedCharacters() override { return m_host.LoadedCharacters(); }
    ISpeechInput& SpeechInput() override { return m_host.SpeechInput(); }
    double RandomFraction() override { return m_host.RandomFraction(); }

private:
    IHost& m_host;
    CGuardedTimers m_timers;
};

}
