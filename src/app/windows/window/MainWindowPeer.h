#pragma once
#include "app/windows/window/FormMirror.h"
#include "ui/frmParlune.h"
#include <functional>
#include <memory>

namespace appwindows {

// The native main window: mirrors caption, visibility and state, and reports what the user does with it. It is there,
// hidden, from the start; its inside is made when it is first shown, for mostly it is not.
class CMainWindowPeer final : public CWindow {
public:
    struct Procedures {
        std::function<bool()> isBusy;    // Whether the mouse pointer is the hourglass.
        std::function<void()> unloaded;  // The form has gone.
        std::function<void()> sessionEnds;
    };
    CMainWindowPeer(frmParlune& form, Procedures procedures);  // The form is borrowed.
    ~CMainWindowPeer() override;
    void Mirror();
    // Keys that move among pages and controls. True when that is done and nobody else shall see the message.
    bool TakeKey(MSG& message);
    CFormMirror* Inside() const { return m_inside.get(); }  // Null until it is first shown.

protected:
    LRESULT Handle(const Message& message) override;

private:
    std::optional<LRESULT> HandleAsWindow(const Message& message);
    std::optional<LRESULT> HandleInside(const Message& message);
    void WireForm();
    void MirrorVisible();
    void MirrorTimer();
    void BuildInside();
    bool TurnPage(const MSG& message);
    void FitScreen();
    SIZE SmallestSize() const;
    void KeepSmallest(MINMAXINFO& limits) const;
    void TellState(WPARAM sizeKind);
    void TellMouse(const Message& message);
    void ChangeResolution(int dpi, const RECT& place);
    void ChangeLook(const Message& message);
    void ShowIcons();
    void BringToFront() const;

    frmParlune& m_form;
    Procedures m_procedures;
    int m_dpi = UsualDpi;
    std::unique_ptr<CFormMirror> m_inside;
    HICON m_icons[2] = {};
    bool m_mirroring = false;  // Changes are our own.
};

}
