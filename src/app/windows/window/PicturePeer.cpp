#include "app/windows/window/Peer.h"
#include "app/windows/window/Pictures.h"

namespace appwindows {
namespace {

using ui::layout::Kind;

// One of the program's pictures, as large as fits. One that can be clicked is to the system a button that we draw.
class CPicturePeer final : public CPeerOf<ui::CPicture> {
public:
    CPicturePeer(const Place& place, ui::CControl& control, const ui::layout::Row& row, HWND native)
        : CPeerOf(place, control, row, native), m_clickable(m_control.onClick != nullptr)
    {
        SetTextOf(native, std::string(row.spoken));
    }
    void Commanded(int code, int) override
    {
        if (m_clickable && (code == BN_CLICKED || code == BN_DBLCLK))
            m_control.Click();
    }
    bool Pressed(WPARAM key) override
    {
        const bool mine = m_clickable && key == VK_RETURN;
        if (mine)
            Send(Native(), BM_CLICK);
        return mine;
    }
    void Drawn(const DRAWITEMSTRUCT& item) override
    {
        const auto ground = reinterpret_cast<HBRUSH>(
            SendMessageW(GetParent(Native()), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(item.hDC), ToParam(Native())));
        FillRect(item.hDC, &item.rcItem, ground);
        const SIZE size = InsideOf(Native());
        pictures::Lay(item.hDC, BitmapFor(size), {0, 0, static_cast<int>(size.cx), static_cast<int>(size.cy)});
        if ((item.itemState & ODS_FOCUS) && !(item.itemState & ODS_NOFOCUSRECT))
            DrawFocusRect(item.hDC, &item.rcItem);
    }

private:
    void MirrorOwn() override {}
    HBITMAP BitmapFor(SIZE size)
    {
        const COLORREF ink = GetSysColor(COLOR_BTNTEXT);
        if (!m_bitmap || size.cx != m_size.cx || size.cy != m_size.cy || ink != m_ink)
            m_bitmap = pictures::Draw(Look().picture, size, ink);
        m_size = size;
        m_ink = ink;
        return m_bitmap.get();
    }
    std::optional<LRESULT> Filter(HWND, const Message& message) override
    {
        if (message.code != WM_SETCURSOR || !m_clickable)
            return std::nullopt;
        SetCursor(LoadCursorW(nullptr, MAKEINTRESOURCEW(32649)));  // The hand.
        return TRUE;
    }
    bool m_clickable;
    Gdi<HBITMAP> m_bitmap;
    SIZE m_size = {};
    COLORREF m_ink = 0;
};

HWND MakeNative(const Place& place, bool clickable)
{
    if (clickable)
        return MakeChild(place.parent, WC_BUTTONW, BS_OWNERDRAW | BS_NOTIFY | WS_TABSTOP, place.id);
    return MakeChild(place.parent, WC_STATICW, SS_OWNERDRAW, place.id);
}

}

std::unique_ptr<CPeer> MakePicturePeer(const Place& place, ui::CControl& control, const ui::layout::Row& row)
{
    if (row.kind != Kind::Picture)
        return nullptr;
    const bool clickable = dynamic_cast<ui::CPicture&>(control).onClick != nullptr;
    return std::make_unique<CPicturePeer>(place, control, row, MakeNative(place, clickable));
}

}
