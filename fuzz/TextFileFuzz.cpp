#include "Require.h"
#include "base/text/Utf8.h"
#include "platform/text/Encoding.h"

// Any bytes are a text: UTF-8 without NUL characters whose lines end with CR LF. What is such a text already stays.
namespace {

using namespace platform::text;

void RequireLineEnds(const std::string& text)
{
    for (std::size_t at = text.find_first_of("\r\n"); at != std::string::npos; at = text.find_first_of("\r\n", at + 2))
        Require(text.compare(at, 2, "\r\n") == 0);
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string bytes(TextOf(data, size));
    const std::string text = TextOfBytes(bytes);
    Require(::text::IsUtf8(text) && text.find('\0') == std::string::npos);
    RequireLineEnds(text);
    Require(HasMark(text) || TextOfBytes(text) == text);
    Require(WithCrLf(WithLf(text)) == text && WithLf(text).find('\r') == std::string::npos);
    if (!HasMark(bytes) && ::text::IsUtf8(bytes) && bytes.find_first_of(std::string_view("\r\0", 2)) == std::string::npos)
        Require(WithLf(text) == bytes);
    return 0;
}
