#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <poll.h>
#include <sys/syscall.h>
#include <unistd.h>

// A library for LD_PRELOAD: notes how long the event loop of an unchanged program looks at no event. Each time that is
// longer than a few milliseconds becomes a line of the file $LOOP_WATCH_FILE: when it ended (seconds of the steady clock)
// and how long it was (milliseconds).
namespace {

constexpr double WorthNotingMilliseconds = 2;

double Now() { return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count(); }

bool IsMainThread() { return syscall(SYS_gettid) == getpid(); }

// The event loop asks through its own library; whoever else waits, for an answer of the sound server or of another
// program's clipboard, keeps the loop waiting.
bool IsEventLoop(const void* caller)
{
    Dl_info info{};
    return dladdr(caller, &info) != 0 && info.dli_fname && std::strstr(info.dli_fname, "libglib-2.0");
}

class CLog {
public:
    void LoopLooks()
    {
        const double now = Now();
        if (m_file && m_since > 0 && (now - m_since) * 1000 > WorthNotingMilliseconds)
            std::fprintf(m_file, "%.6f %.3f\n", now, (now - m_since) * 1000);
    }
    void LoopHasLooked() { m_since = Now(); }

private:
    static FILE* Open()
    {
        const char* name = std::getenv("LOOP_WATCH_FILE");
        FILE* file = name ? std::fopen(name, "ae") : nullptr;
        if (file)
            std::setvbuf(file, nullptr, _IOLBF, 0);
        return file;
    }
    FILE* m_file = Open();
    double m_since = 0;
};

using Poll = int (*)(pollfd*, nfds_t, int);

}

extern "C" __attribute__((visibility("default"))) int poll(pollfd* files, nfds_t count, int timeout)
{
    static const auto original = reinterpret_cast<Poll>(dlsym(RTLD_NEXT, "poll"));
    if (!IsMainThread() || !IsEventLoop(__builtin_return_address(0)))
        return original(files, count, timeout);
    static CLog log;
    log.LoopLooks();
    const int answer = original(files, count, timeout);
    log.LoopHasLooked();
    return answer;
}
