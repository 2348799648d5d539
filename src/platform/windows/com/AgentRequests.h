#pragma once
#include "platform/CharacterEngine.h"
#include "platform/windows/com/Dispatch.h"
#include <memory>
#include <optional>
#include <vector>

namespace platform::windowsdesktop::com {

// A request of the engine; its answers are asked for anew each time.
class CAgentRequest final : public IRequest {
public:
    explicit CAgentRequest(CInterface<IDispatch> request) : m_request(std::move(request)) {}
    std::int32_t ID() const override;
    RequestStatus Status() const override;
    std::int32_t Number() const override { return m_request.Get(L"Number").Long(); }
    std::string Description() const override { return m_request.Get(L"Description").Text(); }
    const CInterface<IDispatch>& Object() const { return m_request.Object(); }

private:
    CDispatch m_request;
    mutable std::optional<std::int32_t> m_id;  // Never changes.
};
using AgentRequestRef = std::shared_ptr<CAgentRequest>;

// The requests of one control. The engine reports on a request only while somebody holds it: so each is held here, besides
// by the program, until it has completed.
class CAgentRequests {
public:
    // The request that a call answered with. Throws CFailure when the answer is none.
    RequestRef Made(const CVariant& answer);
    // The request that an event speaks of: the one that the call returned, or a new one when it is not known.
    AgentRequestRef Of(const CInterface<IDispatch>& object);
    void Completed(const AgentRequestRef& request);
    // Lets go of those that have ended without an event, or whose engine does not answer any more.
    void LetEndedGo();
    void LetAllGo() { m_pending.clear(); }
    std::size_t PendingCount() const { return m_pending.size(); }

private:
    AgentRequestRef Known(const CInterface<IDispatch>& object) const;
    AgentRequestRef KnownByID(std::int32_t id) const;
    void ForgetTheGone();

    std::vector<AgentRequestRef> m_pending;
    std::vector<std::weak_ptr<CAgentRequest>> m_known;  // Also completed ones that the program still holds.
    std::size_t m_roomBeforeLookingAround = 64;
};
using RequestsRef = std::shared_ptr<CAgentRequests>;

}
