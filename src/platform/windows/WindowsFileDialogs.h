#pragma once
#include "platform/FileDialogs.h"
#include "platform/windows/Win32.h"

namespace platform::windowsdesktop {

// The system's own dialogs, in their first form. The current folder stays what it was.
class CWindowsFileDialogs final : public IFileDialogs {
public:
    // Throws 52 when the chosen path is longer than the limit.
    std::string Ask(const FileDialog& dialog) override;

    // The window that owns the dialogs while the user sees none of the program's.
    void UseOwner(HWND mainWindow) { m_owner = mainWindow; }

private:
    HWND m_owner = nullptr;
};

}
