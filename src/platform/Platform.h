#pragma once

namespace platform {

class ICharacterEngineFactory;
class IClipboard;
class IClock;
class IEnvironment;
class IEventPump;
class IFileDialogs;
class IFiles;
class IFonts;
class IKeptTexts;
class ILocale;
class IMessageBoxes;
class IOfficeApplications;
class IProfile;
class IProgram;
class IRandomNumbers;
class IRegistry;
class IScreen;
class IShell;
class ISpeechEngines;
class IStateFile;
class ITrayIcon;

// Everything that the program needs from a system. The entry point of each system builds one and hands it over; include
// the header of the service that you use.
struct CPlatform {
    ICharacterEngineFactory& characterEngines;
    IClipboard& clipboard;
    IClock& clock;
    IEnvironment& environment;
    IEventPump& events;
    IFileDialogs& fileDialogs;
    IFiles& files;
    IFonts& fonts;
    IKeptTexts& keptTexts;
    ILocale& locale;
    IMessageBoxes& messageBoxes;
    IOfficeApplications& office;
    IProfile& profile;
    IProgram& program;
    IRandomNumbers& random;
    IRegistry& registry;
    IScreen& screen;
    IShell& shell;
    ISpeechEngines& speechEngines;
    IStateFile& stateFile;
    ITrayIcon& trayIcon;
};

// The platform handed over last. Asserts that there is one.
const CPlatform& Current();

// Hands a platform over for its own lifetime; the former one returns afterwards. Borrowed, must outlive this object.
class CPlatformInUse {
public:
    explicit CPlatformInUse(const CPlatform& platform);
    ~CPlatformInUse();
    CPlatformInUse(const CPlatformInUse&) = delete;
    CPlatformInUse& operator=(const CPlatformInUse&) = delete;

private:
    const CPlatform* m_former;
};

}
