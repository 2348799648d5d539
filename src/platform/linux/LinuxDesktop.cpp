#include "platform/linux/LinuxDesktop.h"
#include "base/text/CheckSum.h"
#include "platform/FirstStart.h"
#include "platform/linux/FirstStart.h"
#include "platform/linux/UserFolders.h"
#include <limits>

namespace platform::linuxdesktop {
namespace {
std::string RegistryFile() { return ConfigurationFolder() + "/parlune/registry.txt"; }

std::string EngineSettingsFile() { return ConfigurationFolder() + "/parlune/character-engine.txt"; }

// Shared by all programs of the user, whatever their settings are.
std::string LoadedFolder()
{
    const std::string folder = RuntimeFolder();
    return folder.empty() ? "" : folder + "/parlune/characters";
}

std::string AutostartFile() { return ConfigurationFolder() + "/autostart/parlune.desktop"; }

// The state folder may be shared by settings in several places.
std::string OptionsJournalFile()
{
    return StateFolder() + "/options-" + ::text::Hexadecimal(::text::CheckSum(RegistryFile())) + ".journal";
}

std::string CharacterFolder(const IFiles& files)
{
    return files.WindowsFolder(std::numeric_limits<std::size_t>::max()) + "/MSAgent/Chars";
}

// Beside the program, or where packages put what all machines share.
std::string BundledCharacters(const IFiles& files)
{
    const std::string beside = files.ProgramFolder() + "/characters";
    return files.Kind(beside) == EntryKind::Folder ? beside : files.ProgramFolder() + "/../share/parlune/characters";
}
}

CLinuxDesktop::CLinuxDesktop(const DesktopSettings& settings)
    : m_keptTexts(m_files, KeptTextsFolder()), m_registry(RegistryFile(), CAutostart(AutostartFile(), ProgramFile())),
      m_environment(settings.commandLine), m_program([this] {
          FlushStores();
          m_stateFile.Finish();
      }),
      m_stateFile(OptionsJournalFile(), [this] { return m_registry.Flush(); }),
      m_engine(CreateDesktopEngine({.sound = settings.sound,
                                    .characterFolder = CharacterFolder(m_files),
                                    .bundledFolder = BundledCharacters(m_files),
                                    .settingsFile = EngineSettingsFile(),
                                    .loadedFolder = LoadedFolder()})),
      m_platform{.characterEngines = m_engine->Factory(),
                 .clipboard = m_clipboard,
                 .clock = m_clock,
                 .environment = m_environment,
                 .events = m_events,
                 .fileDialogs = m_fileDialogs,
                 .files = m_files,
                 .fonts = m_fonts,
                 .keptTexts = m_keptTexts.Texts(),
                 .locale = m_locale,
                 .messageBoxes = m_messageBoxes,
                 .office = m_office,
                 .profile = m_profile,
                 .program = m_program,
                 .random = m_random,
                 .registry = m_registry,
                 .screen = m_screen,
                 .shell = m_shell,
                 .speechEngines = m_engine->Voices(),
                 .stateFile = m_stateFile,
                 .trayIcon = m_trayIcon}
{
    m_flush.setSingleShot(true);
    QObject::connect(&m_flush, &QTimer::timeout, [this] { FlushStores(); });
    m_registry.OnChange([this] { m_flush.start(0); });
    PrepareFirstStart();
}

void CLinuxDesktop::PrepareFirstStart()
{
    CAutostart(AutostartFile(), ProgramFile()).FollowProgram();
    PlaceCharacters(BundledCharacters(m_files), CharacterFolder(m_files));
    PrepareOptions(m_registry);
    // The same where nothing can be stored.
    for (const char* side : {"CharWidth", "CharHeight"})
        m_registry.Assume(Root::CurrentUser, OptionKey, side, "0");
}

}
