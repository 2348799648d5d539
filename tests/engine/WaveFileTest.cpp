#include "engine/sound/WaveFile.h"
#include "TestCharacter.h"
#include <gtest/gtest.h>

using engine::DecodeWave;

TEST(DecodeWave, SixteenBitMono_GivesItsSamples)
{
    const auto sound = DecodeWave(testing_character::MakeWave(3, -5));
    ASSERT_TRUE(sound);
    EXPECT_EQ(sound->sampleRate, 1000);
    EXPECT_EQ(sound->samples, (std::vector<std::int16_t>{-5, -5, -5}));
}

TEST(DecodeWave, EightBit_IsWidened)
{
    std::vector<std::uint8_t> file = testing_character::MakeWave(1);
    file[34] = 8;
    file[44] = 255;
    file[45] = 0;
    EXPECT_EQ(DecodeWave(file)->samples, (std::vector<std::int16_t>{32512, -32768}));
}

TEST(DecodeWave, Stereo_IsMixed)
{
    std::vector<std::uint8_t> file = testing_character::MakeWave(2);
    file[22] = 2;
    file[44] = 100;
    file[45] = 0;
    file[46] = 200;
    file[47] = 0;
    EXPECT_EQ(DecodeWave(file)->samples, std::vector<std::int16_t>{150});
}

TEST(DecodeWave, ACutFile_GivesWhatIsThere)
{
    std::vector<std::uint8_t> file = testing_character::MakeWave(10);
    file.resize(file.size() - 5);
    EXPECT_EQ(DecodeWave(file)->samples.size(), 7u);
}

TEST(DecodeWave, AnotherEncoding_GivesNothing)
{
    std::vector<std::uint8_t> file = testing_character::MakeWave(10);
    file[20] = 0x31;
    EXPECT_FALSE(DecodeWave(file));
}

TEST(DecodeWave, NoWave_GivesNothing)
{
    EXPECT_FALSE(DecodeWave({}));
    EXPECT_FALSE(DecodeWave({1, 2, 3}));
    EXPECT_FALSE(DecodeWave(std::vector<std::uint8_t>(100, 'R')));
}

TEST(DecodeWave, AHeaderWithoutChunks_GivesNothing)
{
    std::vector<std::uint8_t> file = testing_character::MakeWave(0);
    file.resize(12);
    EXPECT_FALSE(DecodeWave(file));
}

namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes Letters(const std::string& text) { return Bytes(text.begin(), text.end()); }

void Append(Bytes& bytes, const Bytes& more) { bytes.insert(bytes.end(), more.begin(), more.end()); }

Bytes Little(std::uint32_t number, int count)
{
    Bytes bytes;
    for (int index = 0; index < count; ++index)
        bytes.push_back(static_cast<std::uint8_t>(number >> (8 * index)));
    return bytes;
}

// A chunk with the byte that fills an odd length.
Bytes Chunk(const std::string& name, const Bytes& content)
{
    Bytes chunk = Letters(name);
    Append(chunk, Little(static_cast<std::uint32_t>(content.size()), 4));
    Append(chunk, content);
    if (content.size() % 2 == 1)
        chunk.push_back(0);
    return chunk;
}

Bytes Format(std::uint32_t encoding, std::uint32_t channels, std::uint32_t rate, std::uint32_t bits)
{
    Bytes format;
    Append(format, Little(encoding, 2));
    Append(format, Little(channels, 2));
    Append(format, Little(rate, 4));
    Append(format, Little(rate * channels * bits / 8, 4));
    Append(format, Little(channels * bits / 8, 2));
    Append(format, Little(bits, 2));
    return format;
}

Bytes File(const std::vector<Bytes>& chunks)
{
    Bytes content = Letters("WAVE");
    for (const Bytes& chunk : chunks)
        Append(content, chunk);
    Bytes file = Letters("RIFF");
    Append(file, Little(static_cast<std::uint32_t>(content.size()), 4));
    Append(file, content);
    return file;
}

Bytes FileOf(const Bytes& format, const Bytes& data) { return File({Chunk("fmt ", format), Chunk("data", data)}); }

using Samples = std::vector<std::int16_t>;

}

TEST(DecodeWave, OtherChunksBefore_AreSkipped)
{
    const Bytes format = Format(1, 1, 8000, 16);
    const auto sound =
        DecodeWave(File({Chunk("LIST", {1, 2, 3, 4}), Chunk("fmt ", format), Chunk("fact", {9, 9}), Chunk("data", {7, 0})}));
    ASSERT_TRUE(sound);
    EXPECT_EQ(sound->samples, Samples{7});
}

