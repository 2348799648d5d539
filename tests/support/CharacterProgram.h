#pragma once
#include "character/CharacterSession.h"
#include "character/CharacterState.h"
#include "platform/headless/Desktop.h"
#include "settings/OptionsRecord.h"
#include "settings/Paths.h"
#include "ui/frmParlune.h"
#include <gtest/gtest.h>
#include <string>
#include <vector>

// A run of the program on a desktop in memory, after its folders are settled and before a character is loaded.
class CharacterProgram : public testing::Test {
protected:
    CharacterProgram() { settings::Paths().settingsFile = SettingsFile; }

    // Loads and shows the engine's character as "Merlin"; the journal starts behind it.
    void LoadMerlin()
    {
        character::CharLoad("Merlin", /*show*/ true);
        desktop.journal.Clear();
    }

    // "module:section" of every report shown so far.
    std::vector<std::string> Reports() const
    {
        std::vector<std::string> reports;
        for (const auto& box : desktop.messageBoxes.shown)
            reports.push_back(box.Line(1).substr(std::string("Section: ").size()));
        return reports;
    }

    const platform::headless::CRequest& LastRequest() const { return *desktop.engine.requests.back(); }

    static constexpr char SettingsFile[] = "C:\\Data\\Parlune.ini";
    const platform::CFailure failure{13, "Type mismatch"};
    CHeadlessDesktop desktop;
    frmParlune& window = MainWindow();
};
