#include "engine/files/AcsPictures.h"
#include "engine/files/FileParts.h"

using namespace engine;
using namespace files_test;
using platform::engineError::Code;

namespace {

Bytes PipBytes() { return {PipFile.begin(), PipFile.end()}; }

CharacterRef ReadBlock(const BlockParts& block)
{
    FileParts parts;
    parts.block = block.Make();
    return Read(parts.Make());
}

}

TEST(ReadCharacterFile, ASmallFile_GivesItsCharacter)
{
    const CharacterRef pip = Read(PipBytes());

    EXPECT_EQ(pip->id, files_test::Pip().id);
    EXPECT_EQ(pip->names, (std::vector<LocalizedName>{{0x0009, "Pip", "", ""}}));
    EXPECT_EQ(pip->frameSize, (Size{5, 3}));
    EXPECT_EQ(pip->palette, (std::vector<Color>{{255, 0, 255}, {255, 128, 0}}));
    EXPECT_EQ(pip->transparentIndex, 0);
    EXPECT_FALSE(pip->hasStandardSet);
    EXPECT_FALSE(pip->voice.has_value());
    EXPECT_FALSE(pip->balloon.has_value());
    EXPECT_EQ(pip->states, (std::vector<State>{{"SHOWING", {"SHOW"}}}));
    EXPECT_TRUE(pip->sounds.empty());
}

TEST(ReadCharacterFile, ASmallFile_GivesItsAnimationAsItsAuthorSpelledIt)
{
    Frame frame;
    frame.pictures.push_back({0, {0, 0}});
    frame.duration = 10;

    EXPECT_EQ(Read(PipBytes())->animations, (std::vector<Animation>{{"Show", Transition::None, "", {frame}}}));
}

TEST(ReadCharacterFile, ASmallFile_GivesItsPixelsFromTheTopRow)
{
    EXPECT_EQ(*Read(PipBytes())->pictures->Picture(0), PipPicture());
}

TEST(ReadCharacterFile, AFilePutTogetherOfItsParts_IsTheSmallFile)
{
    Bytes made = FileParts().Make();
    const Bytes checksum = PipPart(0xC3, 4);
    std::copy(checksum.begin(), checksum.end(), made.begin() + 0xC3);

    EXPECT_EQ(made, PipBytes());
}

TEST(ReadCharacterFile, NoBytes_AreNoCharacterFile)
{
    EXPECT_EQ(RefusalOf({}), Code(0x80042204));
    EXPECT_EQ(RefusalOf({0xC3, 0xAB, 0xCD}), Code(0x80042204));
}

TEST(ReadCharacterFile, NullBytes_AreNoCharacterFile) { EXPECT_THROW(ReadCharacterFile(nullptr), platform::CFailure); }

TEST(ReadCharacterFile, AnotherFormat_IsNoCharacterFile)
{
    EXPECT_EQ(RefusalOf({'R', 'I', 'F', 'F', 1, 2, 3, 4}), Code(0x80042204));
}

TEST(ReadCharacterFile, ACompoundFileOfVersion1_IsTooOld)
{
    EXPECT_EQ(RefusalOf({0xD0, 0xCF, 0x11, 0xE0, 0xA1, 0xB1, 0x1A, 0xE1}), Code(0x80042202));
}

TEST(ReadCharacterFile, ACharacterInManyFiles_IsRefusedWithItsOwnText)
{
    try {
        Read({0xC4, 0xAB, 0xCD, 0xAB, 0, 0});
        FAIL();
    } catch (const platform::CFailure& failure) {
        EXPECT_EQ(failure.Number(), Code(0x80042204));
        EXPECT_EQ(failure.Description(),
                  "This is a character in many files for the web. Only characters in one file can be used.");
    }
}

TEST(ReadCharacterFile, AnOlderMajorVersion_IsTooOld) { EXPECT_EQ(RefusalOf(PipWith(0xCD, {1, 0})), Code(0x80042202)); }

TEST(ReadCharacterFile, ANewerMajorVersion_IsTooNew) { EXPECT_EQ(RefusalOf(PipWith(0xCD, {3, 0})), Code(0x80042203)); }

TEST(ReadCharacterFile, AnotherMinorVersion_IsRead) { EXPECT_EQ(RefusalOf(PipWith(0xCB, {7, 0})), 0); }

