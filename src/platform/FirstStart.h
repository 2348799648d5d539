#pragma once
#include "platform/Registry.h"

// What a new user finds among the options. Failures are harmless: what could not be stored is tried again at the next start.
namespace platform {

inline constexpr char OptionKey[] = "Software\\Tarrowind\\Parlune";

// What an installation program would leave behind, where it is missing. The option key tells a new user, and one who has
// reset the options: without it there are five greetings.
void PrepareOptions(IRegistry& registry);

// Gives the registry five greetings, so that the character greets a new user by voice.
void SeedGreetings(IRegistry& registry);

// Gives the registry a custom size of 0 where it has none: the program reads it at every start as a number, but writes it
// only at the end of a run that had a character, and would report each of the two as a failure until then.
void SeedCustomSize(IRegistry& registry);

}
