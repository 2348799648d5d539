#pragma once
#include <string_view>

namespace platform::text {

// Whether a file name matches a pattern of "*" (any characters) and "?" (one character), without regard to case. The
// pattern "*.*" matches every name, also one without a dot.
bool MatchesWildcards(std::string_view name, std::string_view pattern);

}
