#pragma once
#include "platform/Profile.h"

namespace platform::windowsdesktop {

// Settings files through the system's profile calls. What these do on their own: a value is read without the blanks and one
// pair of quotes (' or ") around it, an empty value is a value, trailing blanks of the default are cut, the second section
// of a name is ignored. A value is written as it stands. A list of keys that is too long is cut inside a name.
class CWindowsProfile final : public IProfile {
public:
    std::string Read(const std::string& file, const std::string& section, const std::optional<std::string>& key,
                     const std::string& defaultValue, std::size_t limit) const override;
    // False, too, for what such a file cannot keep: a line break or NUL in a name or value.
    bool Write(const std::string& file, const std::string& section, const std::optional<std::string>& key,
               const std::optional<std::string>& value) override;
};

}
