#pragma once
#include "platform/CharacterEngine.h"
#include "platform/SpeechEngines.h"
#include <memory>
#include <string>

namespace platform::linuxdesktop {

// The character engine and the voices of this desktop.
class IDesktopEngine {
public:
    virtual ~IDesktopEngine() = default;
    virtual ICharacterEngineFactory& Factory() = 0;
    virtual ISpeechEngines& Voices() = 0;
};

struct DesktopEngineOptions {
    std::string sound;  // As in engine/hosts/qt/QtHost.h.
    std::string characterFolder;
    std::string bundledFolder;  // What stands in when none of those can be loaded.
    std::string settingsFile;   // Where the engine keeps what the user has set for all characters.
    std::string loadedFolder;   // Where programs note which characters they have loaded; "" for nowhere.
};

// Needs a QApplication, which must outlive it.
std::unique_ptr<IDesktopEngine> CreateDesktopEngine(const DesktopEngineOptions& options);

}
