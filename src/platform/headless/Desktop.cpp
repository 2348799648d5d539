#include "platform/headless/Desktop.h"
#include "common/ProgramState.h"

CHeadlessDesktop::CHeadlessDesktop() : CHeadlessDesktop(engine) {}

CHeadlessDesktop::CHeadlessDesktop(platform::ICharacterEngineFactory& characterEngines)
    : m_platform{characterEngines, clipboard, clock,         environment, events,  fileDialogs, files,  fonts,
                 keptTexts,        locale,    messageBoxes,  office,      profile, program,     random, registry,
                 screen,           shell,     speechEngines, stateFile,   trayIcon},
      m_inUse(m_platform)
{
    common::RenewProgramState();
    clock.Set(2026, 11, 15, 14, 5);
    journal.Clear();
}

CHeadlessDesktop::~CHeadlessDesktop() { common::RenewProgramState(); }
