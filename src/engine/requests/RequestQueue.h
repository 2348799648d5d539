#pragma once
#include "engine/base/Postbox.h"
#include "engine/requests/WorkItem.h"
#include <deque>
#include <optional>

namespace engine {

// What a queue's requests set in motion.
class IWorker {
public:
    virtual ~IWorker() = default;
    virtual void Perform(WorkItem& item) = 0;    // Ends by a call of CRequestQueue::Finish, at once or later.
    virtual void Interrupt(WorkItem& item) = 0;  // Ends what Perform began; Finish is not called any more.
    virtual void RanOut() = 0;                   // Nothing is left to do.
};

// Tells the program about requests.
class IRequestEvents {
public:
    virtual ~IRequestEvents() = default;
    virtual void Started(std::weak_ptr<CRequest> request) = 0;
    virtual void Completed(std::weak_ptr<CRequest> request) = 0;
};

using WorkFilter = std::function<bool(const WorkItem&)>;

// One character's requests: one runs, the others wait in line. Queueing is O(1).
class CRequestQueue {
public:
    CRequestQueue(CPostbox& postbox, IWorker& worker, IRequestEvents& events);

    // Appends a piece of work under a new id and takes it up at once when nothing else is to be done.
    std::shared_ptr<CRequest> Add(WorkItem item, std::int32_t id);

    // Ends the running piece of work. Called from within Perform it takes effect from the event loop, so that its start is
    // told first.
    void Finish(platform::RequestStatus status, std::int32_t number = 0);

    // What the running piece of work was about to do has thrown: it ends as failed, and the next one is taken up.
    void Fail(std::int32_t number);

    // Interrupts and removes every piece of work that the filter accepts.
    void Stop(const WorkFilter& filter);
    // Ends or removes one request. Throws NotInQueue, NotARequest or OtherCharactersRequest.
    void Stop(const platform::RequestRef& request);
    // Marks everything as stopped without doing or telling anything more.
    void Abandon();

    bool Busy() const { return m_running.has_value(); }
    const WorkItem* Running() const { return m_running ? &*m_running : nullptr; }
    WorkItem* Next() { return m_waiting.empty() ? nullptr : &m_waiting.front(); }

private:
    void TakeUp();
    void TakeNext();
    void StopRunning();
    void Complete(const WorkItem& item, platform::RequestStatus status, std::int32_t number);

    CPostbox& m_postbox;
    IWorker& m_worker;
    IRequestEvents& m_events;
    std::deque<WorkItem> m_waiting;
    std::optional<WorkItem> m_running;
    bool m_performing = false;
    std::shared_ptr<int> m_alive = std::make_shared<int>(0);
};

}
