#include "engine/speech/SoundFileMarks.h"
#include <gtest/gtest.h>

using engine::FeedMark;
using engine::FeedMarkKind;
using engine::MarksOfSound;
using engine::Mouth;
using engine::WaveSound;

namespace {

// The mouths of a sound of 1000 samples a second (a mouth for each 50), "sample: shape".
std::vector<std::string> MouthsOf(const std::vector<std::int16_t>& samples)
{
    std::vector<std::string> mouths;
    for (const FeedMark& mark : MarksOfSound(WaveSound{1000, samples}, {}))
        if (mark.kind == FeedMarkKind::Mouth)
            mouths.push_back(std::to_string(mark.sample) + ": " + std::to_string(static_cast<int>(mark.mouth)));
    return mouths;
}

Mouth MouthOf(std::int16_t sample) { return MarksOfSound(WaveSound{1000, {sample}}, {}).at(0).mouth; }

}

TEST(MarksOfSound, EachLoudness_HasItsMouth)
{
    EXPECT_EQ(MouthOf(299), Mouth::Closed);
    EXPECT_EQ(MouthOf(300), Mouth::Wide1);
    EXPECT_EQ(MouthOf(1199), Mouth::Wide1);
    EXPECT_EQ(MouthOf(1200), Mouth::Wide2);
    EXPECT_EQ(MouthOf(2499), Mouth::Wide2);
    EXPECT_EQ(MouthOf(2500), Mouth::Wide3);
    EXPECT_EQ(MouthOf(4499), Mouth::Wide3);
    EXPECT_EQ(MouthOf(4500), Mouth::Wide4);
}

TEST(MarksOfSound, SamplesBelowZero_AreAsLoudAsThoseAbove) { EXPECT_EQ(MouthOf(-4500), Mouth::Wide4); }

TEST(MarksOfSound, TheLoudness_IsTheMeanOfAStretch)
{
    std::vector<std::int16_t> samples(100, 0);
    samples[50] = 15000;
    const auto mouths = MouthsOf(samples);
    ASSERT_EQ(mouths.size(), 2u);
    EXPECT_EQ(mouths[0], "0: " + std::to_string(static_cast<int>(Mouth::Closed)));
    EXPECT_EQ(mouths[1], "50: " + std::to_string(static_cast<int>(Mouth::Wide1)));
}

TEST(MarksOfSound, AShortLastStretch_HasItsOwnMean)
{
    std::vector<std::int16_t> samples(52, 0);
    samples[50] = samples[51] = 5000;
    EXPECT_EQ(MouthsOf(samples).back(), "50: " + std::to_string(static_cast<int>(Mouth::Wide4)));
}

TEST(MarksOfSound, AVerySlowSound_HasAMouthForEachSample)
{
    EXPECT_EQ(MarksOfSound(WaveSound{10, {0, 0, 0}}, {}).size(), 3u);
}

TEST(MarksOfSound, Words_LieWhereTheirLettersWould)
{
    const WaveSound sound{1000, std::vector<std::int16_t>(1000, 0)};
    std::vector<std::int64_t> samples;
    for (const FeedMark& mark : MarksOfSound(sound, engine::ParseSpeech("a bcd efghi")))
        if (mark.kind == FeedMarkKind::Word)
            samples.push_back(mark.sample);
    EXPECT_EQ(samples, (std::vector<std::int64_t>{0, 166, 500}));  // 2, 4 and 6 of 12 parts.
}

TEST(MarksOfSound, MouthsAndWords_ComeInTheOrderOfTheirSamples)
{
    const WaveSound sound{1000, std::vector<std::int16_t>(200, 0)};
    std::int64_t before = 0;
    for (const FeedMark& mark : MarksOfSound(sound, engine::ParseSpeech("one two three"))) {
        EXPECT_GE(mark.sample, before);
        before = mark.sample;
    }
    EXPECT_EQ(before, 150);
}
