#include "platform/windows/WindowsDesktop.h"

namespace platform::windowsdesktop {

CWindowsDesktop::CWindowsDesktop()
    : m_platform{.characterEngines = m_characterEngines,
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
                 .speechEngines = m_speechEngines,
                 .stateFile = m_stateFile,
                 .trayIcon = m_trayIcon}
{
}

}
