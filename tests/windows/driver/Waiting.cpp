#include "driver/Waiting.h"

namespace driver {

void LetOthersWork()
{
    constexpr DWORD Moment = 5;  // Milliseconds.
    MsgWaitForMultipleObjects(0, nullptr, FALSE, Moment, QS_ALLINPUT);
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

}
