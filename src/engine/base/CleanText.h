#pragma once
#include <string>
#include <string_view>

namespace engine {

// The same text as valid UTF-8: stray bytes become U+FFFD, control characters other than line ends and tabs blanks.
std::string CleanText(std::string_view text);

inline constexpr char32_t ZeroWidthSpace = 0x200B;  // A place where a line may break.

}
