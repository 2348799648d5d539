#include "platform/linux/LinuxProfile.h"
#include "base/text/Utf8.h"
#include "platform/linux/WholeFile.h"
#include "platform/text/ProfileText.h"
#include <cerrno>

namespace platform::linuxdesktop {
namespace {
std::string Cut(const std::string& text, std::size_t limit)
{
    return std::string(::text::CutBetweenCharacters(text, limit == 0 ? 0 : limit - 1));
}

std::optional<std::string> Changed(const std::string& text, const std::string& section,
                                   const std::optional<std::string>& key, const std::optional<std::string>& value)
{
    if (!key)
        return text::WithoutProfileSection(text, section);
    return value ? text::WithProfileValue(text, section, *key, *value) : text::WithoutProfileKey(text, section, *key);
}
}

std::string CLinuxProfile::Read(const std::string& file, const std::string& section, const std::optional<std::string>& key,
                                const std::string& defaultValue, std::size_t limit) const
{
    int error = 0;
    const std::string text = ReadWhole(file, error).value_or("");
    if (!key)
        return Cut(text::ReadProfileKeys(text, section), limit);
    return Cut(text::ReadProfileValue(text, section, *key).value_or(defaultValue), limit);
}

bool CLinuxProfile::Write(const std::string& file, const std::string& section, const std::optional<std::string>& key,
                          const std::optional<std::string>& value)
{
    int error = 0;
    const auto text = ReadWhole(file, error);
    if (!text && error != ENOENT)
        return false;
    const auto changed = Changed(text.value_or(""), section, key, value);
    if (!changed)
        return false;
    return *changed == text.value_or("") || ReplaceWhole(file, *changed, Survives::PowerLoss) == 0;
}

}
