#pragma once
#include "engine/session/Actor.h"
#include <memory>

namespace engine {

// What the program holds of a loaded character. After its Unload every call throws BadCharacterID.
std::shared_ptr<platform::ICharacter> MakeCharacterObject(const std::shared_ptr<CActor>& actor);

std::shared_ptr<platform::IBalloon> MakeBalloonObject(const std::shared_ptr<CActor>& actor);
std::shared_ptr<platform::ICommands> MakeCommandsObject(const std::shared_ptr<CActor>& actor);

// The loaded character; throws BadCharacterID when it is no longer there.
std::shared_ptr<CActor> Living(const std::weak_ptr<CActor>& actor);

}
