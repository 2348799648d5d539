#pragma once
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

// What the benchmarks hear: a recording of the sound server's device in which every sample has a time.
namespace bench {

// Seconds of the steady clock that all programs of this machine share.
double Now();

// Quieter than anything spoken: 60 dB below full scale is 33.
constexpr std::int16_t QuietLevel = 64;
bool Sounds(std::int16_t sample);

constexpr double SamplesPerSecond = 22050;

// Records from its making on, on a thread of its own. Throws std::runtime_error when there is nothing to record from.
class CRecorder {
public:
    explicit CRecorder(const std::string& source = "null.monitor");
    ~CRecorder();
    CRecorder(const CRecorder&) = delete;
    CRecorder& operator=(const CRecorder&) = delete;

    std::size_t Count() const;                  // Samples so far.
    std::vector<std::int16_t> Samples() const;  // A copy.
    // The first sample from `from` on that sounds, as far as the recording goes.
    std::optional<std::size_t> FirstSound(std::size_t from) const;
    // When a sample was played. A device that goes nowhere mixes a block of samples when the first of them is due, and the
    // recorder gets the block at once: the middle of what all blocks around say is taken.
    double TimeOf(std::size_t sample) const;
    // The first sample that was played at this time or later.
    std::size_t SampleAt(double time) const;

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

// Runs the calling thread's time away in steps until `done` says so; false when `seconds` have passed before.
template <class Done> bool WaitFor(double seconds, Done&& done);
void SleepMilliseconds(int milliseconds);

template <class Done> bool WaitFor(double seconds, Done&& done)
{
    const double end = Now() + seconds;
    while (!done()) {
        if (Now() > end)
            return false;
        SleepMilliseconds(2);
    }
    return true;
}

}
