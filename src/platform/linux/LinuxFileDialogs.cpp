#include "platform/linux/LinuxFileDialogs.h"
#include <QApplication>
#include <QFileDialog>
#include <algorithm>

namespace platform::linuxdesktop {
namespace {
// The description without the pattern that it may repeat in brackets.
QString Described(const QString& description)
{
    const qsizetype bracket = description.lastIndexOf(QLatin1Char('('));
    return (bracket > 0 && description.endsWith(QLatin1Char(')')) ? description.left(bracket) : description).trimmed();
}

QString PatternsOf(const QString& patterns)
{
    QStringList all = patterns.split(QLatin1Char(';'), Qt::SkipEmptyParts);
    for (QString& pattern : all)
        pattern = pattern.trimmed() == QLatin1String("*.*") ? QStringLiteral("*") : pattern.trimmed();
    return all.join(QLatin1Char(' '));
}

void ChooseFilter(QFileDialog& native, const FileDialog& dialog)
{
    const QStringList filters = NameFilters(dialog.filter);
    if (filters.isEmpty())
        return;
    native.setNameFilters(filters);
    native.selectNameFilter(filters[std::clamp<qsizetype>(dialog.filterIndex - 1, 0, filters.size() - 1)]);
}

void Furnish(QFileDialog& native, const FileDialog& dialog)
{
    const bool opens = dialog.mode == FileDialog::Mode::Open;
    native.setWindowTitle(QString::fromStdString(dialog.title));
    native.setAcceptMode(opens ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    native.setFileMode(opens && dialog.fileMustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    native.setOption(QFileDialog::DontConfirmOverwrite, !dialog.confirmOverwrite);
    if (!dialog.initialFolder.empty())
        native.setDirectory(QString::fromStdString(dialog.initialFolder));
    ChooseFilter(native, dialog);
    if (!dialog.initialFile.empty())
        native.selectFile(QString::fromStdString(dialog.initialFile));
    // Only for a new file: the toolkit would append it to the name of an existing file without a dot as well.
    if (!opens)
        native.setDefaultSuffix(QString::fromStdString(dialog.defaultExtension));
}
}

QStringList NameFilters(const std::string& pairs)
{
    const QStringList parts = QString::fromStdString(pairs).split(QChar::Null);
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
        filters.append(Described(parts[i]) + QLatin1String(" (") + PatternsOf(parts[i + 1]) + QLatin1Char(')'));
    return filters;
}

std::string CLinuxFileDialogs::Ask(const FileDialog& dialog)
{
    QFileDialog native(QApplication::activeWindow());
    Furnish(native, dialog);
    if (native.exec() != QDialog::Accepted || native.selectedFiles().isEmpty())
        return "";
    std::string path = native.selectedFiles().constFirst().toStdString();
    return path.size() <= dialog.fileLimit ? path : "";
}

}
