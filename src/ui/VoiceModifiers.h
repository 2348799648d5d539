#pragma once
#include "common/zbErrorTrap.h"
#include <string>

// The voice modifiers on the Voice tab, as the record that is stored for the character's voice.
namespace voiceModifiers {

// Six fields, separated by commas: the five boxes as digits, pitch, speed, volume, and the list indexes of the speaking
// character and of the context (-1: none).
std::string Record();

// Stores the record for the character's present voice. Failures: not guarded, they reach the caller's guard.
void Store();
// Shows the character's own voice without modifiers and removes the stored record. Each step under the caller's guard.
void Reset(const zbErrorTrap::CGuard& guard);

}
