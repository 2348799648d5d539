#include "platform/linux/SingleInstance.h"
#include "platform/linux/WholeFile.h"
#include <QElapsedTimer>
#include <QFile>
#include <QLocalSocket>
#include <QThread>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace platform::linuxdesktop {
namespace {
constexpr char Answered[] = "ok\n";
constexpr int RetryMilliseconds = 50;

// Connects to the socket and waits until the other process has answered.
bool AskAt(const QString& socket, int milliseconds)
{
    QLocalSocket other;
    other.connectToServer(socket);
    return other.waitForConnected(milliseconds) && other.waitForReadyRead(milliseconds) && other.readAll() == Answered;
}
}

CSingleInstance::CSingleInstance(std::string lockFile, std::string socket)
    : m_lockFile(std::move(lockFile)), m_socket(std::move(socket))
{
    connect(&m_server, &QLocalServer::newConnection, this, &CSingleInstance::Answer);
}

CSingleInstance::~CSingleInstance()
{
    m_server.close();
    if (m_lock >= 0)
        ::close(m_lock);
}

CSingleInstance::Outcome CSingleInstance::Claim(int milliseconds)
{
    if (Lock()) {
        Listen();
        return Outcome::First;
    }
    return AskOther(milliseconds) ? Outcome::Asked : Outcome::NoAnswer;
}

// A folder in which no file can be made must not keep the program from running: then nothing is guarded.
bool CSingleInstance::Lock()
{
    m_lock = ::open(m_lockFile.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    return m_lock < 0 || ::flock(m_lock, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

// What a killed process left behind is removed first: whoever holds the lock owns the socket.
void CSingleInstance::Listen()
{
    const QString socket = QString::fromStdString(m_socket);
    QLocalServer::removeServer(socket);
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    m_server.listen(socket);
    if (m_lock < 0 || ::ftruncate(m_lock, 0) != 0)
        return;
    const ssize_t written = ::pwrite(m_lock, m_socket.data(), m_socket.size(), 0);
    Q_UNUSED(written)
}

void CSingleInstance::Answer()
{
    while (QLocalSocket* other = m_server.nextPendingConnection()) {
        connect(other, &QLocalSocket::disconnected, other, &QObject::deleteLater);
        other->write(Answered);
        other->disconnectFromServer();
        if (m_asked)
            m_asked();
    }
}

// The other process may just be starting and not listen yet.
bool CSingleInstance::AskOther(int milliseconds) const
{
    QElapsedTimer waiting;
    waiting.start();
    while (waiting.elapsed() < milliseconds) {
        int error = 0;
        const auto socket = ReadWhole(m_lockFile, error);
        const int left = static_cast<int>(milliseconds - waiting.elapsed());
        if (socket && !socket->empty() && AskAt(QString::fromStdString(*socket), left))
            return true;
        QThread::msleep(RetryMilliseconds);
    }
    return false;
}

}
