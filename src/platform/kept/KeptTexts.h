#pragma once
#include "platform/KeptTexts.h"
#include "platform/kept/RunningCopy.h"

namespace platform::kept {

// What a system adds to the safety net.
struct KeptTextsOfSystem {
    IKeptFolder& folder;  // Borrowed.
    std::function<LocalTime()> now;
    std::function<std::string(std::string text)> bytesOfText;  // How a kept text is written. Called on two threads.
    // What a file holds; nothing when there is none or it cannot be read.
    std::function<std::optional<std::string>(const std::string& path)> read;
    // What IFiles::WriteLine would give the file.
    std::function<std::string(const std::string& path, const std::string& text)> bytesToWrite;
    // Calls TimeIsUp once, half a minute later, on the user-interface thread.
    std::function<void()> startTimer;
};

// The safety net, as far as it is the same on every system.
class CKeptTexts final : public IKeptTexts {
public:
    explicit CKeptTexts(KeptTextsOfSystem system)
        : m_system(std::move(system)), m_store(m_system.folder, m_system.now), m_copy(m_store, m_system.bytesOfText)
    {
    }
    bool Keep(const EditedText& text) override;
    bool KeepFormer(const std::string& path, const std::string& text) override;
    void Follow(std::function<std::optional<EditedText>()> source) override { m_source = std::move(source); }
    void Changed() override;
    void ForgetCopy() override;
    bool CopyNow() override;
    std::string TakeLeftBehind() override { return m_store.TakeLeftBehind(); }

    void TimeIsUp();

private:
    bool OrderCopy();
    KeptTextsOfSystem m_system;
    CKeptTextStore m_store;
    std::function<std::optional<EditedText>()> m_source;
    bool m_due = false;  // The text has changed since the last copy.
    bool m_timerRuns = false;
    CRunningCopy m_copy;
};

}
