#include "platform/windows/WindowsKeptTexts.h"
#include "platform/windows/FileEncoding.h"
#include "platform/windows/SystemPaths.h"
#include "platform/windows/WholeFile.h"
#include "platform/windows/WindowsClock.h"
#include "platform/windows/WindowsFiles.h"
#include <utility>

namespace platform::windowsdesktop {
namespace {
constexpr UINT CopyAfterMilliseconds = 30'000;

std::optional<std::string> ContentOf(const std::string& path)
{
    std::uint32_t error = 0;
    return ReadWhole(AbsolutePath(path), error);
}
}

CWindowsKeptTexts* CWindowsKeptTexts::s_timed = nullptr;

CWindowsKeptTexts::CWindowsKeptTexts(std::string folder)
    : m_folder(std::move(folder)),
      m_texts({.folder = m_folder,
               .now = [] { return CWindowsClock().Now(); },
               .bytesOfText = BytesForFile,
               .read = ContentOf,
               .bytesToWrite = [](const std::string&, const std::string& text) { return CWindowsFiles::Bytes(text); },
               .startTimer = [this] { StartTimer(); }})
{
}

CWindowsKeptTexts::~CWindowsKeptTexts() { StopTimer(); }

void CWindowsKeptTexts::StartTimer()
{
    StopTimer();
    s_timed = this;
    m_timer = SetTimer(nullptr, 0, CopyAfterMilliseconds, TimeIsUp);
}

void CWindowsKeptTexts::StopTimer()
{
    if (m_timer)
        KillTimer(nullptr, std::exchange(m_timer, 0));
    s_timed = nullptr;
}

// No room for a copy: the next change asks for another one.
void CALLBACK CWindowsKeptTexts::TimeIsUp(HWND, UINT, UINT_PTR, DWORD) noexcept
{
    CWindowsKeptTexts* const timed = s_timed;
    if (!timed)
        return;
    timed->StopTimer();
    try {
        timed->m_texts.TimeIsUp();
    } catch (...) {
    }
}

}
