#include "Recorder.h"
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <mutex>
#include <pulse/pulseaudio.h>
#include <stdexcept>
#include <thread>

namespace bench {
namespace {

constexpr std::uint32_t Rate = 22050;
constexpr std::uint32_t BytesAtOnce = Rate / 50 * 2;  // 20 milliseconds, like a recorder of the command line.
constexpr auto NotSet = static_cast<std::uint32_t>(-1);

struct Block {
    std::size_t first;
    double arrived;
};

}

double Now() { return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count(); }

bool Sounds(std::int16_t sample) { return std::abs(static_cast<int>(sample)) >= QuietLevel; }

void SleepMilliseconds(int milliseconds) { std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds)); }

struct CRecorder::Parts {
    explicit Parts(const std::string& source);
    ~Parts();
    void Connect(const std::string& source);
    void Take(double arrived);
    static void StateChanged(pa_context*, void* self) { pa_threaded_mainloop_signal(static_cast<Parts*>(self)->loop, 0); }
    static void Arrived(pa_stream*, std::size_t, void* self) { static_cast<Parts*>(self)->Take(Now()); }

    pa_threaded_mainloop* loop = pa_threaded_mainloop_new();
    pa_context* context = pa_context_new(pa_threaded_mainloop_get_api(loop), "Recorder");
    pa_stream* stream = nullptr;
    mutable std::mutex mutex;
    std::vector<std::int16_t> samples;
    std::vector<Block> blocks;
};

CRecorder::Parts::Parts(const std::string& source)
{
    pa_threaded_mainloop_start(loop);
    pa_threaded_mainloop_lock(loop);
    Connect(source);
    pa_threaded_mainloop_unlock(loop);
}

void CRecorder::Parts::Connect(const std::string& source)
{
    pa_context_set_state_callback(context, &StateChanged, this);
    pa_context_connect(context, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr);
    while (pa_context_get_state(context) != PA_CONTEXT_READY && PA_CONTEXT_IS_GOOD(pa_context_get_state(context)))
        pa_threaded_mainloop_wait(loop);
    pa_sample_spec format{PA_SAMPLE_S16NE, Rate, 1};
    pa_buffer_attr buffer{NotSet, NotSet, NotSet, NotSet, BytesAtOnce};
    stream = pa_stream_new(context, "Recording", &format, nullptr);
    if (!stream)
        return;
    pa_stream_set_read_callback(stream, &Arrived, this);
    pa_stream_connect_record(stream, source.c_str(), &buffer, PA_STREAM_ADJUST_LATENCY);
}

CRecorder::Parts::~Parts()
{
    pa_threaded_mainloop_lock(loop);
    if (stream) {
        pa_stream_set_read_callback(stream, nullptr, nullptr);
        pa_stream_disconnect(stream);
        pa_stream_unref(stream);
    }
    pa_context_disconnect(context);
    pa_context_unref(context);
    pa_threaded_mainloop_unlock(loop);
    pa_threaded_mainloop_stop(loop);
    pa_threaded_mainloop_free(loop);
}

void CRecorder::Parts::Take(double arrived)
{
    const std::lock_guard lock(mutex);
    blocks.push_back({samples.size(), arrived});
    const void* data = nullptr;
    std::size_t bytes = 0;
    while (pa_stream_readable_size(stream) > 0 && pa_stream_peek(stream, &data, &bytes) == 0 && bytes > 0) {
        const auto* first = static_cast<const std::int16_t*>(data);
        if (first)
            samples.insert(samples.end(), first, first + bytes / 2);
        else
            samples.resize(samples.size() + bytes / 2);  // A hole in the recording.
        pa_stream_drop(stream);
    }
}

CRecorder::CRecorder(const std::string& source) : m_parts(std::make_unique<Parts>(source))
{
    if (!WaitFor(5, [this] { return Count() > 0; }))
        throw std::runtime_error("nothing can be recorded");
}

CRecorder::~CRecorder() = default;

std::size_t CRecorder::Count() const
{
    const std::lock_guard lock(m_parts->mutex);
    return m_parts->samples.size();
}

std::vector<std::int16_t> CRecorder::Samples() const
{
    const std::lock_guard lock(m_parts->mutex);
    return m_parts->samples;
}

std::optional<std::size_t> CRecorder::FirstSound(std::size_t from) const
{
    const std::lock_guard lock(m_parts->mutex);
    const auto& samples = m_parts->samples;
    const auto begin = samples.begin() + static_cast<std::ptrdiff_t>(std::min(from, samples.size()));
    const auto found = std::find_if(begin, samples.end(), Sounds);
    if (found == samples.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - samples.begin());
}

double CRecorder::TimeOf(std::size_t sample) const
{
    const double nearby = SamplesPerSecond / 2;
    std::vector<double> starts;
    const std::lock_guard lock(m_parts->mutex);
    for (const Block& block : m_parts->blocks)
        if (std::abs(static_cast<double>(block.first) - static_cast<double>(sample)) < nearby)
            starts.push_back(block.arrived - static_cast<double>(block.first) / SamplesPerSecond);
    if (starts.empty())
        throw std::runtime_error("a hole in the recording");
    const auto middle = starts.begin() + static_cast<std::ptrdiff_t>(starts.size() / 2);
    std::nth_element(starts.begin(), middle, starts.end());
    return *middle + static_cast<double>(sample) / SamplesPerSecond;
}

std::size_t CRecorder::SampleAt(double time) const
{
    std::size_t first = 0;
    std::size_t last = Count();
    while (first < last) {
        const std::size_t middle = first + (last - first) / 2;
        if (TimeOf(middle) < time)
            first = middle + 1;
        else
            last = middle;
    }
    return first;
}

}
