#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace text {

// A sum over bytes (FNV-1a of 64 bits). To go on where a former one ended, hand that over.
inline std::uint64_t CheckSum(std::string_view bytes, std::uint64_t former = 0xCBF29CE484222325U)
{
    for (const char byte : bytes)
        former = (former ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
    return former;
}

inline constexpr std::size_t CheckSumDigits = 16;

inline std::string Hexadecimal(std::uint64_t sum)
{
    std::string digits(CheckSumDigits, '0');
    for (std::size_t place = CheckSumDigits; place-- > 0; sum >>= 4)
        digits[place] = "0123456789abcdef"[sum & 15];
    return digits;
}

}
