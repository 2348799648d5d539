#pragma once
#include <cstdint>
#include <cstdlib>
#include <string_view>

// What a fuzz target holds to be true of every input: where it is not, the input is kept as a finding.
inline void Require(bool truth)
{
    if (!truth)
        std::abort();
}

inline std::string_view TextOf(const std::uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), size};
}
