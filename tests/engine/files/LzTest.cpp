#include "engine/files/Lz.h"
#include <gtest/gtest.h>
#include <random>

using namespace engine::lz;
using Bytes = std::vector<std::uint8_t>;

namespace {

Bytes TextBytes(std::string_view text) { return {text.begin(), text.end()}; }

// Bits in reading order ("1 0 100000 ..."; blanks do not count) behind the leading zero byte, filled with ones, without
// the bytes that follow the end.
Bytes Stream(std::string_view bits)
{
    Bytes stream{0};
    unsigned count = 0;
    for (const char bit : bits) {
        if (bit == ' ')
            continue;
        if (count % 8 == 0)
            stream.push_back(0xFF);
        if (bit == '0')
            stream.back() = static_cast<std::uint8_t>(stream.back() & ~(1U << (count % 8)));
        ++count;
    }
    return stream;
}

const std::string End = " 1 111 11111111111111111111 ";
const std::string LiteralA = " 0 10000010 ";

bool IsRefused(const Bytes& stream, std::size_t size) { return !Decompress(stream, size).has_value(); }

// Changes slowly, so that it holds copies of many lengths and distances.
Bytes Noise(std::size_t size, unsigned seed, unsigned colors)
{
    std::mt19937 random(seed);
    Bytes bytes;
    while (bytes.size() < size) {
        const std::size_t length = random() % 60 + 1;
        const std::size_t distance = random() % 6000 + 1;
        for (std::size_t i = 0; i < length && bytes.size() < size; ++i)
            bytes.push_back(distance <= bytes.size() && colors > 2 ? bytes[bytes.size() - distance]
                                                                   : static_cast<std::uint8_t>(random() % colors));
    }
    return bytes;
}

}

TEST(Compress, AlternatingLetters_GiveTheWorkedExample)
{
    const Bytes expected{0x00, 0x82, 0x08, 0x15, 0x4C, 0x43, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF};

    EXPECT_EQ(Compress(TextBytes("ABABABABAC"), Effort::Quick), expected);
    EXPECT_EQ(Compress(TextBytes("ABABABABAC"), Effort::Thorough), expected);
}

TEST(Compress, ARunOfOneByte_GivesTheWorkedExample)
{
    const Bytes expected{0x00, 0x0E, 0x02, 0xA6, 0x84, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF};

    EXPECT_EQ(Compress(Bytes{7, 7, 7, 7, 7, 7, 7, 7, 9}, Effort::Quick), expected);
    EXPECT_EQ(Compress(Bytes{7, 7, 7, 7, 7, 7, 7, 7, 9}, Effort::Thorough), expected);
}

TEST(Compress, Nothing_IsTheEndAlone) { EXPECT_EQ(Compress(Bytes{}), (Bytes{0, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF})); }

TEST(Compress, AnyBytes_EndInSixBytesOfOnes)
{
    for (std::size_t size = 0; size < 40; ++size) {
        const Bytes packed = Compress(Noise(size, 5, 200));
        EXPECT_EQ(Bytes(packed.end() - 6, packed.end()), (Bytes{0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF})) << size;
    }
}

TEST(Compress, ManyKindsOfBytes_ComeBackFromDecompress)
{
    for (unsigned seed = 0; seed < 60; ++seed) {
        const Bytes plain = Noise(seed * 211, seed, seed % 3 == 0 ? 2 : seed + 3);
        EXPECT_EQ(Decompress(Compress(plain, Effort::Quick), plain.size()), plain) << seed;
        EXPECT_EQ(Decompress(Compress(plain, Effort::Thorough), plain.size()), plain) << seed;
    }
}

TEST(Compress, ThoroughEffort_IsNeverLargerThanQuickOnPictures)
{
    for (unsigned seed = 0; seed < 20; ++seed) {
        const Bytes plain = Noise(4000, seed, 6);
        EXPECT_LE(Compress(plain, Effort::Thorough).size(), Compress(plain, Effort::Quick).size()) << seed;
    }
}

