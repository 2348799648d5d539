#pragma once
#include "platform/kept/KeptFolder.h"
#include "platform/linux/Descriptor.h"
#include <map>
#include <memory>
#include <mutex>

namespace platform::linuxdesktop {

std::string KeptTextsFolder();  // Of this user's safety net.

// A folder for this user alone. A held file is locked; the system unlocks it when the process ends, however it ends.
class CLinuxKeptFolder final : public kept::IKeptFolder {
public:
    explicit CLinuxKeptFolder(std::string folder) : m_folder(std::move(folder)) {}
    std::string PathOf(const std::string& name) const override { return m_folder + "/" + name; }
    std::vector<kept::KeptFile> Files() const override;
    std::optional<std::string> Read(const std::string& name) const override;
    bool Create(const std::string& name, const std::string& bytes, Hold hold) override;
    bool Take(const std::string& name, const std::string& newName) override;
    bool Remove(const std::string& name) override;
    void Sweep() override;

private:
    bool Place(const std::string& halfMade, const std::string& name) const;
    void SyncFolder() const;
    std::string m_folder;
    std::mutex m_mutex;  // Of what follows.
    std::map<std::string, std::unique_ptr<CDescriptor>> m_held;
};

}
