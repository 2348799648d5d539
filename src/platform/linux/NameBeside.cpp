#include "platform/linux/NameBeside.h"
#include "platform/linux/Descriptor.h"
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdint>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform::linuxdesktop {
namespace {
namespace fs = std::filesystem;
constexpr std::string_view End = ".parlune";

// A name may have 255 bytes.
std::string Beginning(const std::string& place) { return "." + fs::path(place).filename().string().substr(0, 200) + "."; }

fs::path FolderOf(const std::string& place)
{
    const fs::path folder = fs::path(place).parent_path();
    return folder.empty() ? "." : folder;
}

// The number that the text begins with, cut off it; nothing when there is none.
std::optional<pid_t> CutNumber(std::string_view& text)
{
    pid_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || number <= 0)
        return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return number;
}

// The process that a name tells; nothing when it is none of ours.
std::optional<pid_t> WriterOf(std::string_view name, std::string_view beginning)
{
    if (!name.starts_with(beginning))
        return std::nullopt;
    name.remove_prefix(beginning.size());
    const auto process = CutNumber(name);
    if (!process || !name.starts_with('-'))
        return std::nullopt;
    name.remove_prefix(1);
    return CutNumber(name) && name == End ? process : std::nullopt;
}

bool Runs(pid_t process) { return ::kill(process, 0) == 0 || errno != ESRCH; }

void RemoveUnlessHeld(const std::string& path)
{
    const CDescriptor file(::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat status = {};
    const bool isFile = file.Open() && ::fstat(file.Get(), &status) == 0 && S_ISREG(status.st_mode);
    if (isFile && ::flock(file.Get(), LOCK_EX | LOCK_NB) == 0)
        ::unlink(path.c_str());
}
}

std::string NameBeside(const std::string& place)
{
    static std::uint32_t number = 0;
    const std::string name =
        Beginning(place) + std::to_string(::getpid()) + "-" + std::to_string(++number) + std::string(End);
    return (FolderOf(place) / name).string();
}

void RemoveLeftBeside(const std::string& place)
{
    const std::string beginning = Beginning(place);
    std::error_code error;
    for (fs::directory_iterator entry(FolderOf(place), error), end; !error && entry != end; entry.increment(error)) {
        const auto writer = WriterOf(entry->path().filename().string(), beginning);
        if (writer && !Runs(*writer))
            RemoveUnlessHeld(entry->path().string());
    }
}

}
