#include "engine/animation/FrameComposer.h"
#include "TestCharacter.h"
#include <gtest/gtest.h>

using namespace testing_character;
using engine::ComposeFrame;
using engine::Mouth;

namespace {

std::uint32_t At(const engine::Bitmap& bitmap, int x, int y) { return bitmap.pixels[static_cast<std::size_t>(y * 4 + x)]; }

}

TEST(ComposeFrame, AFullPicture_FillsTheFrame)
{
    const engine::Bitmap bitmap = ComposeFrame(Make(), MakeFrame(0, 10), nullptr);
    EXPECT_EQ(bitmap.size, (engine::Size{4, 4}));
    EXPECT_EQ(bitmap.pixels, std::vector<std::uint32_t>(16, Red));
}

TEST(ComposeFrame, NoPictures_IsTransparent)
{
    EXPECT_EQ(ComposeFrame(Make(), EmptyFrame(), nullptr).pixels, std::vector<std::uint32_t>(16, 0));
}

TEST(ComposeFrame, TheFirstPicture_IsTheTopOne)
{
    engine::Frame frame = MakeFrame(1, 10);
    frame.pictures.push_back({0, {0, 0}});
    EXPECT_EQ(At(ComposeFrame(Make(), frame, nullptr), 0, 0), Green);
}

TEST(ComposeFrame, TheTransparentIndex_LetsTheLowerPictureShow)
{
    engine::Character character = Make();
    character.transparentIndex = 2;  // Green.
    engine::Frame frame = MakeFrame(1, 10);
    frame.pictures.push_back({0, {0, 0}});
    EXPECT_EQ(At(ComposeFrame(character, frame, nullptr), 0, 0), Red);
}

TEST(ComposeFrame, APictureThatSticksOut_IsClipped)
{
    engine::Frame frame;
    frame.pictures.push_back({0, {-2, 3}});
    const engine::Bitmap bitmap = ComposeFrame(Make(), frame, nullptr);
    EXPECT_EQ(At(bitmap, 1, 3), Red);
    EXPECT_EQ(At(bitmap, 2, 3), 0u);
    EXPECT_EQ(At(bitmap, 0, 2), 0u);
}

TEST(ComposeFrame, APictureFarOutside_DrawsNothing)
{
    engine::Frame frame;
    frame.pictures.push_back({0, {INT32_MAX, INT32_MIN}});
    EXPECT_EQ(ComposeFrame(Make(), frame, nullptr).pixels, std::vector<std::uint32_t>(16, 0));
}

TEST(ComposeFrame, AnUnknownPicture_DrawsNothing)
{
    EXPECT_EQ(ComposeFrame(Make(), MakeFrame(99, 10), nullptr).pixels, std::vector<std::uint32_t>(16, 0));
}

TEST(ComposeFrame, AColorOutsideThePalette_DrawsNothing)
{
    engine::Character character = Make();
    character.palette.resize(1);
    EXPECT_EQ(ComposeFrame(character, MakeFrame(0, 10), nullptr).pixels, std::vector<std::uint32_t>(16, 0));
}

TEST(ComposeFrame, AMouth_IsDrawnOverEverything)
{
    const engine::Frame frame = SpeakingFrame(0, 10);
    const engine::Bitmap bitmap = ComposeFrame(Make(), frame, engine::MouthOverlayOf(frame, Mouth::Wide2));
    EXPECT_EQ(At(bitmap, 1, 2), White);
    EXPECT_EQ(At(bitmap, 2, 2), White);
    EXPECT_EQ(At(bitmap, 3, 2), Red);
}

TEST(ComposeFrame, AMouthOverTransparentPixels_IsClippedToTheFrame)
{
    engine::Frame frame = SpeakingFrame(0, 10);
    frame.pictures[0].offset = {2, 0};
    const engine::Bitmap bitmap = ComposeFrame(Make(), frame, engine::MouthOverlayOf(frame, Mouth::Wide2));
    EXPECT_EQ(At(bitmap, 1, 2), 0u);
    EXPECT_EQ(At(bitmap, 2, 2), White);
}

TEST(ComposeFrame, AReplacingMouth_TakesThePlaceOfTheTopPicture)
{
    engine::Frame frame = SpeakingFrame(1, 10);
    frame.pictures.push_back({0, {0, 0}});
    frame.mouths[1].replacesTopPicture = true;
    const engine::Bitmap bitmap = ComposeFrame(Make(), frame, engine::MouthOverlayOf(frame, Mouth::Wide2));
    EXPECT_EQ(At(bitmap, 0, 0), Red);
    EXPECT_EQ(At(bitmap, 1, 2), White);
}

TEST(MouthOverlayOf, AMissingShape_FallsBackToTheClosedMouth)
{
    const engine::Frame frame = SpeakingFrame(0, 10);
    EXPECT_EQ(engine::MouthOverlayOf(frame, Mouth::Narrow)->mouth, Mouth::Closed);
}

TEST(MouthOverlayOf, AFrameWithoutMouths_HasNone)
{
    EXPECT_EQ(engine::MouthOverlayOf(MakeFrame(0, 1), Mouth::Closed), nullptr);
}
