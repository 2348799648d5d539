#include "engine/hosts/qt/EspeakSynthesizer.h"
#include <QMetaObject>

namespace engine {

CEspeakSynthesizer::CEspeakSynthesizer()
    : m_worker([this](UtteranceID utterance, SpeechChunk chunk) {
          QMetaObject::invokeMethod(
              &m_userInterface,
              [this, utterance, sent = std::make_shared<SpeechChunk>(std::move(chunk))] {
                  Receive(utterance, std::move(*sent));
              },
              Qt::QueuedConnection);
      })
{
}

UtteranceID CEspeakSynthesizer::Synthesize(const std::string& modeId, std::vector<SpeechSegment> segments,
                                           std::function<void(SpeechChunk)> receive)
{
    const UtteranceID utterance = ++m_lastUtterance;
    m_receivers.emplace(utterance, std::move(receive));
    m_worker.Add(utterance, modeId, std::move(segments));
    return utterance;
}

void CEspeakSynthesizer::Cancel(UtteranceID utterance)
{
    if (m_receivers.erase(utterance) != 0)
        m_worker.Cancel(utterance);
}

// The receiver may cancel this utterance or ask for another one: it is called as a copy.
void CEspeakSynthesizer::Receive(UtteranceID utterance, SpeechChunk chunk)
{
    const auto found = m_receivers.find(utterance);
    if (found == m_receivers.end())
        return;
    const std::function<void(SpeechChunk)> receive = found->second;
    if (chunk.last)
        m_receivers.erase(found);
    receive(std::move(chunk));
}

}
