#include "windows/standins/Requests.h"
#include <algorithm>

namespace standins {
namespace {

constexpr IID OwnRequest = {0x0B6E1D52, 0x7F31, 0x4C8A, {0xA2, 0x64, 0x19, 0xD7, 0x5E, 0x83, 0x40, 0x3C}};

constexpr std::int32_t CharacterIsHidden = static_cast<std::int32_t>(0x8004200A);
constexpr std::int32_t InterruptedByProgram = static_cast<std::int32_t>(0x8004210C);
constexpr std::int32_t RemovedFromQueue = static_cast<std::int32_t>(0x80042108);

std::string DescriptionOf(std::int32_t number)
{
    return number == 0                   ? ""
           : number == CharacterIsHidden ? "The character is hidden."
                                         : "Application-defined or object-defined error";
}

}

RequestRef MakeRequest(const char* kind, std::function<void()> start, std::function<void()> finish)
{
    const auto request = std::make_shared<CRequest>();
    request->kind = kind;
    request->start = std::move(start);
    request->finish = std::move(finish);
    return request;
}

CRequestObject::CRequestObject(std::shared_ptr<CScene> scene, RequestRef request)
    : CAutomationObject(std::move(scene), "Request[" + std::to_string(request->id) + "]"), m_request(std::move(request))
{
    m_request->object = this;
    ReadOnly("ID", 0, 'l', [this] { return CValue(m_request->id); });
    ReadOnly("Status", 1, 'l', [this] { return CValue(m_request->status); });
    ReadOnly("Description", 2, 's', [this] { return CValue(DescriptionOf(m_request->number)); });
    ReadOnly("Number", 3, 'l', [this] { return CValue(m_request->number); });
}

CRequestObject::~CRequestObject() { m_request->object = nullptr; }

void* CRequestObject::Interface(REFIID id) { return id == OwnRequest ? static_cast<IDispatch*>(this) : nullptr; }

RequestRef RequestBehind(IDispatch* object)
{
    void* own = nullptr;
    if (!object || FAILED(object->QueryInterface(OwnRequest, &own)))
        return nullptr;
    const auto held = CRef<IDispatch>::Adopt(static_cast<IDispatch*>(own));
    return static_cast<CRequestObject*>(held.Get())->Request();
}

CRef<IDispatch> CQueue::Add(RequestRef request)
{
    request->id = ++m_scene->lastRequest;
    m_requests.push_back(request);
    m_scene->log.Write("queued " + request->kind + " as Request[" + std::to_string(request->id) + "]");
    AdvanceLater();
    return CRef<IDispatch>::Adopt(new CRequestObject(m_scene, std::move(request)));
}

CRef<IDispatch> CQueue::Ended(const std::string& kind, std::int32_t status, std::int32_t number)
{
    const RequestRef request = MakeRequest(kind.c_str());
    request->id = ++m_scene->lastRequest;
    request->status = status;
    request->number = number;
    m_scene->Later([queue = weak_from_this(), request] {
        if (const auto self = queue.lock())
            self->Raise("RequestComplete", request);
    });
    return CRef<IDispatch>::Adopt(new CRequestObject(m_scene, request));
}

void CQueue::AdvanceLater()
{
    m_scene->loop.Post([queue = weak_from_this()] {
        if (const auto self = queue.lock())
            self->Advance();
    });
}

void CQueue::Advance()
{
    if (m_requests.empty() || m_scene->hold == Hold::Pending)
        return;
    const RequestRef head = m_requests.front();
    if (head->status == Pending)
        Start(head);
    else if (m_scene->hold == Hold::Off)
        FinishLater(head);
}

void CQueue::Start(const RequestRef& request)
{
    request->status = InProgress;
    Raise("RequestStart", request);
    if (!Holds(*request))  // The receiver stopped it.
        return;
    const bool fails = request->failsWhenHidden && hidden && hidden();
    if (request->start)
        request->start();
    if (fails)
        End(request, Failed, CharacterIsHidden);
    else if (m_scene->hold == Hold::Off)
        FinishLater(request);
}

void CQueue::FinishLater(const RequestRef& request)
{
    m_scene->loop.After(m_scene->requestMilliseconds, [queue = weak_from_this(), request] {
        const auto self = queue.lock();
        if (self && self->Holds(*request) && self->m_scene->hold == Hold::Off)
            self->Complete(Completed, 0);
    });
}

bool CQueue::Complete(std::int32_t status, std::int32_t number)
{
    if (m_requests.empty() || m_requests.front()->status != InProgress)
        return false;
    const RequestRef request = m_requests.front();
    if (request->finish && status == Completed)
        request->finish();
    End(request, status, number);
    return true;
}

void CQueue::End(const RequestRef& request, std::int32_t status, std::int32_t number)
{
    m_requests.erase(std::remove(m_requests.begin(), m_requests.end(), request), m_requests.end());
    request->status = status;
    request->number = number;
    AdvanceLater();
    Raise("RequestComplete", request);
}

void CQueue::Stop(const std::function<bool(const CRequest&)>& which)
{
    std::vector<RequestRef> stopped;
    std::copy_if(m_requests.begin(), m_requests.end(), std::back_inserter(stopped),
                 [&](const RequestRef& request) { return which(*request); });
    for (const RequestRef& request : stopped) {
        m_requests.erase(std::remove(m_requests.begin(), m_requests.end(), request), m_requests.end());
        request->number = request->status == InProgress ? InterruptedByProgram : RemovedFromQueue;
        request->status = Interrupted;
        m_scene->Later([queue = weak_from_this(), request] {
            if (const auto self = queue.lock())
                self->Raise("RequestComplete", request);
        });
    }
    AdvanceLater();
}

bool CQueue::Holds(const CRequest& request) const
{
    return std::any_of(m_requests.begin(), m_requests.end(), [&](const RequestRef& one) { return one.get() == &request; });
}

void CQueue::Clear()
{
    for (const RequestRef& request : m_requests) {
        request->status = Interrupted;
        request->number = RemovedFromQueue;
    }
    m_requests.clear();
}

void CQueue::Raise(const char* event, const RequestRef& request)
{
    const auto client = m_client.lock();
    const std::string line =
        std::string(event) + " Request[" + std::to_string(request->id) + "] status " + std::to_string(request->status);
    m_scene->log.Write((request->object ? "raising " : "unheld ") + line);
    if (client && request->object)
        client->Raise(event, {CValue(request->object)});
}

}
