#pragma once
#include "engine/Host.h"
#include <map>
#include <string>

namespace platform::linuxdesktop {

// The characters that the programs of a user have loaded: in one folder an empty file for each program and character,
// locked as long as that program lives. What a dead program left behind is removed by whoever finds it.
class CLoadedCharacters final : public engine::ILoadedCharacters {
public:
    // The folder is made when it is needed; "": nobody knows of anybody.
    explicit CLoadedCharacters(std::string folder) : m_folder(std::move(folder)) {}
    ~CLoadedCharacters() override;
    CLoadedCharacters(const CLoadedCharacters&) = delete;
    CLoadedCharacters& operator=(const CLoadedCharacters&) = delete;
    void Enter(const std::string& guid) override;
    void Leave(const std::string& guid) override;
    bool OthersHave(const std::string& guid) const override;

private:
    struct Entry {
        int times = 0;
        int lock = -1;  // The descriptor that holds it; -1: there is none, and others do not know.
        std::string file;
    };
    Entry NewEntry(const std::string& guid) const;
    static void Remove(const Entry& entry);

    std::string m_folder;
    std::map<std::string, Entry> m_entries;
};

}
