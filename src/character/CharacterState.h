#pragma once
#include "platform/CharacterEngine.h"
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace character {

inline constexpr char BotID[] = "Bot";  // The engine's name for the one current character.
inline constexpr char DefaultName[] = "(Default Character)";

// What the character brought with it, for the buttons that reset it.
struct CharacterDefaults {
    std::string ttsModeID;
    std::string fontName;
    std::int32_t fontSize = 0;
    bool fontItalic = false;
    bool fontBold = false;
    std::int32_t balloonStyle = 0;
};

// The current character and the requests that the program keeps.
struct CharacterState {
    std::shared_ptr<platform::ICharacterEngine> engine;  // The control; null until the first load.
    std::shared_ptr<platform::ICharacter> current;       // Null while none is loaded.
    bool loaded = false;
    std::string currentID;  // As given to the last successful load; "" for the engine's default character.
    CharacterDefaults defaults;
    platform::RequestRef speechRequest;  // The last line spoken.
    platform::RequestRef skipTarget;     // The same one, for Skip.
    platform::RequestRef testRequest;    // The last voice test.
    std::vector<std::string> animationNames;
    std::string fillingGreetingLists = "False";  // "True" while the greeting-animation lists are filled.
};

CharacterState& State();

// The current character. Throws CFailure 91 when there is none.
platform::ICharacter& Current();

}
