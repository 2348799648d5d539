#pragma once
#include "app/windows/window/Look.h"
#include "app/windows/window/Window.h"
#include <functional>
#include <optional>

namespace appwindows {

// A page of a tab strip: what lies behind its controls. Where it has less room than they need it can be scrolled.
class CPage final : public CWindow {
public:
    struct Procedures {
        std::function<std::optional<LRESULT>(HWND page, const Message&)> handle;  // What its controls tell.
        std::function<void(CPage& page)> arrange;                                 // Its room or its scrolling has changed.
    };
    CPage(HWND parent, Procedures procedures);

    void SetLeast(SIZE least);                 // The room that its controls need.
    SIZE Area() const;                         // The room that they get.
    POINT Offset() const { return m_offset; }  // How far it is scrolled.
    void Reveal(HWND control);                 // Scrolls until the control is to be seen.
    void ChangeTheme();
    // What a control fills its ground with, so that the page shines through.
    HBRUSH Ground(HDC dc, HWND control);

protected:
    LRESULT Handle(const Message& message) override;

private:
    void Fit();
    void SetBar(int bar, int inside, int area, LONG& offset);
    void Scroll(int bar, int request);
    void ScrollTo(POINT offset);
    void DrawGround(HDC dc) const;
    void PrepareGround();

    Procedures m_procedures;
    SIZE m_least = {};
    POINT m_offset = {};
    bool m_fitting = false;
    Gdi<HBITMAP> m_bitmap;
    Gdi<HBRUSH> m_ground;
};

}
