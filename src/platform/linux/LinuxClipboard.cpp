#include "platform/linux/LinuxClipboard.h"
#include "platform/text/Encoding.h"
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <algorithm>

namespace platform::linuxdesktop {

// Only the formats are asked for: an owner that does not answer costs five seconds for these and ten more for the text.
bool CLinuxClipboard::HasText() const
{
    const QMimeData* content = QGuiApplication::clipboard()->mimeData(QClipboard::Clipboard);
    const QStringList formats = content ? content->formats() : QStringList();
    return std::any_of(formats.begin(), formats.end(),
                       [](const QString& format) { return format.startsWith(QLatin1String("text/plain")); });
}

std::string CLinuxClipboard::Text() const
{
    if (!HasText())
        return "";
    std::string text = QGuiApplication::clipboard()->text(QClipboard::Clipboard).toStdString();
    text.erase(std::remove(text.begin(), text.end(), '\0'), text.end());
    return text::WithCrLf(std::move(text));
}

bool CLinuxClipboard::IsSecret() const
{
    const QString hint = QStringLiteral("x-kde-passwordManagerHint");
    const QMimeData* content = QGuiApplication::clipboard()->mimeData(QClipboard::Clipboard);
    return content && content->hasFormat(hint) && content->data(hint) == "secret";
}

// Elsewhere the toolkit hears of changes only while a window of the program has the focus, or never.
bool CLinuxClipboard::CanWatch() const { return QGuiApplication::platformName() == QLatin1String("xcb"); }

void CLinuxClipboard::Watch(std::function<void()> changed)
{
    m_watcher = std::make_unique<QObject>();
    // A copy is called: the procedure may stop the watching, which ends this connection.
    QObject::connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, m_watcher.get(),
                     [changed = std::move(changed)] {
                         const std::function<void()> call = changed;
                         call();
                     });
}

}
