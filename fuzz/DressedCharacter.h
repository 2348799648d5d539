#pragma once
#include "Require.h"
#include "character/CharacterState.h"
#include "platform/headless/Desktop.h"
#include "settings/Paths.h"
#include "ui/frmParlune.h"
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

// A fresh program with a settings file in which a test stores one option of the default character.
struct DressedCharacter {
    DressedCharacter()
    {
        settings::Paths().settingsFile = "Parlune.ini";
        for (const char* entry : {"Monotone", "Whisper", "Email", "Address"})
            MainWindow().cboChr.Add(entry);
    }
    void Store(const std::string& option, std::span<const std::uint8_t> value)
    {
        desktop.profile.Put("Parlune.ini", desktop.engine.character.name, option, std::string(value.begin(), value.end()));
    }
    CHeadlessDesktop desktop;
};
