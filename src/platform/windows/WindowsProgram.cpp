#include "platform/windows/WindowsProgram.h"
#include "platform/windows/Win32.h"
#include <cstdlib>

namespace platform::windowsdesktop {

// Libraries are not told: one that waits for another thread at its end would keep the process.
void CWindowsProgram::End()
{
    if (m_lastWords)
        m_lastWords();
    TerminateProcess(GetCurrentProcess(), 0);
    std::abort();
}

}
