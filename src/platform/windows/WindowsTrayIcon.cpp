#include "platform/windows/WindowsTrayIcon.h"
#include "platform/windows/Text.h"
#include <algorithm>

namespace platform::windowsdesktop {
namespace {
constexpr UINT IconNumber = 1;
constexpr std::size_t TipSize = 64;  // Of the first form of the record; later ones have more room.

// A text of fixed width: the tip, a NUL, and blanks.
void FillTip(char* field, const std::string& tip)
{
    const std::string text = ToAnsi(tip).substr(0, TipSize - 1);
    std::fill_n(field, TipSize, ' ');
    *std::copy(text.begin(), text.end(), field) = '\0';
}
}

CWindowsTrayIcon::CWindowsTrayIcon() : m_shellHasStarted(RegisterWindowMessageW(L"TaskbarCreated")) {}

void CWindowsTrayIcon::UseOwner(HWND owner, HICON icon)
{
    m_record.hWnd = owner;
    m_record.hIcon = icon;
}

// Its messages come as mouse moves, which an unseen window gets from nowhere else.
void CWindowsTrayIcon::Add(const std::string& tip, std::function<void(std::int32_t message)> mouse)
{
    m_mouse = std::move(mouse);
    m_record.cbSize = NOTIFYICONDATAA_V1_SIZE;
    m_record.uID = IconNumber;
    m_record.uFlags = NIF_MESSAGE | NIF_ICON | NIF_TIP;
    m_record.uCallbackMessage = WM_MOUSEMOVE;
    FillTip(m_record.szTip, tip);
    m_added = true;
    Shell_NotifyIconA(NIM_ADD, &m_record);
}

void CWindowsTrayIcon::Delete()
{
    if (m_added)
        Shell_NotifyIconA(NIM_DELETE, &m_record);
    m_added = false;
    m_mouse = nullptr;
}

bool CWindowsTrayIcon::OnMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!m_added)
        return false;
    if (message == m_shellHasStarted) {
        Shell_NotifyIconA(NIM_ADD, &m_record);
        return true;
    }
    if (message != WM_MOUSEMOVE || wParam != IconNumber)
        return false;
    const std::function<void(std::int32_t)> call = m_mouse;  // A copy: the procedure may delete the icon.
    if (call)
        call(static_cast<std::int32_t>(lParam));
    return true;
}

}
