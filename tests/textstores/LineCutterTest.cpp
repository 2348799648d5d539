#include "platform/text/LineCutter.h"
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

using platform::text::CLineCutter;

namespace {

// The lines of a file that comes in these pieces.
std::vector<std::string> LinesOf(std::vector<std::string> pieces)
{
    std::size_t next = 0;
    CLineCutter cutter([&](std::string& piece) { piece = next < pieces.size() ? pieces[next++] : ""; });
    std::vector<std::string> lines;
    for (std::string line; cutter.AppendLine(line); line.clear())
        lines.push_back(line);
    return lines;
}

using Lines = std::vector<std::string>;

TEST(LineCutter, AppendLine_EveryKindOfEnd_EndsALine) { EXPECT_EQ(LinesOf({"a\r\nb\nc\rd"}), (Lines{"a", "b", "c", "d"})); }

TEST(LineCutter, AppendLine_EndAtTheEndOfTheFile_BeginsNoFurtherLine) { EXPECT_EQ(LinesOf({"a\r\n"}), Lines{"a"}); }

TEST(LineCutter, AppendLine_EmptyLines_AreLines) { EXPECT_EQ(LinesOf({"\n\r\n\r"}), (Lines{"", "", ""})); }

TEST(LineCutter, AppendLine_EmptyFile_HasNoLine) { EXPECT_EQ(LinesOf({}), Lines{}); }

TEST(LineCutter, AppendLine_LineOverManyPieces_IsOneLine) { EXPECT_EQ(LinesOf({"a", "b", "c\nd"}), (Lines{"abc", "d"})); }

TEST(LineCutter, AppendLine_EndCutInTwo_IsOneEnd) { EXPECT_EQ(LinesOf({"a\r", "\nb"}), (Lines{"a", "b"})); }

TEST(LineCutter, AppendLine_FileGrowsAfterItsEnd_HasNothingMore)
{
    std::vector<std::string> pieces{"a", "", "b\n"};
    std::size_t next = 0;
    CLineCutter cutter([&](std::string& piece) { piece = pieces.at(next++); });
    std::string lines;
    EXPECT_TRUE(cutter.AppendLine(lines));
    EXPECT_FALSE(cutter.AppendLine(lines));
    EXPECT_EQ(lines, "a");
}

TEST(LineCutter, IsUtf16_MarksOfBothOrders_AreSeen)
{
    for (const char* mark : {"\xFF\xFE", "\xFE\xFF"}) {
        CLineCutter cutter([&](std::string& piece) { piece = std::string(mark) + "a"; });
        EXPECT_TRUE(cutter.IsUtf16());
    }
}

TEST(LineCutter, IsUtf16_PlainText_LosesNothingOfIt)
{
    bool given = false;
    CLineCutter cutter([&](std::string& piece) { piece = std::exchange(given, true) ? "" : "first\nsecond"; });
    EXPECT_FALSE(cutter.IsUtf16());
    std::string line;
    cutter.AppendLine(line);
    EXPECT_EQ(line, "first");
}

TEST(LineCutter, ReadFrom_AText_HasItsLinesOnly)
{
    CLineCutter cutter([](std::string& piece) { piece = "source"; });
    cutter.ReadFrom("one\r\ntwo");
    std::string lines;
    while (cutter.AppendLine(lines))
        lines += '|';
    EXPECT_EQ(lines, "one|two|");
}

TEST(LineCutter, AppendLine_ReturnAtTheEndOfAPieceBeforeAnotherLine_IsOneEnd)
{
    EXPECT_EQ(LinesOf({"a\r", "b"}), (Lines{"a", "b"}));
}

TEST(LineCutter, AppendLine_LineFeedsBehindACutEnd_AreEmptyLines)
{
    EXPECT_EQ(LinesOf({"a\r", "\n\nb"}), (Lines{"a", "", "b"}));
}

TEST(LineCutter, AppendLine_CutEndAtTheEndOfTheFile_BeginsNoFurtherLine) { EXPECT_EQ(LinesOf({"a\r", "\n"}), Lines{"a"}); }

TEST(LineCutter, AppendLine_ReturnsBeforeTheLineFeed_EndTheirOwnLines)
{
    EXPECT_EQ(LinesOf({"a\rb\rc\nd\re"}), (Lines{"a", "b", "c", "d", "e"}));
}

TEST(LineCutter, IsUtf16_EmptyFile_IsNot)
{
    CLineCutter cutter([](std::string& piece) { piece.clear(); });
    EXPECT_FALSE(cutter.IsUtf16());
    std::string line;
    EXPECT_FALSE(cutter.AppendLine(line));
}

TEST(LineCutter, ReadFrom_AfterThePieceWasLookedAt_TakesItsPlace)
{
    CLineCutter cutter([](std::string& piece) { piece = "\xFF\xFEsource\nmore\n"; });
    ASSERT_TRUE(cutter.IsUtf16());
    cutter.ReadFrom("one\ntwo\n");
    std::string lines;
    while (cutter.AppendLine(lines))
        lines += '|';
    EXPECT_EQ(lines, "one|two|");
}

}
