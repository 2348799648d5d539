#include "engine/files/AcsWriter.h"
#include "engine/files/FileParts.h"
#include "engine/files/Rich.h"
#include <bit>
#include <random>

using namespace engine;
using namespace files_test;

namespace {

std::string FaultOf(const Character& character)
{
    try {
        WriteCharacterFile(character);
        return "";
    } catch (const platform::CFailure& failure) {
        EXPECT_EQ(failure.Number(), platform::engineError::InvalidArgument);
        return failure.Description();
    }
}

Character ReadBack(const Character& character) { return *Read(WriteCharacterFile(character)); }

// How often some bytes stand in a file.
int CountOf(const Bytes& part, const Bytes& file)
{
    int count = 0;
    for (auto at = file.begin(); (at = std::search(at, file.end(), part.begin(), part.end())) != file.end(); ++at)
        ++count;
    return count;
}

Bytes Utf16(std::string_view text)
{
    return Made([&](Writer& w) { w.String(text); });
}

bool HaveEqualPictures(const IPictures& a, const IPictures& b)
{
    bool equal = a.Count() == b.Count();
    for (std::uint32_t i = 0; equal && i < a.Count(); ++i) {
        const PictureRef first = a.Picture(i), second = b.Picture(i);
        equal = first && second ? *first == *second : first == second;
    }
    return equal;
}

Frame RandomFrame(std::mt19937& random, std::uint16_t frames, std::uint32_t pictures, std::uint16_t sounds)
{
    const auto offset = [&] { return static_cast<std::int32_t>(random() % 65536) - 32768; };
    Frame frame;
    frame.duration = static_cast<std::uint16_t>(random());
    for (auto left = random() % 4; left-- > 0;)
        frame.pictures.push_back({static_cast<std::uint32_t>(random() % pictures), {offset(), offset()}});
    if (random() % 3 == 0)
        frame.sound = static_cast<std::uint16_t>(random() % sounds);
    if (random() % 3 == 0)
        frame.exitFrame = static_cast<std::uint16_t>(random() % frames);
    for (auto left = random() % 4; left-- > 0;)
        frame.branches.push_back(
            {static_cast<std::uint16_t>(random() % frames), static_cast<std::uint16_t>(random() % 33 + 1)});
    for (std::uint8_t mouth = 0; mouth < random() % 8 && mouth < MouthCount; ++mouth)
        frame.mouths.push_back({static_cast<Mouth>(mouth),
                                random() % 2 == 0,
                                {static_cast<std::uint32_t>(random() % pictures), {offset(), offset()}}});
    return frame;
}

std::shared_ptr<CPictureList> RandomPictures(std::mt19937& random)
{
    auto pictures = std::make_shared<CPictureList>();
    for (auto left = random() % 5 + 1; left-- > 0;) {
        const Size size{static_cast<std::int32_t>(random() % 40 + 1), static_cast<std::int32_t>(random() % 40 + 1)};
        IndexedPicture picture{size, {}};
        for (std::int32_t i = 0; i < size.width * size.height; ++i)
            picture.pixels.push_back(static_cast<std::uint8_t>(random() % 3 == 0 ? random() % 256 : 1));
        pictures->Add(picture);
    }
    return pictures;
}

Character RandomCharacter(unsigned seed)
{
    std::mt19937 random(seed);
    Character character = Rich();
    const auto pictures = RandomPictures(random);
    character.pictures = pictures;
    for (Animation& animation : character.animations) {
        const auto frames = static_cast<std::uint16_t>(random() % 5);
        animation.frames.clear();
        while (animation.frames.size() < frames)
            animation.frames.push_back(RandomFrame(random, frames, pictures->Count(), 2));
    }
    character.palette.resize(random() % 253 + 3);
    if (random() % 2)
        character.voice.reset();
    if (random() % 2)
        character.balloon.reset();
    return character;
}

}

TEST(WriteCharacterFile, ASmallCharacter_GivesTheWholeFileByteForByte)
{
    EXPECT_EQ(WriteCharacterFile(Pip(), lz::Effort::Quick), Bytes(PipFile.begin(), PipFile.end()));
}

TEST(WriteCharacterFile, WhatWasReadFromASmallFile_GivesThatFileByteForByte)
{
    const CharacterRef pip = Read({PipFile.begin(), PipFile.end()});

    EXPECT_EQ(WriteCharacterFile(*pip, lz::Effort::Quick), Bytes(PipFile.begin(), PipFile.end()));
}

TEST(WriteCharacterFile, TheSameCharacterTwice_GivesTheSameBytes)
{
    EXPECT_EQ(WriteCharacterFile(Rich()), WriteCharacterFile(Rich()));
}

TEST(WriteCharacterFile, ThoroughEffort_IsSmaller) { EXPECT_LT(WriteCharacterFile(Pip()).size(), PipFile.size()); }

