#include "platform/text/LineCutter.h"
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <vector>

// A file has the same lines however it comes in pieces. The first byte says how long the pieces are.
namespace {

std::vector<std::string> LinesOf(std::string_view bytes, std::size_t pieceSize)
{
    platform::text::CLineCutter cutter([&](std::string& piece) {
        piece = bytes.substr(0, pieceSize);
        bytes.remove_prefix(piece.size());
    });
    std::vector<std::string> lines;
    for (std::string line; cutter.AppendLine(line); line.clear())
        lines.push_back(line);
    return lines;
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    const auto whole = LinesOf(bytes, size);
    const bool hasEnd = std::any_of(whole.begin(), whole.end(),
                                    [](const std::string& line) { return line.find_first_of("\r\n") != std::string::npos; });
    if (hasEnd || LinesOf(bytes, std::size_t{data[0]} + 1) != whole)
        std::abort();
    return 0;
}
