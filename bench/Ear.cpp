#include "Recorder.h"
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <spawn.h>
#include <string>
#include <sys/wait.h>

// bench_Ear onset FIRST COMMAND...: how long after the start of a command the first sound is played. FIRST, unless it is
// empty, is a shell command that runs shortly before (the first half of a double click).
// bench_Ear silence FIRST COMMAND...: how long after the start of a command the last sound is played; something must be
// sounding before. Both print milliseconds.
namespace {

using bench::CRecorder;

constexpr int BetweenClicksMilliseconds = 60;
constexpr double LongestOnsetSeconds = 10;
constexpr double SilenceSeconds = 1.5;  // Longer than any pause of speech.

pid_t Spawn(char** command)
{
    pid_t process = -1;
    if (posix_spawnp(&process, command[0], nullptr, nullptr, command, environ) != 0)
        throw std::runtime_error(std::string("cannot start ") + command[0]);
    return process;
}

void RunFirst(const char* command)
{
    if (std::strlen(command) == 0)
        return;
    if (std::system(command) != 0)
        throw std::runtime_error(std::string("failed: ") + command);
    bench::SleepMilliseconds(BetweenClicksMilliseconds);
}

double Milliseconds(double seconds) { return seconds * 1000; }

double Onset(const char* first, char** command)
{
    const CRecorder recorder;
    bench::SleepMilliseconds(600);
    RunFirst(first);
    const std::size_t from = recorder.Count();
    if (recorder.FirstSound(0))
        throw std::runtime_error("it is not silent before");
    const double begun = bench::Now();
    const pid_t process = Spawn(command);
    const bool heard = bench::WaitFor(LongestOnsetSeconds, [&] { return recorder.FirstSound(from).has_value(); });
    bench::SleepMilliseconds(600);  // What follows helps to time it.
    kill(process, SIGTERM);
    waitpid(process, nullptr, 0);
    if (!heard)
        throw std::runtime_error("nothing is heard");
    return Milliseconds(recorder.TimeOf(*recorder.FirstSound(from)) - begun);
}

std::optional<std::size_t> LastSound(const std::vector<std::int16_t>& samples)
{
    for (std::size_t index = samples.size(); index-- > 0;)
        if (bench::Sounds(samples[index]))
            return index;
    return std::nullopt;
}

bool SilentFor(const CRecorder& recorder, double seconds)
{
    const auto count = static_cast<std::size_t>(seconds * bench::SamplesPerSecond);
    return recorder.Count() > count && !recorder.FirstSound(recorder.Count() - count);
}

double Silence(const char* first, char** command)
{
    const CRecorder recorder;
    bench::SleepMilliseconds(300);
    RunFirst(first);
    const double begun = bench::Now();
    const pid_t process = Spawn(command);
    const bool silent = bench::WaitFor(LongestOnsetSeconds, [&] { return SilentFor(recorder, SilenceSeconds); });
    waitpid(process, nullptr, 0);
    const std::optional<std::size_t> last = LastSound(recorder.Samples());
    if (!silent || !last)
        throw std::runtime_error(last ? "it does not fall silent" : "it was silent before");
    const double heard = recorder.TimeOf(*last) - begun;
    if (heard < -0.2)
        throw std::runtime_error("it was silent before");
    return Milliseconds(heard);
}

}

int main(int argc, char** argv)
try {
    if (argc < 4)
        return 2;
    const bool onset = std::strcmp(argv[1], "onset") == 0;
    std::printf("%.1f\n", onset ? Onset(argv[2], argv + 3) : Silence(argv[2], argv + 3));
    return 0;
} catch (const std::exception& failure) {
    std::fprintf(stderr, "bench_Ear: %s\n", failure.what());
    return 1;
}
