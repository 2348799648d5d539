#pragma once
#include "platform/Program.h"

namespace platform::windowsdesktop {

class CWindowsProgram final : public IProgram {
public:
    [[noreturn]] void End() override;
};

}
