// copy_flood NUMBER MILLISECONDS: a program that copies so many texts to the clipboard, one in so many milliseconds, or
// with 0 as fast as it can. Then it says "copied NUMBER in MILLISECONDS ms, asked TIMES", where each question counts that
// another program asked of it meanwhile, and "read" as soon as somebody reads its last text. It ends when somebody else
// copies.
#include <QAbstractNativeEventFilter>
#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QMimeData>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

class CQuestions final : public QAbstractNativeEventFilter {
public:
    bool nativeEventFilter(const QByteArray&, void* message, qintptr*) override
    {
        constexpr int SelectionRequest = 30, SentBySomebody = 0x80;
        if ((*static_cast<const unsigned char*>(message) & ~SentBySomebody) == SelectionRequest)
            ++m_count;
        return false;
    }
    int Count() const { return m_count; }

private:
    int m_count = 0;
};

class CLastText final : public QMimeData {
public:
    CLastText() { setText(QStringLiteral("This is the last copy.")); }

protected:
    QVariant retrieveData(const QString& format, QMetaType type) const override
    {
        std::puts("read");
        std::fflush(stdout);
        return QMimeData::retrieveData(format, type);
    }
};

class CFlood {
public:
    CFlood(int number, int milliseconds) : m_number(number), m_milliseconds(milliseconds)
    {
        QCoreApplication::instance()->installNativeEventFilter(&m_questions);
        QObject::connect(&m_timer, &QTimer::timeout, [this] { CopyWhatIsDue(); });
        m_elapsed.start();
        m_timer.start(milliseconds == 0 ? 0 : 1);
    }

private:
    void CopyWhatIsDue()
    {
        const qint64 due = m_milliseconds > 0 ? m_elapsed.elapsed() / m_milliseconds + 1 : m_copied + 1;
        while (m_copied < std::min<qint64>(due, m_number))
            Copy();
        if (m_copied == m_number)
            End();
    }
    void Copy()
    {
        ++m_copied;
        if (m_copied == m_number)
            QGuiApplication::clipboard()->setMimeData(new CLastText);
        else
            QGuiApplication::clipboard()->setText(QStringLiteral("Copy number %1").arg(m_copied));
    }
    void End()
    {
        m_timer.stop();
        std::printf("copied %d in %lld ms, asked %d\n", m_copied, m_elapsed.elapsed(), m_questions.Count());
        std::fflush(stdout);
        QObject::connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, [] {
            if (!QGuiApplication::clipboard()->ownsClipboard())
                QCoreApplication::quit();
        });
    }

    int m_number;
    int m_milliseconds;
    int m_copied = 0;
    CQuestions m_questions;
    QElapsedTimer m_elapsed;
    QTimer m_timer;
};

}

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    if (argc != 3)
        return 2;
    const CFlood flood(std::atoi(argv[1]), std::atoi(argv[2]));
    return QGuiApplication::exec();
}
