#pragma once
#include "platform/Platform.h"
#include "platform/linux/DesktopEngine.h"
#include "platform/linux/LinuxClipboard.h"
#include "platform/linux/LinuxEnvironment.h"
#include "platform/linux/LinuxFileDialogs.h"
#include "platform/linux/LinuxFiles.h"
#include "platform/linux/LinuxKeptTexts.h"
#include "platform/linux/LinuxLocale.h"
#include "platform/linux/LinuxMessageBoxes.h"
#include "platform/linux/LinuxProfile.h"
#include "platform/linux/LinuxRegistry.h"
#include "platform/linux/LinuxServices.h"
#include "platform/linux/LinuxShell.h"
#include "platform/linux/LinuxStateFile.h"
#include "platform/linux/LinuxTrayIcon.h"
#include <QTimer>

namespace platform::linuxdesktop {

struct DesktopSettings {
    std::string commandLine;     // What the logic gets to see.
    std::string sound = "auto";  // See engine/hosts/qt/QtHost.h.
};

// Owns every service of the Linux desktop. On the first start of a user it places the bundled characters and the first
// options. Needs a QApplication, which must outlive it.
class CLinuxDesktop {
public:
    explicit CLinuxDesktop(const DesktopSettings& settings);
    const CPlatform& Platform() const { return m_platform; }
    CLinuxTrayIcon& TrayIcon() { return m_trayIcon; }
    void FlushStores() { m_registry.Flush(); }
    CLinuxStateFile& StateFile() { return m_stateFile; }

private:
    void PrepareFirstStart();

    CLinuxFiles m_files;
    CLinuxKeptTexts m_keptTexts;
    CLinuxRegistry m_registry;
    CLinuxProfile m_profile;
    CLinuxEnvironment m_environment;
    CLinuxClipboard m_clipboard;
    CLinuxClock m_clock;
    CLinuxLocale m_locale;
    CLinuxEventPump m_events;
    CLinuxFileDialogs m_fileDialogs;
    CLinuxFonts m_fonts;
    CLinuxMessageBoxes m_messageBoxes;
    CLinuxOffice m_office;
    CLinuxProgram m_program;
    CLinuxRandomNumbers m_random;
    CLinuxScreen m_screen;
    CLinuxShell m_shell;
    CLinuxStateFile m_stateFile;
    CLinuxTrayIcon m_trayIcon;
    std::unique_ptr<IDesktopEngine> m_engine;
    QTimer m_flush;  // At the end of the event-loop turn in which something was stored.
    CPlatform m_platform;
};

}
