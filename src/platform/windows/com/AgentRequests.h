#pragma once
#include "platform/CharacterEngine.h"
#include "platform/windows/com/Dispatch.h"
#include <deque>
#include <map>
#include <memory>
#include <optional>

namespace platform::windowsdesktop::com {

// A request of the engine. Its answers are asked for anew each time; the outcome, which never changes, only until it is
// known.
class CAgentRequest final : public IRequest {
public:
    explicit CAgentRequest(CInterface<IDispatch> request) : m_request(std::move(request)) {}
    std::int32_t ID() const override;
    RequestStatus Status() const override;
    std::int32_t Number() const override { return m_request.Get(L"Number").Long(); }
    std::string Description() const override { return m_request.Get(L"Description").Text(); }
    const CInterface<IDispatch>& Object() const { return m_request.Object(); }
    // Number and outcome, read now and kept. Who asks later gets what could not be read from the engine, or its failure.
    void ReadID() const;
    void ReadOutcome();
    // Takes over the outcome that another object of the same request has read.
    void Learn(const CAgentRequest& same);

private:
    RequestStatus AskStatus() const;

    CDispatch m_request;
    mutable std::optional<std::int32_t> m_id;  // Never changes.
    std::optional<RequestStatus> m_outcome;
};
using AgentRequestRef = std::shared_ptr<CAgentRequest>;

// The requests of one control. The engine reports on a request only while somebody holds it: so each is held here, besides
// by the program, until it has completed. There may be thousands at a time, and none is asked for its state to find that
// out.
class CAgentRequests {
public:
    // The request that a call for a character answered with. Throws CFailure when the answer is none.
    RequestRef Made(const std::string& characterID, const CVariant& answer);
    // The request of an object that an event hands over, with its number read. Inside a call that makes the request it is
    // not known yet: so ask for it when the event is delivered.
    AgentRequestRef ToldOf(const CInterface<IDispatch>& object);
    // The request that the event speaks of: the one that the call returned, or that of the event when none is known.
    AgentRequestRef Of(const AgentRequestRef& told);
    // One that starts tells that its character's former ones have ended, should no event have said so.
    void Started(const AgentRequestRef& request);
    void Completed(const AgentRequestRef& request);
    // The character's requests will not run any more. Their last events may still be on the way: they are held until the
    // next character is unloaded.
    void Unloaded(const std::string& characterID);
    void LetAllGo() { m_pending.clear(); }

private:
    struct Pending {
        std::string characterID;
        AgentRequestRef request;
        bool unloaded = false;
    };
    AgentRequestRef Known(const void* identity) const;
    AgentRequestRef KnownByID(std::int32_t id) const;
    void Remember(const void* identity, const AgentRequestRef& request);
    std::deque<Pending>::iterator Find(const AgentRequestRef& request);

    std::deque<Pending> m_pending;  // In the order of the calls.
    // By the object's identity, which is its own for as long as it is held. Also completed ones that the program still
    // holds.
    std::map<const void*, std::weak_ptr<CAgentRequest>> m_known;
    std::size_t m_knownLimit = 64;  // Where those that are gone are forgotten.
};
using RequestsRef = std::shared_ptr<CAgentRequests>;

}
