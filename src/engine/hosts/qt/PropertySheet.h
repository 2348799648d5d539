#pragma once
#include "engine/UserSettings.h"
#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QSlider>

class QGroupBox;

namespace engine {

// The window of what the user can set for all characters. There is nothing to confirm: every change holds at once.
class CPropertySheet final : public QDialog {
    Q_OBJECT
public:
    explicit CPropertySheet(CUserSettings& settings);
    ~CPropertySheet() override;
    CPropertySheet(const CPropertySheet&) = delete;
    CPropertySheet& operator=(const CPropertySheet&) = delete;

private:
    QGroupBox* MakeOutput();
    QGroupBox* MakeSpeechInput();
    void ShowSettings();  // As they are now.
    void Store();         // As the controls are now.
    void ShowSpeed();
    void RestoreDefaults();

    CUserSettings& m_settings;
    QCheckBox* m_balloons = nullptr;
    QCheckBox* m_soundEffects = nullptr;
    QSlider* m_speed = nullptr;
    QLabel* m_speedText = nullptr;
    QLabel* m_notKept = nullptr;
    bool m_showing = false;  // The settings go to the controls, not the other way.
};

}
