#pragma once
#include "engine/Engine.h"

namespace engine {

// The character that loads where none is named: the user's choice, or the source's own when there is no choice or it cannot
// be loaded. Throws what the source throws when it has none.
CharacterRef LoadDefaultCharacter(ICharacterSource& source, const std::string& chosen);

}
