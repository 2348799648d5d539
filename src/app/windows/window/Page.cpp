#include "app/windows/window/Page.h"
#include "app/windows/ControlIds.h"
#include <algorithm>

namespace appwindows {
namespace {

constexpr int Line = 24;  // Pixels that one step of a scroll bar moves.

}

CPage::CPage(HWND parent, Procedures procedures) : m_procedures(std::move(procedures))
{
    Create({.className = PageClass,
            .title = {},
            .style = WS_CHILD | WS_CLIPSIBLINGS,
            .exStyle = WS_EX_CONTROLPARENT,
            .parent = parent,
            .place = {0, 0, 10, 10}});
}

void CPage::SetLeast(SIZE least)
{
    m_least = least;
    Fit();
}

SIZE CPage::Area() const
{
    const SIZE inside = InsideOf(Native());
    return {std::max(inside.cx, m_least.cx), std::max(inside.cy, m_least.cy)};
}

void CPage::Fit()
{
    if (m_fitting)
        return;
    m_fitting = true;
    const Rectangle place = PlaceOf(Native());
    const int bar = GetSystemMetrics(SM_CXVSCROLL);
    bool across = m_least.cx > place.width;
    const bool down = m_least.cy > place.height - (across ? bar : 0);
    across = m_least.cx > place.width - (down ? bar : 0);
    ShowScrollBar(Native(), SB_VERT, down);
    ShowScrollBar(Native(), SB_HORZ, across);
    const SIZE inside = InsideOf(Native());
    SetBar(SB_VERT, inside.cy, Area().cy, m_offset.y);
    SetBar(SB_HORZ, inside.cx, Area().cx, m_offset.x);
    m_fitting = false;
    m_procedures.arrange(*this);
}

void CPage::SetBar(int bar, int inside, int area, LONG& offset)
{
    offset = std::clamp(offset, 0L, std::max(0L, static_cast<LONG>(area - inside)));
    if (area <= inside)
        return;
    SCROLLINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    info.nMax = area - 1;
    info.nPage = static_cast<UINT>(inside);
    info.nPos = static_cast<int>(offset);
    SetScrollInfo(Native(), bar, &info, TRUE);
}

void CPage::Scroll(int bar, int request)
{
    SCROLLINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    GetScrollInfo(Native(), bar, &info);
    int to = info.nPos;
    switch (request) {
    case SB_LINEUP:
        to -= Line;
        break;
    case SB_LINEDOWN:
        to += Line;
        break;
    case SB_PAGEUP:
        to -= static_cast<int>(info.nPage);
        break;
    case SB_PAGEDOWN:
        to += static_cast<int>(info.nPage);
        break;
    case SB_THUMBTRACK:
        to = info.nTrackPos;
        break;
    default:
        return;
    }
    ScrollTo(bar == SB_VERT ? POINT{m_offset.x, to} : POINT{to, m_offset.y});
}

void CPage::ScrollTo(POINT offset)
{
    m_offset = offset;
    Fit();
    InvalidateRect(Native(), nullptr, TRUE);
}

void CPage::Reveal(HWND control)
{
    const SIZE inside = InsideOf(Native());
    RECT place = {};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, Native(), reinterpret_cast<POINT*>(&place), 2);
    const auto wanted = [](LONG from, LONG to, LONG room) {
        return from < 0 ? from : std::min(from, std::max(0L, to - room));
    };
    const POINT by = {wanted(place.left, place.right, inside.cx), wanted(place.top, place.bottom, inside.cy)};
    if (by.x != 0 || by.y != 0)
        ScrollTo({m_offset.x + by.x, m_offset.y + by.y});
}

void CPage::DrawGround(HDC dc) const
{
    const SIZE inside = InsideOf(Native());
    const RECT all = {0, 0, inside.cx, inside.cy};
    FillRect(dc, &all, GetSysColorBrush(COLOR_3DFACE));
    DrawTabBody(Native(), dc, all);
}

void CPage::ChangeTheme()
{
    m_ground.reset();
    m_bitmap.reset();
    InvalidateRect(Native(), nullptr, TRUE);
}

void CPage::PrepareGround()
{
    const SIZE inside = InsideOf(Native());
    HDC screen = GetDC(nullptr);
    m_bitmap.reset(
        CreateCompatibleBitmap(screen, std::max(1, static_cast<int>(inside.cx)), std::max(1, static_cast<int>(inside.cy))));
    ReleaseDC(nullptr, screen);
    const CMemoryDc dc;
    {
        const CSelected selected(dc.Get(), m_bitmap.get());
        DrawGround(dc.Get());
    }
    m_ground.reset(CreatePatternBrush(m_bitmap.get()));
}

HBRUSH CPage::Ground(HDC dc, HWND control)
{
    if (!IsThemed())
        return GetSysColorBrush(COLOR_3DFACE);
    if (!m_ground)
        PrepareGround();
    POINT place = {0, 0};
    MapWindowPoints(control, Native(), &place, 1);
    SetBrushOrgEx(dc, -static_cast<int>(place.x), -static_cast<int>(place.y), nullptr);
    return m_ground.get();
}

LRESULT CPage::Handle(const Message& message)
{
    switch (message.code) {
    case WM_SIZE:
        m_ground.reset();
        Fit();
        return 0;
    case WM_ERASEBKGND:
    case WM_PRINTCLIENT:
        DrawGround(reinterpret_cast<HDC>(message.w));
        return 1;
    case WM_MOUSEWHEEL:
        ScrollTo({m_offset.x, m_offset.y - MulDiv(GET_WHEEL_DELTA_WPARAM(message.w), 3 * Line, WHEEL_DELTA)});
        return 0;
    case WM_VSCROLL:
    case WM_HSCROLL:
        if (message.l != 0)
            break;
        Scroll(message.code == WM_VSCROLL ? SB_VERT : SB_HORZ, LOWORD(message.w));
        return 0;
    default:
        break;
    }
    if (const auto answer = m_procedures.handle(Native(), message))
        return *answer;
    return Default(message);
}

}
