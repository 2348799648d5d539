#pragma once
#include "app/linux/window/FormMirror.h"
#include "ui/frmSplash.h"
#include <functional>
#include <memory>

// The native splash window, in the middle of the screen; a click reaches the form.
class CSplashPeer final : public QWidget {
public:
    CSplashPeer(frmSplash& form, std::function<void()> unloaded);
    ~CSplashPeer() override;
    void Mirror();

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    void BuildInside();

    frmSplash& m_form;
    std::unique_ptr<CFormMirror> m_inside;
};
