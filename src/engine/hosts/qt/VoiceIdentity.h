#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace engine {

// The identifier of a voice, "{8-4-4-4-12}" in upper case: the same name gives the same one everywhere and always.
std::string ModeIdOfVoice(std::string_view name);

// The Win32 LANGID of a language tag in lower case ("en-gb-scotland"): of the tag or, failing that, of the tag without
// its last parts. 0 when the language has none.
std::uint16_t LanguageIdOfTag(std::string_view tag);

}
