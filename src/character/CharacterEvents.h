#pragma once
#include "platform/CharacterEngine.h"

namespace character {

// The receiver of the engine's events for the program, to be given to the control.
platform::ICharacterEngineEvents& EventReceiver();

// Registers the voice commands on the current character.
void CharLoad_Commands();

}
