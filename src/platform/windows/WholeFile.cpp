#include "platform/windows/WholeFile.h"
#include "platform/windows/Handle.h"
#include "platform/windows/SystemPaths.h"
#include <algorithm>
#include <limits>

namespace platform::windowsdesktop {
namespace {
constexpr DWORD Everybody = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr std::size_t PieceSize = 1 << 20;
constexpr int NamesTried = 100;
constexpr int PuttingsTried = 5;
constexpr int OpeningsTried = 50;
constexpr DWORD BetweenTriesMilliseconds = 10;

CHandle OpenFile(const std::wstring& path, DWORD access, DWORD sharing)
{
    return CHandle(CreateFileW(path.c_str(), access, sharing, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
}

// A program that looks through every new file lets go of it soon.
CHandle OpenForReplacing(const std::wstring& path)
{
    for (int tried = 1;; ++tried) {
        CHandle file = OpenFile(path, GENERIC_WRITE | DELETE, Everybody);
        if (file.Open() || GetLastError() != ERROR_SHARING_VIOLATION || tried == OpeningsTried)
            return file;
        Sleep(BetweenTriesMilliseconds);
    }
}

bool LiesOnADisk(const CHandle& file) { return GetFileType(file.Get()) == FILE_TYPE_DISK; }

std::size_t SizeOf(const CHandle& file)
{
    LARGE_INTEGER size = {};
    if (GetFileSizeEx(file.Get(), &size) == 0 || size.QuadPart > std::numeric_limits<std::ptrdiff_t>::max() / 2)
        return 0;
    return static_cast<std::size_t>(size.QuadPart);
}

// Reads until the end, whatever the size was when the file was opened.
std::optional<std::string> ReadToEnd(const CHandle& file, std::uint32_t& error)
{
    std::string bytes(SizeOf(file) + 1, '\0');
    for (std::size_t used = 0;;) {
        if (used == bytes.size())
            bytes.resize(used + PieceSize);
        DWORD got = 0;
        const auto wanted = static_cast<DWORD>(std::min(bytes.size() - used, PieceSize));
        if (ReadFile(file.Get(), bytes.data() + used, wanted, &got, nullptr) == 0) {
            error = GetLastError();
            return std::nullopt;
        }
        used += got;
        if (got == 0) {
            bytes.resize(used);
            return bytes;
        }
    }
}

void WriteAll(const CHandle& file, std::string_view bytes)
{
    if (const std::uint32_t error = WriteAllTo(file.Get(), bytes))
        throw FailureOfError(error);
}

bool SetLength(const CHandle& file, std::size_t length)
{
    LARGE_INTEGER end = {};
    end.QuadPart = static_cast<LONGLONG>(length);
    return SetFilePointerEx(file.Get(), end, nullptr, FILE_BEGIN) != 0 && SetEndOfFile(file.Get()) != 0;
}

// Returns 0 or the error number.
std::uint32_t WriteOver(const CHandle& file, std::string_view bytes)
{
    if (SetFilePointerEx(file.Get(), {}, nullptr, FILE_BEGIN) == 0)
        return GetLastError();
    if (const std::uint32_t error = WriteAllTo(file.Get(), bytes))
        return error;
    return SetEndOfFile(file.Get()) != 0 && FlushFileBuffers(file.Get()) != 0 ? 0 : GetLastError();
}

std::wstring PathBehindLinks(const CHandle& file, const std::wstring& path)
{
    std::wstring real(GetFinalPathNameByHandleW(file.Get(), nullptr, 0, FILE_NAME_NORMALIZED), L'\0');
    const auto room = static_cast<DWORD>(real.size());
    const DWORD length = GetFinalPathNameByHandleW(file.Get(), real.data(), room, FILE_NAME_NORMALIZED);
    if (length == 0 || length >= room)
        return path;
    real.resize(length);
    return real;
}

bool IsHeldForAMoment(DWORD error)
{
    return error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED || error == ERROR_UNABLE_TO_REMOVE_REPLACED;
}

bool IsThere(const std::wstring& path) { return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES; }

// Whether the file exists; it must then be one that may be written, and taken away. `place` becomes the file itself.
bool MayBeReplaced(std::wstring& place)
{
    const DWORD attributes = GetFileAttributesW(place.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES && GetLastError() == ERROR_FILE_NOT_FOUND)
        return false;
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) != 0)
        throw failure::PathFileAccess();
    const CHandle file = OpenForReplacing(place);
    if (!file.Open())
        throw FailureOfError(GetLastError());
    if (!LiesOnADisk(file))
        throw failure::PathFileAccess();
    place = WithoutLengthLimit(PathBehindLinks(file, place));
    return true;
}

// A new file in the folder, under a name that no other file has.
std::wstring MakeNewFile(const std::wstring& folder)
{
    static std::uint32_t number = GetTickCount();
    for (int tried = 0; tried < NamesTried; ++tried) {
        const std::wstring path =
            folder + L"~plr" + std::to_wstring((GetCurrentProcessId() + ++number) % 1'000'000) + L".tmp";
        const CHandle file(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
        if (file.Open())
            return path;
        if (GetLastError() != ERROR_FILE_EXISTS)
            break;
    }
    throw FailureOfError(GetLastError());
}
}

std::uint32_t WriteAllTo(void* file, std::string_view bytes)
{
    while (!bytes.empty()) {
        DWORD written = 0;
        const auto wanted = static_cast<DWORD>(std::min(bytes.size(), PieceSize));
        if (WriteFile(file, bytes.data(), wanted, &written, nullptr) == 0)
            return GetLastError();
        if (written == 0)
            return ERROR_DISK_FULL;
        bytes.remove_prefix(written);
    }
    return 0;
}

std::optional<std::string> ReadWhole(const std::wstring& path, std::uint32_t& error)
{
    const CHandle file = OpenFile(path, GENERIC_READ, Everybody);
    if (!file.Open()) {
        error = GetLastError();
        return std::nullopt;
    }
    if (!LiesOnADisk(file)) {
        error = ERROR_ACCESS_DENIED;
        return std::nullopt;
    }
    return ReadToEnd(file, error);
}

CReplacement::CReplacement(const std::wstring& path) : m_place(WithoutLengthLimit(path))
{
    m_existed = MayBeReplaced(m_place);
    m_temporary = MakeNewFile(FolderOf(m_place));
}

// A new file whose former one is gone holds the only content that there is.
CReplacement::~CReplacement()
{
    if (!m_put && (!m_existed || IsThere(m_place)))
        DeleteFileW(m_temporary.c_str());
}

void CReplacement::Write(std::string_view text, std::string_view end)
{
    const CHandle file(
        CreateFileW(m_temporary.c_str(), GENERIC_WRITE, 0, nullptr, TRUNCATE_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.Open())
        throw FailureOfError(GetLastError());
    WriteAll(file, text);
    WriteAll(file, end);
    if (FlushFileBuffers(file.Get()) == 0)
        throw FailureOfError(GetLastError());
}

bool CReplacement::Replace() const
{
    if (!m_existed)
        return MoveFileExW(m_temporary.c_str(), m_place.c_str(), MOVEFILE_WRITE_THROUGH) != 0;
    return ReplaceFileW(m_place.c_str(), m_temporary.c_str(), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr) !=
           0;
}

// Disks of other systems cannot replace but can move over.
void CReplacement::Put()
{
    m_put = Replace();
    DWORD error = GetLastError();
    for (int tried = 1; !m_put && IsHeldForAMoment(error) && tried < PuttingsTried; ++tried) {
        Sleep(BetweenTriesMilliseconds);
        m_put = Replace();
        error = GetLastError();
    }
    if (!m_put && m_existed)
        m_put = MoveFileExW(m_temporary.c_str(), m_place.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
    if (!m_put)
        throw FailureOfError(error);
}

bool HasTwins(const std::wstring& path)
{
    const CHandle file = OpenFile(path, 0, Everybody);
    BY_HANDLE_FILE_INFORMATION information = {};
    return file.Open() && GetFileInformationByHandle(file.Get(), &information) != 0 && information.nNumberOfLinks > 1;
}

void WriteInPlace(const std::wstring& path, std::string_view bytes)
{
    std::uint32_t error = 0;
    const auto former = ReadWhole(path, error);
    if (!former)
        throw FailureOfError(error);
    const CHandle file = OpenFile(path, GENERIC_WRITE, FILE_SHARE_READ);
    if (!file.Open())
        throw FailureOfError(GetLastError());
    if (bytes.size() > former->size() && !SetLength(file, bytes.size())) {
        error = GetLastError();
        SetLength(file, former->size());
        throw FailureOfError(error);
    }
    error = WriteOver(file, bytes);
    if (error == 0)
        return;
    WriteOver(file, *former);
    throw FailureOfError(error);
}

}
