#pragma once
#include "platform/CharacterEngine.h"

namespace platform::windowsdesktop {

// The character engine of the system, "Agent.Control.2", called by name. Needs a CComApartment that outlives everything made
// here. Events come out of this thread's message loop, whichever runs, and never while a call of the program is under way.
class CAgentFactory final : public ICharacterEngineFactory {
public:
    // Throws CFailure 429 when the control cannot be created.
    std::shared_ptr<ICharacterEngine> Create() override;
    // Creates a control and lets it go again. Throws CFailure 339, naming agentctl.dll.
    void RequireForMainWindow() override;
};

}
