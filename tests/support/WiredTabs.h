#pragma once
#include "startup/WiringParts.h"
#include "support/CharacterProgram.h"

// A run of the program in which the controls of the option tabs do what they do; tests click them.
class WiredTabs : public CharacterProgram {
protected:
    WiredTabs()
    {
        settings::Paths().programFolder = "C:\\Program Files\\Parlune\\";
        settings::Paths().characterFolder = "C:\\WINDOWS\\MSAgent\\Chars\\";
        startup::WireTabs(window);
    }

    enum Tab { General, Character, Voice, Balloon, Read, Greetings, About };
    void Visit(Tab tab) { window.tabMain.Select(tab); }

    platform::headless::EngineCharacter& Loaded() { return *desktop.engine.loaded; }
    std::optional<std::string> Stored(const std::string& key) const
    {
        return desktop.profile.Value(SettingsFile, "Merlin", key);
    }
    void ListVoices(const std::vector<std::string>& modeIDs)
    {
        for (const std::string& modeID : modeIDs)
            desktop.speechEngines.engines.push_back({modeID, "Voice " + modeID});
    }
};
