#pragma once
#include <cstdint>
#include <memory>
#include <string>

namespace platform {

// The speech voices of this computer, counted from 1. Every call may throw CFailure.
class ISpeechEngineList {
public:
    virtual ~ISpeechEngineList() = default;
    virtual std::int32_t Count() = 0;
    virtual std::string ModeID(std::int32_t index) = 0;  // With or without braces around it.
    virtual std::string ModeName(std::int32_t index) = 0;
    virtual std::int32_t LanguageID(std::int32_t index) = 0;  // A Win32 LANGID; 0 when unknown.
};

class ISpeechEngines {
public:
    virtual ~ISpeechEngines() = default;
    // Whether the speech service can be created. Throws CFailure when even asking fails.
    virtual bool Installed() = 0;
    // Creates the speech service's list; the caller owns it. Throws CFailure when there is no such service.
    virtual std::unique_ptr<ISpeechEngineList> Open() = 0;
};

}
