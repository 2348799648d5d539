#pragma once
#include "engine/Host.h"
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>

// What the user has set in the engine's own windows, for all characters of all programs.
namespace engine {

struct UserSettings {
    static constexpr std::int32_t SlowestPercent = 50;
    static constexpr std::int32_t FastestPercent = 200;

    bool balloonsOn = true;
    bool soundEffectsOn = true;
    std::int32_t speedPercent = 100;  // Of each voice's pace.
    std::string defaultCharacter;     // A file as ICharacterSource::Load takes it; "" for the first that is found.
    friend bool operator==(const UserSettings&, const UserSettings&) = default;
};

// The settings as text, one "name=value" a line. What is missing, unknown or out of range when it is read has its default.
std::string WriteUserSettings(const UserSettings& settings);
UserSettings ReadUserSettings(std::string_view text);

// The settings in force. Lives as long as everything that watches it; borrows the file.
class CUserSettings {
public:
    using Changed = std::function<void(const UserSettings& before)>;

    explicit CUserSettings(ISettingsFile& file) : m_file(file), m_now(ReadUserSettings(file.Read())) {}
    CUserSettings(const CUserSettings&) = delete;
    CUserSettings& operator=(const CUserSettings&) = delete;

    const UserSettings& Now() const { return m_now; }
    // They hold from now on; the watchers are told unless nothing is different. False when they could not be kept for the
    // next start.
    bool Change(const UserSettings& settings);
    void Watch(const void* watcher, Changed changed) { m_watchers[watcher] = std::move(changed); }
    void Unwatch(const void* watcher) { m_watchers.erase(watcher); }

private:
    ISettingsFile& m_file;
    UserSettings m_now;
    std::map<const void*, Changed> m_watchers;
};

}
