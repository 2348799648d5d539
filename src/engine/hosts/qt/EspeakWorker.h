#pragma once
#include "engine/Host.h"
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace engine {

// The thread that makes speech, one utterance after another. It starts at the first need.
class CEspeakWorker {
public:
    using Deliver = std::function<void(UtteranceID, SpeechChunk)>;  // Called on the worker's thread.
    explicit CEspeakWorker(Deliver deliver) : m_deliver(std::move(deliver)) {}
    ~CEspeakWorker();
    CEspeakWorker(const CEspeakWorker&) = delete;
    CEspeakWorker& operator=(const CEspeakWorker&) = delete;

    void Start();
    // Empty when the library cannot speak. Waits for the library's start, some milliseconds; a copy is kept ready then.
    const std::vector<Voice>& Voices();
    std::int32_t SampleRate();
    void Add(UtteranceID id, const std::string& modeId, std::vector<SpeechSegment> segments);
    void Cancel(UtteranceID id);  // Known or not, running or waiting.

private:
    struct Job {
        UtteranceID id = 0;
        std::string modeId;
        std::vector<SpeechSegment> segments;
    };
    void WaitUntilReady();
    void Run();
    void LoadVoices();
    void ReadVoices();
    std::optional<Job> TakeJob();
    void PerformOrFail(const Job& job);
    void Perform(const Job& job);
    bool DeliverFailure(UtteranceID id);
    std::string KeyOf(const std::string& modeId) const;
    bool MayProceed(std::int64_t samplesMade, std::int64_t startedAt);

    Deliver m_deliver;
    std::thread m_thread;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<Job> m_waiting;
    UtteranceID m_current = 0;  // The one being made; 0 when there is none or it is cancelled.
    bool m_ready = false;
    bool m_ending = false;
    std::vector<Voice> m_voices;  // Written once, before `m_ready`.
    std::int32_t m_sampleRate = 22050;
};

}
