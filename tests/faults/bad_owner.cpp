// bad_owner dies|stalls SIZE MILLISECONDS: a program that copies so many letters to the clipboard, and fails whoever asks
// for them: so long after the question it ends at once, or stands still until it is ended. It says "ready" when it has
// copied.
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <string>
#include <thread>
#include <unistd.h>

namespace {
class CBadText final : public QMimeData {
public:
    CBadText(bool dies, int size, int milliseconds) : m_dies(dies), m_size(size), m_milliseconds(milliseconds) {}
    bool hasFormat(const QString& format) const override { return formats().contains(format); }
    QStringList formats() const override
    {
        return {QStringLiteral("text/plain;charset=utf-8"), QStringLiteral("text/plain")};
    }

protected:
    // Whoever asks gets the first of it, when there is much.
    QVariant retrieveData(const QString&, QMetaType) const override
    {
        if (m_milliseconds == 0)
            Fail();
        std::thread([this] {
            std::this_thread::sleep_for(std::chrono::milliseconds(m_milliseconds));
            Fail();
        }).detach();
        return QByteArray(m_size, 'a');
    }

private:
    void Fail() const
    {
        if (m_dies)
            ::_exit(0);
        ::raise(SIGSTOP);
    }
    bool m_dies;
    int m_size;
    int m_milliseconds;
};
}

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    if (argc != 4)
        return 2;
    QGuiApplication::clipboard()->setMimeData(
        new CBadText(argv[1] == std::string("dies"), std::atoi(argv[2]), std::atoi(argv[3])));
    QObject::connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, &application, [] {
        if (!QGuiApplication::clipboard()->ownsClipboard())
            QCoreApplication::quit();
    });
    std::puts("ready");
    std::fflush(stdout);
    return QGuiApplication::exec();
}
