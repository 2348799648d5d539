#include "engine/files/Lz.h"
#include "engine/files/LzFormat.h"
#include <algorithm>
#include <bit>
#include <cstring>

namespace engine::lz {
namespace {

// A copy of 4,096 bytes takes 31 bits: no stream holds more than this many bytes for each of its own.
constexpr std::size_t MaximumGain = 1058;
constexpr unsigned PeekedBits = 57;  // A whole copy takes at most 47.
constexpr unsigned BitsOfLiteral = 9;

std::uint64_t LoadLittleEndian(const std::uint8_t* bytes)
{
    std::uint64_t value = 0;
    for (unsigned i = 0; i < 8; ++i)
        value |= std::uint64_t{bytes[i]} << (8 * i);
    return value;
}

class CBitReader {
public:
    explicit CBitReader(std::span<const std::uint8_t> bytes) : m_bytes(bytes) {}

    // The next bits, the first one lowest; behind the end come zeros.
    std::uint64_t Peek() const
    {
        const std::size_t byte = m_position >> 3;
        const unsigned shift = m_position & 7;
        if (byte + 8 <= m_bytes.size())
            return LoadLittleEndian(m_bytes.data() + byte) >> shift;
        return PeekAtEnd(byte) >> shift;
    }
    void Skip(unsigned bits) { m_position += bits; }
    bool WentPastEnd() const { return m_position > m_bytes.size() * 8; }

private:
    std::uint64_t PeekAtEnd(std::size_t byte) const
    {
        std::array<std::uint8_t, 8> last{};
        if (byte < m_bytes.size())
            std::copy(m_bytes.begin() + static_cast<std::ptrdiff_t>(byte), m_bytes.end(), last.begin());
        return LoadLittleEndian(last.data());
    }

    std::span<const std::uint8_t> m_bytes;
    std::size_t m_position = 0;  // In bits.
};

struct Copy {
    std::uint32_t distance = 0;  // 0 stands for the end of the stream.
    std::uint32_t length = 0;
    unsigned bits = 0;
    bool valid = true;
};

std::uint32_t LowBits(std::uint64_t bits, unsigned count)
{
    return static_cast<std::uint32_t>(bits & ((std::uint64_t{1} << count) - 1));
}

void ReadLength(std::uint64_t bits, std::uint32_t shortest, Copy& copy)
{
    const auto ones = static_cast<unsigned>(std::countr_one(bits));
    copy.valid = ones <= MaximumLengthBits;
    if (!copy.valid)
        return;
    bits >>= ones + 1;
    copy.length = shortest + (1U << ones) - 1 + LowBits(bits, ones);
    copy.bits += 2 * ones + 1;
    // The farthest class could say one more than what is ever written.
    copy.valid = copy.length <= MaximumLength + 1;
}

// `bits` begins behind the bit for "copy".
Copy ReadCopy(std::uint64_t bits)
{
    const DistanceClass& distances = DistanceClasses[std::min(3U, static_cast<unsigned>(std::countr_one(bits)))];
    bits >>= distances.prefixBits;
    const std::uint32_t value = LowBits(bits, distances.valueBits);
    Copy copy{.distance = distances.nearest + value, .length = 0, .bits = 1 + distances.prefixBits + distances.valueBits};
    if (distances.valueBits == 20 && value == EndValue)
        copy.distance = 0;
    else
        ReadLength(bits >> distances.valueBits, distances.shortest, copy);
    return copy;
}

// Copies eight bytes at a time where source and target of a step do not overlap and the target has room for a whole last
// step; what it writes too far is overwritten later.
void CopyBytes(std::uint8_t* target, std::size_t room, std::uint32_t distance, std::uint32_t length)
{
    const std::uint8_t* source = target - distance;
    if (distance == 1) {
        std::memset(target, *source, length);
    } else if (distance >= 8 && room >= length + std::size_t{8}) {
        for (std::uint32_t done = 0; done < length; done += 8)
            std::memcpy(target + done, source + done, 8);
    } else {
        for (std::uint32_t i = 0; i < length; ++i)
            target[i] = source[i];
    }
}

class CDecompressor {
public:
    CDecompressor(std::span<const std::uint8_t> bits, std::span<std::uint8_t> target) : m_reader(bits), m_target(target) {}

    bool Run()
    {
        while (!m_ended) {
            if (!Step() || m_reader.WentPastEnd())
                return false;
        }
        return m_written == m_target.size();
    }

private:
    bool Step()
    {
        std::uint64_t bits = m_reader.Peek();
        if (bits & 1)
            return TakeCopy(ReadCopy(bits >> 1));
        for (unsigned left = PeekedBits; left >= BitsOfLiteral && !(bits & 1); left -= BitsOfLiteral) {
            if (m_written == m_target.size())
                return false;
            m_target[m_written++] = static_cast<std::uint8_t>(bits >> 1);
            bits >>= BitsOfLiteral;
            m_reader.Skip(BitsOfLiteral);
        }
        return true;
    }

    bool TakeCopy(const Copy& copy)
    {
        m_reader.Skip(copy.bits);
        m_ended = copy.valid && copy.distance == 0;
        if (m_ended || !copy.valid)
            return copy.valid;
        const std::size_t room = m_target.size() - m_written;
        if (copy.distance > m_written || copy.length > room)
            return false;
        CopyBytes(m_target.data() + m_written, room, copy.distance, copy.length);
        m_written += copy.length;
        return true;
    }

    CBitReader m_reader;
    std::span<std::uint8_t> m_target;
    std::size_t m_written = 0;
    bool m_ended = false;
};

}

std::optional<std::vector<std::uint8_t>> Decompress(std::span<const std::uint8_t> packed, std::size_t size)
{
    if (packed.empty() || packed[0] != 0 || size / MaximumGain > packed.size())
        return std::nullopt;
    std::vector<std::uint8_t> plain(size);
    if (!CDecompressor(packed.subspan(1), plain).Run())
        return std::nullopt;
    return plain;
}

}
