#include "platform/windows/com/AgentEngine.h"
#include "platform/windows/com/AgentCharacter.h"

namespace platform::windowsdesktop::com {
namespace {

class CAgentCharacters final : public ICharacters {
public:
    CAgentCharacters(CDispatch characters, RequestsRef requests)
        : m_characters(std::move(characters)), m_requests(std::move(requests))
    {
    }
    RequestRef Load(const std::string& id, const std::optional<std::string>& file) override
    {
        return m_requests->Made(id, m_characters.Call(L"Load", {id, file}));
    }
    void Unload(const std::string& id) override
    {
        m_characters.Run(L"Unload", {id});
        m_requests->Unloaded(id);
    }
    std::shared_ptr<ICharacter> Character(const std::string& id) override
    {
        return std::make_shared<CAgentCharacter>(id, m_characters.Call(L"Character", {id}).Object(), m_requests);
    }

private:
    CDispatch m_characters;
    RequestsRef m_requests;
};

}

CAgentEngine::CAgentEngine(const CInterface<IDispatch>& control)
    : m_control(control), m_connection(control, m_queue, m_requests)
{
}

CAgentEngine::~CAgentEngine()
{
    m_queue->Close();
    m_requests->LetAllGo();
}

std::shared_ptr<ICharacters> CAgentEngine::Characters()
{
    return std::make_shared<CAgentCharacters>(m_control.Child(L"Characters"), m_requests);
}

// The engine's own windows belong to another process, which may come to the front only with our leave.
void CAgentEngine::SetPropertySheetVisible(bool visible)
{
    AllowSetForegroundWindow(ASFW_ANY);
    m_control.Child(L"PropertySheet").Put(L"Visible", visible);
}

void CAgentEngine::ShowDefaultCharacterProperties()
{
    AllowSetForegroundWindow(ASFW_ANY);
    m_control.Run(L"ShowDefaultCharacterProperties");
}

}
