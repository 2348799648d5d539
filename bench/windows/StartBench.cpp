#include "Programs.h"
#include <cstdio>
#include <cstdlib>

// bench_WindowsStart RUNS PROGRAM OTHER: starts both programs in turn, so often, and prints the medians of the times from
// the start to the first window that is seen and answers, in milliseconds, and their ratio. Before each start of the first
// one its options are forgotten: the first start is the one that shows the window.
namespace {

void ForgetOptions() { RegDeleteKeyA(HKEY_CURRENT_USER, "Software\\Tarrowind\\Parlune"); }

// Negative when there was no window.
double TimeOf(const char* commandLine)
{
    const double began = bench::Milliseconds();
    const bench::CProgram program(commandLine);
    return program.Started() && program.WaitForWindow() ? bench::Milliseconds() - began : -1;
}

}

int main(int argc, char** argv)
{
    const int runs = argc == 4 ? std::atoi(argv[1]) : 0;
    if (runs < 1)
        return std::fputs("Usage: bench_WindowsStart RUNS PROGRAM OTHER\n", stderr), 1;
    std::vector<double> first, other;
    for (int run = -1; run < runs; ++run) {  // One more, which warms both.
        ForgetOptions();
        const double one = TimeOf(argv[2]), two = TimeOf(argv[3]);
        if (one < 0 || two < 0)
            return std::fputs("A program showed no window.\n", stderr), 1;
        if (run >= 0) {
            first.push_back(one);
            other.push_back(two);
        }
    }
    std::printf("%.0f %.0f %.2f\n", bench::Median(first), bench::Median(other), bench::Median(first) / bench::Median(other));
    return 0;
}
