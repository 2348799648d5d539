#pragma once
#include <QObject>
#include <functional>

namespace platform::linuxdesktop {

// Turns the signals by which a session or a terminal ends a program (SIGTERM, SIGINT, SIGHUP) into a call from the event
// loop. One object at a time.
class CEndSignals final : public QObject {
    Q_OBJECT
public:
    explicit CEndSignals(std::function<void()> asked);
    ~CEndSignals() override;

private:
    std::function<void()> m_asked;
    int m_pipe[2] = {-1, -1};
};

}