TEST(WriteCharacterFile, EveryKindOfRecord_ComesBack)
{
    const Character rich = Rich();
    const Character back = ReadBack(rich);

    EXPECT_EQ(back.id, rich.id);
    EXPECT_EQ(back.names, rich.names);
    EXPECT_EQ(back.frameSize, rich.frameSize);
    EXPECT_EQ(back.palette, rich.palette);
    EXPECT_EQ(back.transparentIndex, rich.transparentIndex);
    EXPECT_EQ(back.hasStandardSet, rich.hasStandardSet);
    EXPECT_EQ(back.voice, rich.voice);
    EXPECT_EQ(back.balloon, rich.balloon);
    EXPECT_EQ(back.states, rich.states);
    EXPECT_EQ(back.animations, rich.animations);
    EXPECT_EQ(*back.sounds.at(0), *rich.sounds[0]);
    EXPECT_EQ(*back.sounds.at(1), *rich.sounds[1]);
    EXPECT_TRUE(HaveEqualPictures(*back.pictures, *rich.pictures));
}

TEST(WriteCharacterFile, ManyCharacters_ComeBack)
{
    for (unsigned seed = 0; seed < 100; ++seed) {
        const Character character = RandomCharacter(seed);
        const Character back = ReadBack(character);
        EXPECT_EQ(back.animations, character.animations) << seed;
        EXPECT_EQ(back.palette, character.palette) << seed;
        EXPECT_EQ(back.voice, character.voice) << seed;
        EXPECT_EQ(back.balloon, character.balloon) << seed;
        EXPECT_TRUE(HaveEqualPictures(*back.pictures, *character.pictures)) << seed;
    }
}

TEST(WriteCharacterFile, ABalloonThatHidesAndPacesItself_ComesBack)
{
    Character rich = Rich();
    rich.balloon->autoHide = rich.balloon->autoPace = rich.balloon->sizeToText = true;

    EXPECT_EQ(ReadBack(rich).balloon, rich.balloon);
}

TEST(WriteCharacterFile, AVoiceWithTheEnginesOwnSpeedAndPitch_ComesBack)
{
    Character rich = Rich();
    rich.voice->wordsPerMinute.reset();
    rich.voice->pitch.reset();

    EXPECT_EQ(ReadBack(rich).voice, rich.voice);
}

TEST(WriteCharacterFile, AnEmptyPicture_ComesBackAsNone)
{
    class CNoPictures final : public IPictures {
        std::uint32_t Count() const override { return 1; }
        PictureRef Picture(std::uint32_t) const override { return nullptr; }
    };
    Character pip = Pip();
    pip.pictures = std::make_shared<CNoPictures>();

    const Character back = ReadBack(pip);

    EXPECT_EQ(back.pictures->Count(), 1U);
    EXPECT_EQ(back.pictures->Picture(0), nullptr);
}

TEST(WriteCharacterFile, NamesOfAnimations_AreCapitalsButInTheList)
{
    Character pip = Pip();
    pip.states[0] = {"Showing", {"show"}};
    pip.animations[0].transition = Transition::ReturnAnimation;
    pip.animations[0].returnAnimation = "Show";

    const Bytes file = WriteCharacterFile(pip);

    EXPECT_EQ(CountOf(Utf16("SHOW"), file), 3);  // The record's name, its return animation and the state.
    EXPECT_EQ(CountOf(Utf16("Show"), file), 1);
    EXPECT_EQ(CountOf(Utf16("SHOWING"), file), 1);
}

TEST(WriteCharacterFile, NoExit_IsMinusTwoInAnAnimationWithExits)
{
    Character pip = Pip();
    Frame withExit;
    withExit.duration = 0x1234;
    withExit.exitFrame = 0;
    pip.animations[0].frames[0].duration = 0x5678;
    pip.animations[0].frames.push_back(withExit);

    const Bytes file = WriteCharacterFile(pip);

    EXPECT_EQ(CountOf({0xFF, 0xFF, 0x78, 0x56, 0xFE, 0xFF}, file), 1);
    EXPECT_EQ(CountOf({0xFF, 0xFF, 0x34, 0x12, 0x00, 0x00}, file), 1);
}

TEST(WriteCharacterFile, Mouths_HoldTheMiddleOfTheFirstOne)
{
    // The first mouth's picture is opaque from 1, 1 to 3, 3.
    const Bytes file = WriteCharacterFile(Rich());

    EXPECT_EQ(CountOf({0, 0, 0, 0, 0, 0, 1, 0, 2, 0, 2, 0, 2, 0}, file), 2);
    EXPECT_EQ(CountOf({6, 1, 2, 0, 0, 0, 0xFF, 0xFF, 0xFE, 0xFF, 2, 0, 2, 0}, file), 2);
}

TEST(WriteCharacterFile, WithoutAnEnglishName_TheFirstNameIsAlsoTheEnglishOne)
{
    Character pip = Pip();
    pip.names = {{0x0407, "Pips", "Klein", "x"}};

    EXPECT_EQ(ReadBack(pip).names,
              (std::vector<LocalizedName>{{0x0407, "Pips", "Klein", "x"}, {0x0009, "Pips", "Klein", "x"}}));
}

TEST(WriteCharacterFile, ACharacterWithoutName_IsRefused)
{
    Character pip = Pip();
    pip.names.clear();

    EXPECT_EQ(FaultOf(pip), "The character cannot be written: the character has no name or too many.");
}

