#include "app/windows/window/Peer.h"
#include "platform/windows/Text.h"
#include <algorithm>

namespace appwindows {
namespace {

using platform::windowsdesktop::FromWide;
using platform::windowsdesktop::ToWide;
using ui::layout::Kind;

// The messages of the two native kinds of lists.
struct ListMessages {
    UINT count, textLength, text, add, clear, room;
};
constexpr ListMessages ComboMessages{CB_GETCOUNT,  CB_GETLBTEXTLEN, CB_GETLBTEXT,
                                     CB_ADDSTRING, CB_RESETCONTENT, CB_INITSTORAGE};
constexpr ListMessages BoxMessages{LB_GETCOUNT, LB_GETTEXTLEN, LB_GETTEXT, LB_ADDSTRING, LB_RESETCONTENT, LB_INITSTORAGE};

std::string EntryAt(HWND list, const ListMessages& messages, int index)
{
    const LRESULT length = Send(list, messages.textLength, static_cast<WPARAM>(index));
    if (length <= 0)
        return {};
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    Send(list, messages.text, static_cast<WPARAM>(index), ToParam(text.data()));
    text.resize(static_cast<std::size_t>(length));
    return FromWide(text);
}

// Brings a native list up to date: entries are mostly added at the end, and a list of hundreds is not built anew for each.
// Returns whether it was emptied on the way.
bool MirrorEntries(HWND list, const ListMessages& messages, const ui::CListControl& control)
{
    int count = Send<int>(list, messages.count), same = 0;
    while (same < count && same < control.Count() && EntryAt(list, messages, same) == control.Item(same))
        ++same;
    const bool emptied = same < count;
    if (emptied) {
        Send(list, messages.clear);
        same = 0;
    }
    if (same == control.Count())
        return emptied;
    Send(list, WM_SETREDRAW, FALSE);
    Send(list, messages.room, static_cast<WPARAM>(control.Count() - same), 64 * (control.Count() - same));
    for (int index = same; index < control.Count(); ++index)
        Send(list, messages.add, 0, ToParam(ToWide(control.Item(index)).c_str()));
    Send(list, WM_SETREDRAW, TRUE);
    InvalidateRect(list, nullptr, TRUE);
    return emptied;
}

class CComboPeer final : public CPeerOf<ui::CComboBox> {
public:
    CComboPeer(const Place& place, ui::CControl& control, const ui::layout::Row& row, HWND native)
        : CPeerOf(place, control, row, native)
    {
        COMBOBOXINFO parts = {};
        parts.cbSize = sizeof parts;
        if (row.kind == Kind::EditableCombo && GetComboBoxInfo(native, &parts) && parts.hwndItem) {
            m_edit = parts.hwndItem;
            FilterPart(m_edit);
        }
    }
    void Commanded(int code, int) override
    {
        if (code == CBN_SELCHANGE)
            Report([&] { m_control.SetIndex(Send<int>(Native(), CB_GETCURSEL)); });
        else if (code == CBN_EDITCHANGE)
            Report([&] { m_control.SetText(TextOf(Native())); });
    }
    bool Pressed(WPARAM key) override
    {
        if ((key != VK_RETURN && key != VK_ESCAPE) || !Send(Native(), CB_GETDROPPEDSTATE))
            return false;
        Send(Native(), WM_KEYDOWN, key);
        if (Send(Native(), CB_GETDROPPEDSTATE))
            Send(Native(), CB_SHOWDROPDOWN, FALSE);
        return true;
    }
    void MoveTo(const Rectangle& place) override;

private:
    void MirrorOwn() override
    {
        const bool emptied = MirrorEntries(Native(), ComboMessages, m_control);
        if (m_edit)
            MirrorText(emptied);
        else if (Send<int>(Native(), CB_GETCURSEL) != m_control.Index())
            Send(Native(), CB_SETCURSEL, static_cast<WPARAM>(m_control.Index()));
    }
    // What the user just typed is left alone, for choosing its entry would move the caret.
    void MirrorText(bool emptied)
    {
        if (TextOf(Native()) == m_control.Text() && !emptied)
            return;
        if (Send<int>(Native(), CB_GETCURSEL) != m_control.Index())
            Send(Native(), CB_SETCURSEL, static_cast<WPARAM>(m_control.Index()));
        SetTextOf(Native(), m_control.Text());
        if (!HasFocus())
            Send(Native(), CB_SETEDITSEL, 0, 0);
    }
    // A wheel that only passes over the box scrolls the page instead of choosing an entry.
    std::optional<LRESULT> Filter(HWND, const Message& message) override
    {
        if (message.code == WM_MOUSEWHEEL && !HasFocus())
            return Send(GetParent(Native()), message.code, message.w, message.l);
        return std::nullopt;
    }
    HWND m_edit = nullptr;
};

// The native box chooses its own height; the height that it is given counts the list that drops down.
void CComboPeer::MoveTo(const Rectangle& place)
{
    constexpr int RowsShown = 12;
    const Rectangle now = PlaceOf(Native());
    const int y = place.y + (place.height - now.height) / 2;
    if (now.x == place.x && now.y == y && now.width == place.width)
        return;
    appwindows::MoveTo(Native(), {place.x, y, place.width, now.height + Send<int>(Native(), CB_GETITEMHEIGHT) * RowsShown});
    if (m_edit && !HasFocus())  // The native box marks its text when it grows.
        Send(Native(), CB_SETEDITSEL, 0, MAKELPARAM(-1, 0));
}

class CListPeer final : public CPeerOf<ui::CListBox> {
public:
    using CPeerOf::CPeerOf;
    void Commanded(int code, int) override
    {
        if (code == LBN_SELCHANGE)
            m_control.SetIndex(Send<int>(Native(), LB_GETCURSEL));
        else if (code == LBN_DBLCLK)
            m_control.DoubleClick();
    }

private:
    void MirrorOwn() override
    {
        MirrorEntries(Native(), BoxMessages, m_control);
        if (Send<int>(Native(), LB_GETCURSEL) != m_control.Index())
            Send(Native(), LB_SETCURSEL, static_cast<WPARAM>(m_control.Index()));
    }
};

HWND MakeCombo(const Place& place, DWORD kind)
{
    return MakeChild(place.parent, WC_COMBOBOXW, kind | CBS_AUTOHSCROLL | WS_VSCROLL | WS_TABSTOP, place.id);
}

}

std::unique_ptr<CPeer> MakeListPeer(const Place& place, ui::CControl& control, const ui::layout::Row& row)
{
    switch (row.kind) {
    case Kind::EditableCombo:
        return std::make_unique<CComboPeer>(place, control, row, MakeCombo(place, CBS_DROPDOWN));
    case Kind::DropDownList:
        return std::make_unique<CComboPeer>(place, control, row, MakeCombo(place, CBS_DROPDOWNLIST));
    case Kind::ListBox:
        return std::make_unique<CListPeer>(place, control, row,
                                           MakeChild(place.parent, WC_LISTBOXW,
                                                     LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_TABSTOP, place.id,
                                                     WS_EX_CLIENTEDGE));
    default:
        return nullptr;
    }
}

}
