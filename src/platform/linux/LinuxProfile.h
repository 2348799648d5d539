#pragma once
#include "platform/Profile.h"

namespace platform::linuxdesktop {

// Settings files on the disk (platform/text/ProfileText.h); every write replaces the file as a whole.
class CLinuxProfile final : public IProfile {
public:
    std::string Read(const std::string& file, const std::string& section, const std::optional<std::string>& key,
                     const std::string& defaultValue, std::size_t limit) const override;
    bool Write(const std::string& file, const std::string& section, const std::optional<std::string>& key,
               const std::optional<std::string>& value) override;
};

}
