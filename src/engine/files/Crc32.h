#pragma once
#include <array>
#include <cstdint>
#include <span>

namespace engine::files {

// The usual 32-bit check sum (polynomial 0xEDB88320, reflected).
inline std::uint32_t Crc32(std::span<const std::uint8_t> bytes)
{
    static const std::array<std::uint32_t, 256> table = [] {
        std::array<std::uint32_t, 256> made{};
        for (std::uint32_t i = 0; i < made.size(); ++i) {
            std::uint32_t value = i;
            for (int bit = 0; bit < 8; ++bit)
                value = (value & 1) != 0 ? value >> 1 ^ 0xEDB88320U : value >> 1;
            made[i] = value;
        }
        return made;
    }();
    std::uint32_t sum = 0xFFFFFFFF;
    for (const std::uint8_t byte : bytes)
        sum = sum >> 8 ^ table[(sum ^ byte) & 0xFF];
    return ~sum;
}

}
