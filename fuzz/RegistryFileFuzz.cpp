#include "platform/text/RegistryText.h"
#include <cstdint>
#include <cstdlib>

// What was understood of any bytes comes back the same after it was written, and such a text is sound.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace platform::text;
    const RegistryText read = ReadRegistryText({reinterpret_cast<const char*>(data), size});
    const std::string written = WriteRegistryText(read.tree);
    const RegistryText again = ReadRegistryText(written);
    if (!again.Sound() || WriteRegistryText(again.tree) != written)
        std::abort();
    return 0;
}
