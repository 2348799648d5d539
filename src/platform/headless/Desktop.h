#pragma once
#include "platform/Platform.h"
#include "platform/headless/Applications.h"
#include "platform/headless/Engine.h"
#include "platform/headless/Files.h"
#include "platform/headless/Interaction.h"
#include "platform/headless/Journal.h"
#include "platform/headless/KeptTexts.h"
#include "platform/headless/Registry.h"
#include "platform/headless/StateFile.h"
#include "platform/headless/Time.h"
#include <memory>

// A whole platform in memory: scripted, in virtual time, every call noted. Making one hands it over as the platform in use
// and forgets all program-wide state, so that each test starts a fresh run of the program.
class CHeadlessDesktop {
public:
    CHeadlessDesktop();
    // With another character engine than the recording one. Borrowed.
    explicit CHeadlessDesktop(platform::ICharacterEngineFactory& characterEngines);
    ~CHeadlessDesktop();
    CHeadlessDesktop(const CHeadlessDesktop&) = delete;
    CHeadlessDesktop& operator=(const CHeadlessDesktop&) = delete;

    platform::headless::CJournal journal;
    platform::headless::CClock clock{journal};
    platform::headless::CLocale locale{journal};
    platform::headless::CRandomNumbers random{journal};
    platform::headless::CEventPump events{journal, clock};
    platform::headless::CRegistry registry{journal};
    platform::headless::CProfile profile{journal};
    platform::headless::CFiles files{journal};
    platform::headless::CKeptTexts keptTexts{journal, files};
    platform::headless::CEnvironment environment{journal};
    platform::headless::CClipboard clipboard{journal};
    platform::headless::CMessageBoxes messageBoxes{journal};
    platform::headless::CFileDialogs fileDialogs{journal};
    platform::headless::CShell shell{journal};
    platform::headless::CScreen screen{journal};
    platform::headless::CTrayIcon trayIcon{journal};
    platform::headless::COfficeApplications office{journal};
    platform::headless::CSpeechEngines speechEngines{journal};
    platform::headless::CStateFile stateFile;
    platform::headless::CFonts fonts{journal};
    platform::headless::CProgram program{journal};
    platform::headless::CEngine engine{journal};

private:
    platform::CPlatform m_platform;
    platform::CPlatformInUse m_inUse;
};
