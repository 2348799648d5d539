#include "app/windows/window/SplashPeer.h"
#include "app/windows/ControlIds.h"
#include "platform/windows/Text.h"

namespace appwindows {

CSplashPeer::CSplashPeer(frmSplash& form, std::function<void()> unloaded) : m_form(form)
{
    Create({.className = SplashWindowClass,
            .title = platform::windowsdesktop::ToWide(form.Caption()),
            .style = WS_POPUP | WS_CLIPCHILDREN,
            .exStyle = WS_EX_CONTROLPARENT | WS_EX_TOOLWINDOW});
    ui::CForm::Peer peer;
    peer.changed = [this] { Mirror(); };
    peer.bringToFront = [this] { SetForegroundWindow(Native()); };
    peer.unloaded = std::move(unloaded);
    m_form.SetPeer(std::move(peer));
}

CSplashPeer::~CSplashPeer()
{
    m_form.SetPeer({});
    m_inside.reset();
}

void CSplashPeer::Mirror()
{
    const bool show = m_form.Loaded() && m_form.Visible();
    if (show)
        BuildInside();
    ShowWindow(Native(), show ? SW_SHOW : SW_HIDE);
    if (show)
        UpdateWindow(Native());
}

void CSplashPeer::BuildInside()
{
    if (m_inside)
        return;
    m_inside = std::make_unique<CFormMirror>(m_form, ui::layout::SplashLayout(), Native(), DpiOf(Native()));
    MoveToMiddle();
}

void CSplashPeer::MoveToMiddle()
{
    RECT area = {};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    const SIZE size = m_inside->NaturalSize();
    MoveTo(Native(),
           {static_cast<int>((area.left + area.right - size.cx) / 2),
            static_cast<int>((area.top + area.bottom - size.cy) / 2), static_cast<int>(size.cx), static_cast<int>(size.cy)});
}

LRESULT CSplashPeer::Handle(const Message& message)
{
    switch (message.code) {
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
        m_form.Click();
        return 0;
    case WM_SIZE:
        if (m_inside)
            m_inside->ArrangeSurface();
        return 0;
    case WM_ERASEBKGND: {
        const SIZE inside = InsideOf(Native());
        const RECT all = {0, 0, inside.cx, inside.cy};
        FillRect(reinterpret_cast<HDC>(message.w), &all, GetSysColorBrush(COLOR_3DFACE));
        return 1;
    }
    default:
        break;
    }
    if (const auto answer = m_inside ? m_inside->Handle(Native(), message) : std::nullopt)
        return *answer;
    return Default(message);
}

}
