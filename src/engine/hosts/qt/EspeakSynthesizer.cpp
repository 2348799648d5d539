#include "engine/hosts/qt/EspeakSynthesizer.h"
#include <QCoreApplication>
#include <QEvent>
#include <memory>

namespace engine {

// The event first: when there is no memory for either, nothing was put.
void CSpeechInbox::Put(UtteranceID utterance, SpeechChunk chunk)
{
    auto wakeUp = std::make_unique<QEvent>(QEvent::User);
    {
        const std::lock_guard lock(m_mutex);
        m_waiting.emplace_back(utterance, std::move(chunk));
    }
    QCoreApplication::postEvent(this, wakeUp.release());
}

bool CSpeechInbox::event(QEvent* event)
{
    if (event->type() != QEvent::User)
        return QObject::event(event);
    std::unique_lock lock(m_mutex);
    if (m_waiting.empty())
        return true;
    auto [utterance, chunk] = std::move(m_waiting.front());
    m_waiting.pop_front();
    lock.unlock();
    m_receive(utterance, std::move(chunk));
    return true;
}

CEspeakSynthesizer::CEspeakSynthesizer()
    : m_inbox([this](UtteranceID utterance, SpeechChunk chunk) { Receive(utterance, std::move(chunk)); }),
      m_worker([this](UtteranceID utterance, SpeechChunk chunk) { m_inbox.Put(utterance, std::move(chunk)); })
{
}

UtteranceID CEspeakSynthesizer::Synthesize(const std::string& modeId, std::vector<SpeechSegment> segments,
                                           std::function<void(SpeechChunk)> receive)
{
    const UtteranceID utterance = ++m_lastUtterance;
    m_worker.Add(utterance, modeId, std::move(segments));
    m_receivers.emplace(utterance, std::move(receive));  // Soon enough: what is made comes from the event loop.
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
