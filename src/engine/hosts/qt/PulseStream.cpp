#include "engine/hosts/qt/PulseStream.h"
#include "engine/hosts/qt/SteadyClock.h"
#include <algorithm>
#include <pulse/pulseaudio.h>

namespace engine {
namespace {

constexpr std::int64_t BytesPerSample = 2;
constexpr std::int64_t BufferMilliseconds = 80;
constexpr std::int64_t TimingIntervalMicroseconds = 50000;
constexpr auto NotSet = static_cast<std::uint32_t>(-1);

pa_sample_spec FormatOf(std::int32_t sampleRate)
{
    pa_sample_spec format{};
    format.format = PA_SAMPLE_S16NE;
    format.rate = static_cast<std::uint32_t>(std::clamp(sampleRate, 1000, 192000));
    format.channels = 1;
    return format;
}

pa_buffer_attr BufferOf(std::int32_t sampleRate)
{
    pa_buffer_attr buffer{};
    buffer.maxlength = NotSet;
    buffer.tlength = static_cast<std::uint32_t>(BufferMilliseconds * sampleRate / 1000 * BytesPerSample);
    buffer.prebuf = 0;
    buffer.minreq = NotSet;
    buffer.fragsize = NotSet;
    return buffer;
}

void Forget(pa_operation* operation)
{
    if (operation)
        pa_operation_unref(operation);
}

}

void CPulseAnswer::Await(pa_operation* operation)
{
    if (m_operation) {
        pa_operation_cancel(m_operation);
        pa_operation_unref(m_operation);
    }
    m_operation = operation;
}

bool CPulseAnswer::Awaited() const { return m_operation && pa_operation_get_state(m_operation) == PA_OPERATION_RUNNING; }

CPulseStream::CPulseStream(pa_context* context, std::int32_t sampleRate) : m_rate(sampleRate)
{
    const pa_sample_spec format = FormatOf(sampleRate);
    const pa_buffer_attr buffer = BufferOf(m_rate);
    m_stream = pa_stream_new(context, "Speech", &format, nullptr);
    if (!m_stream)
        return;
    pa_stream_set_state_callback(m_stream, &StateChanged, this);
    pa_stream_set_write_callback(m_stream, &Wanted, this);
    pa_stream_set_underflow_callback(m_stream, &RanDry, this);
    // The timing is asked for by hand while it is needed: the automatic way goes on while the stream is corked. And
    // libpulse's own interpolation counts the time in which a new stream was corked.
    const auto flags = static_cast<pa_stream_flags_t>(PA_STREAM_START_CORKED | PA_STREAM_ADJUST_LATENCY);
    pa_stream_connect_playback(m_stream, nullptr, &buffer, flags, nullptr, nullptr);
}

CPulseStream::~CPulseStream()
{
    if (!m_stream)
        return;
    Close();
    pa_stream_unref(m_stream);
}

void CPulseStream::Close()
{
    pa_stream_set_state_callback(m_stream, nullptr, nullptr);
    pa_stream_set_write_callback(m_stream, nullptr, nullptr);
    pa_stream_set_underflow_callback(m_stream, nullptr, nullptr);
    pa_stream_disconnect(m_stream);
}

bool CPulseStream::Broken() const { return !m_over && (!m_stream || !PA_STREAM_IS_GOOD(pa_stream_get_state(m_stream))); }

void CPulseStream::Add(const std::vector<std::int16_t>& samples)
{
    m_queue.insert(m_queue.end(), samples.begin(), samples.end());
    Feed();
}

void CPulseStream::End()
{
    m_ended = true;
    Feed();
}

// Flushing comes first: what the server has already mixed is taken back.
void CPulseStream::Stop()
{
    if (!m_stream || m_over || pa_stream_get_state(m_stream) != PA_STREAM_READY)
        return;
    Forget(pa_stream_flush(m_stream, nullptr, nullptr));
    Forget(pa_stream_cork(m_stream, 1, nullptr, nullptr));
}

void CPulseStream::StateChanged(pa_stream*, void* self) { static_cast<CPulseStream*>(self)->Feed(); }

void CPulseStream::Wanted(pa_stream*, std::size_t, void* self) { static_cast<CPulseStream*>(self)->Feed(); }

// The server tells of the empty stream before its first sample as well, and late: only a place at the end of what was
// written counts.
void CPulseStream::RanDry(pa_stream* stream, void* self)
{
    const pa_timing_info* timing = pa_stream_get_timing_info(stream);
    const bool known = timing && !timing->write_index_corrupt;
    auto* dry = static_cast<CPulseStream*>(self);
    dry->m_dry = known && dry->m_playing && pa_stream_get_underflow_index(stream) >= timing->write_index;
}

void CPulseStream::Feed()
{
    if (!m_stream || m_over || pa_stream_get_state(m_stream) != PA_STREAM_READY)
        return;
    const std::size_t room = pa_stream_writable_size(m_stream);
    const std::size_t waiting = m_queue.size() - m_taken;
    if (room != static_cast<std::size_t>(-1) && waiting > 0)
        SendQueued(std::min(room / BytesPerSample, waiting));
    if (m_playing)
        AskForTiming();
    DrainWhenSent();
}

// After a gap the samples go to where the server plays now; where it would have expected them is past.
void CPulseStream::SendQueued(std::size_t count)
{
    if (count == 0)
        return;
    const pa_seek_mode_t seek = Starved() ? PA_SEEK_RELATIVE_ON_READ : PA_SEEK_RELATIVE;
    if (pa_stream_write(m_stream, m_queue.data() + m_taken, count * BytesPerSample, nullptr, 0, seek) < 0)
        return;
    m_dry = false;
    m_taken += count;
    m_sent += static_cast<std::int64_t>(count);
    if (m_taken == m_queue.size() || m_taken > 200000) {
        m_queue.erase(m_queue.begin(), m_queue.begin() + static_cast<std::ptrdiff_t>(m_taken));
        m_taken = 0;
    }
    if (!m_playing)
        StartPlaying();
}

bool CPulseStream::Starved() const { return m_playing && (m_dry || Estimate() > m_sent); }

void CPulseStream::StartPlaying()
{
    m_playing = true;
    Forget(pa_stream_cork(m_stream, 0, nullptr, nullptr));
    AskForTiming();
}

void CPulseStream::DrainWhenSent()
{
    if (!m_ended || m_draining || m_taken != m_queue.size())
        return;
    m_draining = true;
    if (m_playing)
        m_drained.Await(pa_stream_drain(m_stream, &Drained, this));
    else
        m_over = true;
}

// Cancelled when the stream is closed or lost: then `success` is 0, or it is not called at all.
void CPulseStream::Drained(pa_stream*, int success, void* self)
{
    auto* stream = static_cast<CPulseStream*>(self);
    if (!success)
        return;
    stream->m_over = true;
    stream->m_heard = stream->m_sent;
    stream->Close();
}

void CPulseStream::AskForTiming()
{
    const std::int64_t now = SteadyMicroseconds();
    if (m_timing.Awaited() || now - m_timingAskedAt < TimingIntervalMicroseconds)
        return;
    m_timingAskedAt = now;
    m_timing.Await(pa_stream_update_timing_info(m_stream, &TimingCame, this));
}

void CPulseStream::TimingCame(pa_stream* stream, int success, void* self)
{
    const pa_timing_info* timing = pa_stream_get_timing_info(stream);
    auto* asker = static_cast<CPulseStream*>(self);
    if (!success || !timing || timing->read_index_corrupt)
        return;
    asker->m_playedAt = SteadyMicroseconds();
    asker->m_played = timing->read_index / BytesPerSample +
                      asker->SamplesIn(static_cast<std::int64_t>(timing->transport_usec)) -
                      asker->SamplesIn(static_cast<std::int64_t>(timing->sink_usec));
}

std::int64_t CPulseStream::Heard()
{
    if (!m_stream || !m_playing || m_over || pa_stream_get_state(m_stream) != PA_STREAM_READY)
        return m_heard;
    AskForTiming();
    m_heard = std::max(m_heard, std::min(Estimate(), m_sent));
    return m_heard;
}

// How far the loudspeaker has come: what was sent, less what lies between the server's write mark and the place that is
// heard. That holds after a gap as well, which moved the write mark. Beyond what was sent while nothing is left to play.
std::int64_t CPulseStream::Estimate() const
{
    const pa_timing_info* timing = pa_stream_get_timing_info(m_stream);
    if (!m_playedAt || !timing || timing->write_index_corrupt)
        return m_heard;
    const std::int64_t played = m_played + SamplesIn(SteadyMicroseconds() - *m_playedAt);
    return m_sent - (timing->write_index / BytesPerSample - played);
}

std::int64_t CPulseStream::SamplesIn(std::int64_t microseconds) const { return microseconds * m_rate / 1000000; }

}