TEST(Compress, ARunLongerThanTheLongestCopy_IsSeveralCopies)
{
    const Bytes plain(3 * 4096 + 5, 9);

    EXPECT_EQ(Decompress(Compress(plain), plain.size()), plain);
    EXPECT_LT(Compress(plain).size(), 30U);
}

TEST(Compress, ACopyAtEachEdgeOfADistanceClass_ComesBack)
{
    for (const std::size_t distance : {1U, 64U, 65U, 576U, 577U, 4672U, 4673U, 20000U}) {
        Bytes plain(distance + 8);
        for (std::uint8_t letter = 0; letter < 8 && letter < distance; ++letter)
            plain[letter] = static_cast<std::uint8_t>(100 + letter);
        std::copy(plain.begin(), plain.begin() + 8, plain.end() - 8);
        EXPECT_EQ(Decompress(Compress(plain), plain.size()), plain) << distance;
    }
}

TEST(Compress, SamplesOfManyCopies_AreNotPackedWorseThanEver)
{
    std::size_t quick = 0, thorough = 0;
    for (unsigned seed = 0; seed < 20; ++seed) {
        const Bytes plain = Noise(3000, seed, 6);
        quick += Compress(plain, Effort::Quick).size();
        thorough += Compress(plain, Effort::Thorough).size();
    }
    EXPECT_LE(quick, 29229U);
    EXPECT_LE(thorough, 23756U);
}

TEST(Compress, TheFarthestDistance_IsStillACopy)
{
    constexpr std::size_t Farthest = 4673 + (1U << 20) - 2;
    const auto sizeAt = [](std::size_t distance) {
        Bytes plain(distance + 40);
        for (std::size_t i = 0; i < 40; ++i)
            plain[i] = plain[distance + i] = static_cast<std::uint8_t>(100 + i);
        return Compress(plain, Effort::Quick).size();
    };
    EXPECT_LT(sizeAt(Farthest) + 25, sizeAt(Farthest + 1));
}

// A hundred nearer places begin with the same two bytes: the search follows those that share three.
TEST(Compress, ALongCopyBehindManyShortOnes_IsFound)
{
    Bytes plain = TextBytes("XYZ-abcdefghijklmnopqrstuvw");
    const Bytes token = plain;
    for (int other = 0; other < 200; ++other)
        for (const int byte : {int{'X'}, int{'Y'}, other < 'Z' ? other : other + 1, 255 - other})
            plain.push_back(static_cast<std::uint8_t>(byte));
    const std::size_t before = Compress(plain, Effort::Thorough).size();
    plain.insert(plain.end(), token.begin(), token.end());

    EXPECT_LE(Compress(plain, Effort::Thorough).size(), before + 5);
}

TEST(Decompress, TheWorkedExample_GivesItsText)
{
    const Bytes stream{0x00, 0x82, 0x08, 0x15, 0x4C, 0x43, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF};

    EXPECT_EQ(Decompress(stream, 10), TextBytes("ABABABABAC"));
}

TEST(Decompress, EveryLengthPrefix_GivesItsShortestAndLongestCopy)
{
    for (unsigned ones = 0; ones <= 11; ++ones) {
        const std::string length = std::string(ones, '1') + "0 ";
        const std::string copy = "1 0 000000 " + length;
        const std::size_t shortest = 1 + (std::size_t{1} << ones);
        const std::size_t longest = std::size_t{1} << (ones + 1);
        EXPECT_EQ(Decompress(Stream(LiteralA + copy + std::string(ones, '0') + End), 1 + shortest),
                  Bytes(1 + shortest, 'A'));
        EXPECT_EQ(Decompress(Stream(LiteralA + copy + std::string(ones, '1') + End), 1 + longest), Bytes(1 + longest, 'A'));
    }
}

TEST(Decompress, TheFarthestClass_CopiesOneMoreByte)
{
    // X and A, then A 4,096 and 575 times more; the shortest copy from the very start then gives X, A, A.
    const std::string filling = "1 0 000000 111111111110 11111111111  1 0 000000 1111111110 011111000";
    Bytes expected(4676, 'A');
    expected[0] = expected[4673] = 'X';

    EXPECT_EQ(Decompress(Stream(" 0 00011010 " + LiteralA + filling + "1 111 00000000000000000000 0" + End), 4676),
              expected);
}

