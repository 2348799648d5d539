#include "platform/windows/com/AgentRequests.h"
#include "platform/Failure.h"
#include <algorithm>

namespace platform::windowsdesktop::com {
namespace {

constexpr std::size_t LeastRoom = 64;

bool StillRuns(const CAgentRequest& request)
{
    try {
        const RequestStatus status = request.Status();
        return status == RequestStatus::Pending || status == RequestStatus::InProgress;
    } catch (const CFailure&) {
        return false;
    }
}

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

RequestStatus CAgentRequest::Status() const
{
    const std::int32_t status = m_request.Get(L"Status").Long();
    if (status < static_cast<std::int32_t>(RequestStatus::Completed) ||
        status > static_cast<std::int32_t>(RequestStatus::InProgress))
        throw failure::InvalidPropertyValue();
    return static_cast<RequestStatus>(status);
}

RequestRef CAgentRequests::Made(const CVariant& answer)
{
    const CInterface<IDispatch> object = answer.Object();
    AgentRequestRef request = Known(object);
    if (!request) {
        request = std::make_shared<CAgentRequest>(object);
        m_known.push_back(request);
    }
    m_pending.push_back(request);
    if (m_pending.size() >= m_roomBeforeLookingAround) {
        LetEndedGo();
        m_roomBeforeLookingAround = std::max(LeastRoom, 2 * m_pending.size());
    }
    return request;
}

AgentRequestRef CAgentRequests::Of(const CInterface<IDispatch>& object)
{
    if (AgentRequestRef known = Known(object))
        return known;
    auto unknown = std::make_shared<CAgentRequest>(object);
    const std::optional<std::int32_t> id = IDOf(*unknown);
    AgentRequestRef same = id ? KnownByID(*id) : nullptr;
    return same ? same : unknown;
}

void CAgentRequests::Completed(const AgentRequestRef& request)
{
    std::erase(m_pending, request);
    ForgetTheGone();
}

void CAgentRequests::LetEndedGo()
{
    const std::vector<AgentRequestRef> asked = m_pending;  // Asking may let an event in that changes the list.
    for (const AgentRequestRef& request : asked)
        if (!StillRuns(*request))
            std::erase(m_pending, request);
    ForgetTheGone();
}

void CAgentRequests::ForgetTheGone()
{
    std::erase_if(m_known, [](const std::weak_ptr<CAgentRequest>& request) { return request.expired(); });
}

AgentRequestRef CAgentRequests::Known(const CInterface<IDispatch>& object) const
{
    for (const std::weak_ptr<CAgentRequest>& entry : m_known)
        if (AgentRequestRef request = entry.lock(); request && SameObject(request->Object(), object))
            return request;
    return nullptr;
}

AgentRequestRef CAgentRequests::KnownByID(std::int32_t id) const
{
    const std::vector<std::weak_ptr<CAgentRequest>> known = m_known;
    for (const std::weak_ptr<CAgentRequest>& entry : known)
        if (AgentRequestRef request = entry.lock(); request && IDOf(*request) == id)
            return request;
    return nullptr;
}

}
