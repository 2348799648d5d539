#pragma once
#include "platform/Registry.h"

namespace platform::windowsdesktop {

// The system's registry through its ANSI calls, with full access, in the view of this program's width. Text values are
// turned from the code page of the process to UTF-8 and back; values of other types are given out byte for byte.
class CWindowsRegistry final : public IRegistry {
public:
    std::unique_ptr<IRegistryKey> Open(Root root, std::string_view path) override;
    std::unique_ptr<IRegistryKey> Create(Root root, std::string_view path) override;
    bool DeleteKey(Root root, std::string_view path) override;
};

}
