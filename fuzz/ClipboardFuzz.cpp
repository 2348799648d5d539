#include "Require.h"
#include "base/text/Utf8.h"
#include "platform/text/ClipboardText.h"

// What is on the clipboard, of any bytes: a text without NUL characters whose lines end with CR LF, and else the same; a
// format that is text or not; a hint that says "secret" or not.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace platform::text;
    const std::string bytes(TextOf(data, size));
    const std::string text = ClipboardText(bytes);
    Require(text.find('\0') == std::string::npos && (!::text::IsUtf8(bytes) || ::text::IsUtf8(text)));
    std::string left, right;
    for (std::size_t at = 0; at < text.size(); ++at)
        Require((text[at] != '\r' && text[at] != '\n') || text.compare(at, 2, "\r\n") == 0 ||
                (at > 0 && text[at - 1] == '\r'));
    for (const char c : bytes)
        left += c == '\0' || c == '\r' || c == '\n' ? "" : std::string(1, c);
    for (const char c : text)
        right += c == '\r' || c == '\n' ? "" : std::string(1, c);
    Require(left == right && ClipboardText(text) == text);
    Require(!IsTextFormat(bytes) || bytes.find("plain") == 5);
    Require(SaysSecret(bytes) == (bytes.size() == 6 && bytes.compare("secret") == 0));
    return 0;
}
