#pragma once
#include "platform/Program.h"
#include <functional>

namespace platform::windowsdesktop {

class CWindowsProgram final : public IProgram {
public:
    // `lastWords` is said before the end.
    explicit CWindowsProgram(std::function<void()> lastWords = {}) : m_lastWords(std::move(lastWords)) {}
    [[noreturn]] void End() override;

private:
    std::function<void()> m_lastWords;
};

}
