#include "app/linux/window/SplashPeer.h"
#include "app/linux/window/Clickable.h"
#include <QEvent>
#include <QScreen>
#include <algorithm>

namespace {
constexpr int PaintedWithinMilliseconds = 5000;  // A window that nobody can see is never painted.
}

CSplashPeer::CSplashPeer(frmSplash& form, std::function<void()> unloaded) : QWidget(nullptr, Qt::SplashScreen), m_form(form)
{
    setWindowTitle(QString::fromStdString(form.Caption()));
    setAttribute(Qt::WA_ShowWithoutActivating);  // It stays while the user types elsewhere.
    m_seen.setSingleShot(true);
    m_fade.setDuration(FadeMilliseconds);
    m_fade.setEndValue(0.0);
    QObject::connect(&m_seen, &QTimer::timeout, &m_fade, [this] { m_fade.start(); });
    QObject::connect(&m_fade, &QPropertyAnimation::finished, this, [this] { Vanish(); });
    ui::CForm::Peer peer;
    peer.changed = [this] { Mirror(); };
    peer.bringToFront = [this] { raise(); };
    peer.unloaded = std::move(unloaded);
    m_form.SetPeer(std::move(peer));
}

CSplashPeer::~CSplashPeer() { m_form.SetPeer({}); }

void CSplashPeer::Mirror()
{
    if (m_form.Loaded() && m_form.Visible())
        Appear();
    else if (MayStay())
        GoWhenSeen();
    else
        Vanish();
}

void CSplashPeer::Appear()
{
    if (!m_inside)
        BuildInside();
    m_clicked = false;
    m_seen.stop();
    m_fade.stop();
    setWindowOpacity(1);
    show();
}

void CSplashPeer::GoWhenSeen()
{
    const qint64 left =
        m_sincePainted.isValid() ? SeenForMilliseconds - m_sincePainted.elapsed() : PaintedWithinMilliseconds;
    m_seen.start(static_cast<int>(std::max<qint64>(left, 0)));
}

void CSplashPeer::Vanish()
{
    m_seen.stop();
    m_fade.stop();
    hide();
    m_sincePainted.invalidate();
}

void CSplashPeer::BuildInside()
{
    DescribeClickables();
    m_inside = std::make_unique<CFormMirror>(m_form, ui::layout::SplashLayout(), *this);
    for (QWidget* control : findChildren<QWidget*>())
        control->installEventFilter(this);
    setFixedSize(m_inside->NaturalSize());
    if (screen())
        move(screen()->availableGeometry().center() - rect().center());
}

void CSplashPeer::paintEvent(QPaintEvent* event)
{
    QWidget::paintEvent(event);
    if (m_sincePainted.isValid())
        return;
    m_sincePainted.start();
    if (MayStay())
        GoWhenSeen();
}

// A question of the program blocks every other window: it could be hidden behind this one.
bool CSplashPeer::event(QEvent* event)
{
    if (event->type() == QEvent::WindowBlocked && MayStay())
        Vanish();
    return QWidget::event(event);
}

bool CSplashPeer::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress)
        NoteClick();
    return false;
}

void CSplashPeer::mousePressEvent(QMouseEvent*)
{
    NoteClick();
    m_form.Click();
}

void CSplashPeer::NoteClick()
{
    m_clicked = true;
    if (!m_form.Loaded())
        Vanish();
}
