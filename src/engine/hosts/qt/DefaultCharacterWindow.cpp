#include "engine/hosts/qt/DefaultCharacterWindow.h"
#include "engine/session/CharacterNames.h"
#include "engine/session/DefaultCharacter.h"
#include "platform/Failure.h"
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHideEvent>
#include <QLocale>
#include <QMessageBox>
#include <QShowEvent>
#include <algorithm>

namespace engine {
namespace {

constexpr std::uint16_t English = 0x0409;  // The language of this window.
constexpr int FileRole = Qt::UserRole;
constexpr int DescriptionRole = Qt::UserRole + 1;

// Null when it cannot be loaded.
template <class Loading> CharacterRef OrNull(Loading&& load)
{
    try {
        return load();
    } catch (const platform::CFailure&) {
        return nullptr;
    }
}

}

CDefaultCharacterWindow::CDefaultCharacterWindow(CUserSettings& settings, ICharacterSource& source, ITimers& timers)
    : m_settings(settings), m_source(source)
{
    setWindowTitle(QStringLiteral("Default Character"));
    setAttribute(Qt::WA_QuitOnClose, false);
    Build(timers);
    m_next.setInterval(0);
    connect(&m_next, &QTimer::timeout, this, &CDefaultCharacterWindow::ListNext);
    connect(m_list, &QListWidget::currentItemChanged, this, &CDefaultCharacterWindow::ShowSelected);
    connect(m_list, &QListWidget::itemActivated, this, &CDefaultCharacterWindow::accept);
    connect(m_list, &QListWidget::itemPressed, this, [this] { m_userHasChosen = true; });
}

void CDefaultCharacterWindow::Build(ITimers& timers)
{
    auto* caption = new QLabel(QStringLiteral("&Characters:"));
    m_list = new QListWidget;
    m_list->setAccessibleName(QStringLiteral("Characters"));
    caption->setBuddy(m_list);
    m_preview = new CCharacterPreview(timers, this);
    m_description = new QLabel;
    m_description->setWordWrap(true);
    m_description->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    m_description->setTextFormat(Qt::PlainText);  // It comes out of a file.
    m_description->setMinimumHeight(4 * fontMetrics().lineSpacing());
    m_nothing = new QLabel(QStringLiteral("No characters are installed."));
    m_nothing->hide();
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    m_ok = buttons->button(QDialogButtonBox::Ok);
    connect(buttons, &QDialogButtonBox::accepted, this, &CDefaultCharacterWindow::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* grid = new QGridLayout(this);
    grid->addWidget(caption, 0, 0);
    grid->addWidget(m_list, 1, 0, 2, 1);
    grid->addWidget(m_preview, 1, 1);
    grid->addWidget(m_description, 2, 1);
    grid->addWidget(m_nothing, 3, 0, 1, 2);
    grid->addWidget(buttons, 4, 0, 1, 2);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(1, 1);
}

void CDefaultCharacterWindow::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (!event->spontaneous())
        BeginList();
}

void CDefaultCharacterWindow::hideEvent(QHideEvent* event)
{
    QDialog::hideEvent(event);
    if (!event->spontaneous())
        m_next.stop();
}

void CDefaultCharacterWindow::BeginList()
{
    m_list->clear();
    m_nothing->hide();
    m_userHasChosen = false;
    ShowSelected();
    const CharacterRef present = OrNull([&] { return LoadDefaultCharacter(m_source, m_settings.Now().defaultCharacter); });
    m_presentDefault = present ? std::optional(present->id) : std::nullopt;
    m_files = m_source.Installed();
    std::reverse(m_files.begin(), m_files.end());
    m_list->setFocus();
    m_next.start();
}

void CDefaultCharacterWindow::ListNext()
{
    if (m_files.empty()) {
        EndList();
        return;
    }
    const std::string file = m_files.back();
    m_files.pop_back();
    if (const CharacterRef character = OrNull([&] { return m_source.Load(file); }))
        Add(file, *character);
}

void CDefaultCharacterWindow::Add(const std::string& file, const Character& character)
{
    const LocalizedName names = NamesFor(character, English);
    const std::string& name = names.name.empty() ? file : names.name;
    auto* item = new QListWidgetItem(QString::fromStdString(name), m_list);
    item->setData(FileRole, QString::fromStdString(file));
    item->setData(DescriptionRole, QString::fromStdString(names.description));
    item->setToolTip(QString::fromStdString(file).toHtmlEscaped());
    if (!m_userHasChosen && IsPresentChoice(file, character))
        m_list->setCurrentItem(item);
}

// Of several files with the same character, the one that was chosen by name, or the first.
bool CDefaultCharacterWindow::IsPresentChoice(const std::string& file, const Character& character) const
{
    const QListWidgetItem* current = m_list->currentItem();
    return file == m_settings.Now().defaultCharacter || (current == nullptr && m_presentDefault == character.id);
}

void CDefaultCharacterWindow::EndList()
{
    m_next.stop();
    m_nothing->setVisible(m_list->count() == 0);
    if (m_list->currentItem() == nullptr && m_list->count() > 0)
        m_list->setCurrentRow(0);
}

void CDefaultCharacterWindow::ShowSelected()
{
    const QListWidgetItem* item = m_list->currentItem();
    m_ok->setEnabled(item != nullptr);
    const std::string file = item ? item->data(FileRole).toString().toStdString() : "";
    m_preview->ShowCharacter(item ? OrNull([&] { return m_source.Load(file); }) : nullptr);
    m_preview->setAccessibleDescription(item ? item->text() : QString());
    m_description->setText(item ? item->data(DescriptionRole).toString() : QString());
}

void CDefaultCharacterWindow::accept()
{
    const QListWidgetItem* item = m_list->currentItem();
    if (item == nullptr)
        return;
    UserSettings wanted = m_settings.Now();
    wanted.defaultCharacter = item->data(FileRole).toString().toStdString();
    const bool kept = m_settings.Change(wanted);
    QDialog::accept();
    if (!kept)
        QMessageBox::warning(nullptr, windowTitle(),
                             QStringLiteral("The choice cannot be saved. It applies until Parlune ends."));
}

}
