#include "engine/files/Lz.h"
#include "engine/files/LzFormat.h"
#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>
#include <utility>

namespace engine::lz {
namespace {

constexpr std::uint32_t None = std::numeric_limits<std::uint32_t>::max();
constexpr unsigned HashBits = 15;
constexpr std::uint32_t LongEnough = 512;  // A copy that is not worth a search for a longer one.

// How many earlier places with the same two, three bytes are looked at; more find hardly anything better and take long.
struct Candidates {
    int pairs;
    int triples;
};
constexpr Candidates QuickCandidates{16, 0};
constexpr Candidates ThoroughCandidates{1, 96};  // Of copies of two bytes the nearest one is always the best.

class CBitWriter {
public:
    void Put(std::uint32_t value, unsigned bits)
    {
        m_pending |= std::uint64_t{value} << m_count;
        for (m_count += bits; m_count >= 8; m_count -= 8) {
            m_bytes.push_back(static_cast<std::uint8_t>(m_pending));
            m_pending >>= 8;
        }
    }
    std::vector<std::uint8_t> Finish()
    {
        if (m_count > 0)
            Put(0xFF, 8 - m_count);
        m_bytes.insert(m_bytes.end(), FillBytes, 0xFF);
        return std::move(m_bytes);
    }

private:
    std::vector<std::uint8_t> m_bytes{0};  // A stream starts with a byte of zero.
    std::uint64_t m_pending = 0;
    unsigned m_count = 0;
};

// How the bytes from some position on are best written: one literal (length 1) or a copy, and the bits of all the rest.
struct Choice {
    std::uint32_t bits = 0;
    std::uint32_t length = 1;
    std::uint32_t distance = 0;
};

struct Match {
    std::uint32_t length = 0;
    std::uint32_t distance = 0;
};
using Matches = std::array<Match, DistanceClasses.size()>;  // The longest one of each class.

unsigned LengthBits(std::uint32_t length, std::uint32_t shortest) { return std::bit_width(length - shortest + 1) - 1U; }

std::uint32_t BitsOfCopy(const DistanceClass& distances, std::uint32_t length)
{
    return 1 + distances.prefixBits + distances.valueBits + 2 * LengthBits(length, distances.shortest) + 1;
}

std::size_t ClassOf(std::uint32_t distance)
{
    std::size_t index = 0;
    while (distance > FarthestOf(DistanceClasses[index]))
        ++index;
    return index;
}

// Finds earlier places that go on as a given place does.
class CMatchFinder {
public:
    CMatchFinder(std::span<const std::uint8_t> plain, Candidates candidates)
        : m_plain(plain), m_candidates(candidates), m_pairs(plain.size(), None), m_triples(plain.size(), None)
    {
        std::vector<std::uint32_t> lastPair(65536, None), lastTriple(1U << HashBits, None);
        for (std::uint32_t at = 0; at + 2 <= plain.size(); ++at) {
            m_pairs[at] = std::exchange(lastPair[Pair(at)], at);
            if (at + 3 <= plain.size())
                m_triples[at] = std::exchange(lastTriple[TripleHash(at)], at);
        }
    }

    Matches At(std::uint32_t at) const
    {
        Matches matches;
        Follow(m_pairs, m_candidates.pairs, at, matches);
        Follow(m_triples, m_candidates.triples, at, matches);
        return matches;
    }

private:
    std::uint32_t Pair(std::uint32_t at) const { return m_plain[at] | std::uint32_t{m_plain[at + 1]} << 8; }
    std::uint32_t TripleHash(std::uint32_t at) const
    {
        return ((Pair(at) | std::uint32_t{m_plain[at + 2]} << 16) * 2654435761U) >> (32 - HashBits);
    }

    void Follow(const std::vector<std::uint32_t>& chain, int count, std::uint32_t at, Matches& matches) const
    {
        std::uint32_t candidate = chain[at];
        while (count-- > 0 && Try(at, candidate, matches))
            candidate = chain[candidate];
    }

    // False when no farther place needs to be looked at.
    bool Try(std::uint32_t at, std::uint32_t candidate, Matches& matches) const
    {
        if (candidate == None || at - candidate > FarthestOf(DistanceClasses.back()))
            return false;
        Match& match = matches[ClassOf(at - candidate)];
        if (match.length == LongestAt(at))
            return false;
        if (match.length > 0 && m_plain[candidate + match.length] != m_plain[at + match.length])
            return true;  // Not longer than the one known.
        const std::uint32_t length = CommonLength(candidate, at);
        if (length > match.length)
            match = {length, at - candidate};
        return length < std::min(LongEnough, LongestAt(at));
    }

    std::uint32_t LongestAt(std::uint32_t at) const
    {
        return static_cast<std::uint32_t>(std::min<std::size_t>(MaximumLength, m_plain.size() - at));
    }

