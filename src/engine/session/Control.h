#pragma once
#include "engine/session/CharacterObject.h"
#include <map>

namespace engine {

// The characters of one control.
class CCast {
public:
    CCast(Core& core, ICharacterSource& source);
    ~CCast();
    CCast(const CCast&) = delete;
    CCast& operator=(const CCast&) = delete;

    platform::RequestRef Load(const std::string& id, const std::optional<std::string>& file);
    void Unload(const std::string& id);
    std::shared_ptr<Seat> Find(const std::string& id) const;  // Throws BadCharacterID.

private:
    void CheckCompany(const std::string& id, bool asDefault) const;
    CharacterRef LoadDefault();
    void UserSettingsChanged(const UserSettings& before);
    void ReplaceDefault(const std::string& id, Seat& seat);

    Core& m_core;
    ICharacterSource& m_source;
    std::map<std::string, std::shared_ptr<Seat>> m_seats;
};

// What the program holds of the engine.
class CControl final : public platform::ICharacterEngine {
public:
    CControl(IHost& host, ICharacterSource& source, const EngineSettings& settings);
    bool Connected() const override { return m_connected; }
    void SetConnected(bool connected) override { m_connected = m_connected || connected; }  // There is no way back.
    std::shared_ptr<platform::ICharacters> Characters() override;
    void SetPropertySheetVisible(bool visible) override;
    void ShowDefaultCharacterProperties() override;
    void SetEvents(platform::ICharacterEngineEvents* events) override { m_core.events = events; }

private:
    void RequireConnection() const;

    Core m_core;
    std::shared_ptr<CCast> m_cast;
    bool m_connected = false;
};

}
