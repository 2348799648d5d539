#include "platform/linux/LinuxShell.h"
#include "platform/Failure.h"
#include "platform/text/CommandLine.h"
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QUrl>

namespace platform::linuxdesktop {
namespace {
enum ShellCode : std::int32_t { NoFile = 2, NoFolder = 3, Refused = 5, NoAssociation = 31, Success = 33 };

// The full path of a program; empty when there is none. Nothing in the current folder runs by its bare name.
QString FindProgram(const QString& name)
{
    if (!name.contains(QLatin1Char('/')))
        return name.isEmpty() ? QString() : QStandardPaths::findExecutable(name);
    const QFileInfo file(name);
    return file.isFile() && file.isExecutable() ? file.absoluteFilePath() : QString();
}

QStringList ArgumentsOf(const std::vector<std::string>& words, std::size_t from)
{
    QStringList arguments;
    for (std::size_t i = from; i < words.size(); ++i)
        arguments.append(QString::fromStdString(words[i]));
    return arguments;
}

// A scheme of one letter would be a drive.
bool IsWebAddress(const QString& target)
{
    static const QRegularExpression scheme(QStringLiteral("^[A-Za-z][A-Za-z0-9+.-]+:\\S"));
    return scheme.match(target).hasMatch();
}

std::int32_t OpenByDesktop(const QString& target, const QUrl& url)
{
    const QString opener = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    if (!opener.isEmpty())
        return QProcess::startDetached(opener, {target}) ? Success : Refused;
    return QDesktopServices::openUrl(url) ? Success : NoAssociation;
}
}

void CLinuxShell::StartProgram(const std::string& commandLine)
{
    const auto words = text::SplitCommandLine(commandLine);
    const QString program = words.empty() ? QString() : FindProgram(QString::fromStdString(words[0]));
    if (program.isEmpty() || !QProcess::startDetached(program, ArgumentsOf(words, 1)))
        throw failure::FileNotFound();
}

std::int32_t CLinuxShell::Open(const std::string& file, const std::string& parameters)
{
    const QString target = QString::fromStdString(file);
    if (IsWebAddress(target))
        return OpenByDesktop(target, QUrl(target));
    const QFileInfo info(target);
    if (target.isEmpty() || !info.exists())
        return info.dir().exists() ? NoFile : NoFolder;
    const QString program = FindProgram(info.absoluteFilePath());
    if (!program.isEmpty()) {
        const QStringList arguments = ArgumentsOf(text::SplitCommandLine(parameters), 0);
        return QProcess::startDetached(program, arguments) ? Success : Refused;
    }
    return OpenByDesktop(info.absoluteFilePath(), QUrl::fromLocalFile(info.absoluteFilePath()));
}

}
