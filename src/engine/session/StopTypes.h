#pragma once
#include "engine/requests/WorkItem.h"
#include <optional>
#include <set>
#include <string>

namespace engine {

// The kinds of work that a list such as "Play, Speak" names; without a list all kinds. "Get" and "NonQueuedGet" are known
// and name nothing that happens here. Throws InvalidArgument for any other name.
std::set<WorkKind> StoppedKinds(const std::optional<std::string>& types);

}
