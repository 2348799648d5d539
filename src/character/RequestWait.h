#pragma once
#include "platform/CharacterEngine.h"
#include <cstdint>

namespace character {

// Whether a request waits for its turn or is being carried out. False for no request.
bool StillRunning(const platform::RequestRef& request);

// Lets events run until the request has ended or more than `seconds` whole seconds have passed.
void WaitForRequest(const platform::RequestRef& request, std::int64_t seconds);

}
