#pragma once
#include "engine/Engine.h"
#include "engine/hosts/qt/CharacterPreview.h"
#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>
#include <optional>
#include <vector>

namespace engine {

// The window in which the user picks the default character. Files are looked at one after another, so that a full folder
// does not make anybody wait.
class CDefaultCharacterWindow final : public QDialog {
    Q_OBJECT
public:
    CDefaultCharacterWindow(CUserSettings& settings, ICharacterSource& source, ITimers& timers);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void accept() override;

private:
    void Build(ITimers& timers);
    void BeginList();
    void ListNext();
    void Add(const std::string& file, const Character& character);
    void EndList();
    bool IsPresentChoice(const std::string& file, const Character& character) const;
    void ShowSelected();

    CUserSettings& m_settings;
    ICharacterSource& m_source;
    QListWidget* m_list = nullptr;
    CCharacterPreview* m_preview = nullptr;
    QLabel* m_description = nullptr;
    QLabel* m_nothing = nullptr;
    QPushButton* m_ok = nullptr;
    std::vector<std::string> m_files;  // Those that are still to be looked at, in reverse.
    std::optional<std::array<std::uint8_t, 16>> m_presentDefault;
    bool m_userHasChosen = false;  // A row, before the list was complete.
    QTimer m_next;
};

}
