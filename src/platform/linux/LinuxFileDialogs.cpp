#include "platform/linux/LinuxFileDialogs.h"
#include "base/text/Case.h"
#include "platform/Failure.h"
#include "platform/linux/DisplayLoss.h"
#include <QApplication>
#include <QDirIterator>
#include <QFileDialog>
#include <QMessageBox>
#include <algorithm>
#include <utility>

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

// The name of a file as the folder spells it: "TXT" finds "notes.txt" where there is no "notes.TXT".
QString SpelledAsInFolder(const QFileInfo& file)
{
    if (file.exists())
        return file.filePath();
    const std::string name = file.fileName().toStdString();
    for (QDirIterator entries(file.path(), QDir::Files | QDir::Hidden); entries.hasNext();) {
        entries.next();
        if (::text::EqualIgnoringCase(entries.fileName().toStdString(), name))
            return entries.filePath();
    }
    return {};
}

// The toolkit's dialog with the checks that it lacks.
class CCheckedDialog final : public QFileDialog {
public:
    CCheckedDialog(QWidget* owner, const FileDialog& wanted) : QFileDialog(owner), m_wanted(wanted) { Furnish(); }
    std::string Ask();

protected:
    void accept() override;
    void reject() override;

private:
    void Furnish();
    void ChooseFilter();
    bool Opens() const { return m_wanted.mode == FileDialog::Mode::Open; }
    bool IsTooLong(const QString& path) const;
    bool LacksItsFolder(const QString& path) const;
    QString Completed(const QString& path) const;
    void Refuse(const QString& path);
    void AcceptAs(const QString& path);

    const FileDialog& m_wanted;
    QString m_chosen;        // What stands for the name in the dialog.
    bool m_refused = false;  // A desktop's own dialog then has closed all the same.
};

void CCheckedDialog::Furnish()
{
    setWindowTitle(QString::fromStdString(m_wanted.title));
    setAcceptMode(Opens() ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    setFileMode(Opens() && m_wanted.fileMustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    setOption(QFileDialog::DontConfirmOverwrite, !m_wanted.confirmOverwrite);
    if (!m_wanted.initialFolder.empty())
        setDirectory(QString::fromStdString(m_wanted.initialFolder));
    ChooseFilter();
    if (!m_wanted.initialFile.empty())
        selectFile(QString::fromStdString(m_wanted.initialFile));
    // Only for a new file: the toolkit would append it to the name of an existing file without a dot as well.
    if (!Opens())
        setDefaultSuffix(QString::fromStdString(m_wanted.defaultExtension));
}

void CCheckedDialog::ChooseFilter()
{
    const QStringList filters = NameFilters(m_wanted.filter);
    if (filters.isEmpty())
        return;
    setNameFilters(filters);
    selectNameFilter(filters[std::clamp<qsizetype>(m_wanted.filterIndex - 1, 0, filters.size() - 1)]);
}

bool CCheckedDialog::IsTooLong(const QString& path) const
{
    return static_cast<std::size_t>(path.toUcs4().size()) > m_wanted.fileLimit;
}

bool CCheckedDialog::LacksItsFolder(const QString& path) const
{
    return m_wanted.pathMustExist && !QFileInfo(QFileInfo(path).path()).isDir();
}

// A name may be typed without its extension.
QString CCheckedDialog::Completed(const QString& path) const
{
    const QString extension = QString::fromStdString(m_wanted.defaultExtension);
    if (!Opens() || extension.isEmpty() || QFileInfo::exists(path) || QFileInfo(path).fileName().contains(QLatin1Char('.')))
        return path;
    const QString complete = path + QLatin1Char('.') + extension;
    const QString there = SpelledAsInFolder(QFileInfo(complete));
    return there.isEmpty() && m_wanted.fileMustExist ? path : there.isEmpty() ? complete : there;
}

void CCheckedDialog::Refuse(const QString& path)
{
    m_refused = true;
    QMessageBox::warning(this, windowTitle(),
                         tr("The folder %1 does not exist.").arg(QDir::toNativeSeparators(QFileInfo(path).path())));
}

void CCheckedDialog::AcceptAs(const QString& path)
{
    m_chosen = path;
    QDialog::accept();
}

void CCheckedDialog::accept()
{
    m_refused = false;
    const QString path = selectedFiles().value(0);
    const QString completed = Completed(path);
    if (IsTooLong(path))
        AcceptAs(path);
    else if (LacksItsFolder(path))
        Refuse(path);
    else if (completed != path)
        AcceptAs(completed);
    else
        QFileDialog::accept();
}

void CCheckedDialog::reject()
{
    m_refused = false;
    QFileDialog::reject();
}

std::string CCheckedDialog::Ask()
{
    while (exec() != QDialog::Accepted)
        if (!std::exchange(m_refused, false))
            return "";
    const QString path = m_chosen.isEmpty() ? selectedFiles().value(0) : m_chosen;
    if (IsTooLong(path))
        throw failure::BadFileName();
    return path.toStdString();
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
    if (DisplayIsLost())
        return "";
    return CCheckedDialog(QApplication::activeWindow(), dialog).Ask();
}

}
