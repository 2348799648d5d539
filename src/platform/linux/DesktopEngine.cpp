#include "platform/linux/DesktopEngine.h"
#include "engine/files/CharacterFolders.h"
#include "engine/hosts/qt/EngineWindows.h"
#include "engine/hosts/qt/QtHost.h"
#include "platform/Failure.h"
#include "platform/linux/EngineSettingsFile.h"
#include "platform/linux/LoadedCharacters.h"

namespace platform::linuxdesktop {
namespace {
// A copy of the voices as they are now, counted from 1.
class CVoiceList final : public ISpeechEngineList {
public:
    explicit CVoiceList(std::vector<engine::Voice> voices) : m_voices(std::move(voices)) {}
    std::int32_t Count() override { return static_cast<std::int32_t>(m_voices.size()); }
    std::string ModeID(std::int32_t index) override { return At(index).modeId; }
    std::string ModeName(std::int32_t index) override { return At(index).name; }
    std::int32_t LanguageID(std::int32_t index) override { return At(index).languageId; }

private:
    const engine::Voice& At(std::int32_t index) const
    {
        if (index < 1 || static_cast<std::size_t>(index) > m_voices.size())
            throw failure::InvalidCall();
        return m_voices[static_cast<std::size_t>(index) - 1];
    }
    std::vector<engine::Voice> m_voices;
};

// The user's characters. When none of them can be loaded, the program's own one stands in.
class CCharacters final : public engine::ICharacterSource {
public:
    CCharacters(const std::string& users, const std::string& bundled) : m_users({users}), m_bundled({bundled}) {}
    engine::CharacterRef Load(const std::string& file) override { return m_users.Load(file); }
    std::vector<std::string> Installed() override { return m_users.Installed(); }
    engine::CharacterRef LoadDefault() override
    {
        try {
            return m_users.LoadDefault();
        } catch (const CFailure&) {
            return m_bundled.LoadDefault();
        }
    }

private:
    engine::CCharacterFolders m_users;
    engine::CCharacterFolders m_bundled;
};

class CDesktopEngine final : public IDesktopEngine, public ICharacterEngineFactory, public ISpeechEngines {
public:
    explicit CDesktopEngine(const DesktopEngineOptions& options)
        : m_host(engine::CreateQtHost({.sound = options.sound,
                                       .settingsFile = std::make_shared<CEngineSettingsFile>(options.settingsFile),
                                       .loadedCharacters = std::make_shared<CLoadedCharacters>(options.loadedFolder)})),
          m_characters(options.characterFolder, options.bundledFolder)
    {
        m_settings.user = std::make_shared<engine::CUserSettings>(m_host->SettingsFile());
        m_windows = engine::CreateEngineWindows(*m_settings.user, m_characters, m_host->Timers());
        m_settings.showPropertySheet = [this](bool visible) { m_windows->ShowPropertySheet(visible); };
        m_settings.showDefaultCharacterProperties = [this] { m_windows->ShowDefaultCharacter(); };
        m_host->WarmUp();
    }
    ICharacterEngineFactory& Factory() override { return *this; }
    ISpeechEngines& Voices() override { return *this; }

    std::shared_ptr<ICharacterEngine> Create() override { return engine::CreateEngine(*m_host, m_characters, m_settings); }
    void RequireForMainWindow() override {}  // The engine is part of the program.

    bool Installed() override { return m_host->Synthesizer().Available(); }
    std::unique_ptr<ISpeechEngineList> Open() override
    {
        if (!Installed())
            throw failure::CannotCreateObject();
        return std::make_unique<CVoiceList>(m_host->Synthesizer().Voices());
    }

private:
    std::unique_ptr<engine::IQtHost> m_host;
    CCharacters m_characters;
    engine::EngineSettings m_settings;
    std::unique_ptr<engine::IEngineWindows> m_windows;
};
}

std::unique_ptr<IDesktopEngine> CreateDesktopEngine(const DesktopEngineOptions& options)
{
    return std::make_unique<CDesktopEngine>(options);
}

}
