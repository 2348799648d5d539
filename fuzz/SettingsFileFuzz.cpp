#include "base/text/Utf8.h"
#include "platform/text/Encoding.h"
#include "platform/text/ProfileText.h"
#include <cstdint>
#include <cstdlib>

// In any bytes a value that was set is read back, a removed one is gone, and no other section changes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace platform::text;
    const std::string text(reinterpret_cast<const char*>(data), size);
    const std::string others = ReadProfileKeys(text, "Peedy");
    const auto set = WithProfileValue(text, "Robby", "FontSize", "9");
    if (!set || ReadProfileValue(*set, "robby", "fontsize") != "9" || ReadProfileKeys(*set, "Peedy") != others)
        std::abort();
    if (ReadProfileValue(WithoutProfileKey(*set, "Robby", "FontSize"), "Robby", "FontSize") ||
        !ReadProfileKeys(WithoutProfileSection(*set, "Robby"), "Robby").empty())
        std::abort();
    if (!::text::IsUtf8(TextOfBytes(text)))
        std::abort();
    return 0;
}
