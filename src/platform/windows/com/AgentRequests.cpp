#include "platform/windows/com/AgentRequests.h"
#include "platform/Failure.h"
#include <algorithm>

namespace platform::windowsdesktop::com {
namespace {

constexpr std::size_t LeastKnownLimit = 64;

const void* Identity(const CInterface<IDispatch>& object) { return object.As<IUnknown>().Raw(); }

std::optional<std::int32_t> IDOf(const CAgentRequest& request)
{
    try {
        return request.ID();
    } catch (const CFailure&) {
        return std::nullopt;
    }
}

}

std::int32_t CAgentRequest::ID() const
{
    if (!m_id)
        m_id = m_request.Get(L"ID").Long();
    return *m_id;
}

RequestStatus CAgentRequest::Status() const { return m_outcome ? *m_outcome : AskStatus(); }

RequestStatus CAgentRequest::AskStatus() const
{
    const std::int32_t status = m_request.Get(L"Status").Long();
    if (status < static_cast<std::int32_t>(RequestStatus::Completed) ||
        status > static_cast<std::int32_t>(RequestStatus::InProgress))
        throw failure::InvalidPropertyValue();
    return static_cast<RequestStatus>(status);
}

void CAgentRequest::ReadID() const { static_cast<void>(IDOf(*this)); }

void CAgentRequest::ReadOutcome()
{
    try {
        const RequestStatus status = AskStatus();
        if (status != RequestStatus::Pending && status != RequestStatus::InProgress)
            m_outcome = status;
    } catch (const CFailure&) {
        return;
    }
}

void CAgentRequest::Learn(const CAgentRequest& same)
{
    if (!m_outcome)
        m_outcome = same.m_outcome;
}

RequestRef CAgentRequests::Made(const std::string& characterID, const CVariant& answer)
{
    const CInterface<IDispatch> object = answer.Object();
    const void* identity = Identity(object);
    AgentRequestRef request = Known(identity);
    if (!request) {
        request = std::make_shared<CAgentRequest>(object);
        Remember(identity, request);
    }
    m_pending.push_back({characterID, request});
    return request;
}

AgentRequestRef CAgentRequests::ToldOf(const CInterface<IDispatch>& object)
{
    AgentRequestRef told = Known(Identity(object));
    if (!told)
        told = std::make_shared<CAgentRequest>(object);
    told->ReadID();
    return told;
}

AgentRequestRef CAgentRequests::Of(const AgentRequestRef& told)
{
    AgentRequestRef same = Known(Identity(told->Object()));
    if (!same)
        if (const std::optional<std::int32_t> id = IDOf(*told))
            same = KnownByID(*id);
    if (!same)
        return told;
    same->Learn(*told);
    return same;
}

void CAgentRequests::Started(const AgentRequestRef& request)
{
    const auto started = Find(request);
    if (started == m_pending.end())
        return;
    const std::string characterID = started->characterID;
    const auto ended = [&](const Pending& entry) { return entry.characterID == characterID; };
    m_pending.erase(std::remove_if(m_pending.begin(), started, ended), started);
}

void CAgentRequests::Completed(const AgentRequestRef& request)
{
    if (const auto completed = Find(request); completed != m_pending.end())
        m_pending.erase(completed);
}

void CAgentRequests::Unloaded(const std::string& characterID)
{
    std::erase_if(m_pending, [](const Pending& entry) { return entry.unloaded; });
    for (Pending& entry : m_pending)
        entry.unloaded = entry.characterID == characterID;
}

std::deque<CAgentRequests::Pending>::iterator CAgentRequests::Find(const AgentRequestRef& request)
{
    return std::find_if(m_pending.begin(), m_pending.end(), [&](const Pending& entry) { return entry.request == request; });
}

void CAgentRequests::Remember(const void* identity, const AgentRequestRef& request)
{
    if (m_known.size() >= m_knownLimit) {
        std::erase_if(m_known, [](const auto& entry) { return entry.second.expired(); });
        m_knownLimit = std::max(LeastKnownLimit, 2 * m_known.size());
    }
    m_known[identity] = request;
}

AgentRequestRef CAgentRequests::Known(const void* identity) const
{
    const auto found = m_known.find(identity);
    return found == m_known.end() ? nullptr : found->second.lock();
}

AgentRequestRef CAgentRequests::KnownByID(std::int32_t id) const
{
    const auto known = m_known;  // Asking may let something in that changes the list.
    for (const auto& [identity, entry] : known)
        if (AgentRequestRef request = entry.lock(); request && IDOf(*request) == id)
            return request;
    return nullptr;
}

}
