#pragma once
#include "engine/session/Actor.h"
#include <memory>

namespace engine {

// Where a character stands in the cast, from Load to Unload. Another default character takes the same seat.
struct Seat {
    std::shared_ptr<CActor> actor;
};

// What the program holds of a loaded character. After its Unload every call throws BadCharacterID.
std::shared_ptr<platform::ICharacter> MakeCharacterObject(const std::shared_ptr<Seat>& seat);

std::shared_ptr<platform::IBalloon> MakeBalloonObject(const std::shared_ptr<Seat>& seat);
std::shared_ptr<platform::ICommands> MakeCommandsObject(const std::shared_ptr<Seat>& seat);

// The loaded character; throws BadCharacterID when its seat is no longer there.
std::shared_ptr<CActor> Living(const std::weak_ptr<Seat>& seat);

}
