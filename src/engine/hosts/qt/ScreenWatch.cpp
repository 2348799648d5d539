#include "engine/hosts/qt/ScreenWatch.h"
#include <QGuiApplication>
#include <QScreen>

namespace engine {

CScreenWatch::CScreenWatch()
{
    m_soon.setSingleShot(true);
    m_soon.setInterval(0);
    connect(&m_soon, &QTimer::timeout, this, &CScreenWatch::Tell);
    const auto soon = qOverload<>(&QTimer::start);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, &CScreenWatch::Listen);
    connect(qGuiApp, &QGuiApplication::screenAdded, &m_soon, soon);
    connect(qGuiApp, &QGuiApplication::screenRemoved, &m_soon, soon);
    connect(qGuiApp, &QGuiApplication::primaryScreenChanged, &m_soon, soon);
    for (QScreen* screen : QGuiApplication::screens())
        Listen(screen);
}

void CScreenWatch::Listen(QScreen* screen)
{
    const auto soon = qOverload<>(&QTimer::start);
    connect(screen, &QScreen::geometryChanged, &m_soon, soon);
    connect(screen, &QScreen::availableGeometryChanged, &m_soon, soon);
    connect(screen, &QScreen::logicalDotsPerInchChanged, &m_soon, soon);
}

void CScreenWatch::Tell()
{
    emit Changed();
    const auto watchers = m_watchers;
    for (const auto& [watcher, changed] : watchers)
        if (m_watchers.count(watcher) != 0)
            changed();
}

}
