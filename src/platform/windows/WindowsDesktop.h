#pragma once
#include "platform/Platform.h"
#include "platform/windows/SystemPaths.h"
#include "platform/windows/WindowsClipboard.h"
#include "platform/windows/WindowsClock.h"
#include "platform/windows/WindowsEnvironment.h"
#include "platform/windows/WindowsEventPump.h"
#include "platform/windows/WindowsFileDialogs.h"
#include "platform/windows/WindowsFiles.h"
#include "platform/windows/WindowsFonts.h"
#include "platform/windows/WindowsKeptTexts.h"
#include "platform/windows/WindowsLocale.h"
#include "platform/windows/WindowsMessageBoxes.h"
#include "platform/windows/WindowsProfile.h"
#include "platform/windows/WindowsProgram.h"
#include "platform/windows/WindowsRandomNumbers.h"
#include "platform/windows/WindowsRegistry.h"
#include "platform/windows/WindowsScreen.h"
#include "platform/windows/WindowsShell.h"
#include "platform/windows/WindowsStateFile.h"
#include "platform/windows/WindowsTrayIcon.h"
#include "platform/windows/com/AgentControl.h"
#include "platform/windows/com/Apartment.h"
#include "platform/windows/com/Office.h"
#include "platform/windows/com/SpeechEngines.h"

namespace platform::windowsdesktop {

// Owns every service of the Windows desktop, and COM for this thread, the user-interface thread. Before the program runs,
// give the windows to the services that need one (Clipboard().UseWindow, FileDialogs().UseOwner, TrayIcon().UseOwner).
class CWindowsDesktop {
public:
    CWindowsDesktop();  // Throws CFailure when there is no COM.
    CWindowsDesktop(const CWindowsDesktop&) = delete;
    CWindowsDesktop& operator=(const CWindowsDesktop&) = delete;

    const CPlatform& Platform() const { return m_platform; }
    CWindowsClipboard& Clipboard() { return m_clipboard; }
    CWindowsEventPump& Events() { return m_events; }
    CWindowsFileDialogs& FileDialogs() { return m_fileDialogs; }
    CWindowsScreen& Screen() { return m_screen; }
    CWindowsTrayIcon& TrayIcon() { return m_trayIcon; }

private:
    CComApartment m_apartment;  // Outlives everything made of COM.
    CAgentFactory m_characterEngines;
    CWindowsClipboard m_clipboard;
    CWindowsClock m_clock;
    CWindowsEnvironment m_environment;
    CWindowsEventPump m_events;
    CWindowsFileDialogs m_fileDialogs;
    CWindowsFiles m_files;
    CWindowsFonts m_fonts;
    CWindowsKeptTexts m_keptTexts{KeptTextsFolder()};
    CWindowsLocale m_locale;
    CWindowsMessageBoxes m_messageBoxes;
    CComOffice m_office;
    CWindowsProfile m_profile;
    CWindowsProgram m_program{[this] { m_stateFile.Finish(); }};
    CWindowsRandomNumbers m_random;
    CWindowsRegistry m_registry;
    CWindowsScreen m_screen;
    CWindowsShell m_shell;
    CSapiSpeechEngines m_speechEngines;
    CWindowsStateFile m_stateFile{StateFolder()};
    CWindowsTrayIcon m_trayIcon;
    CPlatform m_platform;
};

}
