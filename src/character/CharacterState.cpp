#include "character/CharacterState.h"
#include "common/ProgramState.h"
#include "platform/Failure.h"

namespace character {

CharacterState& State() { return common::StateOf<CharacterState>(); }

platform::ICharacter& Current()
{
    if (!State().current)
        throw platform::failure::ObjectNotSet();
    return *State().current;
}

}
