#include "faults/calls/SystemCalls.h"
#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <dlfcn.h>
#include <fcntl.h>
#include <mutex>
#include <string_view>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>
#include <utility>

namespace faults {
namespace {
struct State {
    std::atomic<bool> on = false;
    std::string folder;
    Fault fault;
    CWatch::Tell tell;
    std::atomic<std::size_t> count = 0;
    std::mutex telling;
};

State& TheState()
{
    static State& state = *new State;  // Calls come until the very end of the process.
    return state;
}

std::string PathOf(int descriptor)
{
    char place[4096];
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    const ssize_t length = ::readlink(link.c_str(), place, sizeof place);
    return length > 0 ? std::string(place, static_cast<std::size_t>(length)) : "";
}

std::string FullPath(const char* path, int folder = AT_FDCWD)
{
    if (!TheState().on || path == nullptr)
        return "";
    if (*path == '/')
        return path;
    char place[4096];
    const std::string base = folder != AT_FDCWD ? PathOf(folder) : ::getcwd(place, sizeof place) ? place : "";
    return base + "/" + path;
}

bool IsWatched(const Call& call)
{
    const State& state = TheState();
    return state.on && (call.path.starts_with(state.folder) || call.other.starts_with(state.folder));
}

bool Changes(std::string_view name)
{
    static constexpr std::string_view changing[] = {"create", "write", "fsync", "rename", "link", "mkdir", "ftruncate"};
    return std::find(std::begin(changing), std::end(changing), name) != std::end(changing);
}

bool IsFaulty(const Call& call, std::size_t number)
{
    const Fault& fault = TheState().fault;
    return fault.error != 0 && (number == fault.number || (fault.stays && number > fault.number && Changes(call.name)));
}

void Tell(const Call& call)
{
    const std::lock_guard lock(TheState().telling);
    TheState().tell(call);
}

// Makes the call or lets it fail, and notes it. `failed` is what it answers then.
template <class Result, class Make> Result Pass(Call call, Result failed, Make make)
{
    if (!IsWatched(call))
        return make(call);
    const bool faulty = IsFaulty(call, ++TheState().count);
    Result result = failed;
    if (!faulty || call.name == "close")
        result = make(call);
    const int error = faulty ? TheState().fault.error : errno;
    if (faulty)
        result = failed;
    call.failed = result == failed;
    Tell(call);
    errno = error;
    return result;
}

template <class Make> int PassInt(Call call, Make make)
{
    return Pass<int>(std::move(call), -1, [&](Call&) { return make(); });
}

Call OnDescriptor(const char* name, int descriptor)
{
    return Call{.name = name, .path = TheState().on ? PathOf(descriptor) : "", .descriptor = descriptor};
}

template <class Make> int Open(const std::string& path, int flags, Make make)
{
    Call opened{.name = (flags & O_CREAT) != 0 ? "create" : "open", .path = path, .truncates = (flags & O_TRUNC) != 0};
    return Pass<int>(std::move(opened), -1, [&](Call& call) { return call.descriptor = make(); });
}

template <class Make> ssize_t Write(int descriptor, const void* bytes, std::size_t size, Make make)
{
    return Pass<ssize_t>(OnDescriptor("write", descriptor), -1, [&](Call& call) {
        const Fault& fault = TheState().fault;
        const bool isShort = fault.shortWrite && TheState().count == fault.number && size > 1 && IsWatched(call);
        const ssize_t written = make(isShort ? size / 2 : size);
        if (IsWatched(call) && written > 0)
            call.bytes.assign(static_cast<const char*>(bytes), static_cast<std::size_t>(written));
        return written;
    });
}

int Flush(int descriptor)
{
    return PassInt(OnDescriptor("fsync", descriptor), [] { return 0; });
}
}

CWatch::CWatch(const std::string& folder, const Fault& fault)
    : CWatch(folder, fault, [this](const Call& call) { m_calls.push_back(call); })
{
}

CWatch::CWatch(const std::string& folder, const Fault& fault, Tell tell)
{
    State& state = TheState();
    state.folder = folder;
    state.fault = fault;
    state.tell = std::move(tell);
    state.count = 0;
    state.on = true;
}

CWatch::~CWatch() { TheState().on = false; }

}

