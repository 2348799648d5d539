#include "engine/files/FileParts.h"

using namespace engine;
using namespace files_test;

// Files that were made to do harm.
namespace {

constexpr std::int32_t Damaged = platform::engineError::Code(0x8007000D);

Bytes WithAnimation(const AnimationParts& animation)
{
    FileParts parts;
    parts.animations = {animation.Make()};
    return parts.Make();
}

Bytes WithFrame(const FrameParts& frame)
{
    AnimationParts animation;
    animation.frames = {frame};
    return WithAnimation(animation);
}

Bytes WithPicture(const PictureParts& picture)
{
    FileParts parts;
    parts.pictures = {picture.Make()};
    return parts.Make();
}

Bytes WithBlock(const BlockParts& block)
{
    FileParts parts;
    parts.block = block.Make();
    return parts.Make();
}

Frame FirstFrame(const Bytes& file) { return Read(file)->animations[0].frames[0]; }

// The animation's name is the first text of the animation list, behind its count.
Bytes WithTextLength(Bytes length) { return PipWith(0xA1, length); }

}

TEST(HostileFile, AHeaderCutOff_IsRefused)
{
    for (std::size_t size = 4; size < 36; ++size)
        EXPECT_EQ(RefusalOf(PipPart(0, size)), Damaged) << size;
}

TEST(HostileFile, AFileCutOffAnywhere_IsRefused)
{
    for (std::size_t size = 36; size < PipFile.size(); ++size)
        EXPECT_EQ(RefusalOf(PipPart(0, size)), Damaged) << size;
}

TEST(HostileFile, ABlockOutsideTheFile_IsRefused)
{
    for (const std::size_t locator : {4U, 12U, 20U, 28U}) {
        EXPECT_EQ(RefusalOf(PipWith(locator, {0x40, 1, 0, 0, 1, 0, 0, 0})), Damaged) << locator;
        EXPECT_EQ(RefusalOf(PipWith(locator + 4, {0xFF, 0xFF, 0xFF, 0xFF})), Damaged) << locator;
    }
}

TEST(HostileFile, APlaceWhoseEndWrapsAround_IsRefused)
{
    for (const std::size_t locator : {4U, 12U, 20U, 28U})
        EXPECT_EQ(RefusalOf(PipWith(locator, {0xF0, 0xFF, 0xFF, 0xFF, 0x20, 0, 0, 0})), Damaged) << locator;
}

TEST(HostileFile, ARecordOutsideTheFile_IsRefused)
{
    const auto outside = [](auto& places) { places[0].offset = 0xFFFFFFF0; };
    FileParts animation, picture, sound, names;
    sound.sounds = {{1, 2, 3}};
    animation.changeAnimationPlaces = outside;
    picture.changePicturePlaces = outside;
    sound.changeSoundPlaces = outside;
    names.changeNamesPlace = [](auto& place) { place.offset = 0xFFFFFFF0; };

    EXPECT_EQ(RefusalOf(animation.Make()), Damaged);
    EXPECT_EQ(RefusalOf(picture.Make()), Damaged);
    EXPECT_EQ(RefusalOf(sound.Make()), Damaged);
    EXPECT_EQ(RefusalOf(names.Make()), Damaged);
}

TEST(HostileFile, ARecordThatEndsTooEarly_IsRefusedThoughTheFileGoesOn)
{
    const auto shorten = [](auto& places) { --places[0].size; };
    FileParts animation, picture, names;
    animation.changeAnimationPlaces = shorten;
    picture.changePicturePlaces = shorten;
    names.changeNamesPlace = [](auto& place) { --place.size; };

    EXPECT_EQ(RefusalOf(animation.Make()), Damaged);
    EXPECT_EQ(RefusalOf(picture.Make()), Damaged);
    EXPECT_EQ(RefusalOf(names.Make()), Damaged);
}

TEST(HostileFile, SlackBehindARecord_IsRead)
{
    FileParts parts;
    for (Bytes* record : {&parts.animations[0], &parts.pictures[0], &parts.names})
        record->insert(record->end(), 5, 0xEE);

    EXPECT_EQ(RefusalOf(parts.Make()), 0);
}

