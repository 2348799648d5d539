#include "app/windows/window/FormMirror.h"
#include <algorithm>

// Where the native controls are, and what holds them.
namespace appwindows {
namespace {

using ui::layout::Growth;
using ui::layout::Kind;

Rectangle Grown(Rectangle place, const ui::layout::Row& row, SIZE gained)
{
    if (row.movesDown)
        place.y += static_cast<int>(gained.cy);
    if (row.growth == Growth::Wide || row.growth == Growth::Both)
        place.width += static_cast<int>(gained.cx);
    if (row.growth == Growth::Tall || row.growth == Growth::Both)
        place.height += static_cast<int>(gained.cy);
    return place;
}

void SetTabHeight(HWND strip, int height)
{
    RECT tab = {};
    Send(strip, TCM_GETITEMRECT, 0, ToParam(&tab));
    if (tab.bottom - tab.top != height)
        Send(strip, TCM_SETITEMSIZE, 0, MAKELPARAM(0, height));
}

}

// A page of a tab strip on the form, or the form.
CFormMirror::Holder CFormMirror::RootOf(const Row& row) const
{
    Holder root = row.holder;
    while (!root.control.empty()) {
        const Row* above = FindRow(m_layout, root.control);
        if (!above || above->holder.control.empty())
            break;
        root = above->holder;
    }
    return root;
}

CFormMirror::Home CFormMirror::HomeOf(const Row& row) const
{
    Home home{row.holder};
    for (const Row* above = FindRow(m_layout, home.holder.control); above && above->kind == Kind::Frame;
         above = FindRow(m_layout, home.holder.control))
        home = {above->holder, home.x + above->place.x, home.y + above->place.y};
    return home;
}

HWND CFormMirror::WindowOfHolder(const Holder& holder)
{
    if (holder.control.empty())
        return m_surface;
    const CPage* page = PageOf(holder);
    return page ? page->Native() : MakePage(holder).Native();
}

CPage* CFormMirror::PageOf(const Holder& holder) const
{
    const auto found = std::find_if(m_pages.begin(), m_pages.end(),
                                    [&](const Placed& placed) { return SameHolder(placed.holder, holder); });
    return found == m_pages.end() ? nullptr : found->page.get();
}

// The innermost page that holds a window or is it.
CPage* CFormMirror::PageAround(HWND window) const
{
    for (; window && window != m_surface; window = GetParent(window))
        for (const Placed& placed : m_pages)
            if (placed.page->Native() == window)
                return placed.page.get();
    return nullptr;
}

CPage& CFormMirror::MakePage(const Holder& holder)
{
    HWND strip = WindowOf(holder.control);
    CPage::Procedures procedures;
    procedures.handle = [this](HWND page, const Message& message) { return Handle(page, message); };
    procedures.arrange = [this, holder](CPage& page) {
        if (!m_closing)
            Arrange(holder, page.Area(), page.Offset());
    };
    m_pages.push_back({holder, std::make_unique<CPage>(GetParent(strip), std::move(procedures))});
    CPage& page = *m_pages.back().page;
    SetWindowPos(page.Native(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);  // Before the strip.
    page.SetLeast(LeastSizeOf(holder));
    return page;
}

// A page whose controls give way needs half of its room.
SIZE CFormMirror::LeastSizeOf(const Holder& page) const
{
    const Rectangle inside = ui::layout::InsideOf(m_layout, page);
    constexpr LONG Rounding = 2;  // Edges are rounded one by one.
    SIZE size = m_units.ToPixels(inside.width, inside.height);
    size = {size.cx - Rounding, size.cy - Rounding};
    const bool givesWay = std::any_of(m_layout.rows.begin(), m_layout.rows.end(), [&](const Row& row) {
        return SameHolder(row.holder, page) && row.growth == Growth::Both;
    });
    return givesWay ? SIZE{size.cx / 2, size.cy / 2} : size;
}

// Makes the selected page of a strip on the form, if need be, and shows it.
void CFormMirror::ShowPages(const CPeer& strip)
{
    const Holder selected{strip.Look().control, dynamic_cast<const ui::CTabStrip&>(strip.Subject()).Selected()};
    if (strip.Look().holder.control.empty() && !PageOf(selected)) {
        MakePage(selected);
        Build(selected);
    }
    PlacePages(strip);
    const bool visible = IsVisible(strip);
    for (const bool shown : {true, false})  // The new one first: nothing flickers.
        for (const Placed& placed : m_pages)
            if (placed.holder.control == strip.Look().control && shown == (visible && placed.holder.page == selected.page))
                ShowWindow(placed.page->Native(), shown ? SW_SHOWNA : SW_HIDE);
}

// A page has exactly the room that the table gives it; the tabs are made as high as the table wants them.
void CFormMirror::PlacePages(const CPeer& strip)
{
    const Rectangle inside = ui::layout::InsideOf(m_layout, {strip.Look().control, 0});
    const SIZE natural = m_units.ToPixels(inside.width, inside.height);
    const SIZE whole = m_units.ToPixels(strip.Look().place.width, strip.Look().place.height);
    const Rectangle place = PlaceOf(strip.Native());
    const int border = static_cast<int>(whole.cx - natural.cx) / 2;
    const int width = place.width - 2 * border, height = place.height - static_cast<int>(whole.cy - natural.cy);
    SetTabHeight(strip.Native(), static_cast<int>(whole.cy - natural.cy) - 2 * border);
    for (const Placed& placed : m_pages)
        if (placed.holder.control == strip.Look().control)
            MoveTo(placed.page->Native(), {place.x + border, place.Bottom() - border - height, width, height});
}

void CFormMirror::ArrangeSurface() { Arrange({}, InsideOf(m_surface), {0, 0}); }

void CFormMirror::Arrange(const Holder& holder, SIZE area, POINT offset)
{
    const Rectangle inside = ui::layout::InsideOf(m_layout, holder);
    const SIZE natural = m_units.ToPixels(inside.width, inside.height);
    const SIZE gained = {area.cx - natural.cx, area.cy - natural.cy};
    for (const auto& peer : m_peers) {
        if (!peer)
            continue;
        const Home home = HomeOf(peer->Look());
        if (!SameHolder(home.holder, holder))
            continue;
        Rectangle place = PlaceNow(peer->Look());
        place.x += home.x;
        place.y += home.y;
        place = Grown(m_units.ToPixels(place), peer->Look(), gained);
        place.x -= static_cast<int>(offset.x);
        place.y -= static_cast<int>(offset.y);
        peer->MoveTo(place);
        if (peer->Look().kind == Kind::TabStrip)
            PlacePages(*peer);
    }
}

Rectangle CFormMirror::PlaceNow(const Row& row) const
{
    const CPeer* below = row.covers.empty() ? nullptr : PeerOf(row.covers);
    Rectangle place = row.place;
    if (below && !below->Subject().Visible())
        place.height = below->Look().place.Bottom() - place.y;
    return place;
}

void CFormMirror::Dress(int dpi)
{
    m_dpi = dpi;
    const Gdi<HFONT> former = std::exchange(m_font, DialogFont(dpi));  // Stays until nobody uses it any more.
    m_units = UnitsThatFit(m_font.get(), dpi, m_form, m_layout);
    for (const auto& peer : m_peers)
        if (peer) {
            peer->Dress(m_font.get(), dpi);
            Mirror(*peer);
        }
    ArrangeSurface();
    for (const Placed& placed : m_pages) {
        placed.page->SetLeast(LeastSizeOf(placed.holder));
        placed.page->ChangeTheme();
    }
    InvalidateRect(m_surface, nullptr, TRUE);
}

SIZE CFormMirror::NaturalSize() const { return m_units.ToPixels(m_layout.width, m_layout.height); }

}
