#pragma once
#include "character/CharacterState.h"
#include "platform/headless/Desktop.h"
#include <string>

namespace support {

// Makes the default character the current one, without any step of a real load; the journal is empty afterwards.
inline void LoadCharacter(CHeadlessDesktop& desktop, const std::string& name)
{
    character::CharacterState& state = character::State();
    state.engine = platform::Current().characterEngines.Create();
    state.engine->SetConnected(true);
    state.engine->Characters()->Load(character::BotID, std::nullopt);
    state.current = state.engine->Characters()->Character(character::BotID);
    state.current->SetName(name);
    state.loaded = true;
    desktop.journal.Clear();
}

}
