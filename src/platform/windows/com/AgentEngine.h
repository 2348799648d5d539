#pragma once
#include "platform/CharacterEngine.h"
#include "platform/windows/com/AgentRequests.h"
#include "platform/windows/com/EventSink.h"
#include <memory>

namespace platform::windowsdesktop::com {

// One control of the engine. Events are listened to from the beginning, before the engine is connected.
class CAgentEngine final : public ICharacterEngine {
public:
    // Throws CFailure when the control raises no events.
    explicit CAgentEngine(const CInterface<IDispatch>& control);
    ~CAgentEngine() override;
    CAgentEngine(const CAgentEngine&) = delete;
    CAgentEngine& operator=(const CAgentEngine&) = delete;

    bool Connected() const override { return m_control.Get(L"Connected").Truth(); }
    void SetConnected(bool connected) override { m_control.Put(L"Connected", connected); }
    std::shared_ptr<ICharacters> Characters() override;
    void SetPropertySheetVisible(bool visible) override;
    void ShowDefaultCharacterProperties() override;
    void SetEvents(ICharacterEngineEvents* events) override { m_queue->SetReceiver(events); }

private:
    RequestsRef m_requests = std::make_shared<CAgentRequests>();
    EventQueueRef m_queue = std::make_shared<CEventQueue>();
    CDispatch m_control;
    CEventConnection m_connection;
};

}
