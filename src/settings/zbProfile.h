#pragma once
#include <optional>
#include <string>

// Values of a settings file. Failures are reported as bProfile under the operation's name.
namespace zbProfile {

using OptionalText = std::optional<std::string>;

// A value, or the default; without a key, the section's key names, each followed by a NUL. At most 4095 bytes.
std::string GetProfile(const std::string& file, const std::string& section, const OptionalText& key,
                       const OptionalText& defaultValue);
// Writes a value. Without a key (or with "") the section is removed, without a value (or with "") the key. True when the
// store did it.
bool SetProfile(const std::string& file, const std::string& section, const OptionalText& key, const OptionalText& value);

}
