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
