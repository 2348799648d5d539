#include "platform/linux/FirstStart.h"
#include "platform/linux/LinuxFiles.h"
#include "platform/linux/UserFolders.h"
#include "platform/linux/WholeFile.h"
#include <array>

namespace platform::linuxdesktop {
namespace {
constexpr std::array Greetings = {"Good {TimeOfDay}! It is nice to see you.", "Hello! Today is {Day}, and it is {Time}.",
                                  "Good {TimeOfDay}! Copy a text and double-click me, and I will read it to you.",
                                  "Hello again! I wish you a pleasant {Day}.",
                                  "Good {TimeOfDay}! It is {Time}. I am ready when you are."};
}

void PlaceCharacters(const std::string& from, const std::string& to)
{
    const CLinuxFiles files;
    const auto names = files.Match(from + "/*.acs");
    if (!MakeUserFolders(to))
        return;
    for (const std::string& name : names)
        if (files.Kind(to + "/" + name) == EntryKind::None)
            CopyToNewPlace(from + "/" + name, to + "/" + name);
}

void SeedGreetings(IRegistry& registry)
{
    const auto key = registry.Create(Root::CurrentUser, OptionKey);
    for (std::size_t i = 0; key && i < Greetings.size(); ++i)
        key->SetText("Greeting" + std::to_string(i + 1), Greetings[i]);
}

void SeedCustomSize(IRegistry& registry)
{
    const auto key = registry.Create(Root::CurrentUser, OptionKey);
    for (const char* side : {"CharWidth", "CharHeight"})
        if (key && !key->ValueSize(side))
            key->SetText(side, "0");
}

}
