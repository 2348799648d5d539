#pragma once
#include "platform/kept/KeptTexts.h"
#include "platform/windows/WindowsKeptFolder.h"

namespace platform::windowsdesktop {

// The safety net in a folder of its own. Needs a message loop. One object at a time.
class CWindowsKeptTexts {
public:
    explicit CWindowsKeptTexts(std::string folder);
    ~CWindowsKeptTexts();
    CWindowsKeptTexts(const CWindowsKeptTexts&) = delete;
    CWindowsKeptTexts& operator=(const CWindowsKeptTexts&) = delete;
    IKeptTexts& Texts() { return m_texts; }

private:
    static void CALLBACK TimeIsUp(HWND, UINT, UINT_PTR, DWORD) noexcept;
    void StartTimer();
    void StopTimer();
    static CWindowsKeptTexts* s_timed;
    UINT_PTR m_timer = 0;
    CWindowsKeptFolder m_folder;
    kept::CKeptTexts m_texts;
};

}
