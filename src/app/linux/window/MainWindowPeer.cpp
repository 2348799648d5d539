#include "app/linux/window/MainWindowPeer.h"
#include "app/linux/MenuPeer.h"
#include "app/linux/window/BareSurface.h"
#include "app/linux/window/Clickable.h"
#include <QCloseEvent>
#include <QCursor>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QScreen>
#include <QShortcut>

namespace {
constexpr int WindowFrame = 48;  // About what the desktop draws around a window, at most.

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
    ui::CForm::Peer peer;
    peer.changed = [this] { Mirror(); };
    peer.bringToFront = [this] { raise(); };
    peer.activate = [this] { BringToFront(); };
    peer.popUpMenu = [](ui::CMenuItem& menu) { PopUpMenu(menu, QCursor::pos()); };
    peer.unloaded = std::move(unloaded);
    peer.focusMoved = [this] {
        if (m_inside)
            m_inside->FollowFocus();
    };
    m_form.SetPeer(std::move(peer));
    // Queued, for a timer of the toolkit rests while its own slot runs: a tick may wait for a speech or for an answer.
    QObject::connect(
        &m_timer, &QTimer::timeout, this, [this] { m_form.tmrTimer.Tick(); }, Qt::QueuedConnection);
    m_form.tmrTimer.SetPeer([this] { MirrorTimer(); });
    Mirror();
    MirrorTimer();
}

CMainWindowPeer::~CMainWindowPeer()
{
    m_form.tmrTimer.SetPeer({});
    m_form.SetPeer({});
}

void CMainWindowPeer::Mirror()
{
    const QScopedValueRollback mirroring(m_mirroring, true);
    setWindowTitle(QString::fromStdString(m_form.Caption()));
    if (m_form.Loaded() && m_form.Visible())
        MirrorVisible();
    else if (m_form.Loaded() && m_form.State() == ui::WindowState::Minimized && !m_canBeReached())
        ShowInTaskBar();
    else if (!IsOnItsWayBack())
        hide();
}

// From the task bar; the form becomes visible next. A window that goes and comes again at once is taken for one that has
// gone by a window manager that is busy.
bool CMainWindowPeer::IsOnItsWayBack() const
{
    return isMinimized() && m_form.Loaded() && m_form.State() != ui::WindowState::Minimized;
}

void CMainWindowPeer::ShowInTaskBar()
{
    BuildInside();
    showMinimized();
}

void CMainWindowPeer::MirrorVisible()
{
    BuildInside();
    if (StateOf(windowState()) != m_form.State())
        setWindowState(StatesFor(m_form.State()));
    show();
}

void CMainWindowPeer::MirrorTimer()
{
    const ui::CTimer& timer = m_form.tmrTimer;
    if (!timer.Enabled())
        m_timer.stop();
    else if (!m_timer.isActive())
        m_timer.start(timer.Interval());
}

void CMainWindowPeer::BuildInside()
{
    if (m_inside)
        return;
    DescribeClickables();
    auto* surface = new CBareSurface(m_form);
    setCentralWidget(surface);
    AddMenus();
    AddPageKeys();
    m_inside = std::make_unique<CFormMirror>(m_form, ui::layout::MainWindowLayout(), *surface);
    FitScreen();
}

void CMainWindowPeer::AddMenus()
{
    for (ui::CMenuItem* menu : {&m_form.mnuFile, &m_form.mnuDownload, &m_form.frmHelp})
        MirrorMenu(*menuBar()->addMenu(QString::fromStdString(menu->Caption())), *menu);
}

// From everywhere; only in the editor Ctrl+Tab types a tab.
void CMainWindowPeer::AddPageKeys()
{
    for (const auto& [key, step] : {std::pair("Ctrl+Tab", 1), std::pair("Ctrl+PgDown", 1), std::pair("Ctrl+Shift+Tab", -1),
                                    std::pair("Ctrl+PgUp", -1)})
        QObject::connect(new QShortcut(QKeySequence(key), this), &QShortcut::activated, this,
                         [this, by = step] { TurnPage(by); });
}

void CMainWindowPeer::TurnPage(int by)
{
    const auto pages = static_cast<std::int32_t>(m_form.tabMain.Tabs().size());
    m_form.tabMain.Select((m_form.tabMain.Selected() + by + pages) % pages);
}

// As large as its inside wants it, if the screen has the room.
void CMainWindowPeer::FitScreen()
{
    QSize size = m_inside->NaturalSize() + QSize(0, menuBar()->sizeHint().height());
    if (screen())
        size = size.boundedTo(screen()->availableSize() - QSize(WindowFrame, WindowFrame));
    setMinimumSize(size / 2);
    resize(size);
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
    if ((event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) && m_inside) {
        m_inside->Rescale();
        FitScreen();
    }
}
