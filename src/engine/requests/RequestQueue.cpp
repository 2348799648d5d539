#include "engine/requests/RequestQueue.h"
#include "engine/base/Failures.h"
#include "platform/Failure.h"
#include <algorithm>

namespace engine {

using platform::RequestStatus;
namespace engineError = platform::engineError;

namespace {
// True from here to the end of a block, however it is left.
class CWhile {
public:
    explicit CWhile(bool& value) : m_value(value) { m_value = true; }
    ~CWhile() { m_value = false; }
    CWhile(const CWhile&) = delete;
    CWhile& operator=(const CWhile&) = delete;

private:
    bool& m_value;
};
}

CRequestQueue::CRequestQueue(CPostbox& postbox, IWorker& worker, IRequestEvents& events)
    : m_postbox(postbox), m_worker(worker), m_events(events)
{
}

std::shared_ptr<CRequest> CRequestQueue::Add(WorkItem item, std::int32_t id)
{
    const auto request = std::make_shared<CRequest>(id, this, RequestStatus::Pending);
    item.id = id;
    item.request = request;
    m_waiting.push_back(std::move(item));
    if (!m_running && !m_performing)
        TakeUp();
    return request;
}

// The program hears of a failure at once, and the queue goes on.
void CRequestQueue::TakeUp()
{
    try {
        TakeNext();
    } catch (...) {
        Fail(NumberOfFailure());
        throw;
    }
}

void CRequestQueue::TakeNext()
{
    if (m_waiting.empty()) {
        m_worker.RanOut();
        return;
    }
    m_running = std::move(m_waiting.front());
    m_waiting.pop_front();
    if (const auto request = m_running->request.lock())
        request->Set(RequestStatus::InProgress, 0);
    m_events.Started(m_running->request);
    const CWhile performing(m_performing);
    m_worker.Perform(*m_running);
}

void CRequestQueue::Fail(std::int32_t number)
{
    if (m_performing)
        return;
    if (m_running) {
        WorkItem failed = std::move(*m_running);
        m_running.reset();
        m_worker.Interrupt(failed);
        Complete(failed, RequestStatus::Failed, number);
    }
    TakeNext();
}

void CRequestQueue::Finish(RequestStatus status, std::int32_t number)
{
    if (!m_running)
        return;
    if (m_performing) {
        const std::weak_ptr<int> alive = m_alive;
        m_postbox.Post([this, alive, id = m_running->id, status, number] {
            if (!alive.expired() && m_running && m_running->id == id)
                Finish(status, number);
        });
        return;
    }
    const WorkItem ended = std::move(*m_running);
    m_running.reset();
    Complete(ended, status, number);
    TakeNext();
}

void CRequestQueue::Complete(const WorkItem& item, RequestStatus status, std::int32_t number)
{
    if (const auto request = item.request.lock())
        request->Set(status, number);
    m_events.Completed(item.request);
}

void CRequestQueue::StopRunning()
{
    WorkItem stopped = std::move(*m_running);
    m_running.reset();
    m_worker.Interrupt(stopped);
    Complete(stopped, RequestStatus::Interrupted, engineError::InterruptedByApplication);
}

void CRequestQueue::Stop(const WorkFilter& filter)
{
    const bool wasBusy = m_running.has_value();
    if (m_running && filter(*m_running))
        StopRunning();
    const auto removed =
        std::stable_partition(m_waiting.begin(), m_waiting.end(), [&](const WorkItem& item) { return !filter(item); });
    for (auto item = removed; item != m_waiting.end(); ++item)
        Complete(*item, RequestStatus::Interrupted, engineError::RemovedFromQueue);
    m_waiting.erase(removed, m_waiting.end());
    if (wasBusy && !m_running)
        TakeNext();
}

void CRequestQueue::Stop(const platform::RequestRef& request)
{
    const auto ours = std::dynamic_pointer_cast<CRequest>(request);
    if (!ours || ours->Owner() == nullptr)
        throw platform::CFailure(engineError::NotARequest, "This is not a request of a character.");
    if (ours->Owner() != this)
        throw platform::CFailure(engineError::OtherCharactersRequest, "The request belongs to another character.");
    const auto isIt = [id = ours->ID()](const WorkItem& item) { return item.id == id; };
    const bool known = (m_running && isIt(*m_running)) || std::any_of(m_waiting.begin(), m_waiting.end(), isIt);
    if (!known)
        throw platform::CFailure(engineError::NotInQueue, "The request is not in the queue.");
    Stop(WorkFilter(isIt));
}

void CRequestQueue::Abandon()
{
    const auto mark = [](const WorkItem& item, std::int32_t number) {
        if (const auto request = item.request.lock())
            request->Set(RequestStatus::Interrupted, number);
    };
    if (m_running)
        mark(*m_running, engineError::InterruptedByApplication);
    for (const WorkItem& item : m_waiting)
        mark(item, engineError::RemovedFromQueue);
    m_running.reset();
    m_waiting.clear();
}

}
