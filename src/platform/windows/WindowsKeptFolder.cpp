#include "platform/windows/WindowsKeptFolder.h"
#include "platform/windows/SystemPaths.h"
#include "platform/windows/Text.h"
#include "platform/windows/WholeFile.h"
#include <atomic>

namespace platform::windowsdesktop {
namespace {
constexpr char HalfMade[] = "half-made-";

std::string NewName()
{
    static std::atomic<unsigned> number = 0;
    return HalfMade + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(++number);
}

// Nobody else may open the file until it is complete.
bool WriteNew(const std::wstring& path, std::string_view bytes)
{
    const CHandle file(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    return file.Open() && WriteAllTo(file.Get(), bytes) == 0 && FlushFileBuffers(file.Get()) != 0;
}
}

std::string KeptTextsFolder()
{
    const std::string folder = StateFolder();
    return folder.empty() ? "" : folder + "\\texts";
}

std::wstring CWindowsKeptFolder::WidePath(const std::string& name) const { return WithoutLengthLimit(ToWide(PathOf(name))); }

std::vector<kept::KeptFile> CWindowsKeptFolder::Files() const
{
    std::vector<kept::KeptFile> files;
    WIN32_FIND_DATAW entry = {};
    const HANDLE search = FindFirstFileW(WidePath("*").c_str(), &entry);
    for (bool more = search != INVALID_HANDLE_VALUE; more; more = FindNextFileW(search, &entry) != 0)
        if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
            files.push_back({FromWide(entry.cFileName), std::uint64_t{entry.nFileSizeHigh} << 32 | entry.nFileSizeLow});
    if (search != INVALID_HANDLE_VALUE)
        FindClose(search);
    return files;
}

std::optional<std::string> CWindowsKeptFolder::Read(const std::string& name) const
{
    std::uint32_t error = 0;
    return ReadWhole(WidePath(name), error);
}

bool CWindowsKeptFolder::Create(const std::string& name, const std::string& bytes, Hold hold)
{
    if (m_folder.empty() || !MakeFolders(ToWide(m_folder)))
        return false;
    const std::string halfMade = NewName();
    if (!WriteNew(WidePath(halfMade), bytes) || !Place(halfMade, name)) {
        DeleteFileW(WidePath(halfMade).c_str());
        return false;
    }
    if (hold == Hold::No)
        return true;
    const std::lock_guard lock(m_mutex);
    m_held[name] =
        CHandle(CreateFileW(WidePath(name).c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    return true;
}

bool CWindowsKeptFolder::Place(const std::string& name, const std::string& newName) const
{
    return MoveFileExW(WidePath(name).c_str(), WidePath(newName).c_str(), MOVEFILE_WRITE_THROUGH) != 0;
}

bool CWindowsKeptFolder::Take(const std::string& name, const std::string& newName) { return Place(name, newName); }

bool CWindowsKeptFolder::Remove(const std::string& name)
{
    const std::lock_guard lock(m_mutex);
    m_held.erase(name);
    return DeleteFileW(WidePath(name).c_str()) != 0;
}

void CWindowsKeptFolder::Sweep()
{
    for (const kept::KeptFile& file : Files())
        if (file.name.starts_with(HalfMade))
            DeleteFileW(WidePath(file.name).c_str());
}

}
