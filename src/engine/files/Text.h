#pragma once
#include <string>
#include <string_view>

// Text of character files (UTF-16) and ours (UTF-8), and its comparison without regard to letter case.
namespace engine::files {

// What is no valid text becomes U+FFFD.
std::u16string ToUtf16(std::string_view utf8);
std::string ToUtf8(std::u16string_view utf16);

// Letters of the Latin, Greek and Cyrillic alphabets become capitals, one character for one; all else stays.
std::string UpperCase(std::string_view utf8);

}