TEST(WriteCharacterFile, APictureWithMissingPixels_IsRefused)
{
    Character pip = Pip();
    auto pictures = std::make_shared<CPictureList>();
    pictures->Add({{5, 3}, {1, 2, 3}});
    pip.pictures = pictures;

    EXPECT_EQ(FaultOf(pip), "The character cannot be written: a picture has more or fewer pixels than its size says.");
}

TEST(WriteCharacterFile, AFrameWithAnUnknownPicture_IsRefused)
{
    Character pip = Pip();
    pip.animations[0].frames[0].pictures[0].picture = 1;

    EXPECT_EQ(FaultOf(pip), "The character cannot be written: a frame names a picture that does not exist.");
}

TEST(WriteCharacterFile, AnOffsetBeyondItsField_IsRefused)
{
    Character pip = Pip();
    pip.animations[0].frames[0].pictures[0].offset.x = 32768;

    EXPECT_EQ(FaultOf(pip), "The character cannot be written: a picture lies too far from its frame.");
}

TEST(WriteCharacterFile, AnUnknownSound_IsRefused)
{
    Character pip = Pip();
    pip.animations[0].frames[0].sound = 0;

    EXPECT_EQ(FaultOf(pip), "The character cannot be written: a frame names a sound that does not exist.");
}

TEST(WriteCharacterFile, AnExitToNowhere_IsRefused)
{
    Character pip = Pip();
    pip.animations[0].frames[0].exitFrame = 1;

    EXPECT_EQ(FaultOf(pip), "The character cannot be written: an exit leads to a frame that does not exist.");
}

TEST(WriteCharacterFile, ABranchToNowhere_IsRefused)
{
    Character pip = Pip();
    pip.animations[0].frames[0].branches = {{1, 10}};

    EXPECT_EQ(FaultOf(pip), "The character cannot be written: a branch leads to a frame that does not exist.");
}

TEST(WriteCharacterFile, BranchesBeyond100Percent_AreRefused)
{
    Character pip = Pip();
    pip.animations[0].frames[0].branches = {{0, 60}, {0, 41}};

    EXPECT_EQ(FaultOf(pip), "The character cannot be written: the branches of a frame exceed 100 percent.");
}

TEST(WriteCharacterFile, AReturnAnimationThatDoesNotFit_IsRefused)
{
    Character pip = Pip();
    pip.animations[0].returnAnimation = "Show";

    EXPECT_EQ(FaultOf(pip), "The character cannot be written: a return animation does not fit the transition.");
}

TEST(WriteCharacterFile, AnUnknownReturnAnimation_IsRefused)
{
    Character pip = Pip();
    pip.animations[0].transition = Transition::ReturnAnimation;
    pip.animations[0].returnAnimation = "Gone";

    EXPECT_EQ(FaultOf(pip), "The character cannot be written: a return animation does not exist.");
}

TEST(WriteCharacterFile, AStateWithAnUnknownAnimation_IsRefused)
{
    Character pip = Pip();
    pip.states[0].animations.push_back("Gone");

    EXPECT_EQ(FaultOf(pip), "The character cannot be written: a state names an animation that does not exist.");
}

TEST(WriteCharacterFile, TwoAnimationsThatDifferInLetterCaseOnly_AreRefused)
{
    Character pip = Pip();
    pip.animations.push_back({"SHOW", Transition::None, "", {}});

    EXPECT_EQ(FaultOf(pip), "The character cannot be written: two animations have the same name.");
}

TEST(WriteCharacterFile, ATransparentColourOutsideThePalette_IsRefused)
{
    Character pip = Pip();
    pip.transparentIndex = 2;

    EXPECT_EQ(FaultOf(pip), "The character cannot be written: the transparent colour is not in the palette.");
}

TEST(WriteCharacterFile, AFrameSizeOutOfRange_IsRefused)
{
    Character pip = Pip();
    pip.frameSize = {0, 3};

    EXPECT_EQ(FaultOf(pip), "The character cannot be written: the size of its frame is out of range.");
}

TEST(WriteCharacterFile, EachSwitchOfTheBalloon_IsABitOfItsOwn)
{
    const auto bitsOf = [](void (*change)(BalloonLook&)) {
        Character pip = Pip();
        pip.balloon = BalloonLook{};
        pip.balloon->sizeToText = pip.balloon->autoHide = pip.balloon->autoPace = false;
        const Bytes before = WriteCharacterFile(pip);
        change(*pip.balloon);
        const Bytes after = WriteCharacterFile(pip);
        int bits = 0;
        for (std::size_t i = 0; i < before.size(); ++i)
            bits += std::popcount(static_cast<unsigned>(before[i] ^ after.at(i)));
        return bits;
    };
    EXPECT_EQ(bitsOf([](BalloonLook& look) { look.sizeToText = true; }), 1);
    EXPECT_EQ(bitsOf([](BalloonLook& look) { look.autoHide = true; }), 1);
    EXPECT_EQ(bitsOf([](BalloonLook& look) { look.autoPace = true; }), 1);
}
