#include "engine/hosts/qt/PulseOutput.h"
#include "engine/hosts/qt/SteadyClock.h"

namespace engine {
namespace {

// A sleeping wireless loudspeaker may need seconds to wake up.
constexpr std::int64_t StuckMicroseconds = 5000000;

}

CPulseOutput::CPulseOutput(std::shared_ptr<CPulseServer> server) : m_server(std::move(server))
{
    m_server->Add(*this);
    m_server->Connect();
    if (m_server->CurrentState() == CPulseServer::State::Ready)
        PrepareNext();
}

CPulseOutput::~CPulseOutput()
{
    m_server->Remove(*this);
    Stop();
    const CPulseServer::CLock lock(*m_server);
    m_stream.reset();
    m_next.reset();
}

void CPulseOutput::PrepareNext() const
{
    const CPulseServer::CLock lock(*m_server);
    if (m_next && (m_next->Broken() || m_next->SampleRate() != m_rate))
        m_next.reset();
    if (!m_next)
        m_next = std::make_unique<CPulseStream>(m_server->Context(), m_rate);
}

// On the thread of libpulse, with the lock held.
void CPulseOutput::ServerReady()
{
    m_next = std::make_unique<CPulseStream>(m_server->Context(), m_rate);
    if (!m_begun || m_byClock || m_stream)
        return;
    m_stream = std::move(m_next);
    m_stream->Add(m_early);
    if (m_ended)
        m_stream->End();
}

void CPulseOutput::Begin(std::int32_t sampleRate)
{
    Stop();
    m_server->Connect();
    const CPulseServer::CLock lock(*m_server);
    const CPulseServer::State state = m_server->CurrentState();
    m_rate = std::max(sampleRate, 1000);
    m_stream.reset();
    m_early.clear();
    m_written = 0;
    m_heard = 0;
    m_heardAt = SteadyMicroseconds();
    m_begun = true;
    m_ended = false;
    m_byClock = false;
    if (state == CPulseServer::State::Ready) {
        PrepareNext();
        m_stream = std::move(m_next);
    } else if (state == CPulseServer::State::Off || m_server->TakesLong()) {
        GoOnByClock();
    }
}

void CPulseOutput::Write(const std::vector<std::int16_t>& samples)
{
    Position();
    const CPulseServer::CLock lock(*m_server);
    if (!m_begun)
        return;
    m_written += static_cast<std::int64_t>(samples.size());
    if (m_byClock)
        m_clock.Add(static_cast<std::int64_t>(samples.size()), SteadyMicroseconds());
    else if (m_stream)
        m_stream->Add(samples);
    else
        m_early.insert(m_early.end(), samples.begin(), samples.end());
}

void CPulseOutput::End()
{
    const CPulseServer::CLock lock(*m_server);
    m_ended = true;
    if (m_stream)
        m_stream->End();
}

void CPulseOutput::Stop()
{
    if (!m_begun)
        return;
    Position();
    const CPulseServer::CLock lock(*m_server);
    if (m_stream)
        m_stream->Stop();
    m_stream.reset();
    m_early.clear();
    m_begun = false;
    m_byClock = false;
    m_written = m_heard;
    if (m_server->CurrentState() == CPulseServer::State::Ready)
        PrepareNext();
}

std::int64_t CPulseOutput::Position() const
{
    if (!m_begun)
        return m_heard;
    const CPulseServer::CLock lock(*m_server);
    const std::int64_t heard = m_byClock ? m_clock.Position(SteadyMicroseconds()) : HeardFromServer();
    if (heard > m_heard) {
        m_heard = heard;
        m_heardAt = SteadyMicroseconds();
    }
    return m_heard;
}

std::int64_t CPulseOutput::HeardFromServer() const
{
    const std::int64_t heard = m_stream ? m_stream->Heard() : 0;
    if (!Lost() && !Stuck(heard))
        return heard;
    m_server->SayNoSound("it does not answer");
    GoOnByClock();
    return m_clock.Position(SteadyMicroseconds());
}

bool CPulseOutput::Lost() const
{
    if (m_stream)
        return m_stream->Broken();
    return m_server->CurrentState() == CPulseServer::State::Off || m_server->TakesLong();
}

// Samples wait, but the server plays none.
bool CPulseOutput::Stuck(std::int64_t heard) const
{
    return heard == m_heard && heard < m_written && SteadyMicroseconds() - m_heardAt > StuckMicroseconds;
}

// From where the sound was when it was last seen to move.
void CPulseOutput::GoOnByClock() const
{
    m_byClock = true;
    if (m_stream)
        m_stream->Stop();
    m_stream.reset();
    m_clock.Start(m_rate, m_heard, m_written, Stuck(m_heard) ? SteadyMicroseconds() : m_heardAt);
}

}
