#pragma once
#include "app/windows/window/FormMirror.h"
#include "ui/frmSplash.h"
#include <functional>
#include <memory>

namespace appwindows {

// The native splash window, without a border, in the middle of the screen; a click reaches the form.
class CSplashPeer final : public CWindow {
public:
    CSplashPeer(frmSplash& form, std::function<void()> unloaded);  // The form is borrowed.
    ~CSplashPeer() override;
    void Mirror();
    CFormMirror* Inside() const { return m_inside.get(); }

protected:
    LRESULT Handle(const Message& message) override;

private:
    void BuildInside();
    void MoveToMiddle();

    frmSplash& m_form;
    std::unique_ptr<CFormMirror> m_inside;
};

}
