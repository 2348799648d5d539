#pragma once
#include "common/zbErrorTrap.h"
#include "platform/windows/Win32.h"
#include <utility>

// Runs what a procedure that the system calls has to do: no exception may leave such a procedure. A failure is reported to
// the user like every unexpected one, and the program goes on.
namespace appwindows {

template <class Action> void RunGuarded(Action&& action) noexcept
{
    try {
        const zbErrorTrap::CGuard guard("Parlune", "Event");
        guard(std::forward<Action>(action));
    } catch (const platform::CProgramEnded&) {
        PostQuitMessage(0);
    } catch (...) {
        OutputDebugStringW(L"Parlune: a failure could not be reported.\n");
    }
}

}
