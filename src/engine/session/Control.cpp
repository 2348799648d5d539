#include "engine/session/Control.h"
#include "engine/session/CharacterObject.h"
#include "engine/session/DefaultCharacter.h"
#include "platform/Failure.h"
#include <algorithm>

namespace engine {

namespace engineError = platform::engineError;
using platform::CFailure;

CCast::CCast(Core& core, ICharacterSource& source) : m_core(core), m_source(source)
{
    m_core.host.Desktop().Watch(this, [this] {
        for (const auto& [id, seat] : m_seats)
            seat->actor->WorkAreaChanged();
    });
    m_core.stepFailed = [this](std::int32_t number) {
        for (const auto& [id, seat] : m_seats)
            seat->actor->StepFailed(number);
    };
    m_core.user->Watch(this, [this](const UserSettings& before) { UserSettingsChanged(before); });
}

CCast::~CCast()
{
    m_core.stepFailed = nullptr;
    m_core.user->Unwatch(this);
    m_core.host.Desktop().Unwatch(this);
}

void CCast::CheckCompany(const std::string& id, bool asDefault) const
{
    if (m_seats.count(id) != 0)
        throw CFailure(engineError::AlreadyLoaded, "A character is loaded under this id already.");
    const bool mixed = std::any_of(m_seats.begin(), m_seats.end(),
                                   [&](const auto& entry) { return asDefault || entry.second->actor->IsDefault(); });
    if (mixed)
        throw CFailure(engineError::DefaultAndOther, "The default character cannot be loaded beside another one.");
}

platform::RequestRef CCast::Load(const std::string& id, const std::optional<std::string>& file)
{
    CheckCompany(id, !file);
    const CharacterRef character = file ? m_source.Load(*file) : LoadDefault();
    if (!character)
        throw CFailure(engineError::NotACharacterFile, "The file is not a character file.");
    const bool twice = std::any_of(m_seats.begin(), m_seats.end(),
                                   [&](const auto& entry) { return entry.second->actor->Data().id == character->id; });
    if (twice)
        throw CFailure(engineError::AlreadyLoaded, "This character is loaded already.");
    m_seats.emplace(id, std::make_shared<Seat>(Seat{std::make_shared<CActor>(m_core, id, character, !file)}));
    const auto request = std::make_shared<CRequest>(m_core.NewRequestID(), nullptr, platform::RequestStatus::Completed);
    m_core.Tell([weak = std::weak_ptr<CRequest>(request)](auto& events) {
        if (const auto held = weak.lock())
            events.RequestComplete(held);
    });
    return request;
}

CharacterRef CCast::LoadDefault() { return LoadDefaultCharacter(m_source, m_core.user->Now().defaultCharacter); }

void CCast::UserSettingsChanged(const UserSettings& before)
{
    for (const auto& [id, seat] : m_seats)
        seat->actor->UserSettingsChanged();
    if (before.defaultCharacter == m_core.user->Now().defaultCharacter)
        return;
    for (const auto& [id, seat] : m_seats)
        if (seat->actor->IsDefault())
            ReplaceDefault(id, *seat);
}

void CCast::ReplaceDefault(const std::string& id, Seat& seat)
{
    CharacterRef character;
    try {
        character = LoadDefault();
    } catch (const CFailure&) {
        return;  // Better the old one than none.
    }
    if (!character || character->id == seat.actor->Data().id)
        return;
    auto actor = std::make_shared<CActor>(m_core, id, character, /*isDefault*/ true);
    actor->Replace(*seat.actor);
    seat.actor = std::move(actor);
    m_core.Tell([guid = GuidOf(*character)](auto& events) { events.DefaultCharacterChange(guid); });
}

void CCast::Unload(const std::string& id)
{
    const std::shared_ptr<Seat> seat = Find(id);
    m_seats.erase(id);
}

std::shared_ptr<Seat> CCast::Find(const std::string& id) const
{
    const auto found = m_seats.find(id);
    if (found == m_seats.end())
        throw CFailure(engineError::BadCharacterID, "No character is loaded under this id.");
    return found->second;
}

namespace {

class CCharactersObject final : public platform::ICharacters {
public:
    explicit CCharactersObject(std::weak_ptr<CCast> cast) : m_cast(std::move(cast)) {}
    platform::RequestRef Load(const std::string& id, const std::optional<std::string>& file) override
    {
        return Cast()->Load(id, file);
    }
    void Unload(const std::string& id) override { Cast()->Unload(id); }
    std::shared_ptr<platform::ICharacter> Character(const std::string& id) override
    {
        return MakeCharacterObject(Cast()->Find(id));
    }

private:
    std::shared_ptr<CCast> Cast() const
    {
        auto cast = m_cast.lock();
        if (!cast)
            throw CFailure(engineError::NotConnected, "The character engine has gone.");
        return cast;
    }

    std::weak_ptr<CCast> m_cast;
};

}

CControl::CControl(IHost& host, ICharacterSource& source, const EngineSettings& settings)
    : m_core(host, settings), m_cast(std::make_shared<CCast>(m_core, source))
{
}

void CControl::RequireConnection() const
{
    if (!m_connected)
        throw CFailure(engineError::NotConnected, "The control is not connected to the character engine.");
}

std::shared_ptr<platform::ICharacters> CControl::Characters()
{
    RequireConnection();
    return std::make_shared<CCharactersObject>(m_cast);
}

void CControl::SetPropertySheetVisible(bool visible)
{
    RequireConnection();
    if (m_core.settings.showPropertySheet)
        m_core.settings.showPropertySheet(visible);
}

void CControl::ShowDefaultCharacterProperties()
{
    RequireConnection();
    if (m_core.settings.showDefaultCharacterProperties)
        m_core.settings.showDefaultCharacterProperties();
}

std::shared_ptr<platform::ICharacterEngine> CreateEngine(IHost& host, ICharacterSource& source,
                                                         const EngineSettings& settings)
{
    return std::make_shared<CControl>(host, source, settings);
}

}
