#include "platform/linux/DocumentFile.h"
#include "platform/linux/Descriptor.h"
#include "platform/linux/NameBeside.h"
#include "platform/linux/WholeFile.h"
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <sys/file.h>
#include <sys/stat.h>

namespace platform::linuxdesktop {
namespace {
constexpr int MostLinks = 40;

std::string FolderOf(const std::string& path)
{
    const std::string folder = std::filesystem::path(path).parent_path().string();
    return folder.empty() ? "." : folder;
}

int OpenFile(const std::string& path, int flags, mode_t mode = 0)
{
    return Uninterrupted([&] { return ::open(path.c_str(), flags | O_CLOEXEC, mode); });
}

bool Sync(const CDescriptor& file)
{
    return file.Open() && Uninterrupted([&] { return ::fsync(file.Get()); }) == 0;
}

// Where a link points; nothing when the path is none.
std::optional<std::string> TargetOf(const std::string& path)
{
    std::string target(PATH_MAX, '\0');
    const ssize_t length = ::readlink(path.c_str(), target.data(), target.size());
    if (length <= 0)
        return std::nullopt;
    target.resize(static_cast<std::size_t>(length));
    return target.starts_with('/') ? target : FolderOf(path) + "/" + target;
}

// Where links lead that end at no file.
std::string BehindLinks(std::string path)
{
    for (int followed = 0; followed < MostLinks; ++followed) {
        auto target = TargetOf(path);
        if (!target)
            break;
        path = std::move(*target);
    }
    return path;
}

// The file behind links, whether it is there or not. Returns 0 or the errno: a link that cannot be followed now is no reason
// to replace it.
int FindPlace(const std::string& path, std::string& place)
{
    const std::unique_ptr<char, void (*)(void*)> real(::realpath(path.c_str(), nullptr), std::free);
    if (!real && errno != ENOENT)
        return errno;
    place = real ? real.get() : BehindLinks(path);
    return 0;
}

// The file that is to be replaced, if there is one.
struct Former {
    bool exists = false;
    struct stat status = {};
};

// A file that nobody may write gets no new content, nor one that this user may not write. Returns 0 or the errno.
int Look(const std::string& place, Former& former)
{
    if (::stat(place.c_str(), &former.status) != 0)
        return errno == ENOENT ? 0 : errno;
    former.exists = true;
    if (S_ISDIR(former.status.st_mode))
        return EISDIR;
    const bool writable = S_ISREG(former.status.st_mode) && (former.status.st_mode & 0222u) != 0;
    return writable && ::access(place.c_str(), W_OK) == 0 ? 0 : EACCES;
}

// A new file beside its place, removed again unless it is put there. Locked, where the disk can, while it is written.
class CFileBeside {
public:
    explicit CFileBeside(const std::string& place) : m_name(NameBeside(place))
    {
        ::unlink(m_name.c_str());
        // A new document gets the mode that the user's own mask leaves.
        m_file.emplace(OpenFile(m_name, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, 0666));
        const int error = errno;
        if (m_file->Open())
            ::flock(m_file->Get(), LOCK_EX | LOCK_NB);
        errno = error;
    }
    ~CFileBeside() { ::unlink(m_name.c_str()); }
    CFileBeside(const CFileBeside&) = delete;
    CFileBeside& operator=(const CFileBeside&) = delete;
    bool Open() const { return m_file->Open(); }
    // False when this user cannot make a file that belongs to whom the former one belongs.
    bool TakeOver(const Former& former) const
    {
        struct stat status = {};
        if (!former.exists || ::fstat(m_file->Get(), &status) != 0)
            return !former.exists;
        const bool same = status.st_uid == former.status.st_uid && status.st_gid == former.status.st_gid;
        return (same || ::fchown(m_file->Get(), former.status.st_uid, former.status.st_gid) == 0) &&
               ::fchmod(m_file->Get(), former.status.st_mode & 07777u) == 0;
    }
    bool Write(const std::string& bytes) { return WriteAll(m_file->Get(), bytes) && Sync(*m_file) && m_file->Close(); }
    bool PutAt(const std::string& place) const { return ::rename(m_name.c_str(), place.c_str()) == 0; }

private:
    std::string m_name;
    std::optional<CDescriptor> m_file;
};

void SyncFolderOf(const std::string& place) { Sync(CDescriptor(OpenFile(FolderOf(place), O_RDONLY | O_DIRECTORY))); }

enum class Outcome { Done, Failed, NotThisWay };

// `error` is set when it fails.
Outcome Replace(const std::string& place, const Former& former, const std::string& bytes, int& error)
{
    CFileBeside beside(place);
    error = errno;
    if (!beside.Open())
        return former.exists ? Outcome::NotThisWay : Outcome::Failed;
    if (!beside.TakeOver(former))
        return Outcome::NotThisWay;
    const bool written = beside.Write(bytes);
    error = errno;
    if (!written)
        return Outcome::Failed;
    if (!beside.PutAt(place)) {
        error = errno;
        return former.exists ? Outcome::NotThisWay : Outcome::Failed;
    }
    SyncFolderOf(place);
    RemoveLeftBeside(place);
    return Outcome::Done;
}

// Nothing of the file changes but its length.
int MakeRoom(const CDescriptor& file, std::size_t former, std::size_t wanted)
{
    if (wanted <= former)
        return 0;
    const int error = ::posix_fallocate(file.Get(), static_cast<off_t>(former), static_cast<off_t>(wanted - former));
    if (error == 0 || error == EOPNOTSUPP || error == EINVAL)
        return 0;
    return ::ftruncate(file.Get(), static_cast<off_t>(former)) == 0 ? error : errno;
}

bool WriteOver(const CDescriptor& file, const std::string& bytes)
{
    return ::lseek(file.Get(), 0, SEEK_SET) == 0 && WriteAll(file.Get(), bytes) &&
           ::ftruncate(file.Get(), static_cast<off_t>(bytes.size())) == 0 && Sync(file);
}

int WriteInPlace(const std::string& place, const std::string& bytes, const SafetyCopy& safetyCopy)
{
    int error = 0;
    const auto former = ReadWhole(place, error);
    if (!former)
        return error;
    CDescriptor file(OpenFile(place, O_WRONLY | O_NOFOLLOW | O_NONBLOCK));
    if (!file.Open())
        return errno;
    error = MakeRoom(file, former->size(), bytes.size());
    if (error != 0)
        return error;
    const std::shared_ptr<void> safe = safetyCopy ? safetyCopy(place, bytes) : nullptr;
    if (WriteOver(file, bytes) && file.Close())
        return 0;
    error = errno;
    if (file.Open())
        WriteOver(file, *former);
    return error;
}
}

int WriteDocument(const std::string& path, const std::string& bytes, const SafetyCopy& safetyCopy)
{
    if (path.find('\0') != std::string::npos)
        return EINVAL;
    std::string place;
    if (const int error = FindPlace(path, place))
        return error;
    Former former;
    int error = Look(place, former);
    if (error != 0)
        return error;
    const bool hasTwins = former.exists && former.status.st_nlink > 1;
    const Outcome outcome = hasTwins ? Outcome::NotThisWay : Replace(place, former, bytes, error);
    if (outcome == Outcome::NotThisWay)
        return WriteInPlace(place, bytes, safetyCopy);
    return outcome == Outcome::Done ? 0 : error;
}

}
