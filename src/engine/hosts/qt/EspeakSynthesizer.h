#pragma once
#include "engine/Host.h"
#include "engine/hosts/qt/EspeakWorker.h"
#include <QObject>
#include <map>

namespace engine {

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
    QObject m_userInterface;         // Lives on its thread; what is posted to it dies with it.
    mutable CEspeakWorker m_worker;  // Gone first, so that it posts to nobody. Starts at the first question.
};

}
