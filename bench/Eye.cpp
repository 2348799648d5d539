#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QScreen>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <optional>
#include <spawn.h>
#include <thread>
#include <unistd.h>
#include <utility>

// bench_Eye [--settled] LEFT TOP WIDTH HEIGHT COMMAND...: starts a command and waits until a part of the screen looks
// different; when settled, until the last change before it rests for a while. Prints how many milliseconds that took and the
// command's process id; the command runs on.
namespace {

using Clock = std::chrono::steady_clock;

constexpr int LookEveryMilliseconds = 2;
constexpr int LongestSeconds = 20;
constexpr std::chrono::milliseconds Rest(350);  // Shorter than the blinking of a text cursor.

class CEye {
public:
    explicit CEye(char** area)
        : m_left(std::atoi(area[0])), m_top(std::atoi(area[1])), m_width(std::atoi(area[2])), m_height(std::atoi(area[3])),
          m_before(Look())
    {
    }
    // Since the last change that was seen.
    bool SeesAChange()
    {
        const QImage now = Look();
        return now != std::exchange(m_before, now);
    }

private:
    QImage Look() const
    {
        return QGuiApplication::primaryScreen()->grabWindow(0, m_left, m_top, m_width, m_height).toImage();
    }

    int m_left;
    int m_top;
    int m_width;
    int m_height;
    QImage m_before;
};

// The time of the first change, or of the last one before a rest. None: an empty answer.
std::optional<Clock::time_point> WaitForChange(CEye& eye, Clock::time_point begun, bool settled)
{
    std::optional<Clock::time_point> changed;
    for (Clock::time_point now = begun; now - begun < std::chrono::seconds(LongestSeconds); now = Clock::now()) {
        if (eye.SeesAChange()) {
            changed = Clock::now();
            if (!settled)
                return changed;
        }
        if (changed && now - *changed > Rest)
            return changed;
        std::this_thread::sleep_for(std::chrono::milliseconds(LookEveryMilliseconds));
    }
    return {};
}

}

int main(int argc, char** argv)
{
    const bool settled = argc > 1 && std::strcmp(argv[1], "--settled") == 0;
    char** words = argv + (settled ? 2 : 1);
    if (argv + argc - words < 5)
        return 2;
    int count = 1;
    const QGuiApplication application(count, argv);
    CEye eye(words);
    const Clock::time_point begun = Clock::now();
    pid_t process = -1;
    if (posix_spawnp(&process, words[4], nullptr, nullptr, words + 4, environ) != 0)
        return 1;
    const auto changed = WaitForChange(eye, begun, settled);
    if (!changed) {
        kill(process, SIGTERM);
        return 1;
    }
    std::printf("%.1f %d\n", std::chrono::duration<double, std::milli>(*changed - begun).count(), process);
    return 0;
}
