#pragma once
#include "app/windows/window/Window.h"
#include "ui/controls/Controls.h"
#include <memory>
#include <type_traits>

// Fonts, resolutions and themes.
namespace appwindows {

struct DeleteGdi {
    void operator()(HGDIOBJ object) const { DeleteObject(object); }
};
template <class Handle> using Gdi = std::unique_ptr<std::remove_pointer_t<Handle>, DeleteGdi>;

// A drawing surface in memory, for measuring and for preparing pictures.
class CMemoryDc {
public:
    CMemoryDc() : m_dc(CreateCompatibleDC(nullptr)) {}
    ~CMemoryDc() { DeleteDC(m_dc); }
    CMemoryDc(const CMemoryDc&) = delete;
    CMemoryDc& operator=(const CMemoryDc&) = delete;
    HDC Get() const { return m_dc; }

private:
    HDC m_dc;
};

// Puts an object into a drawing surface for its own lifetime.
class CSelected {
public:
    CSelected(HDC dc, HGDIOBJ object) : m_dc(dc), m_former(SelectObject(dc, object)) {}
    ~CSelected() { SelectObject(m_dc, m_former); }
    CSelected(const CSelected&) = delete;
    CSelected& operator=(const CSelected&) = delete;

private:
    HDC m_dc;
    HGDIOBJ m_former;
};

inline constexpr int UsualDpi = 96;

int DpiOf(HWND window);  // Of its screen where the system tells them apart.
inline int Scaled(int pixels, int dpi) { return MulDiv(pixels, dpi, UsualDpi); }
// The size of one of the system's parts (SM_...) at a resolution.
int SystemSize(int metric, int dpi);
// What a window with this style takes around its inside; it has a menu.
RECT FrameAround(HWND window, int dpi);

Gdi<HFONT> DialogFont(int dpi);  // The font of the system's own messages.
Gdi<HFONT> FontOf(const ui::TextStyle& style, int dpi);

SIZE ExtentOf(HDC dc, const std::string& text);

// Whether the controls are drawn by a theme; they are not in high contrast.
bool IsThemed();
// Draws what a tab strip has behind its pages. False when there is no theme.
bool DrawTabBody(HWND window, HDC dc, const RECT& place);
bool HighContrast();
// Draws the border of a window with a sunken edge as thin as that of the boxes that a theme draws.
void DrawThinBorder(HWND window);

}
