#include "faults/calls/DiskModel.h"
#include <filesystem>

namespace faults {
namespace {
std::string FolderOf(const std::string& path) { return std::filesystem::path(path).parent_path().string(); }
std::string NameOf(const std::string& path) { return std::filesystem::path(path).filename().string(); }
}

CDisk::CDisk(std::string root, const Snapshot& files) : m_root(std::move(root))
{
    m_folders[m_root];
    for (const auto& [path, state] : files) {
        const std::string full = m_root + "/" + path;
        m_folders[FolderOf(full)].flushed[NameOf(full)] = NewFile(state.bytes);
        for (std::string folder = FolderOf(full); folder != m_root; folder = FolderOf(folder))
            m_folders[FolderOf(folder)].flushed[NameOf(folder)] = IsFolder;
    }
}

CDisk::Entries CDisk::Folder::After(std::size_t changes) const
{
    Entries entries = flushed;
    for (std::size_t change = 0; change < changes; ++change)
        for (const auto& [name, file] : waiting[change]) {
            entries.erase(name);
            if (file)
                entries[name] = *file;
        }
    return entries;
}

std::vector<std::string> CDisk::File::Possible() const
{
    std::vector<std::string> possible = {flushed};
    if (since.empty())
        return possible;
    possible.insert(possible.end(), since.begin(), since.end());
    const std::string& last = since.back();
    possible.push_back(last.substr(0, last.size() / 2));
    possible.emplace_back(last.size(), '\0');
    return possible;
}

int CDisk::NewFile(const std::string& bytes)
{
    m_files.push_back({bytes, {}});
    return static_cast<int>(m_files.size()) - 1;
}

std::optional<int> CDisk::FileOf(const std::string& path) const
{
    const auto folder = m_folders.find(FolderOf(path));
    if (folder == m_folders.end())
        return std::nullopt;
    const Entries entries = folder->second.After(folder->second.waiting.size());
    const auto found = entries.find(NameOf(path));
    return found == entries.end() ? std::nullopt : std::optional(found->second);
}

void CDisk::ChangeEntry(const std::string& path, std::optional<int> file)
{
    m_folders[FolderOf(path)].waiting.push_back({{NameOf(path), file}});
}

void CDisk::Flush(const std::string& path, int file)
{
    const auto folder = m_folders.find(path);
    if (folder != m_folders.end()) {
        folder->second.flushed = folder->second.After(folder->second.waiting.size());
        folder->second.waiting.clear();
        return;
    }
    File& flushed = m_files[static_cast<std::size_t>(file)];
    if (!flushed.since.empty())
        flushed.flushed = flushed.since.back();
    flushed.since.clear();
}

void CDisk::Make(const Call& call)
{
    const auto file = FileOf(call.path);
    if (call.failed)
        return;
    if (call.name == "create" && !file)
        ChangeEntry(call.path, NewFile(""));
    if (call.name == "create" || call.name == "open")
        m_open[call.descriptor] = FileOf(call.path).value_or(IsFolder);
    if (call.name == "create" && call.truncates && file)
        m_files[static_cast<std::size_t>(*file)].since.emplace_back();
    if (call.name == "write") {
        File& written = m_files[static_cast<std::size_t>(m_open.at(call.descriptor))];
        written.since.push_back((written.since.empty() ? written.flushed : written.since.back()) + call.bytes);
    }
    if (call.name == "fsync")
        Flush(call.path, m_open.at(call.descriptor));
    if (call.name == "mkdir") {
        ChangeEntry(call.path, IsFolder);
        m_folders[call.path];
    }
    if (call.name == "unlink" && file)
        ChangeEntry(call.path, std::nullopt);
    if (call.name == "link")
        ChangeEntry(call.other, file);
    if (call.name == "rename")
        m_folders[FolderOf(call.path)].waiting.push_back({{NameOf(call.path), std::nullopt}, {NameOf(call.other), file}});
}

void CDisk::ForEachState(const std::function<void(const Snapshot&)>& look) const
{
    std::map<std::string, Entries> chosen;
    ChooseFolders(m_folders.begin(), chosen, look);
}

void CDisk::ChooseFolders(std::map<std::string, Folder>::const_iterator folder, std::map<std::string, Entries>& chosen,
                          const std::function<void(const Snapshot&)>& look) const
{
    if (folder == m_folders.end()) {
        const Found found = Reachable(chosen, m_root);
        std::map<int, std::string> bytes;
        return ChooseBytes(found.begin(), found, bytes, look);
    }
    for (std::size_t changes = 0; changes <= folder->second.waiting.size(); ++changes) {
        chosen[folder->first] = folder->second.After(changes);
        ChooseFolders(std::next(folder), chosen, look);
    }
}

CDisk::Found CDisk::Reachable(const std::map<std::string, Entries>& chosen, const std::string& folder) const
{
    Found found;
    for (const auto& [name, file] : chosen.at(folder)) {
        if (file == IsFolder)
            found.merge(Reachable(chosen, folder + "/" + name));
        else
            found[folder + "/" + name] = file;
    }
    return found;
}

void CDisk::ChooseBytes(Found::const_iterator file, const Found& found, std::map<int, std::string>& chosen,
                        const std::function<void(const Snapshot&)>& look) const
{
    if (file == found.end()) {
        Snapshot snapshot;
        for (const auto& [path, number] : found)
            snapshot[path.substr(m_root.size() + 1)].bytes = chosen.at(number);
        return look(snapshot);
    }
    if (chosen.contains(file->second))  // Two names of one file.
        return ChooseBytes(std::next(file), found, chosen, look);
    for (const std::string& bytes : m_files[static_cast<std::size_t>(file->second)].Possible()) {
        chosen[file->second] = bytes;
        ChooseBytes(std::next(file), found, chosen, look);
    }
    chosen.erase(file->second);
}

}
