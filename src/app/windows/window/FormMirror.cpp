#include "app/windows/window/FormMirror.h"
#include "app/windows/ControlIds.h"
#include "platform/windows/Text.h"
#include <algorithm>
#include <stdexcept>

namespace appwindows {
namespace {

using ui::layout::Kind;

bool IsText(Kind kind) { return kind == Kind::TextBox || kind == Kind::TextArea || kind == Kind::Editor; }

// The system has its own name for these, or takes their text for it.
bool HasOwnName(Kind kind)
{
    return kind == Kind::Frame || kind == Kind::Picture || kind == Kind::StatusBar || kind == Kind::TabStrip;
}

}

CFormMirror::CFormMirror(ui::CForm& form, const ui::layout::FormLayout& layout, HWND surface, int dpi)
    : m_form(form), m_layout(layout), m_surface(surface), m_dpi(dpi), m_font(DialogFont(dpi)),
      m_units(UnitsThatFit(m_font.get(), dpi, form, layout)), m_peers(layout.rows.count)
{
    m_toolTips = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, 0, 0, 0,
                                 0, surface, nullptr, ProgramInstance(), nullptr);
    Build({});
    FollowFocus();
}

CFormMirror::~CFormMirror()
{
    m_closing = true;
    for (const auto& peer : m_peers)
        if (peer)
            peer->Subject().SetPeer({});
    if (m_toolTips)
        DestroyWindow(m_toolTips);
    m_peers.clear();
    m_pages.clear();
}

void CFormMirror::Build(const Holder& root)
{
    int id = FirstControlId;
    for (const Row& row : m_layout.rows) {
        if (SameHolder(RootOf(row), root))
            BuildControl(row, id);
        ++id;
    }
    for (const auto& peer : m_peers)
        if (peer && peer->Look().kind == Kind::TabStrip && SameHolder(RootOf(peer->Look()), root))
            ShowPages(*peer);
    if (root.control.empty())
        ArrangeSurface();
}

void CFormMirror::BuildControl(const Row& row, int id)
{
    HWND holder = WindowOfHolder(HomeOf(row).holder);
    AddSpokenLabel(row, holder);
    auto& peer = m_peers[static_cast<std::size_t>(id - FirstControlId)];
    peer = MakePeer({*this, holder, id}, ControlOf(row), row);
    peer->Dress(m_font.get(), m_dpi);
    Mirror(*peer);
    peer->Subject().SetPeer([this, made = peer.get()] { Schedule(*made); });
}

// A screen reader takes the text before a control for its name, also one that nobody else needs to see.
void CFormMirror::AddSpokenLabel(const Row& row, HWND holder) const
{
    if (row.spoken.empty() || HasOwnName(row.kind) || !ControlOf(row).Caption().empty())
        return;
    SetTextOf(MakeChild(holder, WC_STATICW, SS_NOPREFIX, -1), std::string(row.spoken));
}

void CFormMirror::Mirror(CPeer& peer)
{
    const bool unseen = peer.Look().kind == Kind::Frame && peer.Subject().Caption().empty();
    peer.wasEnabled = IsEnabled(peer);
    peer.wasVisible = IsVisible(peer);
    peer.Mirror(peer.wasEnabled, peer.wasVisible && !unseen);
    MirrorToolTip(peer);
}

void CFormMirror::MirrorToolTip(const CPeer& peer)
{
    std::wstring text = platform::windowsdesktop::ToWide(peer.Subject().ToolTip());
    TOOLINFOW tool = {};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = m_surface;
    tool.uId = reinterpret_cast<UINT_PTR>(peer.Native());
    tool.lpszText = text.data();
    if (text.empty())
        Send(m_toolTips, TTM_DELTOOLW, 0, ToParam(&tool));
    else if (!Send(m_toolTips, TTM_ADDTOOLW, 0, ToParam(&tool)))
        Send(m_toolTips, TTM_UPDATETIPTEXTW, 0, ToParam(&tool));
}

void CFormMirror::MirrorNow()
{
    m_turnDue = false;
    for (const auto& peer : m_peers)
        if (peer && peer->changed && (IsEnabled(*peer) != peer->wasEnabled || IsVisible(*peer) != peer->wasVisible))
            MarkHeld(*peer);
    bool placesChanged = false;
    for (std::size_t at = 0; at < m_peers.size(); ++at) {  // Showing a page adds peers.
        CPeer* peer = m_peers[at].get();
        if (!peer || !std::exchange(peer->changed, false))
            continue;
        Mirror(*peer);
        if (peer->Look().kind == Kind::TabStrip)
            ShowPages(*peer);
        placesChanged = placesChanged || peer->Look().kind == Kind::ProgressBar;
    }
    if (placesChanged)  // Something may have come or gone that another control makes room for.
        for (const Placed& placed : m_pages)
            Arrange(placed.holder, placed.page->Area(), placed.page->Offset());
    if (std::exchange(m_focusDue, false))
        TakeFocus();
    LeaveLostControl();
}

