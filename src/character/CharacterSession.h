#pragma once
#include <string>

// Loading the one current character and dressing it with the user's settings.
namespace character {

// Loads by "" or "(Default Character)", a name, or a file; a file that cannot be loaded gives the default character.
// Returns false when not even that loads, or when the engine does not hand the loaded one over. Failures of other steps:
// reported as Parlune:CharLoad (and CharLoad_AdvSpeechTags, CharLoad_BalloonFont), then the next step runs.
bool CharLoad(const std::string& id, bool show);

}
