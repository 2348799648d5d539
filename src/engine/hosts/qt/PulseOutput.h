#pragma once
#include "engine/Host.h"
#include "engine/hosts/qt/PlayClock.h"
#include "engine/hosts/qt/PulseServer.h"
#include "engine/hosts/qt/PulseStream.h"
#include <memory>

namespace engine {

// Sound through the sound server. Where the server is missing, too slow or lost, the clock goes on from where the sound
// was; the next Begin tries the server again.
class CPulseOutput final : public ISoundOutput, private CPulseServer::IListener {
public:
    explicit CPulseOutput(std::shared_ptr<CPulseServer> server);
    ~CPulseOutput() override;
    CPulseOutput(const CPulseOutput&) = delete;
    CPulseOutput& operator=(const CPulseOutput&) = delete;
    void Begin(std::int32_t sampleRate) override;
    void Write(const std::vector<std::int16_t>& samples) override;
    void End() override;
    void Stop() override;
    std::int64_t Position() const override;

private:
    void ServerReady() override;
    void PrepareNext() const;
    bool Lost() const;
    bool Stuck(std::int64_t heard) const;
    void GoOnByClock() const;
    std::int64_t HeardFromServer() const;

    std::shared_ptr<CPulseServer> m_server;
    std::int32_t m_rate = 22050;
    bool m_begun = false;
    bool m_ended = false;
    std::int64_t m_written = 0;
    std::vector<std::int16_t> m_early;  // Written before the server was ready.
    // What asking for the position may change: the stream may turn out to be lost.
    mutable std::unique_ptr<CPulseStream> m_stream;
    mutable std::unique_ptr<CPulseStream> m_next;  // Connected and corked, for the next Begin.
    mutable CPlayClock m_clock;
    mutable bool m_byClock = false;
    mutable std::int64_t m_heard = 0;
    mutable std::int64_t m_heardAt = 0;  // When the position last moved.
};

}
