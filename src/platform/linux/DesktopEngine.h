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

// `sound` as in engine/hosts/qt/QtHost.h. Needs a QApplication, which must outlive it.
std::unique_ptr<IDesktopEngine> CreateDesktopEngine(const std::string& sound, const std::string& characterFolder);

}
