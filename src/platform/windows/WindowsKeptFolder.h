#pragma once
#include "platform/kept/KeptFolder.h"
#include "platform/windows/Handle.h"
#include <map>
#include <mutex>

namespace platform::windowsdesktop {

std::string KeptTextsFolder();  // Of this user's safety net: beside the settings. "" when there is no such place.

// A held file is open; the system lets nobody move it until the process ends, however it ends.
class CWindowsKeptFolder final : public kept::IKeptFolder {
public:
    explicit CWindowsKeptFolder(std::string folder) : m_folder(std::move(folder)) {}
    std::string PathOf(const std::string& name) const override { return m_folder + "\\" + name; }
    std::vector<kept::KeptFile> Files() const override;
    std::optional<std::string> Read(const std::string& name) const override;
    bool Create(const std::string& name, const std::string& bytes, Hold hold) override;
    bool Take(const std::string& name, const std::string& newName) override;
    bool Remove(const std::string& name) override;
    void Sweep() override;

private:
    std::wstring WidePath(const std::string& name) const;
    bool Place(const std::string& name, const std::string& newName) const;
    std::string m_folder;
    std::mutex m_mutex;  // Of what follows.
    std::map<std::string, CHandle> m_held;
};

}
