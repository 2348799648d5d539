#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QScreen>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <spawn.h>
#include <thread>
#include <unistd.h>

// bench_Eye LEFT TOP WIDTH HEIGHT COMMAND...: starts a command and waits until a part of the screen looks different.
// Prints how many milliseconds that took and the command's process id; the command runs on.
namespace {

using Clock = std::chrono::steady_clock;

constexpr int LookEveryMilliseconds = 2;
constexpr int LongestSeconds = 20;

class CEye {
public:
    explicit CEye(char** area)
        : m_left(std::atoi(area[0])), m_top(std::atoi(area[1])), m_width(std::atoi(area[2])), m_height(std::atoi(area[3])),
          m_before(Look())
    {
    }
    bool SeesAChange() const { return Look() != m_before; }

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

}

int main(int argc, char** argv)
{
    if (argc < 6)
        return 2;
    int count = 1;
    const QGuiApplication application(count, argv);
    const CEye eye(argv + 1);
    const Clock::time_point begun = Clock::now();
    pid_t process = -1;
    if (posix_spawnp(&process, argv[5], nullptr, nullptr, argv + 5, environ) != 0)
        return 1;
    while (!eye.SeesAChange()) {
        if (Clock::now() - begun > std::chrono::seconds(LongestSeconds)) {
            kill(process, SIGTERM);
            return 1;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(LookEveryMilliseconds));
    }
    std::printf("%.1f %d\n", std::chrono::duration<double, std::milli>(Clock::now() - begun).count(), process);
    return 0;
}
