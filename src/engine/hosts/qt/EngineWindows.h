#pragma once
#include "engine/Engine.h"
#include <memory>

namespace engine {

// The engine's own windows, one of each kind. Both stay open beside the program and act on all characters.
class IEngineWindows {
public:
    virtual ~IEngineWindows() = default;
    // Balloons, sound effects and speaking speed of all characters. What is changed holds at once.
    virtual void ShowPropertySheet(bool visible) = 0;
    // The choice of the default character, with a preview.
    virtual void ShowDefaultCharacter() = 0;
};

// Borrows all three. Needs a QApplication.
std::unique_ptr<IEngineWindows> CreateEngineWindows(CUserSettings& settings, ICharacterSource& source, ITimers& timers);

}
