#pragma once
#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

// Character files point from place to place by offsets. A byte more or less in the middle makes all offsets behind it wrong,
// and the reader refuses the file before it has seen what else is damaged. So the offsets are moved along here.
namespace character_file {

using Bytes = std::vector<std::uint8_t>;
constexpr std::size_t HeaderSize = 36;
constexpr std::size_t LocatorSize = 8;

inline std::uint32_t NumberAt(const Bytes& file, std::size_t at)
{
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4 && at + i < file.size(); ++i)
        value |= std::uint32_t{file[at + i]} << (8 * i);
    return value;
}

inline void PutNumber(Bytes& file, std::size_t at, std::size_t value)
{
    for (std::size_t i = 0; i < 4; ++i)
        file[at + i] = static_cast<std::uint8_t>(value >> (8 * i));
}

// Where in the file the locators stand: in the header, in the three lists and in the character block.
class CLocators {
public:
    explicit CLocators(const Bytes& file) : m_file(file)
    {
        for (std::size_t at = 4; at < HeaderSize; at += LocatorSize)
            Add(at);
        Add(NumberAt(file, 4) + std::size_t{4});
        AddAnimations(NumberAt(file, 12));
        AddList(NumberAt(file, 20));
        AddList(NumberAt(file, 28));
    }
    const std::vector<std::size_t>& All() const { return m_places; }

private:
    void Add(std::size_t at)
    {
        if (at + LocatorSize <= m_file.size())
            m_places.push_back(at);
    }
    void AddList(std::size_t at)
    {
        const std::size_t end = at + 4 + std::size_t{12} * NumberAt(m_file, at);
        for (at += 4; at < end && at < m_file.size(); at += 12)
            Add(at);
    }
    void AddAnimations(std::size_t at)
    {
        std::size_t left = NumberAt(m_file, at);
        for (at += 4; left > 0 && at < m_file.size(); at += LocatorSize, --left) {
            const std::size_t units = NumberAt(m_file, at);
            at += units == 0 ? 4 : 6 + 2 * units;
            Add(at);
        }
    }

    const Bytes& m_file;
    std::vector<std::size_t> m_places;
};

// Puts other bytes in the place of [from, to): what lies behind moves, what encloses the place grows.
inline Bytes Spliced(const Bytes& file, std::size_t from, std::size_t to, const Bytes& middle)
{
    Bytes result(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(from));
    result.insert(result.end(), middle.begin(), middle.end());
    result.insert(result.end(), file.begin() + static_cast<std::ptrdiff_t>(to), file.end());
    const std::size_t more = middle.size() - (to - from);  // Less, modulo the numbers there are.
    const CLocators locators(file);
    for (const std::size_t at : locators.All()) {
        if (at < to && at + LocatorSize > from)
            continue;  // Overwritten.
        const std::size_t now = at < to ? at : at + more;
        const std::size_t begin = NumberAt(file, at), end = begin + NumberAt(file, at + 4);
        if (begin >= to && begin != from)
            PutNumber(result, now, begin + more);
        else if (begin <= from && end >= to)
            PutNumber(result, now + 4, end - begin + more);
    }
    return result;
}

// Changes a short stretch behind the header. Nothing when the file has no room to grow.
inline Bytes Mutated(const Bytes& file, std::size_t maxSize, std::minstd_rand& random)
{
    constexpr std::size_t LongestStretch = 64;
    const std::size_t from = HeaderSize + random() % (file.size() - HeaderSize);
    const std::size_t length = std::min<std::size_t>(random() % LongestStretch, file.size() - from);
    Bytes middle(file.begin() + static_cast<std::ptrdiff_t>(from),
                 file.begin() + static_cast<std::ptrdiff_t>(from + length));
    middle.resize(std::min(length + LongestStretch, maxSize - (file.size() - length)));
    middle.resize(LLVMFuzzerMutate(middle.data(), std::min(length, middle.size()), middle.size()));
    return Spliced(file, from, from + length, middle);
}

}

// Half of the changes are those of any fuzzer.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize, unsigned seed)
{
    std::minstd_rand random(seed);
    if (size <= character_file::HeaderSize || size >= maxSize || random() % 2 == 0)
        return LLVMFuzzerMutate(data, size, maxSize);
    const character_file::Bytes mutated = character_file::Mutated({data, data + size}, maxSize, random);
    std::memcpy(data, mutated.data(), mutated.size());
    return mutated.size();
}
