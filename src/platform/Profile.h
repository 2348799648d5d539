#pragma once
#include <cstddef>
#include <optional>
#include <string>

namespace platform {

// Settings files of "[Section]" and "Key=Value" lines. Section and key names ignore case. Blanks around a value are not
// part of it. A bare file name means the current folder.
class IProfile {
public:
    virtual ~IProfile() = default;
    // The value of `key`, or `defaultValue` when file, section or key is missing; without a key, the names of all keys of
    // the section, each followed by a NUL. At most `limit` - 1 bytes, cut between two characters.
    virtual std::string Read(const std::string& file, const std::string& section, const std::optional<std::string>& key,
                             const std::string& defaultValue, std::size_t limit) const = 0;
    // Writes a value, creating file and section when missing. Without a value the key is removed, without a key the
    // whole section; removing what is not there succeeds. False when the file cannot be written: it then keeps its
    // former content.
    virtual bool Write(const std::string& file, const std::string& section, const std::optional<std::string>& key,
                       const std::optional<std::string>& value) = 0;
};

}
