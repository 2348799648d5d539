#include "engine/files/AcsChecks.h"
#include "engine/files/Pip.h"
#include "platform/Failure.h"
#include <functional>
#include <gtest/gtest.h>

using namespace engine;
using namespace files_test;

namespace {

// What is said against Pip after a change; "" when nothing is.
std::string FaultAfter(const std::function<void(Character&)>& change)
{
    Character pip = Pip();
    change(pip);
    try {
        files::RequireWritable(pip);
        return "";
    } catch (const platform::CFailure& failure) {
        return failure.Description();
    }
}

std::string Cannot(const std::string& fault) { return "The character cannot be written: " + fault + "."; }

Frame& FirstFrame(Character& character) { return character.animations[0].frames[0]; }

// So many pictures without pixels of their own.
class CManyPictures final : public IPictures {
public:
    explicit CManyPictures(std::uint32_t count, PictureRef picture = nullptr) : m_count(count), m_picture(std::move(picture))
    {
    }
    std::uint32_t Count() const override { return m_count; }
    PictureRef Picture(std::uint32_t) const override { return m_picture; }

private:
    std::uint32_t m_count;
    PictureRef m_picture;
};

PictureRef PictureOf(Size size)
{
    const auto pixels = static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height);
    return std::make_shared<const IndexedPicture>(IndexedPicture{size, std::vector<std::uint8_t>(pixels)});
}

}

TEST(RequireWritable, Pip_IsWritable)
{
    EXPECT_EQ(FaultAfter([](Character&) {}), "");
}

TEST(RequireWritable, NoPictures_IsRefused)
{
    EXPECT_EQ(FaultAfter([](Character& pip) { pip.pictures = nullptr; }), Cannot("it has no pictures"));
}

TEST(RequireWritable, AsManyPicturesAsTheLimit_AreWritableAndOneMoreIsNot)
{
    EXPECT_EQ(FaultAfter([](Character& pip) { pip.pictures = std::make_shared<CManyPictures>(65535); }), "");
    EXPECT_EQ(FaultAfter([](Character& pip) { pip.pictures = std::make_shared<CManyPictures>(65536); }),
              Cannot("there are too many pictures"));
}

TEST(RequireWritable, AsManyPixelsAsTheLimit_AreWritableAndMoreAreNot)
{
    const PictureRef large = PictureOf({4096, 4096});
    EXPECT_EQ(FaultAfter([&](Character& pip) { pip.pictures = std::make_shared<CManyPictures>(32, large); }), "");
    EXPECT_EQ(FaultAfter([&](Character& pip) { pip.pictures = std::make_shared<CManyPictures>(33, large); }),
              Cannot("the pictures have too many pixels"));
}

TEST(RequireWritable, TheSidesOfAPicture_HaveBounds)
{
    const auto faultOf = [](Size size) {
        return FaultAfter([&](Character& pip) { pip.pictures = std::make_shared<CManyPictures>(1, PictureOf(size)); });
    };
    EXPECT_EQ(faultOf({1, 1}), "");
    EXPECT_EQ(faultOf({4096, 1}), "");
    EXPECT_EQ(faultOf({1, 4096}), "");
    for (const Size size : {Size{0, 1}, Size{1, 0}, Size{4097, 1}, Size{1, 4097}})
        EXPECT_EQ(faultOf(size), Cannot("the size of a picture is out of range"));
}

TEST(RequireWritable, ThePalette_HasOneTo256Colours)
{
    const auto faultOf = [](std::size_t colours) {
        return FaultAfter([&](Character& pip) { pip.palette.resize(colours); });
    };
    EXPECT_EQ(faultOf(0), Cannot("the palette must have 1 to 256 colours"));
    EXPECT_EQ(faultOf(1), "");
    EXPECT_EQ(faultOf(256), "");
    EXPECT_EQ(faultOf(257), Cannot("the palette must have 1 to 256 colours"));
}

TEST(RequireWritable, TheTransparentColour_IsOneOfThePalette)
{
    EXPECT_EQ(FaultAfter([](Character& pip) { pip.transparentIndex = 1; }), "");
    EXPECT_EQ(FaultAfter([](Character& pip) { pip.transparentIndex = 2; }),
              Cannot("the transparent colour is not in the palette"));
}

TEST(RequireWritable, TheSidesOfTheFrame_HaveBounds)
{
    const auto faultOf = [](Size size) { return FaultAfter([&](Character& pip) { pip.frameSize = size; }); };
    EXPECT_EQ(faultOf({1, 1}), "");
    EXPECT_EQ(faultOf({4096, 4096}), "");
    EXPECT_EQ(faultOf({4097, 1}), Cannot("the size of its frame is out of range"));
    EXPECT_EQ(faultOf({1, 0}), Cannot("the size of its frame is out of range"));
}