TEST(HostileFile, BlocksThatOverlap_AreReadOrRefused)
{
    // Pictures and sounds share an empty list; then every list is the header itself.
    EXPECT_EQ(RefusalOf(PipWith(20, {0xC7, 0, 0, 0, 4, 0, 0, 0})), 0);
    for (const std::size_t locator : {4U, 12U, 20U, 28U})
        EXPECT_NE(RefusalOf(PipWith(locator, {0, 0, 0, 0, 0x24, 0, 0, 0})), 0) << locator;
}

TEST(HostileFile, ManyEntriesOfOneLargeAnimation_AreRefused)
{
    AnimationParts large;
    large.frames.resize(1000);
    FileParts parts;
    parts.animations.assign(1000, {});
    parts.animations[0] = large.Make();
    parts.changeAnimationPlaces = [](auto& places) { places.assign(places.size(), places[0]); };

    EXPECT_EQ(RefusalOf(parts.Make()), Damaged);
}

TEST(HostileFile, ManyEntriesOfOneSound_ShareIt)
{
    FileParts parts;
    parts.sounds.assign(4096, {});
    parts.sounds[0] = Bytes(100000, 1);
    parts.changeSoundPlaces = [](auto& places) { places.assign(places.size(), places[0]); };

    const CharacterRef character = Read(parts.Make());

    EXPECT_EQ(character->sounds.size(), 4096U);
    EXPECT_EQ(character->sounds.front(), character->sounds.back());
}

TEST(HostileFile, ManySoundsThatOverlap_AreRefused)
{
    FileParts parts;
    parts.sounds.assign(100, {});
    parts.sounds[0] = Bytes(100000, 1);
    parts.changeSoundPlaces = [](auto& places) {
        for (std::uint32_t i = 0; i < places.size(); ++i)
            places[i] = {places[0].offset, 100000 - i};
    };

    EXPECT_EQ(RefusalOf(parts.Make()), Damaged);
}

TEST(HostileFile, ASoundBeyondTheLimit_IsRefused)
{
    FileParts parts;
    parts.sounds = {Bytes((16U << 20) + 1)};

    EXPECT_EQ(RefusalOf(parts.Make()), Damaged);
}

TEST(HostileFile, AFileBeyondTheLimit_IsRefused)
{
    Bytes file = FileParts().Make();
    file.resize((64U << 20) + 1);

    EXPECT_EQ(RefusalOf(std::move(file)), Damaged);
}

TEST(HostileFile, AListCountBeyondItsBlock_IsRefused)
{
    for (const std::size_t count : {0x9DU, 0xB7U, 0xC7U, 0xF4U}) {  // Animations, pictures, sounds, colours.
        EXPECT_EQ(RefusalOf(PipWith(count, {0xFF, 0xFF, 0xFF, 0xFF})), Damaged) << count;
        EXPECT_EQ(RefusalOf(PipWith(count, {0, 0, 0, 0x40})), Damaged) << count;
        EXPECT_EQ(RefusalOf(PipWith(count, {0x40, 0, 0, 0})), Damaged) << count;
    }
}

TEST(HostileFile, ACountOfStatesBeyondTheBlock_IsRefused) { EXPECT_EQ(RefusalOf(PipWith(0x101, {0xFF, 0xFF})), Damaged); }

TEST(HostileFile, ACountOfAnimationsOfAStateBeyondTheBlock_IsRefused)
{
    EXPECT_EQ(RefusalOf(PipWith(0x117, {0xFF, 0xFF})), Damaged);
}

TEST(HostileFile, ACountOfNamesBeyondTheBlock_IsRefused) { EXPECT_EQ(RefusalOf(PipWith(0x127, {0xFF, 0xFF})), Damaged); }

TEST(HostileFile, NoNameAtAll_IsRefused) { EXPECT_EQ(RefusalOf(PipWith(0x127, {0, 0})), Damaged); }

TEST(HostileFile, ACountOfFramesBeyondTheRecord_IsRefused)
{
    Bytes record = AnimationParts().Make();
    record[19] = 0xFF;  // Behind the name, the transition and the empty return animation.
    FileParts parts;
    parts.animations = {record};

    EXPECT_EQ(RefusalOf(parts.Make()), Damaged);
}

TEST(HostileFile, MoreFramesThanTheLimit_AreRefused)
{
    AnimationParts animation;
    animation.frames.resize(16385);

    EXPECT_EQ(RefusalOf(WithAnimation(animation)), Damaged);
}

