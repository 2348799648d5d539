#pragma once
#include "platform/kept/KeptFolder.h"
#include <map>
#include <mutex>
#include <set>

// A folder in memory; another process may hold files of it.
class CMemoryFolder final : public platform::kept::IKeptFolder {
public:
    std::string PathOf(const std::string& name) const override { return "/kept/" + name; }
    std::vector<platform::kept::KeptFile> Files() const override
    {
        const std::lock_guard lock(m_mutex);
        std::vector<platform::kept::KeptFile> list;
        for (const auto& [name, bytes] : files)
            list.push_back({name, sizes.contains(name) ? sizes.at(name) : bytes.size()});
        return list;
    }
    std::optional<std::string> Read(const std::string& name) const override
    {
        const std::lock_guard lock(m_mutex);
        return files.contains(name) ? std::optional(files.at(name)) : std::nullopt;
    }
    bool Create(const std::string& name, const std::string& bytes, Hold hold) override
    {
        const std::lock_guard lock(m_mutex);
        if (full || files.contains(name))
            return false;
        files[name] = bytes;
        if (hold == Hold::Yes)
            held.insert(name);
        return true;
    }
    bool Take(const std::string& name, const std::string& newName) override
    {
        const std::lock_guard lock(m_mutex);
        if (heldByOthers.contains(name) || files.contains(newName))
            return false;
        auto file = files.extract(name);
        file.key() = newName;
        files.insert(std::move(file));
        return true;
    }
    bool Remove(const std::string& name) override
    {
        const std::lock_guard lock(m_mutex);
        held.erase(name);
        return files.erase(name) != 0;
    }
    void Sweep() override { swept = true; }

    std::vector<std::string> Names() const
    {
        std::vector<std::string> names;
        for (const platform::kept::KeptFile& file : Files())
            names.push_back(file.name);
        return names;
    }
    std::map<std::string, std::string> files;
    std::map<std::string, std::uint64_t> sizes;  // Of files that only claim to be so large.
    std::set<std::string> held, heldByOthers;
    bool full = false;
    bool swept = false;

private:
    mutable std::mutex m_mutex;
};
