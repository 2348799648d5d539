#include "platform/linux/LinuxTrayIcon.h"
#include <QApplication>
#include <QTimer>

namespace platform::linuxdesktop {
namespace {
// Nothing tells when a notification area comes or goes. Seldom enough that a hidden program costs nothing.
constexpr int LookEveryMilliseconds = 5000;
}

CLinuxTrayIcon::CLinuxTrayIcon()
{
    auto* look = new QTimer(this);
    connect(look, &QTimer::timeout, this, &CLinuxTrayIcon::LookWhetherReachable);
    look->start(LookEveryMilliseconds);
}

void CLinuxTrayIcon::Add(const std::string& tip, std::function<void(std::int32_t message)> mouse)
{
    m_mouse = std::move(mouse);
    if (m_icon)
        return;
    m_icon = std::make_unique<QSystemTrayIcon>(m_picture);
    m_icon->setToolTip(QString::fromStdString(tip));
    m_icon->setContextMenu(&m_menu);
    connect(m_icon.get(), &QSystemTrayIcon::activated, this, &CLinuxTrayIcon::Activated);
    m_icon->show();
    LookWhetherReachable();
}

void CLinuxTrayIcon::Delete()
{
    if (m_icon)
        m_icon->hide();
    m_icon.reset();
    m_mouse = nullptr;
    LookWhetherReachable();
}

bool CLinuxTrayIcon::IsReachable() const { return m_icon && QSystemTrayIcon::isSystemTrayAvailable(); }

void CLinuxTrayIcon::SetIcon(const QIcon& icon)
{
    m_picture = icon;
    if (m_icon)
        m_icon->setIcon(icon);
}

// Some desktops report a double click as two triggers, others as a trigger followed by a double click: then the second
// trigger never comes, and after either the counting starts anew.
void CLinuxTrayIcon::Activated(QSystemTrayIcon::ActivationReason reason)
{
    const bool trigger = reason == QSystemTrayIcon::Trigger;
    const bool secondTrigger =
        trigger && m_sinceTrigger.isValid() && m_sinceTrigger.elapsed() <= QApplication::doubleClickInterval();
    if (trigger)
        m_sinceTrigger.start();
    if (!secondTrigger && reason != QSystemTrayIcon::DoubleClick)
        return;
    m_sinceTrigger.invalidate();
    if (m_mouse)
        m_mouse(mouseMessage::LeftDoubleClick);
}

void CLinuxTrayIcon::LookWhetherReachable()
{
    const bool reachable = IsReachable();
    if (reachable == std::exchange(m_wasReachable, reachable))
        return;
    if (m_reachableChanged)
        m_reachableChanged();
}

}
