#pragma once
#include "platform/Files.h"
#include "platform/text/FileForm.h"
#include <map>

namespace platform::linuxdesktop {

// The real folders and files. The "Windows folder" is the program's own folder in the user's data folder.
class CLinuxFiles final : public IFiles {
public:
    char Separator() const override { return '/'; }
    // A folder whose path is longer than `limit` is answered as "", for a cut path would name another one.
    std::string WindowsFolder(std::size_t limit) const override;
    std::string SystemFolder(std::size_t limit) const override;
    std::string TemporaryFolder(std::size_t limit) const override;
    std::string ProgramFolder() const override;
    std::string CurrentFolder() const override;
    EntryKind Kind(const std::string& path) const override;
    void MakeFolder(const std::string& path) override;
    // Folders are left out, as in every list of files.
    std::vector<std::string> Match(const std::string& pattern) const override;
    std::string ReadText(const std::string& path) const override;
    void Delete(const std::string& path) override;
    void Rename(const std::string& from, const std::string& to) override;
    std::unique_ptr<ILineReader> OpenLines(const std::string& path) const override;
    // A file that was opened for its lines keeps its form: see platform/text/FileForm.h. Any other one is in UTF-8, its
    // lines ended by LF.
    void WriteLine(const std::string& path, const std::string& text) override;
    // The bytes that WriteLine would give the file.
    std::string Bytes(const std::string& path, const std::string& text) const;

private:
    mutable std::map<std::string, text::FileForm> m_opened;  // By the path under which it was opened.
};

}
