#pragma once
#include "platform/windows/Win32.h"

namespace platform::windowsdesktop::com {

// Whoever has a window for messages of its own.
class IMessageReceiver {
public:
    virtual ~IMessageReceiver() = default;
    // True when the message was for it. What it throws is lost: nothing may pass the system's code above.
    virtual bool Receive(UINT message, WPARAM wParam) = 0;
};

// A window that is never seen and only takes messages. Belongs to the thread that makes it.
class CMessageWindow {
public:
    // Borrows the receiver. Throws CFailure when the system has no more windows.
    explicit CMessageWindow(IMessageReceiver& receiver);
    ~CMessageWindow();
    CMessageWindow(const CMessageWindow&) = delete;
    CMessageWindow& operator=(const CMessageWindow&) = delete;
    HWND Handle() const { return m_window; }

private:
    HWND m_window;
};

}
