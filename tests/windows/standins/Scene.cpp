#include "windows/standins/Scene.h"
#include "windows/standins/Character.h"
#include "windows/standins/Telling.h"
#include "windows/standins/TypeInformation.h"
#include <algorithm>

namespace standins {

CScene::CScene()
    : voices{{"{CA141FD0-AC7F-11D1-97A3-006008273000}", "Voice One", 0x0409},
             {"{CA141FD0-AC7F-11D1-97A3-006008273002}", "Voice Two", 0x0409},
             {"{CA141FD0-AC7F-11D1-97A3-006008273006}", "Voice Three", 0x0809}},
      animations{"Acknowledge", "Announce", "Blink",     "Congratulate", "Explain", "GestureLeft", "Greet",
                 "Hide",        "Idle1_1",  "MoveLeft",  "Processing",   "Read",    "ReadReturn",  "Reading",
                 "RestPose",    "Show",     "Surprised", "Think",        "Wave"}
{
}

CScene::~CScene() = default;

bool CScene::Tell(const std::string& command)
{
    const bool understood = Obey(*this, command);
    log.Write((understood ? "told " : "not understood ") + command);
    return understood;
}

void CScene::RunInsideCall(const std::string& command)
{
    const bool before = m_insideCall;
    m_insideCall = true;
    Tell(command);
    m_insideCall = before;
}

void CScene::Later(std::function<void()> work)
{
    if (m_insideCall)
        work();
    else
        loop.Post(std::move(work));
}

std::shared_ptr<CCharacterState> CScene::Character(const std::string& id) const
{
    for (auto entry = characters.rbegin(); entry != characters.rend(); ++entry)
        if (const auto state = entry->lock(); state && state->alive && SameName(state->id, id))
            return state;
    return nullptr;
}

CTypes& CScene::Types()
{
    if (!m_types)
        m_types = std::make_unique<CTypes>(*this);
    return *m_types;
}

}
