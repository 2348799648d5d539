#include "platform/linux/LoadedCharacters.h"
#include "platform/linux/UserFolders.h"
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <random>
#include <sys/file.h>
#include <unistd.h>

namespace platform::linuxdesktop {
namespace {
constexpr int Attempts = 10;

// The process number alone could be that of a process in another container with the same folder.
std::string NameOf(const std::string& guid)
{
    return guid + "." + std::to_string(::getpid()) + "." + std::to_string(std::random_device()());
}

// Whether a living process holds the file's lock. If none does, the file is removed.
bool IsAlive(const std::string& file)
{
    const int descriptor = ::open(file.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (descriptor < 0)
        return false;
    const bool alive = ::flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    if (!alive)
        ::unlink(file.c_str());
    ::close(descriptor);
    return alive;
}

// Between the making of a file and its lock somebody may have taken it for a dead one.
int MakeLocked(const std::string& file)
{
    const int descriptor = ::open(file.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (descriptor < 0)
        return -1;
    if (::flock(descriptor, LOCK_EX | LOCK_NB) == 0 && ::access(file.c_str(), F_OK) == 0)
        return descriptor;
    ::unlink(file.c_str());
    ::close(descriptor);
    return -1;
}
}

CLoadedCharacters::~CLoadedCharacters()
{
    for (const auto& [guid, entry] : m_entries)
        Remove(entry);
}

CLoadedCharacters::Entry CLoadedCharacters::NewEntry(const std::string& guid) const
{
    Entry entry;
    if (!MakeUserFolders(m_folder))
        return entry;
    for (int attempt = 0; entry.lock < 0 && attempt < Attempts; ++attempt) {
        entry.file = m_folder + "/" + NameOf(guid);
        entry.lock = MakeLocked(entry.file);
    }
    return entry;
}

void CLoadedCharacters::Remove(const Entry& entry)
{
    if (entry.lock < 0)
        return;
    ::unlink(entry.file.c_str());
    ::close(entry.lock);
}

void CLoadedCharacters::Enter(const std::string& guid)
{
    if (m_entries.count(guid) == 0)
        m_entries[guid] = NewEntry(guid);
    ++m_entries[guid].times;
}

void CLoadedCharacters::Leave(const std::string& guid)
{
    const auto found = m_entries.find(guid);
    if (found == m_entries.end() || --found->second.times > 0)
        return;
    Remove(found->second);
    m_entries.erase(found);
}

bool CLoadedCharacters::OthersHave(const std::string& guid) const
{
    const auto mine = m_entries.find(guid);
    std::error_code error;
    for (std::filesystem::directory_iterator entry(m_folder, error), end; !error && entry != end; entry.increment(error)) {
        const std::string file = entry->path().string();
        const bool own = mine != m_entries.end() && file == mine->second.file;
        if (!own && entry->path().filename().string().starts_with(guid + ".") && IsAlive(file))
            return true;
    }
    return false;
}

}
