#include "platform/linux/EndSignals.h"
#include <QSocketNotifier>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace platform::linuxdesktop {
namespace {
constexpr int EndingSignals[] = {SIGTERM, SIGINT, SIGHUP};

// The writing end of the pipe: a signal handler may do little else than write a byte.
volatile sig_atomic_t wakeUp = -1;

void HandleSignal(int)
{
    const int savedError = errno;
    const char byte = 1;
    const ssize_t ignored = ::write(wakeUp, &byte, 1);
    static_cast<void>(ignored);
    errno = savedError;
}

void SetHandlers(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    ::sigemptyset(&action.sa_mask);
    for (const int signal : EndingSignals)
        ::sigaction(signal, &action, nullptr);
}
}

CEndSignals::CEndSignals(std::function<void()> asked) : m_asked(std::move(asked))
{
    if (::pipe2(m_pipe, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    auto* notifier = new QSocketNotifier(m_pipe[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        char bytes[16];
        while (::read(m_pipe[0], bytes, sizeof bytes) > 0) {
        }
        m_asked();
    });
    wakeUp = m_pipe[1];
    SetHandlers(HandleSignal);
}

CEndSignals::~CEndSignals()
{
    if (m_pipe[0] < 0)
        return;
    SetHandlers(SIG_DFL);
    wakeUp = -1;
    ::close(m_pipe[0]);
    ::close(m_pipe[1]);
}

}
