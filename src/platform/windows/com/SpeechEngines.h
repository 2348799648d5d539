#pragma once
#include "platform/SpeechEngines.h"

namespace platform::windowsdesktop {

// The voices of the system's fourth speech interface, through its direct speech-synthesis object. Needs a CComApartment.
class CSapiSpeechEngines final : public ISpeechEngines {
public:
    bool Installed() override;
    // Throws CFailure with the system's code (0x80040154: not registered).
    std::unique_ptr<ISpeechEngineList> Open() override;
};

}
