#pragma once
#include "platform/windows/Win32.h"

// The patience of the tests: what another process does is asked for again and again. Patience is counted in looks, not in
// time: a machine that has much to do gives fewer of them in a second.
namespace driver {

inline constexpr int Patience = 6000;  // Looks of five milliseconds or more; nothing that goes well needs so many.
inline constexpr UINT PatienceMilliseconds = 60000;  // Where the system waits in our place.

// Answers what other processes send to our windows, and waits a moment.
void LetOthersWork();

// True as soon as the condition holds; false when it does not within so many looks.
template <class Condition> bool Eventually(Condition&& condition, int looks = Patience)
{
    for (int look = 0; !condition(); ++look) {
        if (look == looks)
            return false;
        LetOthersWork();
    }
    return true;
}

}
