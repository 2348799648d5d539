#pragma once
#include "platform/TrayIcon.h"
#include "platform/windows/Win32.h"

namespace platform::windowsdesktop {

// The icon in the notification area. It comes back when the shell starts again. A refusal is not reported.
class CWindowsTrayIcon final : public ITrayIcon {
public:
    CWindowsTrayIcon();
    ~CWindowsTrayIcon() override { Delete(); }
    CWindowsTrayIcon(const CWindowsTrayIcon&) = delete;
    CWindowsTrayIcon& operator=(const CWindowsTrayIcon&) = delete;

    void Add(const std::string& tip, std::function<void(std::int32_t message)> mouse) override;
    void Delete() override;

    // The window that gets the icon's messages, and the picture; before Add. Borrowed.
    void UseOwner(HWND owner, HICON icon);
    // For the owner's message procedure: true when the message was the icon's, and is done with.
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    // The record that was handed to the shell; for tests.
    const NOTIFYICONDATAA& Record() const { return m_record; }

private:
    NOTIFYICONDATAA m_record = {};
    UINT m_shellHasStarted;
    bool m_added = false;
    std::function<void(std::int32_t message)> m_mouse;
};

}
