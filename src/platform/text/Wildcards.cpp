#include "platform/text/Wildcards.h"
#include "base/text/Case.h"
#include "base/text/Utf8.h"
#include <string>

namespace platform::text {
namespace {
// Compares by going back to the last "*" only, so that a pattern of many stars takes no exponential time.
bool Matches(std::string_view name, std::string_view pattern)
{
    std::size_t n = 0, p = 0, starAt = std::string_view::npos, resumeAt = 0;
    while (n < name.size()) {
        const std::size_t step = ::text::CharacterAt(name, n).size;
        if (p < pattern.size() && pattern[p] == '*') {
            starAt = p++;
            resumeAt = n;
        } else if (p < pattern.size() && pattern[p] == '?') {
            n += step;
            ++p;
        } else if (p < pattern.size() && pattern.substr(p, step) == name.substr(n, step)) {
            n += step;
            p += step;
        } else if (starAt != std::string_view::npos) {
            resumeAt += ::text::CharacterAt(name, resumeAt).size;
            n = resumeAt;
            p = starAt + 1;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', p) == std::string_view::npos;
}
}

bool MatchesWildcards(std::string_view name, std::string_view pattern)
{
    return pattern == "*.*" || Matches(::text::FoldCase(name), ::text::FoldCase(pattern));
}

}
