#include "engine/UserSettings.h"
#include <algorithm>
#include <charconv>
#include <utility>

namespace engine {

namespace {

constexpr std::string_view Balloons = "Balloons";
constexpr std::string_view SoundEffects = "SoundEffects";
constexpr std::string_view Speed = "SpeedPercent";
constexpr std::string_view DefaultCharacter = "DefaultCharacter";

void ReadTruth(bool& truth, std::string_view value)
{
    if (value == "0" || value == "1")
        truth = value == "1";
}

void ReadSpeed(std::int32_t& percent, std::string_view value)
{
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number);
    if (error == std::errc() && end == value.data() + value.size() && number >= UserSettings::SlowestPercent &&
        number <= UserSettings::FastestPercent)
        percent = number;
}

void ReadLine(UserSettings& settings, std::string_view name, std::string_view value)
{
    if (name == Balloons)
        ReadTruth(settings.balloonsOn, value);
    else if (name == SoundEffects)
        ReadTruth(settings.soundEffectsOn, value);
    else if (name == Speed)
        ReadSpeed(settings.speedPercent, value);
    else if (name == DefaultCharacter)
        settings.defaultCharacter = value;
}

std::string Line(std::string_view name, const std::string& value) { return std::string(name) + "=" + value + "\n"; }

// A line end in a file's name would begin a line of its own.
bool FitsInOneLine(const std::string& text) { return text.find_first_of("\r\n") == std::string::npos; }

}

std::string WriteUserSettings(const UserSettings& settings)
{
    return Line(Balloons, settings.balloonsOn ? "1" : "0") + Line(SoundEffects, settings.soundEffectsOn ? "1" : "0") +
           Line(Speed, std::to_string(settings.speedPercent)) +
           Line(DefaultCharacter, FitsInOneLine(settings.defaultCharacter) ? settings.defaultCharacter : "");
}

UserSettings ReadUserSettings(std::string_view text)
{
    UserSettings settings;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        const std::size_t sign = line.find('=');
        if (sign != std::string_view::npos)
            ReadLine(settings, line.substr(0, sign), line.substr(sign + 1));
    }
    return settings;
}

bool CUserSettings::Change(const UserSettings& settings)
{
    UserSettings wanted = settings;
    wanted.speedPercent = std::clamp(wanted.speedPercent, UserSettings::SlowestPercent, UserSettings::FastestPercent);
    const UserSettings before = std::exchange(m_now, wanted);
    const bool kept = m_file.Write(WriteUserSettings(m_now));
    if (before == m_now)
        return kept;
    const auto watchers = m_watchers;  // Whoever is told may begin or end watching.
    for (const auto& [watcher, changed] : watchers)
        if (m_watchers.count(watcher) != 0)
            changed(before);
    return kept;
}

}