TEST(ReadCharacterFile, ATrayIcon_IsSkipped)
{
    BlockParts block;
    block.trayIcon = {1, 3, 0, 0, 0, 9, 9, 9, 2, 0, 0, 0, 8, 8};

    EXPECT_EQ(ReadBlock(block)->states, (std::vector<State>{{"SHOWING", {"SHOW"}}}));
}

TEST(ReadCharacterFile, AVoiceWithoutExtraData_KeepsTheUsualLanguage)
{
    BlockParts block;
    block.flags = 0x120;
    block.voiceAndBalloon = Made([](Writer& w) {
        w.Bytes(Bytes(16, 1));
        w.Bytes(Bytes(16, 2));
        w.U32(150);
        w.U16(0xFFFF);
        w.U8(0);
    });
    VoiceHints expected;
    expected.engineId.fill(1);
    expected.modeId.fill(2);
    expected.wordsPerMinute = 150;

    EXPECT_EQ(ReadBlock(block)->voice, expected);
}

TEST(ReadCharacterFile, ABalloon_HasItsColoursWithRedFirst)
{
    BlockParts block;
    block.flags = 0x70210;
    block.voiceAndBalloon = Made([](Writer& w) {
        w.Bytes(Bytes{4, 35, 1, 2, 3, 0, 4, 5, 6, 0, 7, 8, 9, 0});
        w.String("Arial");
        w.I32(-13);
        w.U32(0xABCD02BC);  // Only the low half counts: 700.
        w.U8(1);
        w.U8(0);
    });

    EXPECT_EQ(ReadBlock(block)->balloon,
              (BalloonLook{4, 35, {1, 2, 3}, {4, 5, 6}, {7, 8, 9}, "Arial", -13, true, true, true, false, false}));
}

TEST(ReadCharacterFile, BothFlagsOfTheBalloon_MeanABalloon)
{
    BlockParts block;
    block.flags = 0x310;
    block.voiceAndBalloon = Bytes(14 + 4 + 4 + 4 + 2);

    EXPECT_TRUE(ReadBlock(block)->balloon.has_value());
}

TEST(ReadCharacterFile, AnEntryOfAStateWithoutAnimation_IsLeftOut)
{
    BlockParts block;
    block.states = Made([](Writer& w) {
        w.U16(1);
        w.String("SHOWING");
        w.U16(2);
        w.String("GONE");
        w.String("show");
    });

    EXPECT_EQ(ReadBlock(block)->states, (std::vector<State>{{"SHOWING", {"show"}}}));
}

TEST(ReadCharacterFile, APaletteBeyond256Colours_KeepsTheFirst256)
{
    BlockParts block;
    block.palette = Made([](Writer& w) {
        w.U32(300);
        w.Bytes(Bytes(1200, 7));
    });

    EXPECT_EQ(ReadBlock(block)->palette, std::vector<Color>(256, Color{7, 7, 7}));
}

TEST(ReadCharacterFile, UnsortedRecords_AreFoundByTheirPlaces)
{
    FileParts parts;
    parts.pictures = {PictureParts().Make(), {0}};
    parts.sounds = {{'A'}, {'B', 'B'}};
    parts.changePicturePlaces = [](auto& places) { std::swap(places[0], places[1]); };
    parts.changeSoundPlaces = [](auto& places) { std::swap(places[0], places[1]); };

    const CharacterRef character = Read(parts.Make());

    EXPECT_EQ(character->pictures->Picture(0), nullptr);
    EXPECT_EQ(*character->pictures->Picture(1), PipPicture());
    EXPECT_EQ(*character->sounds[0], (Bytes{'B', 'B'}));
    EXPECT_EQ(*character->sounds[1], (Bytes{'A'}));
}

TEST(ReadCharacterFile, EntriesOfTheSamePlace_GiveTheSameRecord)
{
    FileParts parts;
    parts.animations = {AnimationParts().Make(), AnimationParts().Make()};
    parts.sounds = {{'A', 'B'}, {'C'}};
    parts.changeAnimationPlaces = [](auto& places) { places[1] = places[0]; };
    parts.changeSoundPlaces = [](auto& places) { places[1] = places[0]; };

    const CharacterRef character = Read(parts.Make());

    EXPECT_EQ(character->animations[0], character->animations[1]);
    EXPECT_EQ(character->sounds[0], character->sounds[1]);
}

