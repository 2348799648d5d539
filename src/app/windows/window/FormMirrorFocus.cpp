#include "app/windows/ControlIds.h"
#include "app/windows/window/FormMirror.h"

// Where the keyboard is.
namespace appwindows {
namespace {

using ui::layout::Kind;

bool TakesKeyboard(HWND window)
{
    return (GetWindowLongPtrW(window, GWL_STYLE) & WS_TABSTOP) && IsWindowVisible(window) && IsWindowEnabled(window);
}

bool IsReachable(HWND window) { return window && IsWindowVisible(window) && IsWindowEnabled(window); }

}

void CFormMirror::FollowFocus()
{
    m_focusDue = true;
    ScheduleTurn();
}

void CFormMirror::TakeFocus()
{
    const ui::CControl* focused = m_form.Focused();
    const CPeer* peer = focused ? PeerOf(focused->Name()) : nullptr;
    if (peer && !Holds(peer->Native(), GetFocus()) && IsReachable(peer->Native()))
        GiveFocus(peer->Native());
    else if (peer)
        m_lastFocus = peer->Native();
}

// While another window is the active one the control waits until ours is again.
void CFormMirror::GiveFocus(HWND window)
{
    m_lastFocus = window;
    if (GetActiveWindow() == m_surface)
        SetFocus(window);
}

void CFormMirror::RestoreFocus()
{
    if (!IsReachable(m_lastFocus)) {
        const CPeer* peer = m_form.Focused() ? PeerOf(m_form.Focused()->Name()) : nullptr;
        if (!peer || !TakesKeyboard(peer->Native()))
            peer = NextStop(nullptr, 1);
        m_lastFocus = peer ? peer->Native() : nullptr;
    }
    if (!m_lastFocus)
        return;
    m_restoring = true;
    SetFocus(m_lastFocus);
    m_restoring = false;
}

// What a page that goes does with the focus counts less than what the program wants.
void CFormMirror::FocusCame(CPeer& peer)
{
    m_lastFocus = peer.Native();
    if (m_closing)
        return;
    if (CPage* page = PageAround(peer.Native()))
        page->Reveal(peer.Native());
    const ui::CControl& control = peer.Subject();
    if (!m_focusDue && !control.HasFocus() && control.Enabled() && control.Visible())
        peer.Subject().SetFocus();
    if (!m_restoring)
        PostMessageW(m_surface, EnteredMessage, static_cast<WPARAM>(GetDlgCtrlID(peer.Native())), 0);
}

// A control that has become invisible or disabled would keep the keyboard, or nobody would have it.
void CFormMirror::LeaveLostControl()
{
    HWND focus = GetFocus();
    const bool isLost = focus ? IsChild(m_surface, focus) && !IsReachable(focus) : GetActiveWindow() == m_surface;
    if (!isLost)
        return;
    if (const CPeer* next = NextStop(PeerAround(focus ? focus : m_lastFocus), 1))
        SetFocus(next->Native());
}

// In the order of the table, round and round. Null when no control takes the keyboard.
CPeer* CFormMirror::NextStop(const CPeer* from, int step) const
{
    const auto count = static_cast<int>(m_peers.size());
    int at = step > 0 ? -1 : count;
    for (int row = 0; from && row < count; ++row)
        if (m_peers[static_cast<std::size_t>(row)].get() == from)
            at = row;
    for (int tries = 0; tries < count; ++tries) {
        at = (at + step + count) % count;
        CPeer* peer = m_peers[static_cast<std::size_t>(at)].get();
        if (peer && TakesKeyboard(peer->Native()))
            return peer;
    }
    return nullptr;
}

void CFormMirror::MoveFocus(int step)
{
    const CPeer* next = NextStop(PeerAround(GetFocus()), step);
    if (!next)
        return;
    SendMessageW(m_surface, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
    SetFocus(next->Native());
    if (next->Look().kind == Kind::TextBox)
        SendMessageW(next->Native(), EM_SETSEL, 0, -1);
}

void CFormMirror::MoveFocusTo(const Message& message)
{
    if (LOWORD(message.l) == 0)
        MoveFocus(message.w != 0 ? -1 : 1);
    else if (IsReachable(reinterpret_cast<HWND>(message.w)))
        SetFocus(reinterpret_cast<HWND>(message.w));
}

// Tab moves on; Return presses what has the focus; Escape closes a list. Only boxes of several lines type a line's end.
bool CFormMirror::TakeNavigation(WPARAM key)
{
    CPeer* peer = PeerAround(GetFocus());
    const bool control = GetKeyState(VK_CONTROL) < 0;
    switch (key) {
    case VK_TAB:
        if (!control)
            MoveFocus(GetKeyState(VK_SHIFT) < 0 ? -1 : 1);
        return !control;
    case VK_RETURN:
        return !peer || peer->Pressed(key) || (peer->Look().kind != Kind::TextArea && peer->Look().kind != Kind::Editor);
    case VK_ESCAPE:
        if (peer)
            peer->Pressed(key);
        return true;
    default:
        return false;
    }
}

bool CFormMirror::TakeKey(MSG& message)
{
    if (message.hwnd != m_surface && !IsChild(m_surface, message.hwnd))
        return false;
    if (message.message == WM_KEYDOWN && TakeNavigation(message.wParam))
        return true;
    const bool keepsKey = message.message == WM_KEYDOWN && (message.wParam == VK_RETURN || message.wParam == VK_TAB);
    return !keepsKey && IsDialogMessageW(m_surface, &message);
}

}
