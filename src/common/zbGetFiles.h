#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace zbGetFiles {

// Lists the names (no folder) of the entries that match a path with wildcards, hidden ones included, "." and ".." not,
// sorted without regard to case. Replaces `names`; `count` is their number. Pending events run after each name. Failures:
// reported as bGetFiles:GetFiles.
void GetFiles(const std::string& pattern, std::vector<std::string>& names, std::int32_t& count);

}
