#pragma once
#include "ui/frmParlune.h"
#include "ui/frmSplash.h"
#include <QLabel>
#include <QMainWindow>
#include <functional>

// The native main window: mirrors caption, visibility and state, and reports what the user does with it.
class CMainWindowPeer final : public QMainWindow {
public:
    // `canBeReached` tells whether the user could bring a hidden window back; when not, it is put into the task bar instead
    // of being hidden. `unloaded` is called when the form has gone. Both forms are borrowed.
    CMainWindowPeer(frmParlune& form, std::function<bool()> canBeReached, std::function<void()> unloaded);
    ~CMainWindowPeer() override;
    void Mirror();
    void BringToFront();

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void MirrorVisible();
    void AddMenus();

    frmParlune& m_form;
    std::function<bool()> m_canBeReached;
    bool m_mirroring = false;  // Changes are our own.
};

// The native splash window, in the middle of the screen; a click reaches the form.
class CSplashPeer final : public QWidget {
public:
    CSplashPeer(frmSplash& form, const QIcon& icon, std::function<void()> unloaded);
    ~CSplashPeer() override;
    void Mirror();

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    frmSplash& m_form;
    QLabel* m_version;
};
