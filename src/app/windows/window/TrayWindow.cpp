#include "app/windows/window/TrayWindow.h"
#include "app/windows/ControlIds.h"
#include "app/windows/MenuPeer.h"
#include "app/windows/window/BareSurface.h"
#include "platform/windows/Text.h"

namespace appwindows {

CTrayWindow::CTrayWindow(frmSysTray& form, const ui::CForm& menus, std::function<bool(const Message&)> iconMessage)
    : m_form(form), m_menus(menus), m_iconMessage(std::move(iconMessage))
{
    Create({.className = TrayWindowClass,
            .title = platform::windowsdesktop::ToWide(form.Caption()),
            .style = WS_POPUP,
            .exStyle = WS_EX_TOOLWINDOW});
    ui::CForm::Peer owner;  // There is nothing to mirror.
    owner.bringToFront = [this] { SetForegroundWindow(Native()); };
    owner.activate = owner.bringToFront;
    owner.popUpMenu = [this](ui::CMenuItem& menu) { PopUpMenu(Native(), m_menus, menu); };
    owner.postEmptyMessage = [this] { PostMessageA(Native(), WM_NULL, 0, 0); };
    m_form.SetPeer(std::move(owner));
}

CTrayWindow::~CTrayWindow() { m_form.SetPeer({}); }

LRESULT CTrayWindow::Handle(const Message& message)
{
    if (m_iconMessage && m_iconMessage(message))
        return 0;
    switch (message.code) {
    case WM_MOUSEMOVE:
        TellMouseMove(m_form, message.w, {GET_X_LPARAM(message.l), GET_Y_LPARAM(message.l)});
        return 0;
    case WM_INITMENUPOPUP:
        RefreshOpening(reinterpret_cast<HMENU>(message.w), m_menus);
        return 0;
    case WM_COMMAND:
        ClickEntry(m_menus, LOWORD(message.w));
        return 0;
    case WM_CLOSE:
        return 0;  // The program's end takes it away, nobody else.
    default:
        return Default(message);
    }
}

}
