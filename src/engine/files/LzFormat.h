#pragma once
#include <array>
#include <cstdint>

// What packing and unpacking share.
namespace engine::lz {

// A class of copy distances: after the bit for "copy" come its prefix and the distance less the nearest one.
struct DistanceClass {
    unsigned prefixBits;
    std::uint32_t prefix;
    unsigned valueBits;
    std::uint32_t nearest;
    std::uint32_t shortest;  // Copy length.
};

inline constexpr std::array<DistanceClass, 4> DistanceClasses{{
    {1, 0b0, 6, 1, 2},
    {2, 0b01, 9, 65, 2},
    {3, 0b011, 12, 577, 2},
    {3, 0b111, 20, 4673, 3},
}};

inline constexpr std::uint32_t EndValue = 0xFFFFF;      // In the last class: the end of the stream.
inline constexpr std::uint32_t MaximumLengthBits = 11;  // One-bits in front of a length.
inline constexpr std::uint32_t MaximumLength = 4096;
inline constexpr std::size_t FillBytes = 3;  // Behind the end.

constexpr std::uint32_t FarthestOf(const DistanceClass& distances)
{
    const bool hasEnd = distances.valueBits == 20;
    return distances.nearest + (1U << distances.valueBits) - (hasEnd ? 2U : 1U);
}

}
