#pragma once
#include "platform/KeptTexts.h"
#include "platform/headless/Files.h"
#include "platform/headless/Journal.h"
#include <vector>

namespace platform::headless {

// A safety net in memory. Changed and Follow are not noted: they ask for nothing.
class CKeptTexts final : public IKeptTexts {
public:
    CKeptTexts(CJournal& journal, const CFiles& files) : m_journal(journal), m_files(files) {}
    bool Keep(const EditedText& text) override;
    bool KeepFormer(const std::string& path, const std::string& text) override;
    void Follow(std::function<std::optional<EditedText>()> source) override { m_source = std::move(source); }
    void Changed() override { m_due = true; }
    void ForgetCopy() override;
    bool CopyNow() override;
    std::string TakeLeftBehind() override;

    // For tests: half a minute after a change.
    void TimeIsUp();
    std::vector<EditedText> kept;    // In the order in which they were kept; contents of files as they are in the file.
    std::optional<EditedText> copy;  // Of the text that is being edited.
    std::string leftBehind;          // By a former run.
    bool full = false;               // Nothing can be kept.

private:
    bool Copy();
    CJournal& m_journal;
    const CFiles& m_files;
    std::function<std::optional<EditedText>()> m_source;
    bool m_due = false;
};

}
