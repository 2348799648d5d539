#include "platform/FirstStart.h"
#include <array>
#include <string>

namespace platform {
namespace {
constexpr std::array Greetings = {"Good {TimeOfDay}! It is nice to see you.", "Hello! Today is {Day}, and it is {Time}.",
                                  "Good {TimeOfDay}! Copy a text and double-click me, and I will read it to you.",
                                  "Hello again! I wish you a pleasant {Day}.",
                                  "Good {TimeOfDay}! It is {Time}. I am ready when you are."};
}

void PrepareOptions(IRegistry& registry)
{
    if (!registry.Open(Root::CurrentUser, OptionKey))
        SeedGreetings(registry);
    SeedCustomSize(registry);
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
