#include "platform/windows/WindowsRandomNumbers.h"
#include "platform/windows/Win32.h"
#include <cstdint>
#include <cstring>

namespace platform::windowsdesktop {

// Differs from one start of the program to the next.
CWindowsRandomNumbers::CWindowsRandomNumbers()
{
    LARGE_INTEGER ticks = {};
    QueryPerformanceCounter(&ticks);
    m_generator.seed(static_cast<std::uint32_t>(ticks.QuadPart) ^ GetCurrentProcessId());
}

void CWindowsRandomNumbers::Seed(double seed)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &seed, sizeof bits);
    m_generator.seed(static_cast<std::uint32_t>(bits ^ (bits >> 32)));
}

double CWindowsRandomNumbers::Next() { return static_cast<double>(m_generator()) / 4294967296.0; }

}
