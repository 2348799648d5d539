#include "Recorder.h"
#include "engine/Engine.h"
#include "engine/files/CharacterFolders.h"
#include "engine/hosts/qt/QtHost.h"
#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <cstdio>
#include <iterator>
#include <sstream>

// bench_Words CHARACTERS TEXT: lets a character of the folder CHARACTERS speak TEXT and compares, word by word, when the
// balloon showed it with when it was heard. Every word of TEXT must end in a pause and have none inside: its sound is then
// found in the recording by ear. Prints a line for each word: by how many milliseconds the balloon was late, negative when
// it was early.
namespace {

using bench::CRecorder;

constexpr double PauseSeconds = 0.1;  // Longer than the closure of a consonant.

std::vector<std::string> WordsOf(const std::string& text)
{
    std::istringstream stream(text);
    return {std::istream_iterator<std::string>(stream), {}};
}

// How many of the words the balloon was told to show, and when each could be seen. No word comes twice: the last one in the
// balloon tells how far it is, also when the first lines have gone.
struct Sight {
    std::vector<std::string> words;
    std::size_t told = 0;
    std::vector<double> seenAt;
    void Told(const std::string& word)
    {
        const auto found = std::find(words.begin(), words.end(), word);
        if (found != words.end())
            told = std::max(told, static_cast<std::size_t>(found - words.begin()) + 1);
    }
    void Drawn()
    {
        while (seenAt.size() < told)
            seenAt.push_back(bench::Now());
    }
};

class CWatchedBalloon final : public engine::IBalloonWindow {
public:
    CWatchedBalloon(std::unique_ptr<engine::IBalloonWindow> window, Sight& sight)
        : m_window(std::move(window)), m_sight(sight)
    {
    }
    void Show(const engine::BalloonPicture& picture) override
    {
        const std::vector<std::string> shown =
            picture.lines.empty() ? std::vector<std::string>() : WordsOf(picture.lines.back().text);
        if (!shown.empty())
            m_sight.Told(shown.back());
        m_window->Show(picture);
    }
    void Hide() override { m_window->Hide(); }

private:
    std::unique_ptr<engine::IBalloonWindow> m_window;
    Sight& m_sight;
};

// The host of the program, whose balloon is watched.
class CWatchedHost final : public engine::IHost {
public:
    explicit CWatchedHost(Sight& sight) : m_sight(sight) { m_host->WarmUp(); }
    std::unique_ptr<engine::ICharacterWindow> CreateCharacterWindow(engine::IMouseEvents& mouse) override
    {
        return m_host->CreateCharacterWindow(mouse);
    }
    std::unique_ptr<engine::IBalloonWindow> CreateBalloonWindow() override
    {
        return std::make_unique<CWatchedBalloon>(m_host->CreateBalloonWindow(), m_sight);
    }
    engine::ITextMeasure& Text() override { return m_host->Text(); }
    engine::ITimers& Timers() override { return m_host->Timers(); }
    engine::ISynthesizer& Synthesizer() override { return m_host->Synthesizer(); }
    std::unique_ptr<engine::ISoundOutput> CreateSoundOutput() override { return m_host->CreateSoundOutput(); }
    engine::IDesktop& Desktop() override { return m_host->Desktop(); }
    engine::ISettingsFile& SettingsFile() override { return m_host->SettingsFile(); }
    engine::ILoadedCharacters& LoadedCharacters() override { return m_host->LoadedCharacters(); }
    engine::ISpeechInput& SpeechInput() override { return m_host->SpeechInput(); }
    double RandomFraction() override { return m_host->RandomFraction(); }

private:
    std::unique_ptr<engine::IQtHost> m_host = engine::CreateQtHost();
    Sight& m_sight;
};

// A word can be seen when the balloon's window has drawn itself and sent its picture to the display.
class CWatchedApplication final : public QApplication {
public:
    CWatchedApplication(int& count, char** arguments, Sight& sight) : QApplication(count, arguments), m_sight(sight) {}
    bool notify(QObject* receiver, QEvent* event) override
    {
        const bool draws = event->type() == QEvent::UpdateRequest || event->type() == QEvent::Paint;
        const auto* window = draws ? qobject_cast<QWidget*>(receiver) : nullptr;
        const bool handled = QApplication::notify(receiver, event);
        if (window && window->windowTitle() == QLatin1String("Parlune balloon"))
            m_sight.Drawn();
        return handled;
    }

private:
    Sight& m_sight;
};

template <class Done> bool RunLoopUntil(Done&& done, double seconds)
{
    const double end = bench::Now() + seconds;
    QTimer alarm;  // Nothing else may happen for a long time.
    alarm.start(100);
    while (!done() && bench::Now() < end)
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    return done();
}

bool Ended(const platform::RequestRef& request)
{
    return request->Status() != platform::RequestStatus::Pending && request->Status() != platform::RequestStatus::InProgress;
}

// Where sound begins after a pause.
std::vector<std::size_t> Onsets(const std::vector<std::int16_t>& samples)
{
    std::vector<std::size_t> onsets;
    auto quiet = static_cast<double>(samples.size());  // The first sound needs no pause before it.
    for (std::size_t index = 0; index < samples.size(); ++index) {
        if (!bench::Sounds(samples[index])) {
            ++quiet;
            continue;
        }
        if (quiet > PauseSeconds * bench::SamplesPerSecond)
            onsets.push_back(index);
        quiet = 0;
    }
    return onsets;
}

int Measure(engine::IHost& host, const std::string& characters, const std::string& text, Sight& sight)
{
    engine::CCharacterFolders source({characters});
    const std::shared_ptr<platform::ICharacterEngine> control = engine::CreateEngine(host, source);
    control->SetConnected(true);
    control->Characters()->Load("Bot", std::nullopt);
    const auto character = control->Characters()->Character("Bot");
    character->SetIdleOn(false);
    const auto shown = character->Show(true);
    RunLoopUntil([&] { return Ended(shown); }, 10);
    RunLoopUntil([] { return false; }, 1);  // The voice is loaded, the server connected.
    const CRecorder recorder;
    const auto spoken = character->Speak(text, std::nullopt);
    RunLoopUntil([&] { return Ended(spoken); }, 300);
    RunLoopUntil([] { return false; }, 1);
    const std::vector<std::size_t> onsets = Onsets(recorder.Samples());
    if (onsets.size() != sight.words.size() || sight.seenAt.size() != onsets.size()) {
        std::fprintf(stderr, "bench_Words: %zu words, %zu seen, %zu heard\n", sight.words.size(), sight.seenAt.size(),
                     onsets.size());
        return 1;
    }
    for (std::size_t word = 0; word < onsets.size(); ++word)
        std::printf("%.1f\n", (sight.seenAt[word] - recorder.TimeOf(onsets[word])) * 1000);
    return 0;
}

}

int main(int argc, char** argv)
try {
    if (argc < 3)
        return 2;
    Sight sight;
    sight.words = WordsOf(argv[2]);
    int count = 1;
    const CWatchedApplication application(count, argv, sight);
    CWatchedHost host(sight);
    return Measure(host, argv[1], argv[2], sight);
} catch (const std::exception& failure) {
    std::fprintf(stderr, "bench_Words: %s\n", failure.what());
    return 1;
}
