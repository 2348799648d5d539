#pragma once
#include "platformlinux/TemporaryHome.h"
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

// What the program saves, one step each.
namespace faults {

// A store of the program's, in a folder of its own.
class ISave {
public:
    virtual ~ISave() = default;
    // Saves; false when the user is told of a failure. Called again, it tries again.
    virtual bool Act() = 0;
};

struct SaveKind {
    std::string name;
    // Puts what was there before into the folder. Nothing of it is watched.
    std::function<std::unique_ptr<ISave>(const CTemporaryFolder&)> prepare;
};

const std::vector<SaveKind>& AllSaves();

// A file as it stands on the disk.
struct FileState {
    std::string bytes;
    unsigned mode = 0;
    friend bool operator==(const FileState&, const FileState&) = default;
};

// All files below a folder, by their path from there.
using Snapshot = std::map<std::string, FileState>;
Snapshot TakeSnapshot(const std::string& folder);
std::optional<FileState> In(const Snapshot& snapshot, const std::string& path);

}