TEST(ReadCharacterFile, APictureStoredPlain_IsRead)
{
    FileParts parts;
    PictureParts picture;
    picture.width = 2;
    picture.height = 2;
    picture.isPacked = false;
    picture.pixels = {3, 4, 99, 99, 1, 2, 99, 99};
    picture.packedRegionSize = 0;
    picture.plainRegionSize = 32;
    picture.region = Bytes(32);
    parts.pictures = {picture.Make()};

    EXPECT_EQ(*Read(parts.Make())->pictures->Picture(0), (IndexedPicture{{2, 2}, {1, 2, 3, 4}}));
}

TEST(ReadCharacterFile, AnEmptyPicture_IsNone)
{
    FileParts parts;
    parts.pictures = {{0}};

    const CharacterRef character = Read(parts.Make());

    EXPECT_EQ(character->pictures->Count(), 1U);
    EXPECT_EQ(character->pictures->Picture(0), nullptr);
}

TEST(ReadCharacterFile, AMouthWithRegionData_IsRead)
{
    FrameParts frame;
    frame.mouths = Made([](Writer& w) {
        w.U8(2);
        w.Bytes(Bytes{6, 1, 0, 0, 0, 1, 0xFF, 0xFF, 2, 0, 0, 0, 0, 0});
        w.Blob(Bytes{1, 2, 3});
        w.Bytes(Bytes{0, 0, 0, 0, 0, 0, 4, 0, 5, 0, 9, 9, 9, 9});
    });
    AnimationParts animation;
    animation.frames = {frame};
    FileParts parts;
    parts.animations = {animation.Make()};

    EXPECT_EQ(Read(parts.Make())->animations[0].frames[0].mouths,
              (std::vector<MouthOverlay>{{Mouth::Narrow, true, {0, {-1, 2}}}, {Mouth::Closed, false, {0, {4, 5}}}}));
}

TEST(ReadCharacterFile, AnAnimationWithoutFrames_IsRead)
{
    AnimationParts animation;
    animation.frames = {};
    FileParts parts;
    parts.animations = {animation.Make()};

    EXPECT_TRUE(Read(parts.Make())->animations[0].frames.empty());
}

TEST(ReadCharacterFile, AnAnimationWithoutNameInTheList_HasTheNameOfItsRecord)
{
    FileParts parts;
    parts.animationName = "";

    EXPECT_EQ(Read(parts.Make())->animations[0].name, "SHOW");
}

TEST(Picture, AskedForTwice_IsKept)
{
    const CharacterRef pip = Read(PipBytes());

    EXPECT_EQ(pip->pictures->Picture(0), pip->pictures->Picture(0));
}

TEST(Picture, AnUnknownIndex_IsNone)
{
    EXPECT_EQ(Read(PipBytes())->pictures->Picture(1), nullptr);
    EXPECT_EQ(Read(PipBytes())->pictures->Picture(0xFFFFFFFF), nullptr);
}

TEST(Picture, MorePixelsThanTheCacheHolds_DropsTheOneNotUsedForLongest)
{
    const auto file = std::make_shared<const Bytes>(Bytes{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12});
    std::vector<files::StoredPicture> stored;
    for (std::size_t i = 0; i < 3; ++i)
        stored.push_back({{4, 1}, false, std::span(*file).subspan(4 * i, 4)});
    const files::CAcsPictures pictures(file, stored, /*cacheBytes*/ 8);

    const std::weak_ptr<const IndexedPicture> first = pictures.Picture(0);
    const std::weak_ptr<const IndexedPicture> second = pictures.Picture(1);
    pictures.Picture(0);
    pictures.Picture(2);

    EXPECT_FALSE(first.expired());
    EXPECT_TRUE(second.expired());
    EXPECT_EQ(pictures.Picture(1)->pixels, (Bytes{5, 6, 7, 8}));
}

TEST(Picture, APictureLargerThanTheCache_IsStillGiven)
{
    const auto file = std::make_shared<const Bytes>(Bytes{1, 2, 3, 4});
    const files::CAcsPictures pictures(file, {{{4, 1}, false, *file}}, /*cacheBytes*/ 1);

    EXPECT_EQ(pictures.Picture(0)->pixels, (Bytes{1, 2, 3, 4}));
}