TEST(HostileFile, CountsInsideAFrameBeyondTheRecord_AreRefused)
{
    FrameParts pictures, branches, mouths;
    pictures.pictures = {200, 0};
    branches.branches = {255};
    mouths.mouths = {255};

    EXPECT_EQ(RefusalOf(WithFrame(pictures)), Damaged);
    EXPECT_EQ(RefusalOf(WithFrame(branches)), Damaged);
    EXPECT_EQ(RefusalOf(WithFrame(mouths)), Damaged);
}

TEST(HostileFile, MorePicturesInAFrameThanTheLimit_AreRefused)
{
    FrameParts frame;
    frame.pictures = Bytes(2 + 257 * 8);
    frame.pictures[0] = 1;
    frame.pictures[1] = 1;

    EXPECT_EQ(RefusalOf(WithFrame(frame)), Damaged);
}

TEST(HostileFile, ATextLongerThanItsRecord_IsRefused)
{
    EXPECT_EQ(RefusalOf(WithTextLength({0xFF, 0xFF, 0xFF, 0xFF})), Damaged);
    EXPECT_EQ(RefusalOf(WithTextLength({0x00, 0x00, 0x00, 0x80})), Damaged);  // Twice that is 0 in 32 bits.
    EXPECT_EQ(RefusalOf(WithTextLength({0xFF, 0xFF, 0xFF, 0x7F})), Damaged);
    EXPECT_EQ(RefusalOf(WithTextLength({0x0A, 0x00, 0x00, 0x00})), Damaged);
}

TEST(HostileFile, ATextBeyondTheLimit_IsRefused)
{
    FileParts parts;
    parts.animationName = std::string(65537, 'x');

    EXPECT_EQ(RefusalOf(parts.Make()), Damaged);
}

TEST(HostileFile, ATextOfTheLargestLength_IsRead)
{
    FileParts parts;
    parts.animationName = std::string(65536, 'x');

    EXPECT_EQ(Read(parts.Make())->animations[0].name.size(), 65536U);
}

TEST(HostileFile, ATextWithoutItsEnd_IsRefused) { EXPECT_EQ(RefusalOf(PipWith(0xAD, {'!'})), Damaged); }

TEST(HostileFile, HalvesOfPairsInAText_BecomeReplacements)
{
    EXPECT_EQ(Read(PipWith(0xA5, {0x00, 0xD8}))->animations[0].name, "\xEF\xBF\xBDhow");
}

TEST(HostileFile, APictureBeyondTheLargestSide_IsRefused)
{
    PictureParts wide, high;
    wide.width = 65535;
    high.height = 4097;

    EXPECT_EQ(RefusalOf(WithPicture(wide)), Damaged);
    EXPECT_EQ(RefusalOf(WithPicture(high)), Damaged);
}

TEST(HostileFile, APictureThatItsBytesCannotFill_IsNone)
{
    PictureParts picture;
    picture.width = 4096;
    picture.height = 4096;

    EXPECT_EQ(Read(WithPicture(picture))->pictures->Picture(0), nullptr);
}

TEST(HostileFile, APictureWithoutWidthOrHeight_IsNone)
{
    PictureParts picture;
    picture.width = 0;

    EXPECT_EQ(Read(WithPicture(picture))->pictures->Picture(0), nullptr);
}

TEST(HostileFile, AsManyPicturesAsTheLimit_AreReadAndOneMoreIsNot)
{
    const auto refusalOf = [](std::size_t count) {
        FileParts parts;
        parts.changePicturePlaces = [&](auto& places) { places.assign(count, places[0]); };
        return RefusalOf(parts.Make());
    };
    EXPECT_EQ(refusalOf(65535), 0);
    EXPECT_EQ(refusalOf(65536), Damaged);
}

TEST(HostileFile, PicturesWithTooManyPixelsTogether_AreRefused)
{
    PictureParts picture;
    picture.width = 4096;
    picture.height = 4096;
    FileParts parts;
    parts.pictures.assign(33, picture.Make());

    EXPECT_EQ(RefusalOf(parts.Make()), Damaged);
}

TEST(HostileFile, DamagedPixels_LeaveTheOtherPictures)
{
    PictureParts damaged;
    damaged.pixels[0] = 1;
    FileParts parts;
    parts.pictures = {damaged.Make(), PictureParts().Make()};

    const CharacterRef character = Read(parts.Make());

    EXPECT_EQ(character->pictures->Picture(0), nullptr);
    EXPECT_EQ(character->pictures->Picture(0), nullptr);
    EXPECT_EQ(*character->pictures->Picture(1), PipPicture());
}

