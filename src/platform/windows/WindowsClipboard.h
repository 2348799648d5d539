#pragma once
#include "platform/Clipboard.h"
#include "platform/windows/Win32.h"
#include <memory>

namespace platform::windowsdesktop {

// Half a second: who copies, or looks at every copy, holds the clipboard for less.
inline constexpr DWORD ClipboardPatienceMilliseconds = 500;

// The system's clipboard, watched through the chain of viewers. While another program holds it, a change is not told of
// before it is free, or before the patience has come to its end; the window's messages go on meanwhile.
class CWindowsClipboard final : public IClipboard {
public:
    explicit CWindowsClipboard(DWORD patienceMilliseconds = ClipboardPatienceMilliseconds);
    ~CWindowsClipboard() override;
    CWindowsClipboard(const CWindowsClipboard&) = delete;
    CWindowsClipboard& operator=(const CWindowsClipboard&) = delete;

    bool HasText() const override;
    // Throws CFailure 521 while another program holds the clipboard for longer than a moment. Inside `changed` it is ours
    // already.
    std::string Text() const override;
    bool IsSecret() const override;
    bool CanWatch() const override { return true; }
    void Watch(std::function<void()> changed) override;
    void StopWatching() override;

    // The window that joins the chain; before the first Watch. Must leave (StopWatching) before it is destroyed.
    void UseWindow(HWND mainWindow) { m_window = mainWindow; }

private:
    class COpen;
    static void CALLBACK TryAgain(HWND, UINT, UINT_PTR self, DWORD);
    void NoteChange();
    void TellWhenFree();
    bool KeepTrying();
    void Tell(std::unique_ptr<COpen> open);
    void StopTrying();
    UINT_PTR Timer() const { return reinterpret_cast<UINT_PTR>(this); }

    HWND m_window = nullptr;
    bool m_watching = false;
    std::function<void()> m_changed;
    DWORD m_patienceMilliseconds;
    ULONGLONG m_patienceEnds = 0;
    bool m_trying = false;                  // The timer runs.
    mutable std::unique_ptr<COpen> m_open;  // From a change to its reading.
};

}
