#pragma once
#include "windows/standins/Client.h"
#include <deque>

namespace standins {

enum Status : std::int32_t { Completed = 0, Failed = 1, Pending = 2, Interrupted = 3, InProgress = 4 };

class CRequestObject;

// One request as the engine knows it. The object that the client holds is another: events come only while that lives.
struct CRequest {
    std::int32_t id = 0;
    std::string kind;  // The method that made it.
    std::int32_t status = Pending;
    std::int32_t number = 0;
    std::function<void()> start, finish;  // What it does; either may be empty.
    bool failsWhenHidden = false;
    CRequestObject* object = nullptr;
};
using RequestRef = std::shared_ptr<CRequest>;

// What a client gets and holds.
class CRequestObject final : public CAutomationObject {
public:
    CRequestObject(std::shared_ptr<CScene> scene, RequestRef request);
    const RequestRef& Request() const { return m_request; }

protected:
    ~CRequestObject() override;
    void* Interface(REFIID id) override;

private:
    RequestRef m_request;
};

// The request behind an object that a client hands back; null when it is none.
RequestRef RequestBehind(IDispatch* object);

// The requests of one character: one after another.
class CQueue : public std::enable_shared_from_this<CQueue> {
public:
    CQueue(std::shared_ptr<CScene> scene, std::weak_ptr<CClient> client)
        : m_scene(std::move(scene)), m_client(std::move(client))
    {
    }
    std::function<bool()> hidden;  // Whether the character is.

    CRef<IDispatch> Add(RequestRef request);
    // One that is over at once and no part of the queue.
    CRef<IDispatch> Ended(const std::string& kind, std::int32_t status, std::int32_t number);
    void Advance();  // Goes on as far as the scene lets requests run.
    // Ends the running request. Gives whether there was one.
    bool Complete(std::int32_t status, std::int32_t number);
    void Stop(const std::function<bool(const CRequest&)>& which);
    bool Holds(const CRequest& request) const;
    void Clear();  // Without events.

private:
    RequestRef NewRequest(const std::string& kind);
    void Start(const RequestRef& request);
    void FinishLater(const RequestRef& request);
    void End(const RequestRef& request, std::int32_t status, std::int32_t number);
    void Raise(const char* event, const RequestRef& request);
    void AdvanceLater();

    std::shared_ptr<CScene> m_scene;
    std::weak_ptr<CClient> m_client;
    std::deque<RequestRef> m_requests;
};

RequestRef MakeRequest(const char* kind, std::function<void()> start = {}, std::function<void()> finish = {});

}
