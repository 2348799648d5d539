#pragma once
#include "platform/Environment.h"
#include <string_view>

namespace platform::windowsdesktop {

class CWindowsEnvironment final : public IEnvironment {
public:
    std::string Variable(const std::string& name) const override;
    // Without the one blank that separates it from the program's name: what goes beyond that was typed.
    std::string CommandLine() const override;
};

// What follows the program's name, which may stand in quotes, and one blank in a whole command line.
std::wstring_view WithoutProgramName(std::wstring_view commandLine);

}