TEST(HostileFile, PixelsBeyondTheRecord_AreRefused)
{
    EXPECT_EQ(RefusalOf(PipWith(0x51, {0xFF, 0xFF, 0xFF, 0xFF})), Damaged);
}

TEST(HostileFile, PlainPixelsOfTheWrongLength_AreRefused)
{
    PictureParts picture;
    picture.isPacked = false;
    picture.pixels = Bytes(23);

    EXPECT_EQ(RefusalOf(WithPicture(picture)), Damaged);
}

TEST(HostileFile, ARegionBeyondTheRecord_IsRefused)
{
    PictureParts packed, plain;
    packed.packedRegionSize = 0xFFFFFFFF;
    plain.packedRegionSize = 0;
    plain.plainRegionSize = 0xFFFFFFFF;

    EXPECT_EQ(RefusalOf(WithPicture(packed)), Damaged);
    EXPECT_EQ(RefusalOf(WithPicture(plain)), Damaged);
}

TEST(HostileFile, ARegionThatWouldUnpackToGigabytes_IsSkipped)
{
    PictureParts picture;
    picture.plainRegionSize = 0xFFFFFFFF;

    EXPECT_EQ(*Read(WithPicture(picture))->pictures->Picture(0), PipPicture());
}

TEST(HostileFile, PicturesThatDoNotExist_AreLeftOutOfTheirFrame)
{
    FrameParts frame;
    frame.pictures = Made([](Writer& w) {
        w.U16(3);
        for (const std::uint32_t picture : {1U, 0U, 0xFFFFFFFFU}) {
            w.U32(picture);
            w.U32(0);
        }
    });

    EXPECT_EQ(FirstFrame(WithFrame(frame)).pictures, (std::vector<PlacedPicture>{{0, {0, 0}}}));
}

TEST(HostileFile, MouthsWithoutPictureOrOfUnknownKind_AreLeftOut)
{
    FrameParts frame;
    frame.mouths = Bytes(1 + 3 * 14);
    frame.mouths[0] = 3;
    frame.mouths[1] = 7;       // No such mouth.
    frame.mouths[1 + 16] = 9;  // No such picture.
    frame.mouths[1 + 28] = 5;

    EXPECT_EQ(FirstFrame(WithFrame(frame)).mouths, (std::vector<MouthOverlay>{{Mouth::Medium, false, {0, {0, 0}}}}));
}

TEST(HostileFile, ASoundThatDoesNotExist_IsNone)
{
    FrameParts frame;
    frame.sound = 0;

    EXPECT_EQ(FirstFrame(WithFrame(frame)).sound, std::nullopt);
}

TEST(HostileFile, AnExitOutsideTheAnimation_IsNone)
{
    FrameParts outside, negative;
    outside.exit = 1;
    negative.exit = -2;

    EXPECT_EQ(FirstFrame(WithFrame(outside)).exitFrame, std::nullopt);
    EXPECT_EQ(FirstFrame(WithFrame(negative)).exitFrame, std::nullopt);
}

TEST(HostileFile, ABranchOutsideTheAnimation_IsLeftOut)
{
    FrameParts frame;
    frame.branches = {2, 1, 0, 40, 0, 0, 0, 50, 0};

    EXPECT_EQ(FirstFrame(WithFrame(frame)).branches, (std::vector<Branch>{{0, 50}}));
}

TEST(HostileFile, BranchesBeyond100Percent_StopThere)
{
    FrameParts frame;
    frame.branches = {3, 0, 0, 70, 0, 0, 0, 0xFF, 0xFF, 0, 0, 5, 0};

    EXPECT_EQ(FirstFrame(WithFrame(frame)).branches, (std::vector<Branch>{{0, 70}, {0, 30}}));
}

TEST(HostileFile, ABranchWithoutChance_IsLeftOut)
{
    FrameParts frame;
    frame.branches = {1, 0, 0, 0, 0};

    EXPECT_TRUE(FirstFrame(WithFrame(frame)).branches.empty());
}

TEST(HostileFile, AnUnknownTransition_IsNone)
{
    AnimationParts animation;
    animation.transition = 200;

    EXPECT_EQ(Read(WithAnimation(animation))->animations[0].transition, Transition::None);
}

