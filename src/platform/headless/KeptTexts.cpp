#include "platform/headless/KeptTexts.h"
#include "base/text/Text.h"
#include <utility>

namespace platform::headless {

bool CKeptTexts::Keep(const EditedText& text)
{
    m_journal.Enter("KeptTexts.Keep " + text.file);
    if (full || text.text.empty())
        return false;
    kept.push_back(text);
    return true;
}

bool CKeptTexts::KeepFormer(const std::string& path, const std::string& text)
{
    m_journal.Enter("KeptTexts.KeepFormer " + path);
    if (full || !m_files.Has(path) || m_files.Content(path) == text + text::LineBreak)
        return false;
    kept.push_back({path, m_files.Content(path)});
    return true;
}

void CKeptTexts::ForgetCopy()
{
    m_journal.Enter("KeptTexts.ForgetCopy");
    m_due = false;
    copy.reset();
}

bool CKeptTexts::CopyNow()
{
    m_journal.Enter("KeptTexts.CopyNow");
    return Copy();
}

std::string CKeptTexts::TakeLeftBehind()
{
    m_journal.Enter("KeptTexts.TakeLeftBehind");
    return std::exchange(leftBehind, "");
}

void CKeptTexts::TimeIsUp()
{
    if (m_due)
        Copy();
}

bool CKeptTexts::Copy()
{
    m_due = false;
    std::optional<EditedText> text = m_source ? m_source() : std::nullopt;
    if (full || !text)
        return false;
    copy = std::move(text);
    return true;
}

}
