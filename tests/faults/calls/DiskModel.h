#pragma once
#include "faults/calls/Saves.h"
#include "faults/calls/SystemCalls.h"
#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace faults {

// A disk whose power goes. It is told the calls that were made on it, and says what may be found afterwards.
//
// Held for certain is what was flushed: of a file its bytes, of a folder its entries, each by an fsync of its own. Of the
// rest, the entries of one folder reach the disk in the order in which they were changed, as file systems with a journal
// have it; one folder does not wait for another, and no entry for the bytes of its file. The bytes of a file that was not
// flushed are those of any moment since the flush, half of the last ones, or as many zeros.
class CDisk {
public:
    // `root` holds `files`, all of them flushed.
    CDisk(std::string root, const Snapshot& files);
    void Make(const Call& call);
    // Every content of the folder that may be found when the power goes now; the modes are of no account.
    void ForEachState(const std::function<void(const Snapshot&)>& look) const;

private:
    static constexpr int IsFolder = -1;
    // The entries that one call changes together: a file's number, IsFolder, or nothing for an entry that goes.
    using Change = std::vector<std::pair<std::string, std::optional<int>>>;
    using Entries = std::map<std::string, int>;
    struct Folder {
        Entries flushed;
        std::vector<Change> waiting;
        Entries After(std::size_t changes) const;
    };
    struct File {
        std::string flushed;
        std::vector<std::string> since;  // After each write.
        std::vector<std::string> Possible() const;
    };
    // Files by their paths, and by the numbers of what they hold.
    using Found = std::map<std::string, int>;

    void ChangeEntry(const std::string& path, std::optional<int> file);
    std::optional<int> FileOf(const std::string& path) const;
    int NewFile(const std::string& bytes);
    void Flush(const std::string& path, int file);
    void ChooseFolders(std::map<std::string, Folder>::const_iterator folder, std::map<std::string, Entries>& chosen,
                       const std::function<void(const Snapshot&)>& look) const;
    Found Reachable(const std::map<std::string, Entries>& chosen, const std::string& folder) const;
    void ChooseBytes(Found::const_iterator file, const Found& found, std::map<int, std::string>& chosen,
                     const std::function<void(const Snapshot&)>& look) const;

    std::string m_root;
    std::map<std::string, Folder> m_folders;
    std::vector<File> m_files;
    std::map<int, int> m_open;  // Descriptor to file.
};

}
