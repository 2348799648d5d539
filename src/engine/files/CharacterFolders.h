#pragma once
#include "engine/Engine.h"
#include <filesystem>

namespace engine {

// Characters out of an ordered list of folders; the first one is searched first. A folder may be missing.
class CCharacterFolders final : public ICharacterSource {
public:
    // `folders` and `defaultName` (a name or path as Load takes it, "" for none) are UTF-8.
    explicit CCharacterFolders(const std::vector<std::string>& folders, std::string defaultName = "");

    // A full path is used as it is. Anything else is a path below one of the folders, with either slash and without
    // regard to letter case; it never leads out of them by "..". Throws platform::CFailure (file not found, or as
    // ReadCharacterFile does).
    CharacterRef Load(const std::string& file) override;

    // The default if it can be loaded; else the first character in order of file names, without regard to letter case,
    // that has the standard animations; else the first that can be loaded. Throws platform::CFailure (no standard
    // character) when nothing can be loaded.
    CharacterRef LoadDefault() override;

    std::vector<std::string> Installed() override;

    void SetDefault(std::string name) { m_defaultName = std::move(name); }

private:
    std::filesystem::path FindOrEmpty(const std::string& file) const;
    std::filesystem::path Find(const std::string& file) const;
    std::vector<std::filesystem::path> AllFiles() const;

    std::vector<std::filesystem::path> m_folders;
    std::string m_defaultName;
};

}