TEST(RequireWritable, TextsBeyondTheLimit_AreRefused)
{
    const std::string longest(65536, 'x'), tooLong(65537, 'x');
    EXPECT_EQ(FaultAfter([&](Character& pip) { pip.names[0].description = longest; }), "");
    EXPECT_EQ(FaultAfter([&](Character& pip) { pip.names[0].name = tooLong; }), Cannot("a text is too long"));
    EXPECT_EQ(FaultAfter([&](Character& pip) { pip.names[0].description = tooLong; }), Cannot("a text is too long"));
    EXPECT_EQ(FaultAfter([&](Character& pip) { pip.names[0].extraData = tooLong; }), Cannot("a text is too long"));
    EXPECT_EQ(FaultAfter([&](Character& pip) { pip.states[0].name = tooLong; }), Cannot("a text is too long"));
    EXPECT_EQ(FaultAfter([&](Character& pip) {
                  pip.balloon = BalloonLook{};
                  pip.balloon->fontName = tooLong;
              }),
              Cannot("a text is too long"));
}

TEST(RequireWritable, ATextWithAZeroCharacter_IsRefused)
{
    EXPECT_EQ(FaultAfter([](Character& pip) { pip.names[0].name = std::string("a\0b", 3); }),
              Cannot("a text holds a zero character"));
}

TEST(RequireWritable, NamesOfNothing_AreRefused)
{
    EXPECT_EQ(FaultAfter([](Character& pip) { pip.names[0].name = ""; }), Cannot("a name is empty"));
    EXPECT_EQ(FaultAfter([](Character& pip) { pip.states[0].name = ""; }), Cannot("a name is empty"));
    EXPECT_EQ(FaultAfter([](Character& pip) {
                  pip.states.clear();
                  pip.animations[0].name = "";
              }),
              Cannot("a name is empty"));
}

TEST(RequireWritable, TheNumberOfNames_IsBounded)
{
    const auto faultOf = [](std::size_t count) {
        return FaultAfter([&](Character& pip) { pip.names.resize(count, pip.names[0]); });
    };
    EXPECT_EQ(faultOf(0), Cannot("the character has no name or too many"));
    EXPECT_EQ(faultOf(65534), "");
    EXPECT_EQ(faultOf(65535), Cannot("the character has no name or too many"));
}

TEST(RequireWritable, TheNumberOfSounds_IsBounded)
{
    const auto sound = std::make_shared<const std::vector<std::uint8_t>>(1);
    const auto faultOf = [&](std::size_t count) {
        return FaultAfter([&](Character& pip) { pip.sounds.assign(count, sound); });
    };
    EXPECT_EQ(faultOf(4096), "");
    EXPECT_EQ(faultOf(4097), Cannot("there are too many sounds"));
}

TEST(RequireWritable, ASound_IsThereAndNotTooLarge)
{
    const auto faultOf = [](std::shared_ptr<const std::vector<std::uint8_t>> sound) {
        return FaultAfter([&](Character& pip) { pip.sounds.push_back(sound); });
    };
    EXPECT_EQ(faultOf(nullptr), Cannot("a sound is missing or too large"));
    EXPECT_EQ(faultOf(std::make_shared<const std::vector<std::uint8_t>>(16u << 20)), "");
    EXPECT_EQ(faultOf(std::make_shared<const std::vector<std::uint8_t>>((16u << 20) + 1)),
              Cannot("a sound is missing or too large"));
}

TEST(RequireWritable, TheNumberOfStates_IsBounded)
{
    const auto faultOf = [](std::size_t count) {
        return FaultAfter([&](Character& pip) { pip.states.resize(count, pip.states[0]); });
    };
    EXPECT_EQ(faultOf(256), "");
    EXPECT_EQ(faultOf(257), Cannot("there are too many states"));
}

TEST(RequireWritable, TheNumberOfAnimationsOfAState_IsBounded)
{
    const auto faultOf = [](std::size_t count) {
        return FaultAfter([&](Character& pip) { pip.states[0].animations.resize(count, "Show"); });
    };
    EXPECT_EQ(faultOf(4096), "");
    EXPECT_EQ(faultOf(4097), Cannot("a state has too many animations"));
}

TEST(RequireWritable, TheNumberOfAnimations_IsBounded)
{
    const auto faultOf = [](std::size_t count) {
        return FaultAfter([&](Character& pip) {
            for (std::size_t i = 1; i < count; ++i)
                pip.animations.push_back({"A" + std::to_string(i), Transition::None, "", {}});
        });
    };
    EXPECT_EQ(faultOf(4096), "");
    EXPECT_EQ(faultOf(4097), Cannot("there are too many animations"));
}

