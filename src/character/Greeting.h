#pragma once
#include <cstdint>

namespace character {

// Fills the five greeting-animation lists from the current character and selects the stored animations.
void FillGreetingLists();

// Speaks greeting 0 to 4 with its animation; with `check` only when greetings are switched on. Needs a loaded character.
void Greet(std::int32_t index, bool check);

}