TEST(DecodeWave, AChunkOfOddLength_IsFollowedByAByteThatIsNotCounted)
{
    const auto sound =
        DecodeWave(File({Chunk("note", {1, 2, 3}), Chunk("fmt ", Format(1, 1, 8000, 16)), Chunk("data", {7, 0})}));
    ASSERT_TRUE(sound);
    EXPECT_EQ(sound->samples, Samples{7});
}

TEST(DecodeWave, AnEmptyDataChunkAtTheEnd_IsAnEmptySound)
{
    const auto sound = DecodeWave(FileOf(Format(1, 1, 8000, 16), {}));
    ASSERT_TRUE(sound);
    EXPECT_TRUE(sound->samples.empty());
}

TEST(DecodeWave, HalfASampleAtTheEnd_IsLeftOut)
{
    EXPECT_EQ(DecodeWave(FileOf(Format(1, 1, 8000, 16), {7, 0, 9}))->samples, Samples{7});
}

TEST(DecodeWave, AFormatWithoutData_GivesNothing)
{
    EXPECT_FALSE(DecodeWave(File({Chunk("fmt ", Format(1, 1, 8000, 16))})));
}

TEST(DecodeWave, DataWithoutAFormat_GivesNothing) { EXPECT_FALSE(DecodeWave(File({Chunk("data", {7, 0})}))); }

TEST(DecodeWave, AFormatThatIsTooShort_GivesNothing)
{
    Bytes format = Format(1, 1, 8000, 16);
    format.pop_back();
    EXPECT_FALSE(DecodeWave(FileOf(format, {7, 0})));
}

TEST(DecodeWave, AnotherContainer_GivesNothing)
{
    Bytes file = FileOf(Format(1, 1, 8000, 16), {7, 0});
    file[0] = 'X';
    EXPECT_FALSE(DecodeWave(file));
}

TEST(DecodeWave, AContainerOfAnotherKind_GivesNothing)
{
    Bytes file = FileOf(Format(1, 1, 8000, 16), {7, 0});
    file[8] = 'X';
    EXPECT_FALSE(DecodeWave(file));
}

TEST(DecodeWave, AnExtensibleFormat_HasItsEncodingBehind)
{
    Bytes format = Format(0xFFFE, 1, 8000, 16);
    format.resize(24);
    Append(format, {1, 0});
    EXPECT_EQ(DecodeWave(FileOf(format, {7, 0}))->samples, Samples{7});
}

TEST(DecodeWave, AnExtensibleFormatOfAnotherEncoding_GivesNothing)
{
    Bytes format = Format(0xFFFE, 1, 8000, 16);
    format.resize(24);
    Append(format, {3, 0});
    EXPECT_FALSE(DecodeWave(FileOf(format, {7, 0})));
}

TEST(DecodeWave, AnExtensibleFormatWithoutItsEncoding_GivesNothing)
{
    Bytes format = Format(0xFFFE, 1, 8000, 16);
    format.resize(25);
    EXPECT_FALSE(DecodeWave(FileOf(format, {7, 0})));
}

TEST(DecodeWave, TwentyFourBits_GiveNothing) { EXPECT_FALSE(DecodeWave(FileOf(Format(1, 1, 8000, 24), {1, 2, 3}))); }

TEST(DecodeWave, NoChannel_GivesNothing) { EXPECT_FALSE(DecodeWave(FileOf(Format(1, 0, 8000, 16), {7, 0}))); }

TEST(DecodeWave, EightChannels_AreMixed)
{
    const Bytes data{8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 16, 0};
    EXPECT_EQ(DecodeWave(FileOf(Format(1, 8, 8000, 16), data))->samples, Samples{3});
}

TEST(DecodeWave, NineChannels_GiveNothing) { EXPECT_FALSE(DecodeWave(FileOf(Format(1, 9, 8000, 8), Bytes(9, 128)))); }

TEST(DecodeWave, TheSlowestAndTheFastestRate_AreTaken)
{
    EXPECT_EQ(DecodeWave(FileOf(Format(1, 1, 1000, 16), {7, 0}))->sampleRate, 1000);
    EXPECT_EQ(DecodeWave(FileOf(Format(1, 1, 192000, 16), {7, 0}))->sampleRate, 192000);
}

TEST(DecodeWave, ASlowerRate_GivesNothing) { EXPECT_FALSE(DecodeWave(FileOf(Format(1, 1, 999, 16), {7, 0}))); }
TEST(DecodeWave, AFasterRate_GivesNothing) { EXPECT_FALSE(DecodeWave(FileOf(Format(1, 1, 192001, 16), {7, 0}))); }
