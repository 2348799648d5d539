#include "engine/files/AcsReader.h"
#include "engine/files/Pip.h"
#include <gtest/gtest.h>

using namespace engine;

namespace {

CharacterRef ReadPip()
{
    return ReadCharacterFile(
        std::make_shared<const std::vector<std::uint8_t>>(files_test::PipFile.begin(), files_test::PipFile.end()));
}

}

TEST(ReadCharacterFile, ASmallFile_GivesItsAnimations) { EXPECT_EQ(ReadPip()->animations, files_test::Pip().animations); }

TEST(ReadCharacterFile, ASmallFile_GivesItsPixelsFromTheTopRow)
{
    EXPECT_EQ(*ReadPip()->pictures->Picture(0), files_test::PipPicture());
}
