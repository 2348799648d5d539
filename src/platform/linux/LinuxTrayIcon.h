#pragma once
#include "platform/TrayIcon.h"
#include <QElapsedTimer>
#include <QIcon>
#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>
#include <functional>
#include <memory>

namespace platform::linuxdesktop {

// The icon in the desktop's notification area. Where the desktop has no such area yet, the icon appears when one comes.
// Needs a QApplication.
class CLinuxTrayIcon final : public QObject, public ITrayIcon {
    Q_OBJECT
public:
    CLinuxTrayIcon();
    void Add(const std::string& tip, std::function<void(std::int32_t message)> mouse) override;
    void Delete() override;

    bool IsAdded() const { return m_icon != nullptr; }
    bool IsReachable() const;  // Whether the user can click it now.
    void SetIcon(const QIcon& icon);
    QMenu& Menu() { return m_menu; }  // Opened by a right click; to be filled when it is about to show.
    // Called when the icon becomes reachable or stops being so.
    void OnReachableChange(std::function<void()> changed) { m_reachableChanged = std::move(changed); }

    // What the desktop reports; it opens the menu itself. Two triggers within the double-click time are a double click.
    void Activated(QSystemTrayIcon::ActivationReason reason);

private:
    void LookWhetherReachable();

    QMenu m_menu;  // Outlives the icon, which borrows it.
    QIcon m_picture;
    std::unique_ptr<QSystemTrayIcon> m_icon;
    QElapsedTimer m_sinceTrigger;
    bool m_wasReachable = false;
    std::function<void(std::int32_t message)> m_mouse;
    std::function<void()> m_reachableChanged;
};

}
