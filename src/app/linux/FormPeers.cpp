#include "app/linux/FormPeers.h"
#include "app/linux/MenuPeer.h"
#include "common/Version.h"
#include <QCloseEvent>
#include <QCursor>
#include <QGuiApplication>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QScreen>
#include <QVBoxLayout>

namespace {
constexpr QSize MainWindowSize(520, 360);
constexpr QSize SplashSize(360, 220);

QLabel* AddText(QVBoxLayout& column, const QString& text, int points)
{
    auto* label = new QLabel(text);
    QFont font = label->font();
    font.setPointSize(points);
    label->setFont(font);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    column.addWidget(label);
    return label;
}

ui::WindowState StateOf(Qt::WindowStates states)
{
    if (states.testFlag(Qt::WindowMinimized))
        return ui::WindowState::Minimized;
    return states.testFlag(Qt::WindowMaximized) ? ui::WindowState::Maximized : ui::WindowState::Normal;
}

Qt::WindowStates StatesFor(ui::WindowState state)
{
    switch (state) {
    case ui::WindowState::Minimized:
        return Qt::WindowMinimized;
    case ui::WindowState::Maximized:
        return Qt::WindowMaximized;
    case ui::WindowState::Normal:
        break;
    }
    return Qt::WindowNoState;
}
}

CMainWindowPeer::CMainWindowPeer(frmParlune& form, std::function<bool()> canBeReached, std::function<void()> unloaded)
    : m_form(form), m_canBeReached(std::move(canBeReached))
{
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    AddText(*column, version::Title, 24);
    AddText(*column, "Copy a text and double-click the character: it reads the text aloud.", 11);
    setCentralWidget(content);
    AddMenus();
    resize(MainWindowSize);
    ui::CForm::Peer peer;
    peer.changed = [this] { Mirror(); };
    peer.bringToFront = [this] { raise(); };
    peer.activate = [this] { BringToFront(); };
    peer.popUpMenu = [](ui::CMenuItem& menu) { PopUpMenu(menu, QCursor::pos()); };
    peer.unloaded = std::move(unloaded);
    m_form.SetPeer(std::move(peer));
    Mirror();
}

CMainWindowPeer::~CMainWindowPeer() { m_form.SetPeer({}); }

void CMainWindowPeer::AddMenus()
{
    for (ui::CMenuItem* menu : {&m_form.mnuFile, &m_form.mnuDownload, &m_form.frmHelp})
        if (HasEntries(*menu))
            MirrorMenu(*menuBar()->addMenu(QString::fromStdString(menu->Caption())), *menu);
}

void CMainWindowPeer::Mirror()
{
    const QScopedValueRollback mirroring(m_mirroring, true);
    setWindowTitle(QString::fromStdString(m_form.Caption()));
    if (m_form.Loaded() && m_form.Visible())
        MirrorVisible();
    else if (m_form.Loaded() && m_form.State() == ui::WindowState::Minimized && !m_canBeReached())
        showMinimized();
    else
        hide();
}

void CMainWindowPeer::MirrorVisible()
{
    if (StateOf(windowState()) != m_form.State())
        setWindowState(StatesFor(m_form.State()));
    show();
}

void CMainWindowPeer::BringToFront()
{
    raise();
    activateWindow();
}

void CMainWindowPeer::closeEvent(QCloseEvent* event)
{
    event->ignore();  // The form decides; its peer hides when it has gone.
    m_form.Unload(ui::UnloadMode::ControlMenu);
}

void CMainWindowPeer::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange && !m_mirroring && m_form.Loaded())
        m_form.SetState(StateOf(windowState()));
}

CSplashPeer::CSplashPeer(frmSplash& form, const QIcon& icon, std::function<void()> unloaded)
    : QWidget(nullptr, Qt::SplashScreen), m_form(form)
{
    auto* column = new QVBoxLayout(this);
    AddText(*column, "", 11)->setPixmap(icon.pixmap(96, 96));
    AddText(*column, version::Title, 24);
    m_version = AddText(*column, "", 11);
    setFixedSize(SplashSize);
    setWindowTitle(QString::fromStdString(form.Caption()));
    m_form.lblVersion.SetPeer([this] { Mirror(); });
    ui::CForm::Peer peer;
    peer.changed = [this] { Mirror(); };
    peer.bringToFront = [this] { raise(); };
    peer.unloaded = std::move(unloaded);
    m_form.SetPeer(std::move(peer));
}

CSplashPeer::~CSplashPeer()
{
    m_form.lblVersion.SetPeer({});
    m_form.SetPeer({});
}

void CSplashPeer::Mirror()
{
    m_version->setText(QString::fromStdString(m_form.lblVersion.Caption()));
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (screen && !isVisible())
        move(screen->availableGeometry().center() - rect().center());
    setVisible(m_form.Loaded() && m_form.Visible());
}

void CSplashPeer::mousePressEvent(QMouseEvent*) { m_form.Click(); }
