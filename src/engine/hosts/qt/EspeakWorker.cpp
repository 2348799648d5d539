#include "engine/hosts/qt/EspeakWorker.h"
#include "base/text/Case.h"
#include "engine/hosts/qt/SteadyClock.h"
#include "engine/hosts/qt/Utterance.h"
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>
#include <new>

namespace engine {
namespace {

// So much sound is made ahead of its playing; a book would otherwise fill the memory.
constexpr std::int64_t SecondsAhead = 180;

}

CEspeakWorker::~CEspeakWorker()
{
    {
        const std::lock_guard lock(m_mutex);
        m_ending = true;
        m_current = 0;
    }
    m_changed.notify_all();
    if (m_thread.joinable())
        m_thread.join();
}

void CEspeakWorker::Start()
{
    if (!m_thread.joinable())
        m_thread = std::thread([this] { Run(); });
}

void CEspeakWorker::WaitUntilReady()
{
    Start();
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return m_ready; });
}

const std::vector<Voice>& CEspeakWorker::Voices()
{
    WaitUntilReady();
    return m_voices;
}

std::int32_t CEspeakWorker::SampleRate()
{
    WaitUntilReady();
    return m_sampleRate;
}

void CEspeakWorker::Add(UtteranceID id, const std::string& modeId, std::vector<SpeechSegment> segments)
{
    Start();
    {
        const std::lock_guard lock(m_mutex);
        m_waiting.push_back({id, modeId, std::move(segments)});
    }
    m_changed.notify_all();
}

void CEspeakWorker::Cancel(UtteranceID id)
{
    {
        const std::lock_guard lock(m_mutex);
        m_waiting.erase(std::remove_if(m_waiting.begin(), m_waiting.end(), [id](const Job& job) { return job.id == id; }),
                        m_waiting.end());
        if (m_current == id)
            m_current = 0;
    }
    m_changed.notify_all();
}

void CEspeakWorker::Run()
{
    LoadVoices();
    while (const std::optional<Job> job = TakeJob())
        PerformOrFail(*job);
}

// An exception would end the program here, and whoever waits for this speech would wait for ever without an answer.
void CEspeakWorker::PerformOrFail(const Job& job)
{
    try {
        return Perform(job);
    } catch (const std::exception&) {
        std::fputs("Parlune: a text could not be made into speech.\n", stderr);
    }
    while (!DeliverFailure(job.id))
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
}

// False while there is no memory even for that.
bool CEspeakWorker::DeliverFailure(UtteranceID id)
{
    try {
        m_deliver(id, SpeechChunk{{}, {}, {}, /*last*/ true, /*failed*/ true});
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

void CEspeakWorker::LoadVoices()
{
    try {
        ReadVoices();
    } catch (const std::bad_alloc&) {
        m_voices.clear();
    }
    const std::lock_guard lock(m_mutex);
    m_ready = true;
    m_changed.notify_all();
}

void CEspeakWorker::ReadVoices()
{
    CEspeakLibrary& library = CEspeakLibrary::Get();
    const auto owner = library.Lock();
    const std::string& failure = library.Start();
    m_sampleRate = library.SampleRate();
    if (failure.empty())
        m_voices = library.Voices();
    else
        std::fprintf(stderr, "Parlune: no speech: %s\n", failure.c_str());
}

// Waits for the next utterance. No value when there will be none.
std::optional<CEspeakWorker::Job> CEspeakWorker::TakeJob()
{
    std::unique_lock lock(m_mutex);
    m_current = 0;
    m_changed.wait(lock, [this] { return m_ending || !m_waiting.empty(); });
    if (m_ending)
        return std::nullopt;
    std::optional<Job> job(std::move(m_waiting.front()));
    m_waiting.pop_front();
    m_current = job->id;
    return job;
}

void CEspeakWorker::Perform(const Job& job)
{
    const UtteranceID id = job.id;
    const std::string key = KeyOf(job.modeId);
    if (key.empty())
        return m_deliver(id, SpeechChunk{{}, {}, {}, /*last*/ true, /*failed*/ true});
    CEspeakLibrary& library = CEspeakLibrary::Get();
    const auto owner = library.Lock();
    const std::int64_t startedAt = SteadyMicroseconds();
    CUtterance utterance(
        library, key, [this, id](SpeechChunk chunk) { m_deliver(id, std::move(chunk)); },
        [this, startedAt](std::int64_t made) { return MayProceed(made, startedAt); });
    utterance.Speak(job.segments);
}

// Mode ids are the same in both cases of letters.
std::string CEspeakWorker::KeyOf(const std::string& modeId) const
{
    const auto found = std::find_if(m_voices.begin(), m_voices.end(),
                                    [&](const Voice& voice) { return text::EqualIgnoringCase(voice.modeId, modeId); });
    return found == m_voices.end() ? "" : found->key;
}

// False once the utterance is cancelled. Waits while more is made than can be heard for a long time.
bool CEspeakWorker::MayProceed(std::int64_t samplesMade, std::int64_t startedAt)
{
    std::unique_lock lock(m_mutex);
    const auto ahead = std::chrono::microseconds(samplesMade * 1000000 / m_sampleRate - (SteadyMicroseconds() - startedAt));
    const auto wait = ahead - std::chrono::seconds(SecondsAhead);
    if (wait.count() > 0)
        m_changed.wait_for(lock, wait, [this] { return m_current == 0; });
    return m_current != 0;
}

}
