#pragma once
#include "platform/windows/Win32.h"

// The patience of the tests: what another process does is asked for again and again until a deadline.
namespace driver {

inline constexpr double Patience = 6;  // Seconds; nothing that goes well takes so long.

// Answers what other processes send to our windows, and waits a moment.
void LetOthersWork();

// True as soon as the condition holds; false when it does not within the seconds.
template <class Condition> bool Eventually(Condition&& condition, double seconds = Patience)
{
    const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(seconds * 1000);
    while (!condition()) {
        if (GetTickCount64() >= end)
            return false;
        LetOthersWork();
    }
    return true;
}

// True when the condition holds all the time; for what must not happen.
template <class Condition> bool Stays(Condition&& condition, double seconds)
{
    return !Eventually([&] { return !condition(); }, seconds);
}

}
