#pragma once
#include "engine/Host.h"
#include "engine/UserSettings.h"
#include "platform/CharacterEngine.h"
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace engine {

// Where characters come from.
class ICharacterSource {
public:
    virtual ~ICharacterSource() = default;
    // The character of a file. A name without a path is looked for in the character folders. Throws platform::CFailure
    // with the engine's error codes (file not found, not a character file, too old ...).
    virtual CharacterRef Load(const std::string& file) = 0;
    // The user's default character. Throws NoStandardCharacter when there is none.
    virtual CharacterRef LoadDefault() = 0;
    // The files that the user can choose from, as Load takes them, in order of names. Not each need be a character.
    virtual std::vector<std::string> Installed() = 0;
};

struct EngineSettings {
    bool speechOn = true;
    std::int32_t readingWordsPerMinute = 170;  // Pace of the balloon without a voice.
    std::uint16_t languageId = 0x0409;         // The user's: for names and for the choice of a voice.
    // Shared by all controls; null: a control's own, out of the host's settings file.
    std::shared_ptr<CUserSettings> user;
    // What opens the engine's own windows; empty where there are none.
    std::function<void(bool visible)> showPropertySheet;
    std::function<void()> showDefaultCharacterProperties;
};

// A control of our own engine, with its characters drawn, moved and spoken through `host`. Borrows both for its lifetime.
std::shared_ptr<platform::ICharacterEngine> CreateEngine(IHost& host, ICharacterSource& source,
                                                         const EngineSettings& settings = {});

}
