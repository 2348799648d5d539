#pragma once
#include <string>

// What a new user finds. Failures are harmless: what could not be placed is tried again at the next start.
namespace platform::linuxdesktop {

// Copies every character file of `from` that is missing in `to`, creating that folder.
void PlaceCharacters(const std::string& from, const std::string& to);

}
