#include "settings/zbProfile.h"
#include "common/zbErrorTrap.h"
#include "platform/Platform.h"
#include "platform/Profile.h"

namespace zbProfile {
namespace {

constexpr char Module[] = "bProfile";
constexpr std::size_t BufferSize = 4096;

OptionalText UnlessEmpty(const OptionalText& text) { return text && text->empty() ? std::nullopt : text; }

}

std::string GetProfile(const std::string& file, const std::string& section, const OptionalText& key,
                       const OptionalText& defaultValue)
{
    const zbErrorTrap::CGuard guard(Module, "GetProfile");
    std::string result = defaultValue.value_or("");
    guard([&] { result = platform::Current().profile.Read(file, section, key, defaultValue.value_or(""), BufferSize); });
    return result;
}

bool SetProfile(const std::string& file, const std::string& section, const OptionalText& key, const OptionalText& value)
{
    const zbErrorTrap::CGuard guard(Module, "SetProfile");
    const OptionalText writtenKey = UnlessEmpty(key);
    const OptionalText writtenValue = writtenKey ? UnlessEmpty(value) : std::nullopt;
    bool written = false;
    guard([&] { written = platform::Current().profile.Write(file, section, writtenKey, writtenValue); });
    return written;
}

}
