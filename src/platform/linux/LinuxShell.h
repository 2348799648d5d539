#pragma once
#include "platform/Shell.h"

namespace platform::linuxdesktop {

class CLinuxShell final : public IShell {
public:
    // The first word names the program: a path, or a name looked up in PATH.
    void StartProgram(const std::string& commandLine) override;
    // Web addresses and documents are opened by the desktop's own programs, a program is started with the parameters.
    // 33 success, 2 no such file, 3 no such folder, 5 refused, 31 nothing on this desktop opens it.
    std::int32_t Open(const std::string& file, const std::string& parameters) override;
};

}