    std::uint32_t CommonLength(std::uint32_t from, std::uint32_t at) const
    {
        const std::uint32_t longest = LongestAt(at);
        std::uint32_t length = 0;
        while (length + 8 <= longest && std::memcmp(&m_plain[from + length], &m_plain[at + length], 8) == 0)
            length += 8;
        while (length < longest && m_plain[from + length] == m_plain[at + length])
            ++length;
        return length;
    }

    std::span<const std::uint8_t> m_plain;
    Candidates m_candidates;
    std::vector<std::uint32_t> m_pairs, m_triples;  // The nearest earlier place with the same two, three bytes.
};

// Chooses from the last byte to the first, so that every choice knows what the rest takes. Of the copies that take the
// same bits for their length only the longest can be best: what follows never takes more bits when it is shorter.
class CPlanner {
public:
    explicit CPlanner(std::span<const std::uint8_t> plain) : m_finder(plain, ThoroughCandidates), m_choices(plain.size() + 1)
    {
        for (auto at = static_cast<std::uint32_t>(plain.size()); at-- > 0;)
            ChooseAt(at);
    }
    const Choice& At(std::size_t at) const { return m_choices[at]; }

private:
    void ChooseAt(std::uint32_t at)
    {
        m_choices[at] = {m_choices[at + 1].bits + 9, 1, 0};
        const Matches matches = m_finder.At(at);
        for (std::size_t index = 0; index < matches.size(); ++index)
            ConsiderMatch(at, DistanceClasses[index], matches[index]);
    }

    void ConsiderMatch(std::uint32_t at, const DistanceClass& distances, const Match& match)
    {
        if (match.length < distances.shortest)
            return;
        std::uint32_t length = match.length;
        for (unsigned bits = LengthBits(length, distances.shortest);; --bits) {
            Consider(at, {BitsOfCopy(distances, length) + m_choices[at + length].bits, length, match.distance});
            if (bits == 0)
                return;
            length = distances.shortest + (1U << bits) - 2;  // The longest with fewer bits.
        }
    }

    // Of equal ones the longer copy: it reads faster.
    void Consider(std::uint32_t at, const Choice& choice)
    {
        Choice& best = m_choices[at];
        if (choice.bits < best.bits || (choice.bits == best.bits && choice.length > best.length))
            best = choice;
    }

    CMatchFinder m_finder;
    std::vector<Choice> m_choices;
};

void PutCopy(CBitWriter& writer, const Choice& choice)
{
    const DistanceClass& distances = DistanceClasses[ClassOf(choice.distance)];
    const unsigned bits = LengthBits(choice.length, distances.shortest);
    writer.Put(1, 1);
    writer.Put(distances.prefix, distances.prefixBits);
    writer.Put(choice.distance - distances.nearest, distances.valueBits);
    writer.Put((1U << bits) - 1, bits + 1);
    writer.Put(choice.length - distances.shortest + 1 - (1U << bits), bits);
}

void Put(CBitWriter& writer, const Choice& choice, std::uint8_t literal)
{
    if (choice.length == 1)
        writer.Put(std::uint32_t{literal} << 1, 9);
    else
        PutCopy(writer, choice);
}

void PutEnd(CBitWriter& writer)
{
    writer.Put(1, 1);
    writer.Put(DistanceClasses.back().prefix, DistanceClasses.back().prefixBits);
    writer.Put(EndValue, DistanceClasses.back().valueBits);
}

void CompressThoroughly(std::span<const std::uint8_t> plain, CBitWriter& writer)
{
    const CPlanner plan(plain);
    for (std::size_t at = 0; at < plain.size(); at += plan.At(at).length)
        Put(writer, plan.At(at), plain[at]);
}

// Of equally long copies the nearest one; literals where there is none.
Choice LongestOf(const Matches& matches)
{
    Choice choice;
    for (std::size_t index = 0; index < matches.size(); ++index) {
        if (matches[index].length >= DistanceClasses[index].shortest && matches[index].length > choice.length)
            choice = {0, matches[index].length, matches[index].distance};
    }
    return choice;
}

void CompressQuickly(std::span<const std::uint8_t> plain, CBitWriter& writer)
{
    const CMatchFinder finder(plain, QuickCandidates);
    for (std::uint32_t at = 0; at < plain.size();) {
        const Choice choice = LongestOf(finder.At(at));
        Put(writer, choice, plain[at]);
        at += choice.length;
    }
}

}

std::vector<std::uint8_t> Compress(std::span<const std::uint8_t> plain, Effort effort)
{
    CBitWriter writer;
    if (effort == Effort::Quick)
        CompressQuickly(plain, writer);
    else
        CompressThoroughly(plain, writer);
    PutEnd(writer);
    return writer.Finish();
}

}
