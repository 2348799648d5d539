#include "Require.h"
#include "engine/UserSettings.h"

// Any bytes are settings in their ranges, which come back the same after they were written.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace engine;
    const UserSettings settings = ReadUserSettings(TextOf(data, size));
    Require(settings.speedPercent >= UserSettings::SlowestPercent && settings.speedPercent <= UserSettings::FastestPercent);
    Require(settings.defaultCharacter.find('\n') == std::string::npos);
    const bool fitsInOneLine = settings.defaultCharacter.find('\r') == std::string::npos;
    Require(!fitsInOneLine || ReadUserSettings(WriteUserSettings(settings)) == settings);
    return 0;
}