TEST(Decompress, TheFarthestDistance_IsCopied)
{
    // X and A, then A 257 times 4,096 and 573 times more; distance 1,053,247 then leads back to the X.
    std::string filling;
    for (int i = 0; i < 257; ++i)
        filling += "1 0 000000 111111111110 11111111111 ";
    filling += "1 0 000000 1111111110 001111000 ";
    Bytes expected(1053250, 'A');
    expected[0] = expected[1053247] = 'X';

    EXPECT_EQ(Decompress(Stream(" 0 00011010 " + LiteralA + filling + "1 111 01111111111111111111 0" + End), 1053250),
              expected);
}

TEST(Decompress, WithoutTheBytesBehindTheEnd_IsRead) { EXPECT_EQ(Decompress(Stream(LiteralA + End), 1), TextBytes("A")); }

TEST(Decompress, NoBytesAtAll_AreRefused) { EXPECT_TRUE(IsRefused({}, 0)); }

TEST(Decompress, AFirstByteOtherThanZero_IsRefused)
{
    Bytes stream = Stream(LiteralA + End);
    stream[0] = 1;

    EXPECT_TRUE(IsRefused(stream, 1));
}

TEST(Decompress, ADistanceBeyondTheBytesWritten_IsRefused)
{
    EXPECT_TRUE(IsRefused(Stream(LiteralA + "1 0 100000 0" + End), 3));
    EXPECT_TRUE(IsRefused(Stream("1 0 000000 0" + End), 2));
}

TEST(Decompress, ACopyPastTheTarget_IsRefused) { EXPECT_TRUE(IsRefused(Stream(LiteralA + "1 0 000000 0" + End), 2)); }

TEST(Decompress, ALiteralPastTheTarget_IsRefused) { EXPECT_TRUE(IsRefused(Stream(LiteralA + LiteralA + End), 1)); }

TEST(Decompress, ATwelfthOneInALength_IsRefused)
{
    EXPECT_TRUE(IsRefused(Stream(LiteralA + "1 0 000000 111111111111 0 000000000000" + End), 1 + 4097));
}

TEST(Decompress, AStreamThatRunsOut_IsRefusedAtEveryByte)
{
    const Bytes whole = Stream(LiteralA + "1 0 000000 110 01" + LiteralA + End);
    ASSERT_FALSE(IsRefused(whole, 9));

    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_TRUE(IsRefused(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)), 9)) << size;
}

TEST(Decompress, AnEndBeforeTheTargetIsFull_IsRefused) { EXPECT_TRUE(IsRefused(Stream(LiteralA + End), 2)); }

TEST(Decompress, AFullTargetWithoutEnd_IsRefused)
{
    Bytes stream = Stream(LiteralA);
    stream.insert(stream.end(), 8, 0);

    EXPECT_TRUE(IsRefused(stream, 1));
}

TEST(Decompress, MoreThanTheStreamCanHold_IsRefusedBeforeMemoryIsTaken)
{
    EXPECT_TRUE(IsRefused(Stream(LiteralA + End), std::size_t{1} << 31));
}

TEST(Decompress, TheDensestStream_IsRead)
{
    std::string bits = LiteralA;
    for (int i = 0; i < 100; ++i)
        bits += "1 0 000000 11111111111 0 11111111111 ";

    EXPECT_EQ(Decompress(Stream(bits + End), 1 + 409600), Bytes(1 + 409600, 'A'));
}

TEST(Decompress, RandomStreams_AreReadOrRefused)
{
    std::vector<Bytes> streams;
    for (unsigned size = 0; size < 60; ++size)
        streams.push_back(Compress(Noise(size, size, 4)));
    std::mt19937 random(20260101);
    int read = 0;
    for (int i = 0; i < 20000; ++i) {
        Bytes stream = streams[random() % streams.size()];
        stream[random() % stream.size()] = static_cast<std::uint8_t>(random());
        read += Decompress(stream, random() % 60).has_value() ? 1 : 0;
    }
    EXPECT_GT(read, 0);
    EXPECT_LT(read, 20000);
}
