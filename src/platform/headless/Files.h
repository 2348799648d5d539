#pragma once
#include "platform/Environment.h"
#include "platform/Files.h"
#include "platform/Profile.h"
#include "platform/headless/Journal.h"
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>

namespace platform::headless {

// A small disk in memory: folders and files below drive letters, separator "\", names without case.
class CFiles final : public IFiles {
public:
    explicit CFiles(CJournal& journal);

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

    // For tests. Parents are made as needed. Match lists entries in the order in which they were put.
    void PutFolder(const std::string& path);
    void PutFile(const std::string& path, const std::string& content = "");
    void Remove(const std::string& path) { Erase(path); }
    void SetReadOnly(const std::string& path) { m_readOnly.insert(path); }
    bool Has(const std::string& path) const;
    std::string Content(const std::string& path) const;  // "" when there is no such file.
    // Called before each line is read, with its number from 1; may let time pass, change files or throw.
    std::function<void(std::size_t number)> beforeLine;
    std::string windowsFolder = "C:\\WINDOWS";
    std::string systemFolder = "C:\\WINDOWS\\system32";
    std::string temporaryFolder = "C:\\Temp\\";
    std::string programFolder = "C:\\Program Files\\Parlune";
    std::string currentFolder = "C:\\Users\\Ann\\Documents";

private:
    struct Entry {
        std::string path;  // Without a separator at its end.
        EntryKind kind;
        std::string content;
    };
    static std::string Plain(const std::string& path);
    const Entry* Find(const std::string& path) const;
    void Erase(const std::string& path);
    const Entry& FileAt(const std::string& path) const;
    CJournal& m_journal;
    std::vector<Entry> m_entries;
    std::set<std::string> m_readOnly;
};

class CEnvironment final : public IEnvironment {
public:
    explicit CEnvironment(CJournal& journal) : m_journal(journal) {}
    std::string Variable(const std::string& name) const override;
    std::string CommandLine() const override;

    std::map<std::string, std::string> variables{{"APPDATA", "C:\\Users\\Ann\\AppData\\Roaming"}};
    std::string commandLine;

private:
    CJournal& m_journal;
};

// Settings files in memory, in the order in which sections and keys were written. Names ignore case.
class CProfile final : public IProfile {
public:
    explicit CProfile(CJournal& journal) : m_journal(journal) {}
    std::string Read(const std::string& file, const std::string& section, const std::optional<std::string>& key,
                     const std::string& defaultValue, std::size_t limit) const override;
    bool Write(const std::string& file, const std::string& section, const std::optional<std::string>& key,
               const std::optional<std::string>& value) override;

    void Put(const std::string& file, const std::string& section, const std::string& key, const std::string& value);
    std::optional<std::string> Value(const std::string& file, const std::string& section, const std::string& key) const;
    bool HasSection(const std::string& file, const std::string& section) const;
    void RefuseToWrite(bool refuse) { m_refuseToWrite = refuse; }

private:
    struct Key {
        std::string name;
        std::string value;
    };
    struct Section {
        std::string file;
        std::string name;
        std::vector<Key> keys;
    };
    const Section* Find(const std::string& file, const std::string& section) const;
    Section* Find(const std::string& file, const std::string& section);
    CJournal& m_journal;
    std::vector<Section> m_sections;
    bool m_refuseToWrite = false;
};

}
