#pragma once
#include "engine/Host.h"
#include <optional>
#include <string>
#include <vector>

namespace engine {

// The voice that a text names: by its mode id, braces and letter case aside, or by its name. Null when there is none.
const Voice* FindVoice(const std::vector<Voice>& voices, const std::string& modeIdOrName);

// The voice for a character: the one of its file, else the best by language, gender and age. `languageId` is the user's,
// 0 for English. Null only without any voice.
const Voice* ChooseVoice(const std::vector<Voice>& voices, const std::optional<VoiceHints>& hints, std::uint16_t languageId);

// "{8-4-4-4-12}" in upper case, of the 16 bytes in the order in which files hold them.
std::string ModeIdText(const std::array<std::uint8_t, 16>& id);

}
