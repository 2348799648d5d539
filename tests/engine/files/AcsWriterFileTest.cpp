#include "engine/files/AcsWriter.h"
#include "engine/files/Pip.h"
#include <gtest/gtest.h>

using namespace engine;

TEST(WriteCharacterFile, ASmallCharacter_GivesTheWholeFileByteForByte)
{
    const std::vector<std::uint8_t> file = WriteCharacterFile(files_test::Pip(), lz::Effort::Quick);

    EXPECT_EQ(file, std::vector<std::uint8_t>(files_test::PipFile.begin(), files_test::PipFile.end()));
}
