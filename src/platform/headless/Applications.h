#pragma once
#include "platform/Fonts.h"
#include "platform/OfficeApplications.h"
#include "platform/Program.h"
#include "platform/SpeechEngines.h"
#include "platform/headless/Journal.h"
#include <optional>
#include <string>
#include <vector>

namespace platform::headless {

// Office applications as scripted objects.
class COfficeApplications final : public IOfficeApplications {
public:
    explicit COfficeApplications(CJournal& journal) : m_journal(journal) {}
    std::unique_ptr<IWord> RunningWord() override;
    std::unique_ptr<IExcel> RunningExcel() override;

    struct Word {
        std::string document;
        std::string selection;
    };
    struct Excel {
        bool selectionIsObject = true;
        std::vector<std::vector<std::string>> rows;  // The selected cells, row by row.
    };
    std::optional<Word> word;  // No value: it does not run.
    std::optional<Excel> excel;

private:
    CJournal& m_journal;
};

class CSpeechEngines final : public ISpeechEngines {
public:
    explicit CSpeechEngines(CJournal& journal) : m_journal(journal) {}
    bool Installed() override;
    std::unique_ptr<ISpeechEngineList> Open() override;

    struct Engine {
        std::string modeID;
        std::string modeName;
        std::int32_t languageID = 0x0409;
    };
    bool installed = true;
    std::vector<Engine> engines;

private:
    CJournal& m_journal;
};

class CFonts final : public IFonts {
public:
    explicit CFonts(CJournal& journal) : m_journal(journal) {}
    void EnumerateFamilies(const std::function<std::int32_t(std::string_view faceName)>& family) const override;

    std::vector<std::string> faceNames;  // As fields: may hold a NUL and rubbish behind it.

private:
    CJournal& m_journal;
};

class CProgram final : public IProgram {
public:
    explicit CProgram(CJournal& journal) : m_journal(journal) {}
    [[noreturn]] void End() override;  // Throws CProgramEnded.

    bool ended = false;

private:
    CJournal& m_journal;
};

}
