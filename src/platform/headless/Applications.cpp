#include "platform/headless/Applications.h"

namespace platform::headless {
namespace {

class CWord final : public IWord {
public:
    CWord(CJournal& journal, const COfficeApplications::Word& word) : m_journal(journal), m_word(word) {}
    std::string DocumentText() override
    {
        m_journal.Enter("Word.DocumentText");
        return m_word.document;
    }
    std::string SelectionText() override
    {
        m_journal.Enter("Word.SelectionText");
        return m_word.selection;
    }

private:
    CJournal& m_journal;
    COfficeApplications::Word m_word;
};

class CCellRange final : public ICellRange {
public:
    CCellRange(CJournal& journal, const COfficeApplications::Excel& excel) : m_journal(journal), m_excel(excel) {}
    std::int32_t Columns() override
    {
        m_journal.Enter("Excel.Columns");
        return m_excel.rows.empty() ? 0 : static_cast<std::int32_t>(m_excel.rows.front().size());
    }
    std::int32_t Rows() override
    {
        m_journal.Enter("Excel.Rows");
        return static_cast<std::int32_t>(m_excel.rows.size());
    }
    std::string CellText(std::int32_t row, std::int32_t column) override
    {
        m_journal.Enter("Excel.CellText " + std::to_string(row) + " " + std::to_string(column));
        return m_excel.rows.at(static_cast<std::size_t>(row - 1)).at(static_cast<std::size_t>(column - 1));
    }

private:
    CJournal& m_journal;
    COfficeApplications::Excel m_excel;
};

class CExcel final : public IExcel {
public:
    CExcel(CJournal& journal, const COfficeApplications::Excel& excel) : m_journal(journal), m_excel(excel) {}
    std::unique_ptr<ICellRange> Selection() override
    {
        m_journal.Enter("Excel.Selection");
        return m_excel.selectionIsObject ? std::make_unique<CCellRange>(m_journal, m_excel) : nullptr;
    }

private:
    CJournal& m_journal;
    COfficeApplications::Excel m_excel;
};

class CSpeechEngineList final : public ISpeechEngineList {
public:
    CSpeechEngineList(CJournal& journal, std::vector<CSpeechEngines::Engine> engines)
        : m_journal(journal), m_engines(std::move(engines))
    {
    }
    std::int32_t Count() override
    {
        m_journal.Enter("SpeechEngines.Count");
        return static_cast<std::int32_t>(m_engines.size());
    }
    std::string ModeID(std::int32_t index) override
    {
        m_journal.Enter("SpeechEngines.ModeID " + std::to_string(index));
        return m_engines.at(static_cast<std::size_t>(index - 1)).modeID;
    }
    std::string ModeName(std::int32_t index) override
    {
        m_journal.Enter("SpeechEngines.ModeName " + std::to_string(index));
        return m_engines.at(static_cast<std::size_t>(index - 1)).modeName;
    }
    std::int32_t LanguageID(std::int32_t index) override
    {
        m_journal.Enter("SpeechEngines.LanguageID " + std::to_string(index));
        return m_engines.at(static_cast<std::size_t>(index - 1)).languageID;
    }

private:
    CJournal& m_journal;
    std::vector<CSpeechEngines::Engine> m_engines;
};

}

std::unique_ptr<IWord> COfficeApplications::RunningWord()
{
    m_journal.Enter("Office.RunningWord");
    return word ? std::make_unique<CWord>(m_journal, *word) : nullptr;
}

std::unique_ptr<IExcel> COfficeApplications::RunningExcel()
{
    m_journal.Enter("Office.RunningExcel");
    return excel ? std::make_unique<CExcel>(m_journal, *excel) : nullptr;
}

bool CSpeechEngines::Installed()
{
    m_journal.Enter("SpeechEngines.Installed");
    return installed;
}

std::unique_ptr<ISpeechEngineList> CSpeechEngines::Open()
{
    m_journal.Enter("SpeechEngines.Open");
    if (!installed)
        throw failure::CannotCreateObject();
    return std::make_unique<CSpeechEngineList>(m_journal, engines);
}

void CFonts::EnumerateFamilies(const std::function<std::int32_t(std::string_view faceName)>& family) const
{
    m_journal.Enter("Fonts.EnumerateFamilies");
    for (const std::string& faceName : faceNames)
        if (family(faceName) == 0)
            return;
}

void CProgram::End()
{
    m_journal.Enter("Program.End");
    ended = true;
    throw CProgramEnded();
}

}
