#pragma once
#include <QObject>
#include <QTimer>
#include <functional>
#include <map>

class QScreen;

namespace engine {

// Tells when screens have come, gone, or changed their place, size, scale or panels: once for all that changes together,
// after Qt has taken notice of it. Needs a QGuiApplication.
class CScreenWatch final : public QObject {
    Q_OBJECT
public:
    CScreenWatch();
    void Watch(const void* watcher, std::function<void()> changed) { m_watchers[watcher] = std::move(changed); }
    void Unwatch(const void* watcher) { m_watchers.erase(watcher); }

signals:
    void Changed();  // Before the watchers are told.

private:
    void Listen(QScreen* screen);
    void Tell();

    QTimer m_soon;
    std::map<const void*, std::function<void()>> m_watchers;
};

}