// The calls, as the C library declares them. Each finds the one behind it only once.
#define REAL(procedure) static const auto real = reinterpret_cast<decltype(&::procedure)>(::dlsym(RTLD_NEXT, #procedure))

extern "C" {

#define OPEN(name)                                                                                                          \
    int name(const char* path, int flags, ...)                                                                              \
    {                                                                                                                       \
        REAL(name);                                                                                                         \
        va_list more;                                                                                                       \
        va_start(more, flags);                                                                                              \
        const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(more, mode_t) : 0;                                \
        va_end(more);                                                                                                       \
        return faults::Open(faults::FullPath(path), flags, [&] { return real(path, flags, mode); });                        \
    }
#define OPENAT(name)                                                                                                        \
    int name(int folder, const char* path, int flags, ...)                                                                  \
    {                                                                                                                       \
        REAL(name);                                                                                                         \
        va_list more;                                                                                                       \
        va_start(more, flags);                                                                                              \
        const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(more, mode_t) : 0;                                \
        va_end(more);                                                                                                       \
        return faults::Open(faults::FullPath(path, folder), flags, [&] { return real(folder, path, flags, mode); });        \
    }
#define ON_PATH(procedure, parameters, ...)                                                                                 \
    int procedure parameters noexcept                                                                                       \
    {                                                                                                                       \
        REAL(procedure);                                                                                                    \
        return faults::PassInt(faults::Call{.name = #procedure, .path = faults::FullPath(path)},                            \
                               [&] { return real(__VA_ARGS__); });                                                          \
    }
#define ON_TWO_PATHS(procedure)                                                                                             \
    int procedure(const char* from, const char* to) noexcept                                                                \
    {                                                                                                                       \
        REAL(procedure);                                                                                                    \
        return faults::PassInt(                                                                                             \
            faults::Call{.name = #procedure, .path = faults::FullPath(from), .other = faults::FullPath(to)},                \
            [&] { return real(from, to); });                                                                                \
    }
#define ON_DESCRIPTOR(procedure, parameters, ...)                                                                           \
    int procedure parameters noexcept                                                                                       \
    {                                                                                                                       \
        REAL(procedure);                                                                                                    \
        return faults::PassInt(faults::OnDescriptor(#procedure, descriptor), [&] { return real(__VA_ARGS__); });            \
    }

OPEN(open)
OPEN(open64)
OPENAT(openat)
OPENAT(openat64)
ON_TWO_PATHS(rename)
ON_TWO_PATHS(link)
ON_PATH(mkdir, (const char* path, mode_t mode), path, mode)
ON_PATH(unlink, (const char* path), path)
ON_PATH(access, (const char* path, int mode), path, mode)
ON_PATH(stat, (const char* path, struct stat* status), path, status)
ON_PATH(lstat, (const char* path, struct stat* status), path, status)
ON_DESCRIPTOR(fstat, (int descriptor, struct stat* status), descriptor, status)
ON_DESCRIPTOR(fchmod, (int descriptor, mode_t mode), descriptor, mode)
ON_DESCRIPTOR(ftruncate, (int descriptor, off_t size), descriptor, size)

char* realpath(const char* path, char* place) noexcept
{
    REAL(realpath);
    return faults::Pass<char*>(faults::Call{.name = "realpath", .path = faults::FullPath(path)}, nullptr,
                               [&](faults::Call&) { return real(path, place); });
}

ssize_t write(int descriptor, const void* bytes, size_t size)
{
    REAL(write);
    return faults::Write(descriptor, bytes, size, [&](size_t count) { return real(descriptor, bytes, count); });
}

ssize_t read(int descriptor, void* bytes, size_t size)
{
    REAL(read);
    return faults::Pass<ssize_t>(faults::OnDescriptor("read", descriptor), -1,
                                 [&](faults::Call&) { return real(descriptor, bytes, size); });
}

int fsync(int descriptor) { return faults::Flush(descriptor); }

int fdatasync(int descriptor) { return faults::Flush(descriptor); }

int close(int descriptor)
{
    REAL(close);
    return faults::PassInt(faults::OnDescriptor("close", descriptor), [&] { return real(descriptor); });
}
}
