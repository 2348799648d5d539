#pragma once
#include "app/windows/window/Window.h"
#include "ui/frmSysTray.h"
#include <functional>

namespace appwindows {

// The native window that owns the icon in the notification area. It is never shown.
class CTrayWindow final : public CWindow {
public:
    // `iconMessage` sees every message first; true when it was the icon's. `menus` is the form whose menus pop up here. Both
    // forms are borrowed.
    CTrayWindow(frmSysTray& form, const ui::CForm& menus, std::function<bool(const Message&)> iconMessage);
    ~CTrayWindow() override;

protected:
    LRESULT Handle(const Message& message) override;

private:
    frmSysTray& m_form;
    const ui::CForm& m_menus;
    std::function<bool(const Message&)> m_iconMessage;
};

}
