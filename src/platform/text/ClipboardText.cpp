#include "platform/text/ClipboardText.h"
#include "platform/text/Encoding.h"
#include <algorithm>

namespace platform::text {

bool IsTextFormat(std::string_view mimeType) { return mimeType.starts_with("text/plain"); }

bool SaysSecret(std::string_view hint) { return hint == "secret"; }

std::string ClipboardText(std::string text)
{
    text.erase(std::remove(text.begin(), text.end(), '\0'), text.end());
    return WithCrLf(std::move(text));
}

}
