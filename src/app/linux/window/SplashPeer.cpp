#include "app/linux/window/SplashPeer.h"
#include "app/linux/window/Clickable.h"
#include <QScreen>

CSplashPeer::CSplashPeer(frmSplash& form, std::function<void()> unloaded) : QWidget(nullptr, Qt::SplashScreen), m_form(form)
{
    setWindowTitle(QString::fromStdString(form.Caption()));
    ui::CForm::Peer peer;
    peer.changed = [this] { Mirror(); };
    peer.bringToFront = [this] { raise(); };
    peer.unloaded = std::move(unloaded);
    m_form.SetPeer(std::move(peer));
}

CSplashPeer::~CSplashPeer() { m_form.SetPeer({}); }

void CSplashPeer::Mirror()
{
    const bool show = m_form.Loaded() && m_form.Visible();
    if (show && !m_inside)
        BuildInside();
    setVisible(show);
}

void CSplashPeer::BuildInside()
{
    DescribeClickables();
    m_inside = std::make_unique<CFormMirror>(m_form, ui::layout::SplashLayout(), *this);
    setFixedSize(m_inside->NaturalSize());
    if (screen())
        move(screen()->availableGeometry().center() - rect().center());
}

void CSplashPeer::mousePressEvent(QMouseEvent*) { m_form.Click(); }
