#pragma once
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace engine {

struct SpeechTag {
    std::string name;                     // Upper case.
    std::vector<std::string> parameters;  // At most two; strings without their quotes, doubled backslashes undone.
    std::size_t length = 0;               // Bytes from the opening to the closing backslash.
};

// The tag that begins with the backslash at byte `at`; nothing when what stands there is not a well-formed tag. An
// unknown name without parameter must have three letters and stand apart, so that "C:\Users\Ann\" stays a path.
std::optional<SpeechTag> ScanTag(std::string_view text, std::size_t at);

}
