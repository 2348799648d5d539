#include "engine/files/FileParts.h"

using namespace engine;
using namespace files_test;

// What the user reads about a file that is no character that can be used.
namespace {

std::string RefusalText(Bytes bytes)
{
    try {
        Read(std::move(bytes));
        return "";
    } catch (const platform::CFailure& failure) {
        return failure.Description();
    }
}

std::string Damaged(const std::string& how) { return "The character file is damaged: " + how + "."; }

Bytes Pip(const std::function<void(FileParts&)>& change)
{
    FileParts parts;
    change(parts);
    return parts.Make();
}

Bytes PipWithBlock(const std::function<void(BlockParts&)>& change)
{
    BlockParts block;
    change(block);
    return Pip([&](FileParts& parts) { parts.block = block.Make(); });
}

Bytes PipWithPicture(const std::function<void(PictureParts&)>& change)
{
    PictureParts picture;
    change(picture);
    return Pip([&](FileParts& parts) { parts.pictures = {picture.Make()}; });
}

}

TEST(RefusalText, OfAnotherKindOfFile_SaysSo)
{
    EXPECT_EQ(RefusalText({'H', 'e', 'l', 'l', 'o'}), "This is not a character file.");
    EXPECT_EQ(RefusalText({}), "This is not a character file.");
    EXPECT_EQ(RefusalText({0xD0, 0xCF, 0x11, 0xE0}), "The character was made for version 1 of the engine.");
}

TEST(RefusalText, OfAnotherVersion_SaysWhich)
{
    EXPECT_EQ(RefusalText(PipWithBlock([](auto& block) { block.majorVersion = 1; })),
              "The character was made for an older engine.");
    EXPECT_EQ(RefusalText(PipWithBlock([](auto& block) { block.majorVersion = 3; })),
              "The character was made for a newer engine.");
}

TEST(RefusalText, OfARecord_SaysWhatIsWrongWithIt)
{
    EXPECT_EQ(RefusalText(PipPart(0, 20)), Damaged("a record ends too early"));
    EXPECT_EQ(RefusalText(PipWith(4, {0x40, 1, 0, 0, 1, 0, 0, 0})), Damaged("a record lies outside the file"));
    EXPECT_EQ(RefusalText(PipWith(0xA1, {1, 0, 1, 0})), Damaged("a text is too long"));
    EXPECT_EQ(RefusalText(PipWith(0xAD, {1, 0})), Damaged("a text does not end"));
    EXPECT_EQ(RefusalText(PipWith(0x9D, {0xFF, 0xFF, 0xFF, 0xFF})), Damaged("a list is too long"));
    EXPECT_EQ(RefusalText(PipWith(0x9D, {0x40, 0, 0, 0})), Damaged("a list is longer than its record"));
}

TEST(RefusalText, OfACharacterWithoutNameOrSize_SaysWhatIsMissing)
{
    EXPECT_EQ(RefusalText(Pip([](FileParts& parts) { parts.names = {0, 0}; })), Damaged("the character has no name"));
    for (const std::uint16_t side : {std::uint16_t{0}, std::uint16_t{4097}})
        EXPECT_EQ(RefusalText(PipWithBlock([&](auto& block) { block.width = side; })),
                  Damaged("the size of its frame is out of range"))
            << side;
}

TEST(RefusalText, OfAPicture_SaysWhatIsWrongWithIt)
{
    EXPECT_EQ(RefusalText(PipWithPicture([](auto& picture) { picture.width = 4097; })), Damaged("a picture is too large"));
    EXPECT_EQ(RefusalText(PipWithPicture([](auto& picture) { picture.isPacked = false; })),
              Damaged("a picture has the wrong length"));
    PictureParts large;
    large.width = large.height = 4096;
    EXPECT_EQ(RefusalText(Pip([&](FileParts& parts) { parts.pictures.assign(33, large.Make()); })),
              Damaged("its pictures are too large"));
}

TEST(RefusalText, OfTooMuchAtOnce_SaysOfWhat)
{
    Bytes file = FileParts().Make();
    file.resize((64U << 20) + 1);
    EXPECT_EQ(RefusalText(std::move(file)), Damaged("it is too large"));
    EXPECT_EQ(RefusalText(Pip([](FileParts& parts) { parts.sounds = {Bytes((16U << 20) + 1)}; })),
              Damaged("its sounds are too large"));
}
