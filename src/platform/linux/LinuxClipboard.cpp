#include "platform/linux/LinuxClipboard.h"
#include "platform/linux/ClipboardOwner.h"
#include "platform/text/ClipboardText.h"
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <algorithm>

namespace platform::linuxdesktop {
namespace {
// A living program answers within a few milliseconds, a busy one later; a frozen one costs this much.
constexpr int AnswerWithinMilliseconds = 400;
constexpr int AskSilentOwnerAgainAfter = 2000;
// Of copies that follow each other faster than this, the last one counts.
constexpr int TellEveryMilliseconds = 100;
}

CLinuxClipboard::CLinuxClipboard()
{
    m_soon.setSingleShot(true);
    QObject::connect(&m_soon, &QTimer::timeout, [this] { AskOwner(); });
}

CLinuxClipboard::~CLinuxClipboard() = default;

CClipboardOwner& CLinuxClipboard::Owner() const
{
    if (!m_owner)
        m_owner = std::make_unique<CClipboardOwner>();
    return *m_owner;
}

// What this program has copied itself is there, and it could not answer while it waits.
bool CLinuxClipboard::Answers() const
{
    if (QGuiApplication::clipboard()->ownsClipboard())
        return true;
    if (m_silentSince.isValid() && m_silentSince.elapsed() < AskSilentOwnerAgainAfter)
        return false;
    m_silentSince.invalidate();
    const bool answers = Owner().AnswersWithin(AnswerWithinMilliseconds);
    if (!answers)
        m_silentSince.start();
    return answers;
}

// Only the formats are asked for.
bool CLinuxClipboard::HasText() const
{
    if (!Answers())
        return false;
    const QMimeData* content = QGuiApplication::clipboard()->mimeData(QClipboard::Clipboard);
    const QStringList formats = content ? content->formats() : QStringList();
    return std::any_of(formats.begin(), formats.end(),
                       [](const QString& format) { return text::IsTextFormat(format.toStdString()); });
}

std::string CLinuxClipboard::Text() const
{
    if (!HasText())
        return "";
    return text::ClipboardText(QGuiApplication::clipboard()->text(QClipboard::Clipboard).toStdString());
}

bool CLinuxClipboard::IsSecret() const
{
    if (!Answers())
        return false;
    const QString hint = QStringLiteral("x-kde-passwordManagerHint");
    const QMimeData* content = QGuiApplication::clipboard()->mimeData(QClipboard::Clipboard);
    return content && content->hasFormat(hint) && text::SaysSecret(content->data(hint).toStdString());
}

// Elsewhere the toolkit hears of changes only while a window of the program has the focus, or never.
bool CLinuxClipboard::CanWatch() const { return QGuiApplication::platformName() == QLatin1String("xcb"); }

void CLinuxClipboard::Watch(std::function<void()> changed)
{
    StopWatching();
    m_changed = std::move(changed);
    m_watcher = std::make_unique<QObject>();
    QObject::connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, m_watcher.get(), [this] { NoteChange(); });
}

void CLinuxClipboard::StopWatching()
{
    m_watcher.reset();
    m_soon.stop();
    m_changed = nullptr;
    if (m_owner)
        m_owner->Forget();
}

void CLinuxClipboard::NoteChange()
{
    m_silentSince.invalidate();  // It may be another owner.
    if (m_soon.isActive())
        return;
    const qint64 since = m_sinceTold.isValid() ? m_sinceTold.elapsed() : TellEveryMilliseconds;
    m_soon.start(static_cast<int>(std::clamp<qint64>(TellEveryMilliseconds - since, 0, TellEveryMilliseconds)));
}

// A frozen owner is not waited for: its copy is told of when it has come round.
void CLinuxClipboard::AskOwner()
{
    m_sinceTold.start();
    if (QGuiApplication::clipboard()->ownsClipboard())
        Tell();
    else
        Owner().WhenItAnswers([this] { Tell(); });
}

// A copy is called: the procedure may stop the watching.
void CLinuxClipboard::Tell()
{
    const std::function<void()> call = m_changed;
    if (call)
        call();
}

}
