#pragma once
#include "platform/FileDialogs.h"

namespace platform::windowsdesktop {

// The system's own dialogs, in their first form. The current folder stays what it was.
class CWindowsFileDialogs final : public IFileDialogs {
public:
    // Throws 52 when the chosen path is longer than the limit.
    std::string Ask(const FileDialog& dialog) override;
};

}
