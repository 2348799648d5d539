#include "settings/bOptions.h"
#include "character/CharacterState.h"
#include "common/zbErrorTrap.h"
#include "settings/OptionsJournal.h"
#include "settings/Paths.h"
#include "settings/zbProfile.h"
#include "settings/zbRegistry.h"

namespace {

using zbErrorTrap::CGuard;
using zbRegistry::Root;

constexpr char Module[] = "bOptions";

struct OptionPlace {
    std::string path;
    std::string valueName;
};

// The path keeps the separator at the end of an option's own sub-path.
OptionPlace SplitOptionName(std::string_view name)
{
    const std::size_t last = name.rfind('\\');
    if (last == std::string_view::npos)
        return {bOptions::OptionKey, std::string(name)};
    return {std::string(bOptions::OptionKey) + '\\' + std::string(name.substr(0, last + 1)),
            std::string(name.substr(last + 1))};
}

bool IsTruthText(std::string_view value) { return value == "0" || value == "1"; }

}

std::string bOptions::GetOption(std::string_view name, std::string_view defaultValue, bool validate)
{
    const CGuard guard(Module, "GetOption");
    OptionPlace place;
    std::string value(defaultValue);

    guard([&] { place = SplitOptionName(name); });
    guard([&] { value = zbRegistry::GetReg(Root::CurrentUser, place.path, place.valueName, std::string(defaultValue)); });
    guard([&] {
        if (validate && !IsTruthText(value))
            value = defaultValue;
    });
    optionsJournal::NoteStored(name, value);
    return value;
}

void bOptions::SetOption(std::string_view name, std::string_view value)
{
    const CGuard guard(Module, "SetOption");
    OptionPlace place;
    std::string current;

    guard([&] { place = SplitOptionName(name); });
    guard([&] { current = zbRegistry::GetReg(Root::CurrentUser, place.path, place.valueName, ""); });
    guard([&] {
        if (value == current || zbRegistry::SetReg(Root::CurrentUser, place.path, place.valueName, std::string(value)))
            optionsJournal::NoteStored(name, value);
    });
}

void bOptions::SetOption(std::string_view name, std::int32_t value) { SetOption(name, std::to_string(value)); }

std::string bOptions::GetCharOption(std::string_view name, std::string_view defaultValue)
{
    return zbProfile::GetProfile(settings::Paths().settingsFile, character::Current().Name(), std::string(name),
                                 std::string(defaultValue));
}

void bOptions::SetCharOption(std::string_view name, std::string_view value)
{
    zbProfile::SetProfile(settings::Paths().settingsFile, character::Current().Name(), std::string(name),
                          std::string(value));
}
