#include "platform/windows/WindowsScreen.h"
#include "platform/windows/Win32.h"
#include <algorithm>

namespace platform::windowsdesktop {
namespace {
constexpr std::int32_t UnitsPerInch = 1440;
constexpr std::int32_t UsualPixelsPerInch = 96;

std::int32_t PixelsPerInch(int direction)
{
    const HDC screen = GetDC(nullptr);
    const int pixels = GetDeviceCaps(screen, direction);
    ReleaseDC(nullptr, screen);
    return pixels;
}

// Lets the window below the pointer show its own pointer again: it is asked only when the mouse moves.
void AskWindowBelowPointer()
{
    POINT place = {};
    GetCursorPos(&place);
    const HWND window = WindowFromPoint(place);
    if (window == nullptr || GetWindowThreadProcessId(window, nullptr) != GetCurrentThreadId())
        return;
    const LRESULT part = SendMessageW(window, WM_NCHITTEST, 0, MAKELPARAM(place.x, place.y));
    SendMessageW(window, WM_SETCURSOR, reinterpret_cast<WPARAM>(window), MAKELPARAM(part, WM_MOUSEMOVE));
}
}

std::int32_t UnitsAt(std::int32_t pixelsPerInch)
{
    const std::int32_t density = pixelsPerInch > 0 ? pixelsPerInch : UsualPixelsPerInch;
    return std::max(UnitsPerInch / density, 1);
}

std::int32_t CWindowsScreen::WidthInUnits() const { return GetSystemMetrics(SM_CXSCREEN) * UnitsPerPixelX(); }

std::int32_t CWindowsScreen::HeightInUnits() const { return GetSystemMetrics(SM_CYSCREEN) * UnitsPerPixelY(); }

std::int32_t CWindowsScreen::UnitsPerPixelX() const { return UnitsAt(PixelsPerInch(LOGPIXELSX)); }

std::int32_t CWindowsScreen::UnitsPerPixelY() const { return UnitsAt(PixelsPerInch(LOGPIXELSY)); }

void CWindowsScreen::SetPointer(Pointer pointer)
{
    m_pointer = pointer;
    if (!ShowPointer())
        AskWindowBelowPointer();
}

bool CWindowsScreen::ShowPointer() const
{
    if (m_pointer != Pointer::Hourglass)
        return false;
    SetCursor(LoadCursorA(nullptr, IDC_WAIT));
    return true;
}

}
