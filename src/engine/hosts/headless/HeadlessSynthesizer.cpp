#include "engine/hosts/headless/HeadlessSynthesizer.h"
#include "base/text/Text.h"
#include "base/text/Utf8.h"
#include <algorithm>
#include <utility>

namespace engine {

namespace {

constexpr std::int16_t LoudSample = 8000;

// Cuts a stream of spoken characters into chunks.
class CChunkWriter {
public:
    CChunkWriter(std::size_t chunkSamples, std::int32_t perCharacter)
        : m_chunkSamples(chunkSamples), m_perCharacter(perCharacter)
    {
        m_chunks.emplace_back();
    }

    void BeginSegment() { m_chunks.back().segmentStarts.push_back(m_sample); }
    void Silence(std::int64_t samples) { Write(samples, 0); }

    void Speak(char32_t character, std::size_t segment, std::size_t position)
    {
        const bool blank = text::IsWhiteSpace(character);
        if (!blank && m_afterBlank)
            m_chunks.back().marks.push_back({SpeechMarkKind::Word, m_sample, segment, position, Mouth::Closed});
        if (blank != m_afterBlank || position == 0)
            m_chunks.back().marks.push_back(
                {SpeechMarkKind::Mouth, m_sample, segment, 0, blank ? Mouth::Closed : Mouth::Wide2});
        m_afterBlank = blank;
        Write(m_perCharacter, blank ? 0 : LoudSample);
    }

    void EndSegment() { m_afterBlank = true; }

    std::deque<SpeechChunk> Take()
    {
        m_chunks.back().last = true;
        return std::move(m_chunks);
    }

private:
    void Write(std::int64_t samples, std::int16_t value)
    {
        std::vector<std::int16_t>& target = m_chunks.back().samples;
        target.insert(target.end(), static_cast<std::size_t>(samples), value);
        m_sample += samples;
        if (target.size() >= m_chunkSamples)
            m_chunks.emplace_back();
    }

    std::size_t m_chunkSamples;
    std::int32_t m_perCharacter;
    std::deque<SpeechChunk> m_chunks;
    std::int64_t m_sample = 0;
    bool m_afterBlank = true;
};

}

CHeadlessSynthesizer::CHeadlessSynthesizer(ITimers& timers) : m_timers(timers)
{
    voices = {{"{00000000-0000-0000-0000-000000000001}", "Ann", "ann", 0x0409, 1, 30},
              {"{00000000-0000-0000-0000-000000000002}", "Bob", "bob", 0x0409, 2, 30},
              {"{00000000-0000-0000-0000-00000000ABCD}", "Claire", "claire", 0x040C, 1, 30}};
}

std::deque<SpeechChunk> CHeadlessSynthesizer::Make(const std::vector<SpeechSegment>& segments) const
{
    CChunkWriter writer(charactersPerChunk * static_cast<std::size_t>(samplesPerCharacter), samplesPerCharacter);
    for (std::size_t index = 0; index < segments.size(); ++index) {
        const SpeechSegment& segment = segments[index];
        writer.BeginSegment();
        writer.Silence(std::int64_t{segment.pauseMilliseconds} * sampleRate / 1000);
        std::size_t position = 0;
        for (std::size_t at = 0; at < segment.text.size(); ++position) {
            const text::Character character = text::CharacterAt(segment.text, at);
            writer.Speak(character.code, index, position);
            at += character.size;
        }
        writer.EndSegment();
    }
    std::deque<SpeechChunk> chunks = writer.Take();
    if (failAfterChunks >= 0 && static_cast<std::size_t>(failAfterChunks) <= chunks.size()) {
        chunks.resize(static_cast<std::size_t>(failAfterChunks));
        chunks.emplace_back();
        chunks.back().failed = true;
        chunks.back().last = true;
    }
    return chunks;
}

UtteranceID CHeadlessSynthesizer::Synthesize(const std::string& modeId, std::vector<SpeechSegment> segments,
                                             std::function<void(SpeechChunk)> receive)
{
    m_orders.push_back({modeId, segments, false});
    const UtteranceID id = m_forgotten + m_orders.size();
    if (silent)
        return id;
    if (m_timer == 0)
        m_timer = m_timers.CallLater(latency, [this] { Deliver(); });
    m_jobs.push_back({id, Make(segments), std::move(receive)});  // Last: who gave an order that failed may be gone.
    return id;
}

void CHeadlessSynthesizer::Cancel(UtteranceID utterance)
{
    if (utterance > m_forgotten)
        m_orders.begin()[static_cast<std::ptrdiff_t>(utterance - m_forgotten) - 1].cancelled = true;
    m_jobs.erase(std::remove_if(m_jobs.begin(), m_jobs.end(), [&](const Job& job) { return job.id == utterance; }),
                 m_jobs.end());
    if (m_jobs.empty())
        m_timers.Cancel(std::exchange(m_timer, 0));
}

void CHeadlessSynthesizer::ForgetOrders()
{
    m_forgotten += m_orders.size();
    m_orders.clear();
}

void CHeadlessSynthesizer::Deliver()
{
    m_timer = 0;
    if (m_jobs.empty())
        return;
    SpeechChunk chunk = std::move(m_jobs.front().chunks.front());
    m_jobs.front().chunks.pop_front();
    const std::function<void(SpeechChunk)> receive = m_jobs.front().receive;
    const bool done = m_jobs.front().chunks.empty();
    if (done)
        m_jobs.pop_front();
    if (!m_jobs.empty())
        m_timer = m_timers.CallLater(done ? latency : 1, [this] { Deliver(); });
    receive(std::move(chunk));
}

}
