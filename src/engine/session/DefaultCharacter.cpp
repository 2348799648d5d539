#include "engine/session/DefaultCharacter.h"
#include "platform/Failure.h"

namespace engine {

CharacterRef LoadDefaultCharacter(ICharacterSource& source, const std::string& chosen)
{
    if (!chosen.empty()) {
        try {
            if (const CharacterRef character = source.Load(chosen))
                return character;
        } catch (const platform::CFailure&) {
            return source.LoadDefault();
        }
    }
    return source.LoadDefault();
}

}
