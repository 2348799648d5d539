#pragma once
#include <cstdint>
#include <string>

namespace platform {

class IShell {
public:
    virtual ~IShell() = default;
    // Starts a program with its arguments in one text, with normal window focus. Throws CFailure when it cannot start.
    virtual void StartProgram(const std::string& commandLine) = 0;
    // Opens a document, program or web address as the desktop would. Returns a code: above 32 success, up to 32 a
    // refusal. Throws CFailure when the desktop cannot be asked.
    virtual std::int32_t Open(const std::string& file, const std::string& parameters) = 0;
};

}
