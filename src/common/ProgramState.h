#pragma once
#include <functional>
#include <optional>

// Program-wide state: one object per type, made on first use, made anew after RenewProgramState.
namespace common {

void OnRenewal(std::function<void()> renew);

// Forgets all program-wide state. For the start of a run of the program; no reference from before may be used afterwards.
void RenewProgramState();

template <class State> State& StateOf()
{
    static std::optional<State> state;
    static const bool registered = (OnRenewal([] { state.reset(); }), true);
    (void)registered;
    if (!state)
        state.emplace();
    return *state;
}

}
