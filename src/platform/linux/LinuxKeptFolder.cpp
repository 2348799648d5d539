#include "platform/linux/LinuxKeptFolder.h"
#include "platform/linux/UserFolders.h"
#include "platform/linux/WholeFile.h"
#include <atomic>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>

namespace platform::linuxdesktop {
namespace {
namespace fs = std::filesystem;
constexpr char HalfMade[] = ".half-made-";

// Whether no other process holds the file; it is then locked as long as `file` is open.
bool Lock(const CDescriptor& file) { return file.Open() && ::flock(file.Get(), LOCK_EX | LOCK_NB) == 0; }

CDescriptor OpenToLock(const std::string& path)
{
    return CDescriptor(::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
}

std::string NewName()
{
    static std::atomic<unsigned> number = 0;
    return HalfMade + std::to_string(::getpid()) + "-" + std::to_string(++number);
}

bool IsThere(const std::string& path)
{
    struct stat status = {};
    return ::lstat(path.c_str(), &status) == 0;
}
}

std::string KeptTextsFolder() { return StateFolder() + "/texts"; }

std::vector<kept::KeptFile> CLinuxKeptFolder::Files() const
{
    std::vector<kept::KeptFile> files;
    std::error_code error;
    for (fs::directory_iterator entry(m_folder, error), end; !error && entry != end; entry.increment(error)) {
        std::error_code unknown;
        const auto size = entry->is_regular_file(unknown) ? entry->file_size(unknown) : static_cast<std::uintmax_t>(-1);
        if (size != static_cast<std::uintmax_t>(-1))
            files.push_back({entry->path().filename().string(), size});
    }
    return files;
}

std::optional<std::string> CLinuxKeptFolder::Read(const std::string& name) const
{
    int error = 0;
    return ReadWhole(PathOf(name), error);
}

bool CLinuxKeptFolder::Create(const std::string& name, const std::string& bytes, Hold hold)
{
    if (!MakeUserFolders(m_folder))
        return false;
    const std::string halfMade = NewName();
    auto file = std::make_unique<CDescriptor>(
        ::open(PathOf(halfMade).c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
    const bool written = Lock(*file) && WriteAll(file->Get(), bytes) && ::fsync(file->Get()) == 0;
    if (!written || !Place(halfMade, name)) {
        ::unlink(PathOf(halfMade).c_str());
        return false;
    }
    if (hold == Hold::Yes) {
        const std::lock_guard lock(m_mutex);
        m_held[name] = std::move(file);
        return true;
    }
    return file->Close();
}

bool CLinuxKeptFolder::Place(const std::string& halfMade, const std::string& name) const
{
    if (IsThere(PathOf(name)) || ::rename(PathOf(halfMade).c_str(), PathOf(name).c_str()) != 0)
        return false;
    SyncFolder();
    return true;
}

bool CLinuxKeptFolder::Take(const std::string& name, const std::string& newName)
{
    const CDescriptor file = OpenToLock(PathOf(name));
    return Lock(file) && Place(name, newName);
}

bool CLinuxKeptFolder::Remove(const std::string& name)
{
    const bool removed = ::unlink(PathOf(name).c_str()) == 0;
    const std::lock_guard lock(m_mutex);
    m_held.erase(name);
    return removed;
}

void CLinuxKeptFolder::Sweep()
{
    for (const kept::KeptFile& entry : Files())
        if (entry.name.starts_with(HalfMade) && Lock(OpenToLock(PathOf(entry.name))))
            ::unlink(PathOf(entry.name).c_str());
}

// Not every disk can.
void CLinuxKeptFolder::SyncFolder() const
{
    const CDescriptor folder(::open(m_folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.Open())
        ::fsync(folder.Get());
}

}
