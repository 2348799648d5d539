#include "drawing/Picture.h"
#include "engine/files/AcsReader.h"
#include "engine/files/AcsWriter.h"
#include "making/MakeCharacter.h"
#include "motion/Poses.h"
#include "nibbin/Figure.h"
#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace {

// Drawing everything takes seconds: most tests make do with a few animations.
engine::Character Made(const std::set<std::string>& names)
{
    motion::Scripts some;
    for (const motion::Scripted& script : motion::AllScripts())
        if (names.count(script.name) > 0)
            some.push_back(script);
    engine::Character character = making::MakeCharacter(some);
    character.states.clear();
    return character;
}

const engine::Animation& Of(const engine::Character& character, const std::string& name)
{
    return *std::find_if(character.animations.begin(), character.animations.end(),
                         [&](const auto& a) { return a.name == name; });
}

// The pictures of the frame laid over each other, as colours.
drawing::Picture Composed(const engine::Character& character, const engine::Frame& frame)
{
    drawing::Picture whole{128, 128, std::vector<std::uint32_t>(128 * 128)};
    for (auto placed = frame.pictures.rbegin(); placed != frame.pictures.rend(); ++placed) {
        const engine::PictureRef picture = character.pictures->Picture(placed->picture);
        for (int y = 0; y < picture->size.height; ++y)
            for (int x = 0; x < picture->size.width; ++x)
                if (const auto index = picture->pixels[static_cast<std::size_t>(y * picture->size.width + x)]; index != 0)
                    whole.Put(placed->offset.x + x, placed->offset.y + y, 0xFF000000U | index);
    }
    return whole;
}

bool Fits(const engine::Character& character, const engine::PlacedPicture& placed)
{
    const engine::PictureRef picture = character.pictures->Picture(placed.picture);
    return picture && placed.offset.x >= 0 && placed.offset.y >= 0 && picture->size.width > 0 &&
           placed.offset.x + picture->size.width <= 128 && placed.offset.y + picture->size.height <= 128;
}

}

TEST(Nibbin, MakeCharacter_AllAnimations_FitTheFrameAndTheFormat)
{
    const engine::Character character = making::MakeCharacter(motion::AllScripts());
    EXPECT_EQ(character.palette.size(), 256U);
    for (const engine::Animation& animation : character.animations)
        for (const engine::Frame& frame : animation.frames) {
            for (const engine::PlacedPicture& placed : frame.pictures)
                EXPECT_TRUE(Fits(character, placed)) << animation.name;
            for (const engine::MouthOverlay& mouth : frame.mouths)
                EXPECT_TRUE(Fits(character, mouth.placed)) << animation.name;
            EXPECT_TRUE(frame.mouths.empty() || frame.mouths.size() == 7U) << animation.name;
        }
    const auto bytes = engine::WriteCharacterFile(character, engine::lz::Effort::Quick);
    EXPECT_LT(bytes.size(), 1'800'000U);
    const auto read = engine::ReadCharacterFile(std::make_shared<const std::vector<std::uint8_t>>(bytes));
    EXPECT_EQ(read->animations.size(), character.animations.size());
    EXPECT_TRUE(read->hasStandardSet);
}

TEST(Nibbin, MakeCharacter_States_NameAnimationsOfTheSet)
{
    const motion::Scripts scripts = motion::AllScripts();
    const engine::Character character = making::WithoutPictures();
    EXPECT_EQ(character.states.size(), 16U);
    for (const engine::State& state : character.states)
        for (const std::string& name : state.animations)
            EXPECT_TRUE(std::any_of(scripts.begin(), scripts.end(), [&](const auto& s) { return s.name == name; })) << name;
}

TEST(Nibbin, MakeCharacter_Name_IsEnglishForAll)
{
    const engine::Character character = making::WithoutPictures();
    ASSERT_EQ(character.names.size(), 1U);
    EXPECT_EQ(character.names[0].languageId, 0x0009);
    EXPECT_EQ(character.names[0].name, "Nibbin");
    EXPECT_LE(character.names[0].description.size(), 256U);
}

TEST(Nibbin, MakeCharacter_Twice_GivesTheSameFile)
{
    const std::set<std::string> some{"Show", "RestPose", "Read", "ReadReturn", "Blink"};
    EXPECT_EQ(engine::WriteCharacterFile(Made(some)), engine::WriteCharacterFile(Made(some)));
}

TEST(Nibbin, Show_FromItsFirstFrame_HasAPicture)
{
    const engine::Character character = Made({"Show"});
    for (const engine::Frame& frame : Of(character, "Show").frames)
        EXPECT_FALSE(frame.pictures.empty());
}

TEST(Nibbin, Hide_Ends_WithoutAPicture)
{
    const engine::Character character = Made({"Hide"});
    EXPECT_TRUE(Of(character, "Hide").frames.back().pictures.empty());
}

TEST(Nibbin, RestPose_Mouths_AreSevenDifferentOnesInOrder)
{
    const engine::Character character = Made({"RestPose"});
    const engine::Frame& frame = Of(character, "RestPose").frames.back();
    ASSERT_EQ(frame.mouths.size(), 7U);
    std::set<std::uint32_t> pictures;
    for (std::size_t i = 0; i < 7; ++i) {
        EXPECT_EQ(static_cast<std::size_t>(frame.mouths[i].mouth), i);
        pictures.insert(frame.mouths[i].placed.picture);
    }
    EXPECT_EQ(pictures.size(), 7U);
}

TEST(Nibbin, Blink_LayeredFrames_CoverWhatTheDrawingCovers)
{
    const engine::Character character = Made({"Blink"});
    const drawing::Picture drawn = drawing::HardEdged(nibbin::DrawFigure(motion::Rest()));
    const drawing::Picture laid = Composed(character, Of(character, "Blink").frames.back());
    EXPECT_GT(Of(character, "Blink").frames.back().pictures.size(), 1U);
    for (std::size_t i = 0; i < drawn.pixels.size(); ++i)
        ASSERT_EQ(laid.pixels[i] != 0, drawn.pixels[i] != 0) << i;
}

TEST(Nibbin, DrawTrunk_InAnyPose_StaysInsideTheFigure)
{
    for (const motion::Scripted& script : motion::AllScripts()) {
        const nibbin::Pose& pose = script.steps.back().pose;
        const drawing::Picture trunk = drawing::HardEdged(nibbin::DrawTrunk(pose));
        const drawing::Picture whole = drawing::HardEdged(nibbin::DrawFigure(pose));
        for (std::size_t i = 0; i < whole.pixels.size(); ++i)
            ASSERT_TRUE(trunk.pixels[i] == 0 || whole.pixels[i] != 0) << script.name;
    }
}