TEST(RequireWritable, TheNumberOfFrames_IsBounded)
{
    const auto faultOf = [](std::size_t count) {
        return FaultAfter([&](Character& pip) { pip.animations[0].frames.resize(count, FirstFrame(pip)); });
    };
    EXPECT_EQ(faultOf(16384), "");
    EXPECT_EQ(faultOf(16385), Cannot("an animation has too many frames"));
}

TEST(RequireWritable, TheNumberOfFramesOfAllAnimations_IsBounded)
{
    const auto faultOf = [](std::size_t more) {
        return FaultAfter([&](Character& pip) {
            for (int i = 0; i < 16; ++i)
                pip.animations.push_back({"A" + std::to_string(i), Transition::None, "", std::vector<Frame>(16384)});
            pip.animations[1].frames.resize(16383 + more);
        });
    };
    EXPECT_EQ(faultOf(0), "");
    EXPECT_EQ(faultOf(1), Cannot("there are too many frames"));
}

TEST(RequireWritable, TheNumbersInsideAFrame_AreBounded)
{
    const auto faultOf = [](std::size_t pictures, std::size_t mouths) {
        return FaultAfter([&](Character& pip) {
            FirstFrame(pip).pictures.resize(pictures);
            FirstFrame(pip).mouths.resize(mouths);
        });
    };
    EXPECT_EQ(faultOf(256, 255), "");
    EXPECT_EQ(faultOf(257, 0), Cannot("a frame has too many pictures"));
    EXPECT_EQ(faultOf(0, 256), Cannot("a frame has too many mouths"));
}

TEST(RequireWritable, TheBranchesOfAFrame_AreBoundedInNumberAndChance)
{
    const auto faultOf = [](std::vector<Branch> branches) {
        return FaultAfter([&](Character& pip) { FirstFrame(pip).branches = std::move(branches); });
    };
    EXPECT_EQ(faultOf({{0, 99}, {0, 1}}), "");
    EXPECT_EQ(faultOf({{0, 100}, {0, 1}}), Cannot("the branches of a frame exceed 100 percent"));
    EXPECT_EQ(faultOf({{0, 0}}), Cannot("a branch is never taken"));
    EXPECT_EQ(faultOf({{1, 1}}), Cannot("a branch leads to a frame that does not exist"));
    EXPECT_EQ(faultOf(std::vector<Branch>(256)), Cannot("a frame has too many branches"));
}

TEST(RequireWritable, TheOffsetOfAPicture_IsBounded)
{
    const auto faultOf = [](Point offset) {
        return FaultAfter([&](Character& pip) { FirstFrame(pip).pictures[0].offset = offset; });
    };
    EXPECT_EQ(faultOf({-32768, 32767}), "");
    EXPECT_EQ(faultOf({32767, -32768}), "");
    for (const Point offset : {Point{-32769, 0}, Point{32768, 0}, Point{0, -32769}, Point{0, 32768}})
        EXPECT_EQ(faultOf(offset), Cannot("a picture lies too far from its frame"));
}

TEST(RequireWritable, WhatAFrameNames_Exists)
{
    EXPECT_EQ(FaultAfter([](Character& pip) { FirstFrame(pip).pictures[0].picture = 1; }),
              Cannot("a frame names a picture that does not exist"));
    EXPECT_EQ(FaultAfter([](Character& pip) { FirstFrame(pip).sound = 0; }),
              Cannot("a frame names a sound that does not exist"));
    EXPECT_EQ(FaultAfter([](Character& pip) { FirstFrame(pip).exitFrame = 0; }), "");
    EXPECT_EQ(FaultAfter([](Character& pip) { FirstFrame(pip).exitFrame = 1; }),
              Cannot("an exit leads to a frame that does not exist"));
    EXPECT_EQ(FaultAfter([](Character& pip) {
                  FirstFrame(pip).mouths.push_back({Mouth::Closed, false, {1, {0, 0}}});
              }),
              Cannot("a frame names a picture that does not exist"));
}

TEST(RequireWritable, AMouthOfAnUnknownKind_IsRefused)
{
    EXPECT_EQ(FaultAfter([](Character& pip) {
                  FirstFrame(pip).mouths.push_back({static_cast<Mouth>(6), false, {0, {0, 0}}});
              }),
              "");
    EXPECT_EQ(FaultAfter([](Character& pip) {
                  FirstFrame(pip).mouths.push_back({static_cast<Mouth>(7), false, {0, {0, 0}}});
              }),
              Cannot("a mouth is of no known kind"));
}
