#include "platform/linux/WholeFile.h"
#include "platform/linux/Descriptor.h"
#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdint>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace platform::linuxdesktop {
namespace {
constexpr std::size_t ReadAtOnce = 1 << 20;
constexpr mode_t NewFileMode = 0644;

// A new file beside its place, removed again unless it is put there.
class CTemporaryName {
public:
    explicit CTemporaryName(std::string name) : m_name(std::move(name)) { ::unlink(m_name.c_str()); }
    ~CTemporaryName() { ::unlink(m_name.c_str()); }
    CTemporaryName(const CTemporaryName&) = delete;
    CTemporaryName& operator=(const CTemporaryName&) = delete;
    const char* Name() const { return m_name.c_str(); }

private:
    std::string m_name;
};

std::string FolderOf(const std::string& path)
{
    const std::string folder = std::filesystem::path(path).parent_path().string();
    return folder.empty() ? "." : folder;
}

// Finds the file behind links, so that a settings file kept elsewhere stays there. Returns 0 or the errno: a link that
// cannot be followed now is no reason to replace it.
int FindBehindLinks(const std::string& path, std::string& place)
{
    const std::unique_ptr<char, void (*)(void*)> real(::realpath(path.c_str(), nullptr), std::free);
    const int error = real ? 0 : errno;
    place = real ? real.get() : path;
    return error == ENOENT ? 0 : error;
}

// The mode of a file that is to be replaced. Returns 0 or the errno: a private file that cannot be looked at now stays
// private.
int FindMode(const std::string& path, mode_t& mode)
{
    struct stat status = {};
    const int error = ::stat(path.c_str(), &status) == 0 ? 0 : errno;
    mode = error == 0 ? status.st_mode & 0777u : NewFileMode;
    return error == ENOENT ? 0 : error;
}

int OpenFile(const char* path, int flags, mode_t mode = 0)
{
    return Uninterrupted([&] { return ::open(path, flags | O_CLOEXEC, mode); });
}

bool Sync(const CDescriptor& file)
{
    return file.Open() && Uninterrupted([&] { return ::fsync(file.Get()); }) == 0;
}

bool SyncPath(const std::string& path, int flags) { return Sync(CDescriptor(OpenFile(path.c_str(), O_RDONLY | flags))); }

// Writes a new file completely. Returns 0 or the errno.
int WriteNew(const char* name, const std::string& bytes, mode_t mode, Survives survives)
{
    CDescriptor file(OpenFile(name, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, mode));
    const bool written = file.Open() && WriteAll(file.Get(), bytes) && ::fchmod(file.Get(), mode) == 0 &&
                         (survives == Survives::ProcessEnd || Sync(file)) && file.Close();
    return written ? 0 : errno;
}

// Opened without waiting, for a pipe would wait for its writer.
std::optional<std::string> ReadFrom(const CDescriptor& file, int& error)
{
    struct stat status = {};
    if (!file.Open() || ::fstat(file.Get(), &status) != 0) {
        error = errno;
        return std::nullopt;
    }
    if (!S_ISREG(status.st_mode)) {
        error = S_ISDIR(status.st_mode) ? EISDIR : EACCES;
        return std::nullopt;
    }
    std::string bytes;
    for (std::size_t used = 0;;) {
        const std::size_t expected = static_cast<std::size_t>(status.st_size) + 1;
        bytes.resize(used < expected ? expected : used + ReadAtOnce);
        const ssize_t got = Uninterrupted([&] { return ::read(file.Get(), bytes.data() + used, bytes.size() - used); });
        if (got < 0) {
            error = errno;
            return std::nullopt;
        }
        used += static_cast<std::size_t>(got);
        if (got == 0) {
            bytes.resize(used);
            return bytes;
        }
    }
}

bool HasZero(const std::string& path) { return path.find('\0') != std::string::npos; }
}

CFailure FailureOfError(int error, const std::string& path)
{
    std::error_code ignored;
    switch (error) {
    case ENOENT:
        return std::filesystem::is_directory(FolderOf(path), ignored) ? failure::FileNotFound() : failure::PathNotFound();
    case ENOTDIR:
    case ELOOP:
        return failure::PathNotFound();
    case EACCES:
    case EPERM:
    case EISDIR:
    case EEXIST:
    case EROFS:
        return failure::PathFileAccess();
    case EBUSY:
    case ETXTBSY:
    case EAGAIN:
        return failure::PermissionDenied();
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return failure::DiskFull();
    case ENAMETOOLONG:
    case EINVAL:
        return failure::BadFileName();
    case ENOMEM:
        return failure::OutOfMemory();
    default:
        return failure::DeviceError();
    }
}

std::optional<std::string> ReadWhole(const std::string& path, int& error)
{
    if (HasZero(path)) {
        error = EINVAL;
        return std::nullopt;
    }
    return ReadFrom(CDescriptor(OpenFile(path.c_str(), O_RDONLY | O_NONBLOCK)), error);
}

int ReplaceWhole(const std::string& path, const std::string& bytes, Survives survives)
{
    if (HasZero(path))
        return EINVAL;
    std::string place;
    mode_t mode = 0;
    if (const int error = FindBehindLinks(path, place))
        return error;
    if (const int error = FindMode(place, mode))
        return error;
    const CTemporaryName complete(place + ".new");
    if (const int error = WriteNew(complete.Name(), bytes, mode, survives))
        return error;
    if (::rename(complete.Name(), place.c_str()) != 0)
        return errno;
    if (survives == Survives::PowerLoss)
        SyncPath(FolderOf(place), O_DIRECTORY);
    return 0;
}

int CopyToNewPlace(const std::string& from, const std::string& to)
{
    int error = 0;
    const auto bytes = ReadWhole(from, error);
    if (!bytes)
        return error;
    const CTemporaryName complete(to + ".new");
    if (const int failed = WriteNew(complete.Name(), *bytes, NewFileMode, Survives::PowerLoss))
        return failed;
    if (::link(complete.Name(), to.c_str()) == 0)
        return 0;
    if (errno == EEXIST)
        return EEXIST;
    // A file system without hard links.
    return ::access(to.c_str(), F_OK) == 0 ? EEXIST : (::rename(complete.Name(), to.c_str()) == 0 ? 0 : errno);
}

int RemoveFile(const std::string& path)
{
    if (::unlink(path.c_str()) != 0)
        return errno == ENOENT || errno == ENOTDIR ? 0 : errno;
    SyncPath(FolderOf(path), O_DIRECTORY);
    return 0;
}

bool FlushToDisk(const std::string& path)
{
    std::string place;
    return FindBehindLinks(path, place) == 0 && SyncPath(place, 0) && SyncPath(FolderOf(place), O_DIRECTORY);
}

}
