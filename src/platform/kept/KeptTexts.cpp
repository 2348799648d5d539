#include "platform/kept/KeptTexts.h"
#include <utility>

namespace platform::kept {

bool CKeptTexts::Keep(const EditedText& text)
{
    return !text.text.empty() && m_store.Keep(text.file, m_system.bytesOfText(text.text));
}

bool CKeptTexts::KeepFormer(const std::string& path, const std::string& text)
{
    const std::optional<std::string> former = m_system.read(path);
    return former && *former != m_system.bytesToWrite(path, text) && m_store.Keep(path, *former);
}

void CKeptTexts::Changed()
{
    m_due = true;
    if (std::exchange(m_timerRuns, true))
        return;
    m_system.startTimer();
}

void CKeptTexts::TimeIsUp()
{
    m_timerRuns = false;
    if (m_due)
        OrderCopy();
}

void CKeptTexts::ForgetCopy()
{
    m_due = false;
    m_copy.Remove();
}

bool CKeptTexts::CopyNow() { return OrderCopy() && m_copy.Wait(); }

// An emptied text is nothing to keep; the copy of what it was stays.
bool CKeptTexts::OrderCopy()
{
    m_due = false;
    std::optional<EditedText> text = m_source ? m_source() : std::nullopt;
    if (!text || text->text.empty())
        return false;
    m_copy.Make(std::move(*text));
    return true;
}

}
