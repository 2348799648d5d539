#include "app/windows/window/MainWindowPeer.h"
#include "app/windows/ControlIds.h"
#include "app/windows/MenuPeer.h"
#include "app/windows/window/BareSurface.h"
#include "app/windows/window/Pictures.h"
#include <algorithm>

namespace appwindows {
namespace {

constexpr UINT MinimizeMessage = WM_APP + 10;
constexpr UINT DpiChangedMessage = 0x02E0;  // Of later systems.
constexpr UINT_PTR AnnouncementTimer = 1;
constexpr WPARAM SystemCommandBits = 0xFFF0;  // The system uses the others itself.

RECT WorkArea(HWND window)
{
    MONITORINFO monitor = {};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor.rcWork;
}

// Moves a place into another as far as it fits.
Rectangle MovedInto(const RECT& area, Rectangle place)
{
    const auto moved = [](int at, int size, LONG from, LONG to) {
        return std::max(static_cast<int>(from), std::min(at, static_cast<int>(to) - size));
    };
    place.x = moved(place.x, place.width, area.left, area.right);
    place.y = moved(place.y, place.height, area.top, area.bottom);
    return place;
}

}

CMainWindowPeer::CMainWindowPeer(frmParlune& form, Procedures procedures) : m_form(form), m_procedures(std::move(procedures))
{
    Create({.className = MainWindowClass,
            .title = {},
            .style = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
            .exStyle = WS_EX_CONTROLPARENT});
    m_dpi = DpiOf(Native());
    ShowIcons();
    WireForm();
    Mirror();
    MirrorTimer();
}

CMainWindowPeer::~CMainWindowPeer()
{
    m_form.tmrTimer.SetPeer({});
    m_form.SetPeer({});
    m_inside.reset();
    for (HICON icon : m_icons)
        if (icon)
            DestroyIcon(icon);
}

void CMainWindowPeer::WireForm()
{
    ui::CForm::Peer peer;
    peer.changed = [this] { Mirror(); };
    peer.bringToFront = [this] { BringToFront(); };
    peer.activate = [this] { BringToFront(); };
    peer.popUpMenu = [this](ui::CMenuItem& menu) { PopUpMenu(Native(), m_form, menu); };
    peer.postEmptyMessage = [this] { PostMessageA(Native(), WM_NULL, 0, 0); };
    peer.unloaded = m_procedures.unloaded;
    peer.focusMoved = [this] {
        if (m_inside)
            m_inside->FollowFocus();
    };
    m_form.SetPeer(std::move(peer));
    m_form.tmrTimer.SetPeer([this] { MirrorTimer(); });
}

void CMainWindowPeer::Mirror()
{
    const bool former = std::exchange(m_mirroring, true);
    SetTextOf(Native(), m_form.Caption());
    if (!m_form.Loaded() || !m_form.Visible())
        ShowWindow(Native(), SW_HIDE);
    else if (m_form.State() == ui::WindowState::Minimized)
        PostMessageW(Native(), MinimizeMessage, 0, 0);  // Mostly it is hidden before that, and nothing flickers.
    else
        MirrorVisible();
    m_mirroring = former;
}

void CMainWindowPeer::MirrorVisible()
{
    BuildInside();
    const bool maximized = m_form.State() == ui::WindowState::Maximized;
    if (!IsWindowVisible(Native()) || IsIconic(Native()) || (IsZoomed(Native()) != FALSE) != maximized)
        ShowWindow(Native(), maximized ? SW_SHOWMAXIMIZED : SW_SHOWNORMAL);
}

void CMainWindowPeer::MirrorTimer()
{
    const ui::CTimer& timer = m_form.tmrTimer;
    if (timer.Enabled())
        SetTimer(Native(), AnnouncementTimer, static_cast<UINT>(timer.Interval()), nullptr);
    else
        KillTimer(Native(), AnnouncementTimer);
}

void CMainWindowPeer::BuildInside()
{
    if (m_inside)
        return;
    SetMenu(Native(), MakeMenuBar(m_form, {&m_form.mnuFile, &m_form.mnuDownload, &m_form.frmHelp}));
    m_inside = std::make_unique<CFormMirror>(m_form, ui::layout::MainWindowLayout(), Native(), m_dpi);
    FitScreen();
}

// From everywhere; only in the editor Ctrl+Tab types a tab.
bool CMainWindowPeer::TurnPage(const MSG& message)
{
    if (message.message != WM_KEYDOWN || GetKeyState(VK_CONTROL) >= 0 || GetKeyState(VK_MENU) < 0)
        return false;
    const bool tab = message.wParam == VK_TAB, back = message.wParam == VK_PRIOR || (tab && GetKeyState(VK_SHIFT) < 0);
    if (!tab && message.wParam != VK_PRIOR && message.wParam != VK_NEXT)
        return false;
    const CPeer* focus = m_inside->PeerAround(GetFocus());
    if (tab && !back && focus && focus->TypesTabs())
        return false;
    const auto pages = static_cast<std::int32_t>(m_form.tabMain.Tabs().size());
    m_form.tabMain.Select((m_form.tabMain.Selected() + (back ? -1 : 1) + pages) % pages);
    return true;
}

bool CMainWindowPeer::TakeKey(MSG& message)
{
    if (!m_inside || message.message < WM_KEYFIRST || message.message > WM_KEYLAST)
        return false;
    if (message.hwnd != Native() && !IsChild(Native(), message.hwnd))
        return false;
    return TurnPage(message) || m_inside->TakeKey(message);
}

// As large as its inside wants it, if the screen has the room.
void CMainWindowPeer::FitScreen()
{
    RECT now = {};
    GetWindowRect(Native(), &now);
    const SIZE size = SmallestSize();
    MoveTo(Native(), MovedInto(WorkArea(Native()), {static_cast<int>(now.left), static_cast<int>(now.top),
                                                    static_cast<int>(size.cx), static_cast<int>(size.cy)}));
}

SIZE CMainWindowPeer::SmallestSize() const
{
    const SIZE inside = m_inside->NaturalSize();
    const RECT frame = FrameAround(Native(), m_dpi), area = WorkArea(Native());
    return {std::min(inside.cx + frame.right - frame.left, area.right - area.left),
            std::min(inside.cy + frame.bottom - frame.top, area.bottom - area.top)};
}

void CMainWindowPeer::KeepSmallest(MINMAXINFO& limits) const
{
    const SIZE smallest = SmallestSize();
    limits.ptMinTrackSize = {smallest.cx, smallest.cy};
}

void CMainWindowPeer::TellState(WPARAM sizeKind)
{
    if (m_inside && sizeKind != SIZE_MINIMIZED)
        m_inside->ArrangeSurface();
    if (m_mirroring || !m_form.Loaded() || sizeKind > SIZE_MAXIMIZED)
        return;
    m_form.SetState(sizeKind == SIZE_MINIMIZED   ? ui::WindowState::Minimized
                    : sizeKind == SIZE_MAXIMIZED ? ui::WindowState::Maximized
                                                 : ui::WindowState::Normal);
}

// A control that does not want a move hands it on to here.
void CMainWindowPeer::TellMouse(const Message& message)
{
    const POINT place = {GET_X_LPARAM(message.l), GET_Y_LPARAM(message.l)};
    HWND under = ChildWindowFromPointEx(Native(), place, CWP_SKIPINVISIBLE);
    if (!under || under == Native())
        TellMouseMove(m_form, message.w, place);
}

void CMainWindowPeer::ChangeResolution(int dpi, const RECT& place)
{
    m_dpi = dpi;
    ShowIcons();
    if (m_inside)
        m_inside->Dress(dpi);
    MoveTo(Native(), {static_cast<int>(place.left), static_cast<int>(place.top), static_cast<int>(place.right - place.left),
                      static_cast<int>(place.bottom - place.top)});
    if (m_inside)
        m_inside->ArrangeSurface();
}

// Fonts and colours; the native controls are told by us, for the system tells only the window.
void CMainWindowPeer::ChangeLook(const Message& message)
{
    if (!m_inside)
        return;
    EnumChildWindows(
        Native(),
        [](HWND child, LPARAM code) CALLBACK -> BOOL {
            SendMessageW(child, static_cast<UINT>(code), 0, 0);
            return TRUE;
        },
        message.code == WM_SETTINGCHANGE ? LPARAM{WM_NULL} : static_cast<LPARAM>(message.code));
    m_inside->Dress(m_dpi);
}

void CMainWindowPeer::ShowIcons()
{
    const WPARAM kinds[] = {ICON_BIG, ICON_SMALL};
    const int sizes[] = {SystemSize(SM_CXICON, m_dpi), SystemSize(SM_CXSMICON, m_dpi)};
    for (int kind = 0; kind < 2; ++kind) {
        HICON former = std::exchange(m_icons[kind], pictures::ProgramIcon(sizes[kind]));
        Send(Native(), WM_SETICON, kinds[kind], ToParam(m_icons[kind]));
        if (former)
            DestroyIcon(former);
    }
}

void CMainWindowPeer::BringToFront() const
{
    if (IsWindowVisible(Native()))
        BringWindowToTop(Native());
    SetForegroundWindow(Native());
}

LRESULT CMainWindowPeer::Handle(const Message& message)
{
    if (const auto answer = HandleAsWindow(message))
        return *answer;
    if (const auto answer = m_inside ? HandleInside(message) : std::nullopt)
        return *answer;
    return Default(message);
}

std::optional<LRESULT> CMainWindowPeer::HandleAsWindow(const Message& message)
{
    switch (message.code) {
    case WM_SYSCOMMAND:
        if ((message.w & SystemCommandBits) != SC_CLOSE)
            return std::nullopt;
        m_form.Unload(ui::UnloadMode::ControlMenu);
        return 0;
    case WM_CLOSE:  // Sent by another program, for the user's own is a system command.
        m_form.Unload(ui::UnloadMode::OtherProgram);
        return 0;
    case WM_ENDSESSION:
        if (message.w)
            m_procedures.sessionEnds();
        return 0;
    case WM_SIZE:
        TellState(message.w);
        return 0;
    case MinimizeMessage:
        if (m_form.Visible() && m_form.State() == ui::WindowState::Minimized)
            ShowWindow(Native(), SW_SHOWMINIMIZED);
        return 0;
    case WM_TIMER:
        m_form.tmrTimer.Tick();
        return 0;
    case WM_MOUSEMOVE:
        TellMouse(message);
        return 0;
    case WM_SETCURSOR:
        if (!m_procedures.isBusy())
            return std::nullopt;
        SetCursor(LoadCursorW(nullptr, MAKEINTRESOURCEW(32514)));  // The hourglass.
        return TRUE;
    case WM_INITMENUPOPUP:
        RefreshOpening(reinterpret_cast<HMENU>(message.w), m_form);
        return 0;
    case WM_COMMAND:
        return message.l == 0 && ClickEntry(m_form, LOWORD(message.w)) ? std::optional<LRESULT>(0) : std::nullopt;
    case WM_ERASEBKGND: {
        RECT inside = {};
        GetClientRect(Native(), &inside);
        FillRect(reinterpret_cast<HDC>(message.w), &inside, GetSysColorBrush(COLOR_3DFACE));
        return 1;
    }
    case DpiChangedMessage:
        ChangeResolution(LOWORD(message.w), *reinterpret_cast<const RECT*>(message.l));
        return 0;
    default:
        return std::nullopt;
    }
}

std::optional<LRESULT> CMainWindowPeer::HandleInside(const Message& message)
{
    switch (message.code) {
    case WM_GETMINMAXINFO:
        KeepSmallest(*reinterpret_cast<MINMAXINFO*>(message.l));
        return 0;
    case WM_SETFOCUS:
        m_inside->RestoreFocus();
        return 0;
    case WM_NEXTDLGCTL:
        m_inside->MoveFocusTo(message);
        return 0;
    case WM_SYSCOLORCHANGE:
    case WM_THEMECHANGED:
    case WM_SETTINGCHANGE:
        ChangeLook(message);
        return 0;
    default:
        return m_inside->Handle(Native(), message);
    }
}

}
