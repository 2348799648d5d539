#pragma once
#include "platform/Shell.h"

namespace platform::windowsdesktop {

class CWindowsShell final : public IShell {
public:
    // The first word is the program, as the system looks for one: with blanks in its path, too, and without ".exe".
    void StartProgram(const std::string& commandLine) override;
    // Without owner window, verb and folder, in a normal window.
    std::int32_t Open(const std::string& file, const std::string& parameters) override;
};

}
