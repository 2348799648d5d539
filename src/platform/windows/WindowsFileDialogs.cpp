#include "platform/windows/WindowsFileDialogs.h"
#include "platform/Failure.h"
#include "platform/windows/OwnerWindow.h"
#include "platform/windows/SystemPaths.h"
#include "platform/windows/Text.h"
#include "platform/windows/Win32.h"
#include <algorithm>
#include <cderr.h>
#include <vector>

namespace platform::windowsdesktop {
namespace {
DWORD FlagsOf(const FileDialog& dialog)
{
    DWORD flags = OFN_HIDEREADONLY;
    flags |= dialog.fileMustExist ? OFN_FILEMUSTEXIST : 0;
    flags |= dialog.pathMustExist ? OFN_PATHMUSTEXIST : 0;
    flags |= dialog.confirmOverwrite ? OFN_OVERWRITEPROMPT : 0;
    return flags;
}

// The dialog makes the folder in which the user has looked the current one; another part of the program may rely on it.
class CKeptCurrentFolder {
public:
    CKeptCurrentFolder() : m_folder(GetCurrentDirectoryW(0, nullptr), L'\0')
    {
        GetCurrentDirectoryW(static_cast<DWORD>(m_folder.size()), m_folder.data());
    }
    ~CKeptCurrentFolder() { SetCurrentDirectoryW(m_folder.c_str()); }
    CKeptCurrentFolder(const CKeptCurrentFolder&) = delete;
    CKeptCurrentFolder& operator=(const CKeptCurrentFolder&) = delete;

private:
    std::wstring m_folder;
};

const char* OrNull(const std::string& text) { return text.empty() ? nullptr : text.c_str(); }

// The record of the system's and all that it points to.
class CRecord {
public:
    CRecord(const FileDialog& dialog, HWND owner);
    CRecord(const CRecord&) = delete;
    CRecord& operator=(const CRecord&) = delete;
    OPENFILENAMEA& Get() { return m_record; }
    std::string Path() const { return FromAnsi(m_path.data()); }

private:
    std::string m_filter, m_folder, m_extension, m_title;
    std::vector<char> m_path;
    OPENFILENAMEA m_record = {};
};

DWORD FilterIndexOf(const FileDialog& dialog)
{
    const auto separators = static_cast<int>(std::count(dialog.filter.begin(), dialog.filter.end(), '\0'));
    return static_cast<DWORD>(std::clamp(dialog.filterIndex, 1, separators / 2 + 1));
}

// The list of filters ends with two NULs. A name too long for the buffer is left out.
CRecord::CRecord(const FileDialog& dialog, HWND owner)
    : m_filter(ToAnsi(dialog.filter) + std::string(2, '\0')), m_folder(AnsiPath(ToWide(dialog.initialFolder))),
      m_extension(ToAnsi(dialog.defaultExtension)), m_title(ToAnsi(dialog.title)), m_path(dialog.fileLimit + 1, '\0')
{
    const std::string file = ToAnsi(dialog.initialFile);
    if (file.size() < dialog.fileLimit)
        std::copy(file.begin(), file.end(), m_path.begin());
    m_record.lStructSize = OPENFILENAME_SIZE_VERSION_400A;
    m_record.hwndOwner = owner;
    m_record.lpstrFilter = dialog.filter.empty() ? nullptr : m_filter.c_str();
    m_record.nFilterIndex = FilterIndexOf(dialog);
    m_record.lpstrFile = m_path.data();
    m_record.nMaxFile = static_cast<DWORD>(dialog.fileLimit);
    m_record.lpstrInitialDir = OrNull(m_folder);
    m_record.lpstrTitle = OrNull(m_title);
    m_record.Flags = FlagsOf(dialog);
    m_record.lpstrDefExt = OrNull(m_extension);
}

// Nothing to say when the user has cancelled.
void ThrowIfFailed(DWORD error)
{
    switch (error) {
    case 0:
        return;
    case FNERR_BUFFERTOOSMALL:
    case FNERR_INVALIDFILENAME:
        throw failure::BadFileName();
    case CDERR_MEMALLOCFAILURE:
    case CDERR_MEMLOCKFAILURE:
    case CDERR_INITIALIZATION:
        throw failure::OutOfMemory();
    default:
        throw failure::InvalidCall();
    }
}

bool HasExtension(const std::string& path)
{
    return path.find('.', path.find_last_of("\\/:") + 1) != std::string::npos;  // From 0 when there is no separator.
}

bool IsThere(const std::string& path) { return GetFileAttributesW(ToWide(path).c_str()) != INVALID_FILE_ATTRIBUTES; }

// Not every system appends the extension when it opens.
std::string WithExtension(const std::string& path, const FileDialog& dialog)
{
    const bool complete = path.empty() || dialog.mode == FileDialog::Mode::Save || dialog.defaultExtension.empty() ||
                          HasExtension(path) || IsThere(path);
    return complete ? path : path + '.' + dialog.defaultExtension;
}
}

std::string CWindowsFileDialogs::Ask(const FileDialog& dialog)
{
    const CKeptCurrentFolder folder;
    const HWND seen = OwnerForModalWindow();
    CRecord record(dialog, seen != nullptr ? seen : m_owner);
    const bool opens = dialog.mode == FileDialog::Mode::Open;
    if ((opens ? GetOpenFileNameA(&record.Get()) : GetSaveFileNameA(&record.Get())) == 0) {
        ThrowIfFailed(CommDlgExtendedError());
        return "";
    }
    return WithExtension(record.Path(), dialog);
}

}
