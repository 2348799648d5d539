#pragma once
#include "platform/Clipboard.h"
#include "platform/windows/Win32.h"

namespace platform::windowsdesktop {

// The system's clipboard, watched through the chain of viewers.
class CWindowsClipboard final : public IClipboard {
public:
    CWindowsClipboard() = default;
    ~CWindowsClipboard() override;
    CWindowsClipboard(const CWindowsClipboard&) = delete;
    CWindowsClipboard& operator=(const CWindowsClipboard&) = delete;

    bool HasText() const override;
    // Throws CFailure 521 while another program holds the clipboard for longer than a moment.
    std::string Text() const override;
    bool IsSecret() const override;
    bool CanWatch() const override { return true; }
    void Watch(std::function<void()> changed) override;
    void StopWatching() override;

    // The window that joins the chain; before the first Watch. Must leave (StopWatching) before it is destroyed.
    void UseWindow(HWND mainWindow) { m_window = mainWindow; }

private:
    HWND m_window = nullptr;
    bool m_watching = false;
};

}
