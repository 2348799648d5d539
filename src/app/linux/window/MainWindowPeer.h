#pragma once
#include "app/linux/window/FormMirror.h"
#include "ui/frmParlune.h"
#include <QMainWindow>
#include <QTimer>
#include <functional>
#include <memory>

// The native main window: mirrors caption, visibility and state, and reports what the user does with it. Its inside is made
// when it is first shown, for mostly it is not.
class CMainWindowPeer final : public QMainWindow {
public:
    // `canBeReached` tells whether the user could bring a hidden window back; when not, it is put into the task bar instead
    // of being hidden. `unloaded` is called when the form has gone. Both forms are borrowed.
    CMainWindowPeer(frmParlune& form, std::function<bool()> canBeReached, std::function<void()> unloaded);
    ~CMainWindowPeer() override;
    void Mirror();
    void BringToFront();
    const CFormMirror* Inside() const { return m_inside.get(); }  // Null until it is first shown.

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    bool IsOnItsWayBack() const;
    void ShowInTaskBar();
    void MirrorVisible();
    void MirrorTimer();
    void BuildInside();
    void AddMenus();
    void AddPageKeys();
    void TurnPage(int by);
    void FitScreen();

    frmParlune& m_form;
    std::function<bool()> m_canBeReached;
    std::unique_ptr<CFormMirror> m_inside;
    QTimer m_timer;
    bool m_mirroring = false;  // Changes are our own.
};
