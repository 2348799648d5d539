#include "platform/text/Encoding.h"
#include "base/text/Utf8.h"
#include <gtest/gtest.h>

namespace platform::text {
namespace {

std::string Utf8Of(char32_t code)
{
    std::string text;
    ::text::AppendCharacter(text, code);
    return text;
}

}

TEST(TextOfBytes, TheFirstAndLastByteOfTheWindows1252Table_AreItsCharacters)
{
    EXPECT_EQ(TextOfBytes("\x80\xFF"), Utf8Of(0x20AC) + Utf8Of(0xFF));
    EXPECT_EQ(TextOfBytes("\x9F\xA0"), Utf8Of(0x178) + Utf8Of(0xA0));
}

TEST(TextOfBytes, Utf16PairsOfTheFirstAndLastHalves_AreCharacters)
{
    EXPECT_EQ(TextOfBytes(std::string("\xFE\xFF\xD8\x00\xDC\x00", 6)), Utf8Of(0x10000));
    EXPECT_EQ(TextOfBytes(std::string("\xFE\xFF\xDB\xFF\xDF\xFF", 6)), Utf8Of(0x10FFFF));
}

TEST(TextOfBytes, Utf16NeighboursOfTheHalves_AreCharactersOfTheirOwn)
{
    EXPECT_EQ(TextOfBytes(std::string("\xFE\xFF\xD7\xFF\xE0\x00", 6)), Utf8Of(0xD7FF) + Utf8Of(0xE000));
    EXPECT_EQ(TextOfBytes(std::string("\xFE\xFF\xD8\x00\xE0\x00", 6)), Utf8Of(0xFFFD) + Utf8Of(0xE000));
    EXPECT_EQ(TextOfBytes(std::string("\xFE\xFF\xD8\x00\xDB\xFF", 6)), Utf8Of(0xFFFD) + Utf8Of(0xFFFD));
}

TEST(TextOfBytes, Utf16FirstHalfAtTheEnd_IsAReplacement)
{
    EXPECT_EQ(TextOfBytes(std::string("\xFE\xFF\0a\xD8\x3D", 6)), "a" + Utf8Of(0xFFFD));
}

TEST(WithCrLf, ALineFeedAtTheStart_GetsItsReturn) { EXPECT_EQ(WithCrLf("\na\r\n"), "\r\na\r\n"); }
TEST(WithCrLf, AReturnInsideALine_EndsALine) { EXPECT_EQ(WithCrLf("a\rb\r\n"), "a\r\nb\r\n"); }
TEST(WithCrLf, AReturnBehindTheLastLine_EndsALine) { EXPECT_EQ(WithCrLf("a\r\nb\r"), "a\r\nb\r\n"); }
TEST(WithCrLf, TwoReturnsBeforeALineFeed_AreTwoEnds) { EXPECT_EQ(WithCrLf("a\r\r\n"), "a\r\n\r\n"); }
TEST(WithCrLf, CrLfAlone_StaysAsItIs) { EXPECT_EQ(WithCrLf("\r\na\r\n\r\n"), "\r\na\r\n\r\n"); }
TEST(WithLf, AReturnInsideALine_EndsALine) { EXPECT_EQ(WithLf("a\rb"), "a\nb"); }

TEST(WithCrLf, LineFeedsOnly_GetTheirReturns) { EXPECT_EQ(WithCrLf("a\nb\n"), "a\r\nb\r\n"); }
TEST(WithCrLf, AnEmptyLineEndedByALineFeed_GetsItsReturn) { EXPECT_EQ(WithCrLf("a\r\n\nb\r\n"), "a\r\n\r\nb\r\n"); }
TEST(WithCrLf, ALineFeedBehindACrLf_GetsItsReturn) { EXPECT_EQ(WithCrLf("a\r\nb\n"), "a\r\nb\r\n"); }

TEST(TextOfBytes, Utf16SecondHalfBehindALetter_LeavesTheLetter)
{
    EXPECT_EQ(TextOfBytes(std::string("\xFE\xFF\0a\xDC\0", 6)), "a" + Utf8Of(0xFFFD));
}

}
