#include "engine/hosts/qt/QtHost.h"
#include "engine/hosts/qt/BalloonWindow.h"
#include "engine/hosts/qt/CharacterWindow.h"
#include "engine/hosts/qt/EspeakSynthesizer.h"
#include "engine/hosts/qt/PulseOutput.h"
#include "engine/hosts/qt/QtTimers.h"
#include "engine/hosts/qt/RecordedOutput.h"
#include "engine/hosts/qt/ScreenWatch.h"
#include "engine/hosts/qt/SteadyClock.h"
#include "engine/hosts/qt/TextMeasure.h"
#include <QRandomGenerator>
#include <cstdio>

namespace engine {
namespace {

// When the stream begun last was first heard.
struct HeardLog {
    std::optional<std::int64_t> firstSampleAt;  // Milliseconds.
};

// Notes when a stream is heard first; all else is done by another output.
class CObservedOutput final : public ISoundOutput {
public:
    CObservedOutput(std::unique_ptr<ISoundOutput> output, std::shared_ptr<HeardLog> log)
        : m_output(std::move(output)), m_log(std::move(log))
    {
    }
    void Begin(std::int32_t sampleRate) override
    {
        m_rate = std::max(sampleRate, 1);
        m_waiting = true;
        m_log->firstSampleAt.reset();
        m_output->Begin(sampleRate);
    }
    void Write(const std::vector<std::int16_t>& samples) override { m_output->Write(samples); }
    void End() override { m_output->End(); }
    void Stop() override { m_output->Stop(); }
    std::int64_t Position() const override
    {
        const std::int64_t position = m_output->Position();
        if (m_waiting && position > 0) {
            m_waiting = false;
            m_log->firstSampleAt = SteadyMicroseconds() / 1000 - position * 1000 / m_rate;
        }
        return position;
    }

private:
    std::unique_ptr<ISoundOutput> m_output;
    std::shared_ptr<HeardLog> m_log;
    std::int32_t m_rate = 22050;
    mutable bool m_waiting = false;
};

class CDesktop final : public IDesktop {
public:
    Rect WorkArea(Point near) const override { return WorkAreaNear(near); }
    void Watch(const void* watcher, std::function<void()> changed) override { screens.Watch(watcher, std::move(changed)); }
    void Unwatch(const void* watcher) override { screens.Unwatch(watcher); }

    CScreenWatch screens;
};

class CForgottenSettings final : public ISettingsFile {
public:
    std::string Read() const override { return ""; }
    bool Write(const std::string&) override { return false; }
};

class CNobodyElse final : public ILoadedCharacters {
public:
    void Enter(const std::string&) override {}
    void Leave(const std::string&) override {}
    bool OthersHave(const std::string&) const override { return false; }
};

template <class Interface, class Standing> std::shared_ptr<Interface> OrElse(std::shared_ptr<Interface> given)
{
    return given ? given : std::make_shared<Standing>();
}

class CQtHost final : public IQtHost {
public:
    explicit CQtHost(const QtHostOptions& options);
    std::unique_ptr<ICharacterWindow> CreateCharacterWindow(IMouseEvents& mouse) override
    {
        return std::make_unique<CCharacterWindow>(mouse, m_desktop.screens);
    }
    std::unique_ptr<IBalloonWindow> CreateBalloonWindow() override
    {
        return std::make_unique<CBalloonWindow>(m_desktop.screens);
    }
    ITextMeasure& Text() override { return m_text; }
    ITimers& Timers() override { return m_timers; }
    ISynthesizer& Synthesizer() override { return m_synthesizer; }
    std::unique_ptr<ISoundOutput> CreateSoundOutput() override;
    IDesktop& Desktop() override { return m_desktop; }
    ISettingsFile& SettingsFile() override { return *m_settingsFile; }
    ILoadedCharacters& LoadedCharacters() override { return *m_loadedCharacters; }
    ISpeechInput& SpeechInput() override { return m_noSpeechInput; }
    double RandomFraction() override { return QRandomGenerator::global()->generateDouble(); }
    void WarmUp() override;
    std::optional<std::int64_t> FirstSampleHeardMilliseconds() const override { return m_heard->firstSampleAt; }

private:
    std::unique_ptr<ISoundOutput> CreatePlainOutput();
    void ChooseSound(const std::string& sound);
    std::shared_ptr<CPulseServer> Server();

    CTextMeasure m_text;
    CQtTimers m_timers;
    CDesktop m_desktop;
    std::shared_ptr<ISettingsFile> m_settingsFile;
    std::shared_ptr<ILoadedCharacters> m_loadedCharacters;
    ISpeechInput m_noSpeechInput;
    CEspeakSynthesizer m_synthesizer;
    std::shared_ptr<HeardLog> m_heard = std::make_shared<HeardLog>();
    std::shared_ptr<CWavRecorder> m_recorder;  // Only when asked for.
    std::shared_ptr<CPulseServer> m_server;    // From the first need on.
    bool m_clockOnly = false;
};

CQtHost::CQtHost(const QtHostOptions& options)
    : m_settingsFile(OrElse<ISettingsFile, CForgottenSettings>(options.settingsFile)),
      m_loadedCharacters(OrElse<ILoadedCharacters, CNobodyElse>(options.loadedCharacters))
{
    ChooseSound(options.sound);
}

void CQtHost::ChooseSound(const std::string& sound)
{
    const std::string wav = "wav:";
    if (sound.compare(0, wav.size(), wav) == 0) {
        m_recorder = std::make_shared<CWavRecorder>(sound.substr(wav.size()));
        m_clockOnly = true;
        if (!m_recorder->Usable())
            std::fprintf(stderr, "Parlune: cannot write %s; time passes without sound\n", sound.c_str() + wav.size());
        return;
    }
    m_clockOnly = sound == "clock";
    if (!m_clockOnly && sound != "auto")
        std::fprintf(stderr, "Parlune: unknown sound output \"%s\"; taking \"auto\"\n", sound.c_str());
}

std::shared_ptr<CPulseServer> CQtHost::Server()
{
    if (!m_server)
        m_server = std::make_shared<CPulseServer>();
    return m_server;
}

std::unique_ptr<ISoundOutput> CQtHost::CreatePlainOutput()
{
    if (m_recorder)
        return std::make_unique<CRecordedOutput>(m_recorder);
    if (m_clockOnly)
        return std::make_unique<CClockOutput>();
    return std::make_unique<CPulseOutput>(Server());
}

std::unique_ptr<ISoundOutput> CQtHost::CreateSoundOutput()
{
    return std::make_unique<CObservedOutput>(CreatePlainOutput(), m_heard);
}

void CQtHost::WarmUp()
{
    m_synthesizer.WarmUp();
    if (!m_clockOnly)
        Server()->Connect();
}

}

std::unique_ptr<IQtHost> CreateQtHost(const QtHostOptions& options) { return std::make_unique<CQtHost>(options); }

}
