#include "engine/files/AcsWriter.h"
#include "engine/files/FileParts.h"
#include "engine/files/Rich.h"
#include <random>

using namespace engine;
using namespace files_test;

namespace {

// Overwrites up to four places with single bytes or with numbers that like to go wrong; sometimes cuts the end off.
Bytes Mutated(Bytes file, std::mt19937& random)
{
    static constexpr std::uint32_t Numbers[] = {0, 1, 0x7FFF, 0x8000, 0xFFFF, 0x10000, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF};
    for (auto count = random() % 4 + 1; count-- > 0;) {
        const std::size_t at = random() % file.size();
        const std::uint32_t number = random() % 2 ? static_cast<std::uint32_t>(random()) : Numbers[random() % 9];
        const std::size_t size = std::min<std::size_t>(random() % 2 ? 1 : 4, file.size() - at);
        for (std::size_t i = 0; i < size; ++i)
            file[at + i] = static_cast<std::uint8_t>(number >> (8 * i));
    }
    if (random() % 16 == 0)
        file.resize(random() % file.size());
    return file;
}

bool AllPartsExist(const Character& character)
{
    bool allExist = true;
    for (const Animation& animation : character.animations) {
        for (const Frame& frame : animation.frames) {
            for (const PlacedPicture& placed : frame.pictures)
                allExist = allExist && placed.picture < character.pictures->Count();
            for (const Branch& branch : frame.branches)
                allExist = allExist && branch.target < animation.frames.size();
            allExist = allExist && (!frame.exitFrame || *frame.exitFrame < animation.frames.size());
            allExist = allExist && (!frame.sound || *frame.sound < character.sounds.size());
        }
    }
    return allExist;
}

bool AllPicturesFit(const Character& character)
{
    bool allFit = true;
    for (std::uint32_t i = 0; i < character.pictures->Count(); ++i) {
        if (const PictureRef picture = character.pictures->Picture(i))
            allFit =
                allFit && picture->pixels.size() == static_cast<std::size_t>(picture->size.width * picture->size.height);
    }
    return allFit;
}

// True when it was read; what was read holds together.
bool IsRead(Bytes file)
{
    try {
        const CharacterRef character = Read(std::move(file));
        EXPECT_TRUE(AllPartsExist(*character));
        EXPECT_TRUE(AllPicturesFit(*character));
        EXPECT_FALSE(character->names.empty());
        return true;
    } catch (const platform::CFailure& failure) {
        EXPECT_LT(failure.Number(), 0);
        return false;
    }
}

}

TEST(ReadCharacterFile, TwentyThousandDamagedFiles_AreReadOrRefused)
{
    const Bytes file = WriteCharacterFile(Rich());
    std::mt19937 random(8472);
    int read = 0;
    for (int i = 0; i < 20000; ++i)
        read += IsRead(Mutated(file, random)) ? 1 : 0;

    EXPECT_GT(read, 2000);
    EXPECT_LT(read, 18000);
}
