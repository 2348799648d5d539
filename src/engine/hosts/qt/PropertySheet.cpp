#include "engine/hosts/qt/PropertySheet.h"
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QVBoxLayout>

namespace engine {
namespace {

constexpr int SpeedStep = 10;  // Percent.

QLabel* WrappedLabel(const QString& text)
{
    auto* label = new QLabel(text);
    label->setWordWrap(true);
    return label;
}

// "Slow", the slider, "Fast".
QHBoxLayout* SliderRow(QSlider& slider)
{
    auto* row = new QHBoxLayout;
    row->addWidget(new QLabel(QStringLiteral("Slow")));
    row->addWidget(&slider, 1);
    row->addWidget(new QLabel(QStringLiteral("Fast")));
    return row;
}

}

CPropertySheet::CPropertySheet(CUserSettings& settings) : m_settings(settings)
{
    setWindowTitle(QStringLiteral("Advanced Character Options"));
    setAttribute(Qt::WA_QuitOnClose, false);
    auto* column = new QVBoxLayout(this);
    column->addWidget(WrappedLabel(QStringLiteral("These options apply to all characters.")));
    column->addWidget(MakeOutput());
    column->addWidget(MakeSpeechInput());
    m_notKept = WrappedLabel(QStringLiteral("The options cannot be saved. They apply until Parlune ends."));
    m_notKept->hide();
    column->addWidget(m_notKept);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::RestoreDefaults | QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(buttons->button(QDialogButtonBox::RestoreDefaults), &QPushButton::clicked, this,
            &CPropertySheet::RestoreDefaults);
    column->addStretch();
    column->addWidget(buttons);
    ShowSettings();
    m_settings.Watch(this, [this](const UserSettings&) { ShowSettings(); });
    m_balloons->setFocus();
}

CPropertySheet::~CPropertySheet() { m_settings.Unwatch(this); }

QGroupBox* CPropertySheet::MakeOutput()
{
    auto* group = new QGroupBox(QStringLiteral("Output"));
    auto* column = new QVBoxLayout(group);
    m_balloons = new QCheckBox(QStringLiteral("Show spoken text in a &balloon"));
    m_soundEffects = new QCheckBox(QStringLiteral("&Play sound effects"));
    m_speed = new QSlider(Qt::Horizontal);
    m_speed->setRange(UserSettings::SlowestPercent / SpeedStep, UserSettings::FastestPercent / SpeedStep);
    m_speed->setPageStep(5);
    m_speed->setTickInterval(5);
    m_speed->setTickPosition(QSlider::TicksBelow);
    m_speed->setMinimumWidth(fontMetrics().averageCharWidth() * 30);
    m_speedText = new QLabel;
    m_speedText->setBuddy(m_speed);
    column->addWidget(m_balloons);
    column->addWidget(m_soundEffects);
    column->addSpacing(fontMetrics().height() / 2);
    column->addWidget(m_speedText);
    column->addLayout(SliderRow(*m_speed));
    connect(m_balloons, &QCheckBox::toggled, this, &CPropertySheet::Store);
    connect(m_soundEffects, &QCheckBox::toggled, this, &CPropertySheet::Store);
    connect(m_speed, &QSlider::valueChanged, this, &CPropertySheet::Store);
    connect(m_speed, &QSlider::sliderReleased, this, &CPropertySheet::Store);
    return group;
}

// There is no recogniser to switch on: the key is told, as the engine has it.
QGroupBox* CPropertySheet::MakeSpeechInput()
{
    auto* group = new QGroupBox(QStringLiteral("Speech Input"));
    auto* rows = new QFormLayout(group);
    auto* key = new QLineEdit(QStringLiteral("Scroll Lock"));
    key->setReadOnly(true);
    rows->addRow(QStringLiteral("&Listening key:"), key);
    rows->labelForField(key)->setToolTip(QStringLiteral("The key to hold while you speak to a character"));
    key->setAccessibleName(QStringLiteral("Listening key"));
    key->setToolTip(rows->labelForField(key)->toolTip());
    rows->addRow(WrappedLabel(QStringLiteral("No speech recogniser is installed: characters cannot hear you.")));
    return group;
}

void CPropertySheet::ShowSettings()
{
    const QScopedValueRollback showing(m_showing, true);
    const UserSettings& now = m_settings.Now();
    m_balloons->setChecked(now.balloonsOn);
    m_soundEffects->setChecked(now.soundEffectsOn);
    if (!m_speed->isSliderDown())
        m_speed->setValue((now.speedPercent + SpeedStep / 2) / SpeedStep);
    ShowSpeed();
}

void CPropertySheet::ShowSpeed()
{
    const QString percent = QString::number(m_speed->value() * SpeedStep) + QStringLiteral(" %");
    m_speedText->setText(QStringLiteral("Speaking &speed: ") + percent);
    m_speed->setAccessibleName(QStringLiteral("Speaking speed"));
    m_speed->setAccessibleDescription(percent);
}

// A slider on its way is not stored: that would write the file at every pixel.
void CPropertySheet::Store()
{
    if (m_showing)
        return;
    ShowSpeed();
    if (m_speed->isSliderDown())
        return;
    UserSettings wanted = m_settings.Now();
    wanted.balloonsOn = m_balloons->isChecked();
    wanted.soundEffectsOn = m_soundEffects->isChecked();
    wanted.speedPercent = m_speed->value() * SpeedStep;
    m_notKept->setVisible(!m_settings.Change(wanted));
}

// The default character is no matter of this window.
void CPropertySheet::RestoreDefaults()
{
    UserSettings wanted;
    wanted.defaultCharacter = m_settings.Now().defaultCharacter;
    m_notKept->setVisible(!m_settings.Change(wanted));
}

}
