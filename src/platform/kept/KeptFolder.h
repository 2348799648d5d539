#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// What the safety net needs of a folder.
namespace platform::kept {

struct KeptFile {
    std::string name;
    std::uint64_t size = 0;  // Bytes.
};

// One folder, made when the first file is created. Names are without folder. No call throws: what cannot be is answered.
// Creating and removing files is allowed on two threads at a time.
class IKeptFolder {
public:
    virtual ~IKeptFolder() = default;
    virtual std::string PathOf(const std::string& name) const = 0;
    virtual std::vector<KeptFile> Files() const = 0;  // Empty also when the folder cannot be read.
    virtual std::optional<std::string> Read(const std::string& name) const = 0;
    // A new file, complete and flushed to the disk, or none at all. A file that is held belongs to this process as long as
    // this object lives: no other process can take it.
    enum class Hold { No, Yes };
    virtual bool Create(const std::string& name, const std::string& bytes, Hold hold) = 0;
    // Gives a file another name. False when another process holds it, or when there is a file of that name.
    virtual bool Take(const std::string& name, const std::string& newName) = 0;
    virtual bool Remove(const std::string& name) = 0;
    // Removes what processes left half-made when they were ended.
    virtual void Sweep() = 0;
};

}
