#pragma once
#include "engine/Engine.h"
#include "platform/Failure.h"
#include <map>

namespace engine {

// Characters in memory, by file name.
class CMemorySource final : public ICharacterSource {
public:
    std::map<std::string, CharacterRef> files;
    CharacterRef standard;  // The default character; null for none.

    CharacterRef Load(const std::string& file) override
    {
        const auto found = files.find(file);
        if (found == files.end())
            throw platform::CFailure(platform::engineError::FileNotFound, "There is no such file.");
        return found->second;
    }
    CharacterRef LoadDefault() override
    {
        if (!standard)
            throw platform::CFailure(platform::engineError::NoStandardCharacter, "There is no standard character.");
        return standard;
    }
    std::vector<std::string> Installed() override
    {
        std::vector<std::string> names;
        for (const auto& [name, character] : files)
            names.push_back(name);
        return names;
    }
};

}
