#pragma once
#include <cstdint>
#include <string>
#include <vector>

// The installed speech voices, counted from 1; loads itself when created. Failures while loading reach the creator.
class CTTSEngines {
public:
    struct CEmpty {};
    CTTSEngines();
    explicit CTTSEngines(CEmpty) {}  // Without any voice.

    std::int32_t TTSCount() const { return m_count; }
    const std::string& ModeID(std::int32_t index) const;
    const std::string& ModeName(std::int32_t index) const;
    std::int32_t SAPIVersion(std::int32_t index) const;
    std::int32_t LanguageID(std::int32_t index) const;
    void AddEngine(std::int32_t version, const std::string& modeID, const std::string& modeName, std::int32_t languageID);
    // Sets the found index to the first voice with exactly this identifier, or to -1.
    void FindModeID(const std::string& modeID);
    std::int32_t FoundIndex() const { return m_found; }
    std::int32_t Capacity() const { return static_cast<std::int32_t>(m_engines.size()); }

private:
    struct Engine {
        std::int32_t SAPIVersion = 0;
        std::int32_t LanguageID = 0;
        std::string ModeID;
        std::string ModeName;
    };
    const Engine& At(std::int32_t index) const;  // Throws CFailure 9 outside the array.
    std::vector<Engine> m_engines;
    std::int32_t m_count = 0;
    std::int32_t m_found = -1;
};

// The catalogue that fills the voice list; without any voice until InitTTS has run.
CTTSEngines& SpeechCatalogue();
