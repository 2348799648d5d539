#pragma once
#include "engine/Host.h"
#include "engine/hosts/qt/EspeakWorker.h"
#include <QObject>
#include <deque>
#include <map>
#include <mutex>
#include <utility>

namespace engine {

// What the worker's thread has made, on its way to the user-interface thread, where this object lives. What was put here and
// not received dies with it.
class CSpeechInbox final : public QObject {
public:
    using Receive = std::function<void(UtteranceID, SpeechChunk)>;
    explicit CSpeechInbox(Receive receive) : m_receive(std::move(receive)) {}
    void Put(UtteranceID utterance, SpeechChunk chunk);  // On any thread. Each is received from an event of its own.

private:
    bool event(QEvent* event) override;

    Receive m_receive;
    std::mutex m_mutex;
    std::deque<std::pair<UtteranceID, SpeechChunk>> m_waiting;
};

// Speech by libespeak-ng. An utterance for a mode id that no voice has fails.
class CEspeakSynthesizer final : public ISynthesizer {
public:
    CEspeakSynthesizer();
    void WarmUp() { m_worker.Start(); }
    bool Available() const override { return !m_worker.Voices().empty(); }
    std::int32_t SampleRate() const override { return m_worker.SampleRate(); }
    std::vector<Voice> Voices() override { return m_worker.Voices(); }
    UtteranceID Synthesize(const std::string& modeId, std::vector<SpeechSegment> segments,
                           std::function<void(SpeechChunk)> receive) override;
    void Cancel(UtteranceID utterance) override;

private:
    void Receive(UtteranceID utterance, SpeechChunk chunk);

    std::map<UtteranceID, std::function<void(SpeechChunk)>> m_receivers;
    UtteranceID m_lastUtterance = 0;
    CSpeechInbox m_inbox;
    mutable CEspeakWorker m_worker;  // Gone first, so that it posts to nobody. Starts at the first question.
};

}
