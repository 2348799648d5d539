#include "platform/windows/WindowsClock.h"
#include "platform/windows/Win32.h"
#include <chrono>

namespace platform::windowsdesktop {

LocalTime CWindowsClock::Now() const
{
    SYSTEMTIME now = {};
    GetLocalTime(&now);
    return {.year = now.wYear,
            .month = now.wMonth,
            .day = now.wDay,
            .hour = now.wHour,
            .minute = now.wMinute,
            .second = now.wSecond,
            .weekday = now.wDayOfWeek};
}

std::int64_t CWindowsClock::SteadyMilliseconds() const
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

}