TEST(HostileFile, AReturnAnimationThatDoesNotExist_IsNone)
{
    AnimationParts animation;
    animation.transition = 0;
    animation.returnAnimation = "GONE";

    const Animation read = Read(WithAnimation(animation))->animations[0];

    EXPECT_EQ(read.transition, Transition::None);
    EXPECT_EQ(read.returnAnimation, "");
}

TEST(HostileFile, AReturnAnimationThatReturnsToItself_IsKept)
{
    AnimationParts animation;
    animation.transition = 0;
    animation.returnAnimation = "SHOW";

    EXPECT_EQ(Read(WithAnimation(animation))->animations[0].returnAnimation, "SHOW");
}

TEST(HostileFile, ATransparentIndexBeyondThePalette_IsKept)
{
    BlockParts block;
    block.transparentIndex = 255;

    EXPECT_EQ(Read(WithBlock(block))->transparentIndex, 255);
}

TEST(HostileFile, PixelsBeyondThePalette_AreKept)
{
    PictureParts picture;
    picture.width = 4;
    picture.height = 1;
    picture.isPacked = false;
    picture.pixels = {2, 99, 255, 0};

    EXPECT_EQ(Read(WithPicture(picture))->pictures->Picture(0)->pixels, (Bytes{2, 99, 255, 0}));
}

TEST(HostileFile, AnAbsurdFrameSize_IsRefused)
{
    BlockParts noWidth, noHeight, large;
    noWidth.width = 0;
    noHeight.height = 0;
    large.width = 4097;

    EXPECT_EQ(RefusalOf(WithBlock(noWidth)), Damaged);
    EXPECT_EQ(RefusalOf(WithBlock(noHeight)), Damaged);
    EXPECT_EQ(RefusalOf(WithBlock(large)), Damaged);
}

TEST(HostileFile, AnAbsurdFontHeight_IsBounded)
{
    BlockParts block;
    block.flags = 0x210;
    block.voiceAndBalloon = Bytes(14 + 4 + 4 + 4 + 2);
    block.voiceAndBalloon[21] = 0x80;  // The smallest number of 32 bits.

    EXPECT_EQ(Read(WithBlock(block))->balloon->fontHeight, -4096);
}

TEST(HostileFile, ATrayIconBeyondTheBlock_IsRefused)
{
    BlockParts block;
    block.trayIcon = {1, 0xFF, 0xFF, 0xFF, 0xFF};

    EXPECT_EQ(RefusalOf(WithBlock(block)), Damaged);
}

// What is just allowed is read.
TEST(HostileFile, AsManyFramesAsTheLimit_AreRead)
{
    AnimationParts animation;
    animation.frames.resize(16384);

    EXPECT_EQ(Read(WithAnimation(animation))->animations[0].frames.size(), 16384U);
}

TEST(HostileFile, AsManyFramesOfAllAnimationsAsTheLimit_AreReadAndOneMoreIsNot)
{
    AnimationParts large;
    large.frames.resize(16384);
    FileParts parts;
    parts.animations.assign(16, large.Make());
    EXPECT_EQ(RefusalOf(parts.Make()), 0);

    parts.animations.push_back(AnimationParts().Make());
    EXPECT_EQ(RefusalOf(parts.Make()), Damaged);
}

TEST(HostileFile, AsManyPicturesInAFrameAsTheLimit_AreRead)
{
    FrameParts frame;
    frame.pictures = Bytes(2 + 256 * 8);
    frame.pictures[1] = 1;

    EXPECT_EQ(FirstFrame(WithFrame(frame)).pictures.size(), 256U);
}

TEST(HostileFile, ASoundOfTheLargestSize_IsRead)
{
    FileParts parts;
    parts.sounds = {Bytes(16U << 20)};

    EXPECT_EQ(RefusalOf(parts.Make()), 0);
}

TEST(HostileFile, AFileOfTheLargestSize_IsRead)
{
    Bytes file = FileParts().Make();
    file.resize(64U << 20);

    EXPECT_EQ(RefusalOf(std::move(file)), 0);
}

TEST(HostileFile, AsManyPixelsTogetherAsTheLimit_AreRead)
{
    PictureParts picture;
    picture.width = 4096;
    picture.height = 4096;
    FileParts parts;
    parts.pictures.assign(32, picture.Make());

    EXPECT_EQ(RefusalOf(parts.Make()), 0);
}

