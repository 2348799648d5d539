#include "platform/headless/Files.h"
#include "base/text/Case.h"
#include "base/text/Text.h"
#include <algorithm>

namespace platform::headless {
namespace {

bool Matches(std::string_view name, std::string_view pattern)
{
    if (pattern.empty())
        return name.empty();
    if (pattern.front() == '*')
        return Matches(name, pattern.substr(1)) || (!name.empty() && Matches(name.substr(1), pattern));
    if (name.empty())
        return false;
    const bool same = pattern.front() == '?' || text::EqualIgnoringCase(name.substr(0, 1), pattern.substr(0, 1));
    return same && Matches(name.substr(1), pattern.substr(1));
}

std::string FolderOf(const std::string& path)
{
    const std::size_t slash = path.rfind('\\');
    return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

std::string NameOf(const std::string& path)
{
    const std::size_t slash = path.rfind('\\');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

// Lines of what was in the file when it was opened: a file that is removed meanwhile can be read to its end.
class CLineReader final : public ILineReader {
public:
    CLineReader(std::string content, std::function<void(std::size_t)> beforeLine)
        : m_content(std::move(content)), m_beforeLine(std::move(beforeLine))
    {
    }
    bool AppendLine(std::string& lines) override
    {
        if (m_at == m_content.size())
            return false;
        if (++m_number; m_beforeLine)
            m_beforeLine(m_number);
        const std::size_t end = std::min(m_content.find_first_of("\r\n", m_at), m_content.size());
        lines.append(m_content, m_at, end - m_at);
        m_at = std::min(m_content.compare(end, 2, "\r\n") == 0 ? end + 2 : end + 1, m_content.size());
        return true;
    }
    std::string Text(std::string lines) const override { return lines; }

private:
    std::string m_content;
    std::function<void(std::size_t)> m_beforeLine;
    std::size_t m_at = 0;
    std::size_t m_number = 0;
};

}

CFiles::CFiles(CJournal& journal) : m_journal(journal)
{
    for (const char* folder : {"C:\\WINDOWS\\system32", "C:\\Temp", "C:\\Program Files\\Parlune",
                               "C:\\Users\\Ann\\Documents", "C:\\Users\\Ann\\AppData\\Roaming"})
        PutFolder(folder);
}

std::string CFiles::WindowsFolder(std::size_t limit) const
{
    m_journal.Enter("Files.WindowsFolder");
    return windowsFolder.substr(0, limit);
}

std::string CFiles::SystemFolder(std::size_t limit) const
{
    m_journal.Enter("Files.SystemFolder");
    return systemFolder.substr(0, limit);
}

std::string CFiles::TemporaryFolder(std::size_t limit) const
{
    m_journal.Enter("Files.TemporaryFolder");
    return temporaryFolder.substr(0, limit);
}

std::string CFiles::ProgramFolder() const
{
    m_journal.Enter("Files.ProgramFolder");
    return programFolder;
}

std::string CFiles::CurrentFolder() const
{
    m_journal.Enter("Files.CurrentFolder");
    return currentFolder;
}

EntryKind CFiles::Kind(const std::string& path) const
{
    m_journal.Enter("Files.Kind " + path);
    const Entry* entry = Find(path);
    return entry == nullptr ? EntryKind::None : entry->kind;
}

void CFiles::MakeFolder(const std::string& path)
{
    m_journal.Enter("Files.MakeFolder " + path);
    if (Find(path) != nullptr)
        throw failure::PathFileAccess();
    const Entry* parent = Find(FolderOf(Plain(path)));
    if (parent == nullptr || parent->kind != EntryKind::Folder)
        throw failure::PathNotFound();
    m_entries.push_back({Plain(path), EntryKind::Folder, ""});
}

std::vector<std::string> CFiles::Match(const std::string& pattern) const
{
    m_journal.Enter("Files.Match " + pattern);
    std::vector<std::string> names;
    for (const Entry& entry : m_entries)
        if (text::EqualIgnoringCase(FolderOf(entry.path), FolderOf(pattern)) && Matches(NameOf(entry.path), NameOf(pattern)))
            names.push_back(NameOf(entry.path));
    return names;
}

std::string CFiles::ReadText(const std::string& path) const
{
    m_journal.Enter("Files.ReadText " + path);
    return FileAt(path).content;
}

std::unique_ptr<ILineReader> CFiles::OpenLines(const std::string& path) const
{
    m_journal.Enter("Files.OpenLines " + path);
    return std::make_unique<CLineReader>(FileAt(path).content, beforeLine);
}

void CFiles::WriteLine(const std::string& path, const std::string& line)
{
    m_journal.Enter("Files.WriteLine " + path);
    const Entry* folder = Find(FolderOf(path));
    if (folder == nullptr || folder->kind != EntryKind::Folder)
        throw failure::PathNotFound();
    const Entry* former = Find(path);
    if (m_readOnly.contains(path) || (former != nullptr && former->kind != EntryKind::File))
        throw failure::PathFileAccess();
    PutFile(path, line + text::LineBreak);
}

const CFiles::Entry& CFiles::FileAt(const std::string& path) const
{
    const Entry* entry = Find(path);
    if (entry == nullptr)
        throw failure::FileNotFound();
    if (entry->kind != EntryKind::File)
        throw failure::PathFileAccess();
    return *entry;
}

void CFiles::Delete(const std::string& path)
{
    m_journal.Enter("Files.Delete " + path);
    const Entry* entry = Find(path);
    if (entry == nullptr)
        throw failure::FileNotFound();
    if (entry->kind != EntryKind::File)
        throw failure::PathFileAccess();
    Erase(path);
}

void CFiles::Rename(const std::string& from, const std::string& to)
{
    m_journal.Enter("Files.Rename " + from + " " + to);
    const Entry* entry = Find(from);
    if (entry == nullptr)
        throw failure::FileNotFound();
    if (Find(to) != nullptr)
        throw failure::FileExists();
    const std::string former = entry->path;
    const std::string inside = former + '\\';
    for (Entry& moved : m_entries)
        if (moved.path == former)
            moved.path = Plain(to);
        else if (moved.path.starts_with(inside))
            moved.path = Plain(to) + '\\' + moved.path.substr(inside.size());
}

void CFiles::Erase(const std::string& path)
{
    std::erase_if(m_entries, [&](const Entry& entry) { return text::EqualIgnoringCase(entry.path, path); });
}

void CFiles::PutFolder(const std::string& path)
{
    const std::string plain = Plain(path);
    if (plain.empty() || Find(plain) != nullptr)
        return;
    PutFolder(FolderOf(plain));
    m_entries.push_back({plain, EntryKind::Folder, ""});
}

void CFiles::PutFile(const std::string& path, const std::string& content)
{
    PutFolder(FolderOf(path));
    Erase(path);
    m_entries.push_back({path, EntryKind::File, content});
}

std::string CFiles::Content(const std::string& path) const
{
    const Entry* entry = Find(path);
    return entry == nullptr ? std::string() : entry->content;
}

bool CFiles::Has(const std::string& path) const { return Find(path) != nullptr; }

std::string CFiles::Plain(const std::string& path) { return path.ends_with('\\') ? path.substr(0, path.size() - 1) : path; }

const CFiles::Entry* CFiles::Find(const std::string& path) const
{
    const std::string plain = Plain(path);
    const auto found = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&](const Entry& entry) { return text::EqualIgnoringCase(entry.path, plain); });
    return found == m_entries.end() ? nullptr : &*found;
}

std::string CEnvironment::Variable(const std::string& name) const
{
    m_journal.Enter("Environment.Variable " + name);
    const auto found = variables.find(name);
    return found == variables.end() ? std::string() : found->second;
}

std::string CEnvironment::CommandLine() const
{
    m_journal.Enter("Environment.CommandLine");
    return commandLine;
}

const CProfile::Section* CProfile::Find(const std::string& file, const std::string& section) const
{
    const auto found = std::find_if(m_sections.begin(), m_sections.end(), [&](const Section& candidate) {
        return text::EqualIgnoringCase(candidate.file, file) && text::EqualIgnoringCase(candidate.name, section);
    });
    return found == m_sections.end() ? nullptr : &*found;
}

CProfile::Section* CProfile::Find(const std::string& file, const std::string& section)
{
    return const_cast<Section*>(std::as_const(*this).Find(file, section));
}

std::string CProfile::Read(const std::string& file, const std::string& section, const std::optional<std::string>& key,
                           const std::string& defaultValue, std::size_t limit) const
{
    m_journal.Enter("Profile.Read " + file + " [" + section + "] " + key.value_or("*"));
    const Section* found = Find(file, section);
    std::string result = key ? defaultValue : std::string();
    for (const Key& candidate : found == nullptr ? std::vector<Key>() : found->keys) {
        if (!key)
            result += candidate.name + '\0';
        else if (text::EqualIgnoringCase(candidate.name, *key))
            result = candidate.value;
    }
    return result.substr(0, limit - 1);
}

bool CProfile::Write(const std::string& file, const std::string& section, const std::optional<std::string>& key,
                     const std::optional<std::string>& value)
{
    m_journal.Enter("Profile.Write " + file + " [" + section + "] " + key.value_or("*") + "=" + value.value_or("*"));
    if (m_refuseToWrite)
        return false;
    if (!key) {
        std::erase_if(m_sections, [&](const Section& candidate) {
            return text::EqualIgnoringCase(candidate.file, file) && text::EqualIgnoringCase(candidate.name, section);
        });
        return true;
    }
    if (value)
        Put(file, section, *key, *value);
    else if (Section* found = Find(file, section))
        std::erase_if(found->keys, [&](const Key& candidate) { return text::EqualIgnoringCase(candidate.name, *key); });
    return true;
}

void CProfile::Put(const std::string& file, const std::string& section, const std::string& key, const std::string& value)
{
    Section* found = Find(file, section);
    if (found == nullptr)
        found = &m_sections.emplace_back(Section{file, section, {}});
    for (Key& candidate : found->keys)
        if (text::EqualIgnoringCase(candidate.name, key)) {
            candidate.value = value;
            return;
        }
    found->keys.push_back({key, value});
}

std::optional<std::string> CProfile::Value(const std::string& file, const std::string& section, const std::string& key) const
{
    const Section* found = Find(file, section);
    if (found != nullptr)
        for (const Key& candidate : found->keys)
            if (text::EqualIgnoringCase(candidate.name, key))
                return candidate.value;
    return std::nullopt;
}

bool CProfile::HasSection(const std::string& file, const std::string& section) const
{
    return Find(file, section) != nullptr;
}

}
