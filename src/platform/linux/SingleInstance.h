#pragma once
#include <QLocalServer>
#include <QObject>
#include <functional>
#include <string>

namespace platform::linuxdesktop {

// Lets one process at a time use the user's settings. A lock on a file is held as long as the process lives, however it
// ends; the file names the socket on which the process that holds it listens.
class CSingleInstance final : public QObject {
    Q_OBJECT
public:
    // `lockFile` lies in an existing folder; `socket` is the path on which to listen.
    CSingleInstance(std::string lockFile, std::string socket);
    ~CSingleInstance() override;

    enum class Outcome {
        First,     // This process is the one.
        Asked,     // Another one is, and has been asked to come to the front.
        NoAnswer,  // Another one is, but does not answer.
    };
    // Waits at most so long for the answer of another process.
    Outcome Claim(int milliseconds);

    // What to do when another process asks this one to come to the front.
    void OnAsked(std::function<void()> asked) { m_asked = std::move(asked); }

private:
    bool Lock();
    void Listen();
    void Answer();
    bool AskOther(int milliseconds) const;

    std::string m_lockFile;
    std::string m_socket;
    int m_lock = -1;
    QLocalServer m_server;
    std::function<void()> m_asked;
};

}
