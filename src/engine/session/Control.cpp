#include "engine/session/Control.h"
#include "engine/session/CharacterObject.h"
#include "platform/Failure.h"
#include <algorithm>

namespace engine {

namespace engineError = platform::engineError;
using platform::CFailure;

CCast::CCast(Core& core, ICharacterSource& source) : m_core(core), m_source(source)
{
    m_core.host.Desktop().Watch(this, [this] {
        for (const auto& [id, actor] : m_actors)
            actor->WorkAreaChanged();
    });
}

CCast::~CCast() { m_core.host.Desktop().Unwatch(this); }

void CCast::CheckCompany(const std::string& id, bool asDefault) const
{
    if (m_actors.count(id) != 0)
        throw CFailure(engineError::AlreadyLoaded, "A character is loaded under this id already.");
    const bool mixed = std::any_of(m_actors.begin(), m_actors.end(),
                                   [&](const auto& entry) { return asDefault || entry.second->IsDefault(); });
    if (mixed)
        throw CFailure(engineError::DefaultAndOther, "The default character cannot be loaded beside another one.");
}

platform::RequestRef CCast::Load(const std::string& id, const std::optional<std::string>& file)
{
    CheckCompany(id, !file);
    const CharacterRef character = file ? m_source.Load(*file) : m_source.LoadDefault();
    if (!character)
        throw CFailure(engineError::NotACharacterFile, "The file is not a character file.");
    const bool twice = std::any_of(m_actors.begin(), m_actors.end(),
                                   [&](const auto& entry) { return entry.second->Data().id == character->id; });
    if (twice)
        throw CFailure(engineError::AlreadyLoaded, "This character is loaded already.");
    m_actors.emplace(id, std::make_shared<CActor>(m_core, id, character, !file));
    const auto request = std::make_shared<CRequest>(m_core.NewRequestID(), nullptr, platform::RequestStatus::Completed);
    m_core.Tell([weak = std::weak_ptr<CRequest>(request)](auto& events) {
        if (const auto held = weak.lock())
            events.RequestComplete(held);
    });
    return request;
}

void CCast::Unload(const std::string& id)
{
    const std::shared_ptr<CActor> actor = Find(id);
    m_actors.erase(id);
}

std::shared_ptr<CActor> CCast::Find(const std::string& id) const
{
    const auto found = m_actors.find(id);
    if (found == m_actors.end())
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