// What a frame holds is disabled and invisible with it.
void CFormMirror::MarkHeld(const CPeer& holder)
{
    for (const auto& peer : m_peers) {
        const CPeer* above = peer ? PeerAbove(*peer) : nullptr;
        if (above == &holder && !peer->changed) {
            peer->changed = true;
            MarkHeld(*peer);
        }
    }
}

void CFormMirror::Schedule(CPeer& peer)
{
    peer.changed = true;
    ScheduleTurn();
}

void CFormMirror::ScheduleTurn()
{
    if (!std::exchange(m_turnDue, true))
        PostMessageW(m_surface, TurnMessage, 0, 0);
}

std::optional<LRESULT> CFormMirror::Handle(HWND holder, const Message& message)
{
    if (m_closing)
        return std::nullopt;
    CPeer* peer = nullptr;
    const auto toldBy = [&](HWND window) { return window && (peer = PeerAround(window)) && peer->Native() == window; };
    switch (message.code) {
    case TurnMessage:
        MirrorNow();
        return 0;
    case EnteredMessage:
        if (CPeer* entered = m_peers.at(message.w - FirstControlId).get())
            entered->Entered();
        return 0;
    case WM_COMMAND:
        if (!toldBy(reinterpret_cast<HWND>(message.l)))
            return std::nullopt;
        peer->Commanded(HIWORD(message.w), LOWORD(message.w));
        return 0;
    case WM_NOTIFY: {
        const auto& header = *reinterpret_cast<const NMHDR*>(message.l);
        return toldBy(header.hwndFrom) ? std::optional(peer->Notified(header)) : std::nullopt;
    }
    case WM_HSCROLL:
        if (!toldBy(reinterpret_cast<HWND>(message.l)))
            return std::nullopt;
        peer->Scrolled();
        return 0;
    case WM_DRAWITEM: {
        const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(message.l);
        if (!toldBy(item.hwndItem))
            return std::nullopt;
        peer->Drawn(item);
        return TRUE;
    }
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
        return Color(holder, reinterpret_cast<HDC>(message.w), reinterpret_cast<HWND>(message.l));
    default:
        return std::nullopt;
    }
}

std::optional<LRESULT> CFormMirror::Color(HWND holder, HDC dc, HWND control)
{
    const CPeer* peer = PeerAround(control);
    if (peer && IsText(peer->Look().kind))
        return std::nullopt;
    const int own = peer ? peer->GroundColor() : CPeer::NoColor;
    const int color = own == CPeer::NoColor ? COLOR_3DFACE : own;
    CPage* page = own == CPeer::NoColor ? PageAround(holder) : nullptr;
    SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
    SetBkColor(dc, GetSysColor(color));
    SetBkMode(dc, TRANSPARENT);
    HBRUSH ground = page ? page->Ground(dc, control) : GetSysColorBrush(color);
    return reinterpret_cast<LRESULT>(ground);
}

ui::CControl& CFormMirror::ControlOf(const Row& row) const
{
    for (ui::CControl* control : m_form.Controls())
        if (control->Name() == row.control)
            return *control;
    throw std::logic_error("The form has no control " + std::string(row.control));
}

CPeer* CFormMirror::PeerOf(std::string_view control) const
{
    const auto found = std::find_if(m_peers.begin(), m_peers.end(),
                                    [&](const auto& peer) { return peer && peer->Subject().Name() == control; });
    return found == m_peers.end() ? nullptr : found->get();
}

HWND CFormMirror::WindowOf(std::string_view control) const
{
    const CPeer* peer = PeerOf(control);
    return peer ? peer->Native() : nullptr;
}

CPeer* CFormMirror::PeerAround(HWND window) const
{
    for (; window && window != m_surface; window = GetParent(window)) {
        const auto index = static_cast<std::size_t>(GetDlgCtrlID(window) - FirstControlId);
        if (index < m_peers.size() && m_peers[index] && m_peers[index]->Native() == window)
            return m_peers[index].get();
    }
    return nullptr;
}

CPeer* CFormMirror::PeerAbove(const CPeer& peer) const
{
    return peer.Look().holder.control.empty() ? nullptr : PeerOf(peer.Look().holder.control);
}

bool CFormMirror::IsEnabled(const CPeer& peer) const
{
    const CPeer* above = PeerAbove(peer);
    return peer.Subject().Enabled() && (!above || IsEnabled(*above));
}

bool CFormMirror::IsVisible(const CPeer& peer) const
{
    const CPeer* above = PeerAbove(peer);
    return peer.Subject().Visible() && (!above || IsVisible(*above));
}

}
