#include "platform/windows/WindowsFiles.h"
#include "platform/kept/KeptTextStore.h"
#include "platform/text/Wildcards.h"
#include "platform/windows/FileEncoding.h"
#include "platform/windows/SystemPaths.h"
#include "platform/windows/Text.h"
#include "platform/windows/WholeFile.h"
#include "platform/windows/Win32.h"
#include "platform/windows/WindowsClock.h"
#include "platform/windows/WindowsKeptFolder.h"
#include "platform/windows/WindowsLineReader.h"
#include <algorithm>
#include <limits>
#include <new>

namespace platform::windowsdesktop {
namespace {
using FolderQuery = UINT (*)(char* buffer, UINT size);

// The system writes at most `limit` bytes, its NUL included, and answers with more when that is too little.
std::string AskForFolder(FolderQuery query, std::size_t limit)
{
    constexpr std::size_t MostBytes = 32768;
    std::string folder(std::min(limit, MostBytes) + 1, '\0');
    const UINT length = query(folder.data(), static_cast<UINT>(folder.size() - 1));
    if (length >= folder.size() - 1)
        return "";
    folder = FromAnsi(folder.substr(0, length));
    return folder.size() <= limit ? folder : "";
}

// The whole name of the running program, however long.
std::wstring ProgramFile()
{
    for (std::size_t room = MAX_PATH;; room *= 2) {
        std::wstring path(room, L'\0');
        const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(room));
        if (length < room)
            return path.substr(0, length);
    }
}

std::string WithoutSeparator(std::wstring folder)
{
    if (folder.ends_with(L'\\'))
        folder.pop_back();
    return FromWide(folder);
}

// The part of a pattern behind its folder.
std::string NamePattern(const std::string& pattern) { return pattern.substr(pattern.find_last_of("\\/:") + 1); }

class CSearch {
public:
    explicit CSearch(const std::wstring& pattern) : m_handle(FindFirstFileW(pattern.c_str(), &m_entry)) {}
    ~CSearch()
    {
        if (Found())
            FindClose(m_handle);
    }
    CSearch(const CSearch&) = delete;
    CSearch& operator=(const CSearch&) = delete;
    bool Found() const { return m_handle != INVALID_HANDLE_VALUE; }
    bool Next() { return FindNextFileW(m_handle, &m_entry) != 0; }
    bool IsFolder() const { return (m_entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }
    std::string Name() const { return FromWide(m_entry.cFileName); }

private:
    WIN32_FIND_DATAW m_entry = {};
    HANDLE m_handle;
};

// False when the file is there but no new one may take its place.
bool Replace(const std::wstring& path, const std::string& bytes)
{
    try {
        CReplacement file(path);
        file.Write(bytes);
        file.Put();
        return true;
    } catch (const CFailure& failure) {
        const bool refused = failure.Number() == failure::PathFileAccess().Number();
        if (!refused || GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES)
            throw;
        return false;
    }
}

// The copy is found by the next start if this process does not get to remove it.
void WriteSafelyInPlace(const std::string& path, const std::string& bytes)
{
    CWindowsKeptFolder folder(KeptTextsFolder());
    kept::CKeptTextStore store(folder, [] { return CWindowsClock().Now(); });
    store.Copy(path, bytes);
    try {
        WriteInPlace(AbsolutePath(path), bytes);
    } catch (const CFailure&) {
        store.RemoveCopy();
        throw;
    }
    store.RemoveCopy();
}

DWORD AttributesOf(const std::string& path)
{
    if (path.empty() || path.find('\0') != std::string::npos)
        return INVALID_FILE_ATTRIBUTES;
    return GetFileAttributesW(ToWide(path).c_str());
}
}

std::string CWindowsFiles::WindowsFolder(std::size_t limit) const
{
    return AskForFolder([](char* buffer, UINT size) { return GetWindowsDirectoryA(buffer, size); }, limit);
}

std::string CWindowsFiles::SystemFolder(std::size_t limit) const
{
    return AskForFolder([](char* buffer, UINT size) { return GetSystemDirectoryA(buffer, size); }, limit);
}

std::string CWindowsFiles::TemporaryFolder(std::size_t limit) const
{
    return AskForFolder([](char* buffer, UINT size) -> UINT { return GetTempPathA(size, buffer); }, limit);
}

std::string CWindowsFiles::ProgramFolder() const { return WithoutSeparator(FolderOf(ProgramFile())); }

std::string CWindowsFiles::CurrentFolder() const
{
    std::wstring folder(GetCurrentDirectoryW(0, nullptr), L'\0');
    folder.resize(
        std::min<std::size_t>(GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data()), folder.size()));
    return FromWide(folder);
}

EntryKind CWindowsFiles::Kind(const std::string& path) const
{
    const DWORD attributes = AttributesOf(path);
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return EntryKind::None;
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? EntryKind::Folder : EntryKind::File;
}

void CWindowsFiles::MakeFolder(const std::string& path)
{
    if (CreateDirectoryW(AbsolutePath(path).c_str(), nullptr) == 0)
        throw FailureOfError(GetLastError());
}

// The system also finds names whose short form matches, as of "a.acs~"; those are not meant.
std::vector<std::string> CWindowsFiles::Match(const std::string& pattern) const
{
    std::vector<std::string> names;
    if (pattern.find('\0') != std::string::npos)
        return names;
    CSearch search(ToWide(pattern));
    for (bool more = search.Found(); more; more = search.Next())
        if (!search.IsFolder() && text::MatchesWildcards(search.Name(), NamePattern(pattern)))
            names.push_back(search.Name());
    return names;
}

std::string CWindowsFiles::ReadText(const std::string& path) const
{
    try {
        std::uint32_t error = 0;
        auto bytes = ReadWhole(AbsolutePath(path), error);
        if (!bytes)
            throw FailureOfError(error);
        return TextOfFile(std::move(*bytes));
    } catch (const std::bad_alloc&) {
        throw failure::OutOfMemory();
    }
}

void CWindowsFiles::Delete(const std::string& path)
{
    const std::wstring absolute = AbsolutePath(path);
    if (Kind(path) == EntryKind::Folder)
        throw failure::PathFileAccess();
    if (DeleteFileW(absolute.c_str()) == 0)
        throw FailureOfError(GetLastError());
    // Some systems find out too late that the disk lets nothing go.
    if (Kind(path) == EntryKind::File)
        throw failure::PathFileAccess();
}

void CWindowsFiles::Rename(const std::string& from, const std::string& to)
{
    if (MoveFileExW(AbsolutePath(from).c_str(), AbsolutePath(to).c_str(), 0) != 0)
        return;
    const DWORD error = GetLastError();
    throw error == ERROR_ALREADY_EXISTS || error == ERROR_FILE_EXISTS ? failure::FileExists() : FailureOfError(error);
}

std::unique_ptr<ILineReader> CWindowsFiles::OpenLines(const std::string& path) const
{
    return std::make_unique<CWindowsLineReader>(path);
}

std::string CWindowsFiles::Bytes(const std::string& text) { return BytesForFile(text) + "\r\n"; }

void CWindowsFiles::WriteLine(const std::string& path, const std::string& text)
{
    const std::wstring absolute = AbsolutePath(path);
    const std::string bytes = Bytes(text);
    if (HasTwins(absolute) || !Replace(absolute, bytes))
        WriteSafelyInPlace(path, bytes);
}

}
