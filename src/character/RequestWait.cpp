#include "character/RequestWait.h"
#include "platform/Clock.h"
#include "platform/EventPump.h"
#include "platform/Platform.h"

namespace character {
namespace {

constexpr std::int32_t CheckMilliseconds = 50;

std::int64_t WholeSeconds() { return platform::Current().clock.SteadyMilliseconds() / 1000; }

}

bool StillRunning(const platform::RequestRef& request)
{
    if (!request)
        return false;
    const platform::RequestStatus status = request->Status();
    return status == platform::RequestStatus::Pending || status == platform::RequestStatus::InProgress;
}

void WaitForRequest(const platform::RequestRef& request, std::int64_t seconds)
{
    const std::int64_t start = WholeSeconds();
    while (StillRunning(request) && WholeSeconds() - start <= seconds)
        platform::Current().events.WaitForEvents(CheckMilliseconds);
}

}
