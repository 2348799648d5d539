#pragma once
#include "platform/Files.h"

namespace platform::windowsdesktop {

// Folders and files as the system has them. Texts are kept as FileEncoding.h says.
class CWindowsFiles final : public IFiles {
public:
    char Separator() const override { return '\\'; }
    std::string WindowsFolder(std::size_t limit) const override;
    std::string SystemFolder(std::size_t limit) const override;
    std::string TemporaryFolder(std::size_t limit) const override;
    std::string ProgramFolder() const override;
    std::string CurrentFolder() const override;
    EntryKind Kind(const std::string& path) const override;
    void MakeFolder(const std::string& path) override;
    std::vector<std::string> Match(const std::string& pattern) const override;
    std::string ReadText(const std::string& path) const override;
    void Delete(const std::string& path) override;
    void Rename(const std::string& from, const std::string& to) override;
    std::unique_ptr<ILineReader> OpenLines(const std::string& path) const override;
    void WriteLine(const std::string& path, const std::string& text) override;
    static std::string Bytes(const std::string& text);  // What WriteLine gives a file.
};

}
