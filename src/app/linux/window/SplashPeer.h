#pragma once
#include "app/linux/window/FormMirror.h"
#include "ui/frmSplash.h"
#include <QElapsedTimer>
#include <QPropertyAnimation>
#include <QTimer>
#include <functional>
#include <memory>

// The native splash window, in the middle of the screen; a click reaches the form. The start is over before anybody has seen
// it: when the form is unloaded the window stays until it has been painted and looked at for a while, then it fades. Nobody
// waits for that; a click, or a question of the program, ends it at once.
class CSplashPeer final : public QWidget {
public:
    static constexpr int SeenForMilliseconds = 1200;
    static constexpr int FadeMilliseconds = 250;

    CSplashPeer(frmSplash& form, std::function<void()> unloaded);
    ~CSplashPeer() override;
    void Mirror();

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* control, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void BuildInside();
    void NoteClick();
    void Appear();
    bool MayStay() const { return !m_form.Loaded() && isVisible() && !m_clicked; }
    void GoWhenSeen();
    void Vanish();

    frmSplash& m_form;
    std::unique_ptr<CFormMirror> m_inside;
    QElapsedTimer m_sincePainted;
    QTimer m_seen;
    QPropertyAnimation m_fade{this, "windowOpacity"};
    bool m_clicked = false;
};
