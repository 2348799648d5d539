#include "engine/files/Lz.h"
#include <cstdlib>

// The first two bytes are the size that is asked for. What is unpacked must survive both ways of packing.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace engine::lz;
    if (size < 2)
        return 0;
    const std::size_t plainSize = data[0] | static_cast<std::size_t>(data[1]) << 8;
    const auto plain = Decompress({data + 2, size - 2}, plainSize);
    if (!plain)
        return 0;
    for (const Effort effort : {Effort::Quick, Effort::Thorough}) {
        if (Decompress(Compress(*plain, effort), plainSize) != plain)
            std::abort();
    }
    return 0;
}
