#include "endurance/LiveMemory.h"
#include "engine/hosts/qt/EspeakWorker.h"
#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <gtest/gtest.h>
#include <mutex>
#include <new>

namespace {
using namespace std::chrono_literals;

// What the worker has delivered, on its thread.
class CListener {
public:
    void Take(engine::UtteranceID id, const engine::SpeechChunk& chunk)
    {
        const std::vector<std::int16_t> copy = chunk.samples;  // As whoever passes it on needs memory for it.
        const std::lock_guard lock(m_mutex);
        m_samples += copy.size();
        if (!chunk.last)
            return;
        m_ended = id;
        m_failed = chunk.failed;
        m_changed.notify_all();
    }
    bool Ends(engine::UtteranceID id)
    {
        std::unique_lock lock(m_mutex);
        return m_changed.wait_for(lock, 20s, [&] { return m_ended == id; });
    }
    bool Failed() const { return m_failed; }
    std::size_t TakeSamples() { return std::exchange(m_samples, 0); }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    engine::UtteranceID m_ended = 0;
    std::size_t m_samples = 0;
    bool m_failed = false;
};

class WorkerMemory : public testing::Test {
protected:
    // False when there was no memory for the order.
    bool Order()
    {
        try {
            worker.Add(++id, worker.Voices().front().modeId, {{.text = "This is a text. It has two sentences."}});
            return true;
        } catch (const std::bad_alloc&) {
            return false;
        }
    }

    CListener listener;
    engine::CEspeakWorker worker{
        [this](engine::UtteranceID of, const engine::SpeechChunk& chunk) { listener.Take(of, chunk); }};
    engine::UtteranceID id = 0;
};

TEST_F(WorkerMemory, ARequestFails_TheTextEndsAndTheNextOneIsSpoken)
{
    ASSERT_FALSE(worker.Voices().empty());
    liveMemory::FailRequest(0);
    ASSERT_TRUE(Order() && listener.Ends(id));
    const std::int64_t requests = liveMemory::Requests();
    const std::size_t samples = listener.TakeSamples();
    int failed = 0;
    for (std::int64_t number = 1; number <= requests; number += std::max<std::int64_t>(1, requests / 50)) {
        SCOPED_TRACE("request " + std::to_string(number) + " of " + std::to_string(requests));
        liveMemory::FailRequest(number);
        const bool ordered = Order();
        ASSERT_TRUE(!ordered || listener.Ends(id));
        liveMemory::FailRequest(0);
        failed += !ordered || listener.Failed() ? 1 : 0;
        listener.TakeSamples();
        ASSERT_TRUE(Order() && listener.Ends(id));
        EXPECT_FALSE(listener.Failed());
        // The library keeps a little of how a text was left.
        EXPECT_NEAR(static_cast<double>(listener.TakeSamples()), static_cast<double>(samples),
                    static_cast<double>(samples) / 100);
    }
    EXPECT_GT(failed, 5);
}

}
