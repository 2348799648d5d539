#include "platform/windows/SystemPaths.h"
#include "platform/windows/Text.h"
#include "platform/windows/Win32.h"
#include "platform/windows/WindowsEnvironment.h"

namespace platform::windowsdesktop {
namespace {
constexpr std::wstring_view LongForm = L"\\\\?\\";
constexpr std::wstring_view LongFormOfShare = L"\\\\?\\UNC\\";
constexpr std::uint32_t DiskQuotaExceeded = 1295;  // Not every set of headers names it.

// Without the prefix that lifts the limit of length, where the limit is kept anyway: old services do not know the prefix.
std::wstring InUsualForm(const std::wstring& path)
{
    if (!path.starts_with(LongForm))
        return path;
    const bool isShare = path.starts_with(LongFormOfShare);
    const std::wstring usual = isShare ? L"\\\\" + path.substr(LongFormOfShare.size()) : path.substr(LongForm.size());
    return usual.size() < MAX_PATH ? usual : path;
}

// The 8.3 form of an existing path; the path itself where the disk keeps none.
std::wstring ShortPath(const std::wstring& path)
{
    std::wstring shortPath(GetShortPathNameW(path.c_str(), nullptr, 0), L'\0');
    const DWORD length = GetShortPathNameW(path.c_str(), shortPath.data(), static_cast<DWORD>(shortPath.size()));
    if (length == 0 || length >= shortPath.size())
        return path;
    shortPath.resize(length);
    return shortPath;
}

bool IsFolder(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}
}

std::string StateFolder()
{
    const std::string data = CWindowsEnvironment().Variable("APPDATA");
    return data.empty() ? "" : data + (data.ends_with('\\') ? "" : "\\") + "Tarrowind\\Parlune";
}

bool MakeFolders(const std::wstring& path)
{
    if (path.empty() || IsFolder(path))
        return !path.empty();
    const std::size_t separator = path.rfind(L'\\');
    return separator != std::wstring::npos && MakeFolders(path.substr(0, separator)) &&
           CreateDirectoryW(path.c_str(), nullptr) != 0;
}

CFailure FailureOfError(std::uint32_t error)
{
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
        return failure::FileNotFound();
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_DIRECTORY:
    case ERROR_CANT_RESOLVE_FILENAME:
        return failure::PathNotFound();
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
        return failure::PathFileAccess();
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_USER_MAPPED_FILE:
    case ERROR_DELETE_PENDING:
    case ERROR_UNABLE_TO_REMOVE_REPLACED:
        return failure::PermissionDenied();
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case DiskQuotaExceeded:
    case ERROR_FILE_TOO_LARGE:
        return failure::DiskFull();
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_INVALID_PARAMETER:
        return failure::BadFileName();
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
    case ERROR_COMMITMENT_LIMIT:
        return failure::OutOfMemory();
    default:
        return failure::DeviceError();
    }
}

std::wstring AbsolutePath(const std::string& path)
{
    if (path.empty())
        throw failure::PathFileAccess();
    if (path.find('\0') != std::string::npos)
        throw failure::BadFileName();
    wchar_t full[MAX_PATH] = {};
    const DWORD length = GetFullPathNameW(ToWide(path).c_str(), MAX_PATH, full, nullptr);
    if (length == 0 || length >= MAX_PATH)
        throw failure::BadFileName();
    return std::wstring(full, length);
}

std::wstring WithoutLengthLimit(const std::wstring& absolute)
{
    if (absolute.starts_with(LongForm) || absolute.starts_with(L"\\\\.\\"))
        return absolute;
    if (absolute.starts_with(L"\\\\"))
        return std::wstring(LongFormOfShare) + absolute.substr(2);
    return std::wstring(LongForm) + absolute;
}

std::wstring FolderOf(const std::wstring& absolute) { return absolute.substr(0, absolute.rfind(L'\\') + 1); }

std::string AnsiPath(const std::wstring& path)
{
    const std::wstring usual = InUsualForm(path);
    const std::string text = FromWide(usual);
    const std::string ansi = ToAnsi(text);
    return FromAnsi(ansi) == text ? ansi : ToAnsi(FromWide(ShortPath(usual)));
}

}
