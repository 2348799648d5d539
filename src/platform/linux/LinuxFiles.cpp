#include "platform/linux/LinuxFiles.h"
#include "platform/kept/KeptTextStore.h"
#include "platform/linux/DocumentFile.h"
#include "platform/linux/LinuxKeptFolder.h"
#include "platform/linux/LinuxLineReader.h"
#include "platform/linux/LinuxServices.h"
#include "platform/linux/UserFolders.h"
#include "platform/linux/WholeFile.h"
#include "platform/text/Wildcards.h"
#include <cerrno>
#include <filesystem>
#include <new>
#include <sys/stat.h>
#include <unistd.h>

namespace platform::linuxdesktop {
namespace {
namespace fs = std::filesystem;

std::string IfNotLonger(std::string folder, std::size_t limit)
{
    return folder.size() <= limit ? std::move(folder) : std::string();
}

struct Pattern {
    std::string folder;
    std::string name;
};

// The system would stop at it and take another path.
void RefuseNul(const std::string& path)
{
    if (path.find('\0') != std::string::npos)
        throw failure::BadFileName();
}

// Found by the next start if this process does not get to remove it.
std::shared_ptr<void> KeepUntilWritten(const std::string& path, const std::string& bytes)
{
    struct Copy {
        CLinuxKeptFolder folder{KeptTextsFolder()};
        kept::CKeptTextStore store{folder, [] { return CLinuxClock().Now(); }};
        ~Copy() { store.RemoveCopy(); }
    };
    auto copy = std::make_shared<Copy>();
    copy->store.Copy(path, bytes);
    return copy;
}

std::string BytesInForm(const std::string& path, const std::string& text, text::FileForm& form)
{
    int error = 0;
    return text::BytesOfEdited(text, form, ReadWhole(path, error).value_or(""));
}

Pattern SplitPattern(const std::string& pattern)
{
    const std::size_t separator = pattern.rfind('/');
    if (separator == std::string::npos)
        return {".", pattern};
    return {pattern.substr(0, separator + 1), pattern.substr(separator + 1)};
}
}

std::string CLinuxFiles::WindowsFolder(std::size_t limit) const { return IfNotLonger(DataFolder() + "/parlune", limit); }

std::string CLinuxFiles::SystemFolder(std::size_t limit) const { return IfNotLonger("/usr/lib", limit); }

std::string CLinuxFiles::TemporaryFolder(std::size_t limit) const
{
    std::error_code error;
    const std::string folder = fs::temp_directory_path(error).string();
    return IfNotLonger(error ? "/tmp" : folder, limit);
}

std::string CLinuxFiles::ProgramFolder() const { return fs::path(ProgramFile()).parent_path().string(); }

std::string CLinuxFiles::CurrentFolder() const
{
    std::error_code error;
    return fs::current_path(error).string();
}

EntryKind CLinuxFiles::Kind(const std::string& path) const
{
    struct stat status = {};
    if (path.find('\0') != std::string::npos || ::stat(path.c_str(), &status) != 0)
        return EntryKind::None;
    return S_ISDIR(status.st_mode) ? EntryKind::Folder : EntryKind::File;
}

void CLinuxFiles::MakeFolder(const std::string& path)
{
    RefuseNul(path);
    if (::mkdir(path.c_str(), 0755) == 0)
        return;
    throw errno == ENOENT ? failure::PathNotFound() : FailureOfError(errno, path);
}

std::vector<std::string> CLinuxFiles::Match(const std::string& pattern) const
{
    const Pattern wanted = SplitPattern(pattern);
    std::vector<std::string> names;
    std::error_code error, unknown;
    for (fs::directory_iterator entry(wanted.folder, error), end; !error && entry != end; entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        if (text::MatchesWildcards(name, wanted.name) && !entry->is_directory(unknown))
            names.push_back(name);
    }
    return names;
}

std::string CLinuxFiles::ReadText(const std::string& path) const
{
    try {
        int error = 0;
        auto bytes = path.empty() ? std::nullopt : ReadWhole(path, error);
        if (!bytes)
            throw path.empty() ? failure::PathFileAccess() : FailureOfError(error, path);
        return text::TextOfBytes(std::move(*bytes));
    } catch (const std::bad_alloc&) {
        throw failure::OutOfMemory();
    }
}

void CLinuxFiles::Delete(const std::string& path)
{
    RefuseNul(path);
    if (Kind(path) == EntryKind::Folder)
        throw failure::PathFileAccess();
    if (::unlink(path.c_str()) != 0)
        throw FailureOfError(errno, path);
}

void CLinuxFiles::Rename(const std::string& from, const std::string& to)
{
    RefuseNul(from);
    RefuseNul(to);
    struct stat status = {};
    if (::lstat(from.c_str(), &status) != 0)
        throw FailureOfError(errno, from);
    if (::lstat(to.c_str(), &status) == 0)
        throw failure::FileExists();
    if (::rename(from.c_str(), to.c_str()) != 0)
        throw FailureOfError(errno, to);
}

std::unique_ptr<ILineReader> CLinuxFiles::OpenLines(const std::string& path) const
{
    return std::make_unique<CLinuxLineReader>(path, [this, path](const text::FileForm& form) { m_opened[path] = form; });
}

std::string CLinuxFiles::Bytes(const std::string& path, const std::string& text) const
{
    const auto opened = m_opened.find(path);
    if (opened == m_opened.end())
        return text::BytesOfNew(text);
    text::FileForm form = opened->second;
    return BytesInForm(path, text, form);
}

void CLinuxFiles::WriteLine(const std::string& path, const std::string& text)
{
    const auto opened = m_opened.find(path);
    text::FileForm form = opened == m_opened.end() ? text::FileForm() : opened->second;
    const std::string bytes = opened == m_opened.end() ? text::BytesOfNew(text) : BytesInForm(path, text, form);
    if (const int error = WriteDocument(path, bytes, KeepUntilWritten))
        throw FailureOfError(error, path);
    if (opened != m_opened.end())
        opened->second = form;
}
}
