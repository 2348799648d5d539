#pragma once
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// Settings text of "[Section]" and "Key=Value" lines. Any bytes are accepted; what is not understood is passed over when
// reading and kept byte for byte when writing. Section and key names ignore case and blanks around them; the first of two
// equal sections, and the first of two equal keys, counts.
namespace platform::text {

// The value of a key without the blanks around it and without one pair of equal quotes (' or ") around it; nothing when
// section or key is missing.
std::optional<std::string> ReadProfileValue(std::string_view text, std::string_view section, std::string_view key);

// The names of all keys of a section, each followed by a NUL; "" when there are none.
std::string ReadProfileKeys(std::string_view text, std::string_view section);

// The text with one value set, in the key's own line or in a new line at the end of the section, which is made at the end
// of the text when missing. Nothing when a name or the value cannot be kept in such a text: a line break or NUL in any
// of them, "=" in a key, a key that would be a comment or a section, an empty key.
std::optional<std::string> WithProfileValue(std::string_view text, std::string_view section, std::string_view key,
                                            std::string_view value);

// The text without a key of a section (without all of that name in it), or without a section (without all of that name).
std::string WithoutProfileKey(std::string_view text, std::string_view section, std::string_view key);
std::string WithoutProfileSection(std::string_view text, std::string_view section);

}
