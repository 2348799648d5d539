#include "app/linux/editor/TextBuffer.h"
#include <gtest/gtest.h>
#include <random>

namespace {

std::vector<std::string> Lines(const CTextBuffer& buffer)
{
    std::vector<std::string> lines;
    for (std::size_t block = 0; block < buffer.BlockCount(); ++block)
        lines.push_back(buffer.Text(buffer.BlockBegin(block), buffer.BlockEnd(block)));
    return lines;
}
using Texts = std::vector<std::string>;

CTextBuffer Of(std::string_view text)
{
    CTextBuffer buffer;
    buffer.SetText(text);
    return buffer;
}

TEST(TextBuffer, SetText_Empty_HasOneEmptyBlock) { EXPECT_EQ(Lines(Of("")), Texts{""}); }

TEST(TextBuffer, SetText_LineEnds_CutBlocks) { EXPECT_EQ(Lines(Of("a\r\n\r\nb\r\n")), (Texts{"a", "", "b", ""})); }

TEST(TextBuffer, SetText_ALongLine_IsCutBehindBlanks)
{
    std::string line;
    for (int word = 0; word < 3000; ++word)
        line += "word ";
    const CTextBuffer buffer = Of(line + "\r\nend");
    ASSERT_EQ(buffer.BlockCount(), 5U);
    EXPECT_EQ(buffer.BlockBegin(1), 4000U);
    EXPECT_FALSE(buffer.EndsLine(0));
    EXPECT_TRUE(buffer.EndsLine(3));
}

TEST(TextBuffer, SetText_ALongLineWithoutBlanks_IsCutBetweenCharacters)
{
    std::string line = "x";
    for (int letter = 0; letter < 5000; ++letter)
        line += "\xC3\xBC";
    const CTextBuffer buffer = Of(line);
    EXPECT_EQ(buffer.BlockBegin(1), 3999U);
}

TEST(TextBuffer, Replace_InsideALine_KeepsTheOthers)
{
    CTextBuffer buffer = Of("one\r\ntwo\r\nthree");
    buffer.Replace(5, 8, "2");
    EXPECT_EQ(Lines(buffer), (Texts{"one", "2", "three"}));
}

TEST(TextBuffer, Replace_ALineEnd_JoinsLines)
{
    CTextBuffer buffer = Of("one\r\ntwo\r\nthree");
    buffer.Replace(3, 5, "");
    EXPECT_EQ(Lines(buffer), (Texts{"onetwo", "three"}));
}

TEST(TextBuffer, Replace_WithLineEnds_MakesLines)
{
    CTextBuffer buffer = Of("onetwo");
    buffer.Replace(3, 3, "\r\n\r\n");
    EXPECT_EQ(Lines(buffer), (Texts{"one", "", "two"}));
    buffer.Replace(buffer.Size(), buffer.Size(), "\r\n");
    EXPECT_EQ(Lines(buffer), (Texts{"one", "", "two", ""}));
}

TEST(TextBuffer, Replace_ALongLineMadeShort_IsOneBlockAgain)
{
    CTextBuffer buffer = Of(std::string(6000, 'x'));
    ASSERT_EQ(buffer.BlockCount(), 2U);
    buffer.Replace(10, 3990, "");
    EXPECT_EQ(buffer.BlockCount(), 1U);
}

TEST(TextBuffer, BlockAt_AStart_IsTheBlockThatBeginsThere)
{
    const CTextBuffer buffer = Of("one\r\ntwo");
    EXPECT_EQ(buffer.BlockAt(4), 0U);
    EXPECT_EQ(buffer.BlockAt(5), 1U);
    EXPECT_EQ(buffer.BlockAt(8), 1U);
}

TEST(TextBuffer, CharactersBefore_CountsCharactersOnBothSidesOfTheGap)
{
    CTextBuffer buffer = Of("\xC3\xA4\xC3\xB6\xE2\x82\xAC-");
    buffer.Replace(2, 2, "x");
    EXPECT_EQ(buffer.CharactersBefore(3), 2U);
    EXPECT_EQ(buffer.CharactersBefore(buffer.Size()), 5U);
    EXPECT_EQ(buffer.PositionOfCharacter(3), 5U);
    EXPECT_EQ(buffer.PositionOfCharacter(99), buffer.Size());
}

// Thousands of chance changes, each compared with the same change of a plain text.
TEST(TextBuffer, Replace_ByChance_StaysWhatAPlainTextWouldBe)
{
    std::mt19937 chance(7);
    const Texts pieces{"", "a", "\r\n", "word ", "\xC3\xBC", "x\r\ny\r\n", std::string(5000, 'z'), std::string(9000, ' ')};
    std::string plain;
    CTextBuffer buffer;
    for (int change = 0; change < 3000; ++change) {
        const auto boundary = [&](std::size_t at) {  // Not inside a character or a line end.
            while (at > 0 && at < plain.size() && ((plain[at] & 0xC0) == 0x80 || plain[at] == '\n'))
                --at;
            return at;
        };
        std::size_t begin = boundary(chance() % (plain.size() + 1));
        std::size_t end = boundary(std::min(plain.size(), begin + chance() % 40));
        if (plain.size() > 60'000)
            begin = 0, end = boundary(50'000);
        end = std::max(begin, end);
        const std::string& piece = pieces[chance() % pieces.size()];
        plain.replace(begin, end - begin, piece);
        buffer.Replace(begin, end, piece);
        ASSERT_EQ(buffer.Text(0, buffer.Size()), plain);
        std::string joined;
        for (std::size_t block = 0; block < buffer.BlockCount(); ++block) {
            const std::string text = buffer.Text(buffer.BlockBegin(block), buffer.BlockEnd(block));
            ASSERT_EQ(text.find('\n'), std::string::npos);
            ASSERT_LE(text.size(), 4000U);
            joined += text + (buffer.EndsLine(block) ? "\r\n" : "");
        }
        ASSERT_EQ(joined, plain);
    }
}

}