TEST(HostileFile, ThePixelsOfAllPictures_AreCountedWithTheirPadding)
{
    PictureParts large, small;
    large.width = large.height = 4096;
    small.width = small.height = 1;
    small.pixels = {0};
    FileParts parts;
    parts.pictures.assign(32, large.Make());
    parts.pictures.push_back(small.Make());

    EXPECT_EQ(RefusalOf(parts.Make()), Damaged);
}

TEST(HostileFile, TheSmallestAndTheLargestFrameSize_AreRead)
{
    BlockParts smallest, largest;
    smallest.width = smallest.height = 1;
    largest.width = largest.height = 4096;

    EXPECT_EQ(Read(WithBlock(smallest))->frameSize, (Size{1, 1}));
    EXPECT_EQ(Read(WithBlock(largest))->frameSize, (Size{4096, 4096}));
}

TEST(HostileFile, AFrameThatIsTooHigh_IsRefused)
{
    BlockParts block;
    block.height = 4097;

    EXPECT_EQ(RefusalOf(WithBlock(block)), Damaged);
}

TEST(HostileFile, APictureWithoutHeight_IsNone)
{
    PictureParts picture;
    picture.height = 0;

    EXPECT_EQ(Read(WithPicture(picture))->pictures->Picture(0), nullptr);
}

TEST(HostileFile, TheFirstPictureThatDoesNotExist_IsNoMouth)
{
    FrameParts frame;
    frame.mouths = Bytes(1 + 2 * 14);
    frame.mouths[0] = 2;
    frame.mouths[1] = 6;       // The last mouth there is.
    frame.mouths[1 + 16] = 1;  // The picture behind the last one.

    EXPECT_EQ(FirstFrame(WithFrame(frame)).mouths.size(), 1U);
}

TEST(HostileFile, AnExitToTheLastFrame_IsKept)
{
    AnimationParts animation;
    animation.frames.resize(2);
    animation.frames[0].exit = 1;

    EXPECT_EQ(Read(WithAnimation(animation))->animations[0].frames[0].exitFrame, 1);
}

TEST(HostileFile, AnExitToTheFirstFrame_IsKept)
{
    FrameParts frame;
    frame.exit = 0;

    EXPECT_EQ(FirstFrame(WithFrame(frame)).exitFrame, 0);
}

TEST(HostileFile, TheSoundBehindTheLastOne_IsNone)
{
    FrameParts last, behind;
    last.sound = 0;
    behind.sound = 1;
    AnimationParts animation;
    animation.frames = {last, behind};
    FileParts parts;
    parts.animations = {animation.Make()};
    parts.sounds = {{1, 2, 3}};

    const CharacterRef character = Read(parts.Make());

    EXPECT_EQ(character->animations[0].frames[0].sound, 0);
    EXPECT_EQ(character->animations[0].frames[1].sound, std::nullopt);
}

TEST(HostileFile, ABranchOfOnePercentBehindOneOf99_IsKept)
{
    FrameParts frame;
    frame.branches = {3, 0, 0, 99, 0, 0, 0, 1, 0, 0, 0, 1, 0};

    EXPECT_EQ(FirstFrame(WithFrame(frame)).branches, (std::vector<Branch>{{0, 99}, {0, 1}}));
}

TEST(HostileFile, AnAbsurdFontHeightAboveZero_IsBoundedToo)
{
    BlockParts block;
    block.flags = 0x210;
    block.voiceAndBalloon = Bytes(14 + 4 + 4 + 4 + 2);
    block.voiceAndBalloon[21] = 0x7F;

    EXPECT_EQ(Read(WithBlock(block))->balloon->fontHeight, 4096);
}

TEST(HostileFile, TheWeightOfTheFont_IsBoldFromHalfWayOn)
{
    BlockParts block;
    block.flags = 0x210;
    block.voiceAndBalloon = Bytes(14 + 4 + 4 + 4 + 2);
    block.voiceAndBalloon[22] = 549 % 256;
    block.voiceAndBalloon[23] = 549 / 256;
    EXPECT_FALSE(Read(WithBlock(block))->balloon->bold);

    block.voiceAndBalloon[22] = 550 % 256;
    EXPECT_TRUE(Read(WithBlock(block))->balloon->bold);
}

TEST(HostileFile, ATrayIcon_EndsWhereItsTwoPicturesEnd)
{
    BlockParts block;
    block.trayIcon = {1, 2, 0, 0, 0, 7, 7, 3, 0, 0, 0, 8, 8, 8};

    EXPECT_EQ(Read(WithBlock(block))->states.size(), 1U);
}
