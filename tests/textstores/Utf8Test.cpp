#include "platform/text/Utf8.h"
#include "platform/text/Encoding.h"
#include <gtest/gtest.h>

namespace platform::text {
namespace {
// The one character that all bytes of a text are; 0 when they are none.
char32_t Whole(std::string_view text)
{
    const Utf8Character character = CharacterAt(text, 0);
    return character.valid && character.bytes == text.size() ? character.code : 0;
}

std::string Utf8Of(char32_t code)
{
    std::string text;
    AppendUtf8(text, code);
    return text;
}

std::string Folded(char32_t code) { return FoldCase(Utf8Of(code)); }
}

TEST(CharacterAt, TheFirstAndLastOfEachLength_AreCharacters)
{
    EXPECT_EQ(Whole("\x7F"), 0x7Fu);
    EXPECT_EQ(Whole("\xC2\x80"), 0x80u);
    EXPECT_EQ(Whole("\xDF\xBF"), 0x7FFu);
    EXPECT_EQ(Whole("\xE0\xA0\x80"), 0x800u);
    EXPECT_EQ(Whole("\xED\x9F\xBF"), 0xD7FFu);
    EXPECT_EQ(Whole("\xEE\x80\x80"), 0xE000u);
    EXPECT_EQ(Whole("\xEF\xBF\xBF"), 0xFFFFu);
    EXPECT_EQ(Whole("\xF0\x90\x80\x80"), 0x10000u);
    EXPECT_EQ(Whole("\xF4\x8F\xBF\xBF"), 0x10FFFFu);
}

TEST(CharacterAt, WhatLiesJustOutside_IsOneInvalidByte)
{
    for (const char* text :
         {"\x80", "\xBF", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xED\xBF\xBF", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80",
          "\xF5\x80\x80\x80", "\xC3", "\xE2\x82", "\xF0\x9F\x98", "\xE2\x82\x41", "\xE2\x82\xC3"}) {
        const Utf8Character character = CharacterAt(text, 0);
        EXPECT_FALSE(character.valid) << text;
        EXPECT_EQ(character.bytes, 1u) << text;
        EXPECT_EQ(character.code, static_cast<unsigned char>(text[0])) << text;
    }
}

TEST(AppendUtf8, TheFirstAndLastOfEachLength_AreWritten)
{
    EXPECT_EQ(Utf8Of(0x7F), "\x7F");
    EXPECT_EQ(Utf8Of(0x80), "\xC2\x80");
    EXPECT_EQ(Utf8Of(0x7FF), "\xDF\xBF");
    EXPECT_EQ(Utf8Of(0x800), "\xE0\xA0\x80");
    EXPECT_EQ(Utf8Of(0xFFFF), "\xEF\xBF\xBF");
    EXPECT_EQ(Utf8Of(0x10000), "\xF0\x90\x80\x80");
    EXPECT_EQ(Utf8Of(0x3FFFF), "\xF0\xBF\xBF\xBF");
    EXPECT_EQ(Utf8Of(0x10FFFF), "\xF4\x8F\xBF\xBF");
}

TEST(AppendUtf8, NoCharacter_IsAReplacement)
{
    for (const char32_t code : {0xD800u, 0xDFFFu, 0x110000u})
        EXPECT_EQ(Utf8Of(code), "\xEF\xBF\xBD");
    EXPECT_EQ(Utf8Of(0xD7FF), "\xED\x9F\xBF");
    EXPECT_EQ(Utf8Of(0xE000), "\xEE\x80\x80");
}

TEST(IsUtf8, AnInvalidByteAnywhereInALongText_IsSeen)
{
    for (std::size_t at = 0; at < 20; ++at) {
        std::string text(20, 'a');
        text[at] = '\x80';
        EXPECT_FALSE(IsUtf8(text)) << at;
    }
}

TEST(IsUtf8, ALongTextWithLettersInIt_Is) { EXPECT_TRUE(IsUtf8("abcdefgh\xC3\xA4ijklmnop\xE2\x82\xACqrstuvwx")); }

TEST(CutBetweenCharacters, CharactersOfTwoAndFourBytes_AreNotSplit)
{
    EXPECT_EQ(CutBetweenCharacters("\xC3\xA4z", 1), "");
    EXPECT_EQ(CutBetweenCharacters("\xC3\xA4z", 2), "\xC3\xA4");
    EXPECT_EQ(CutBetweenCharacters("a\xF0\x9F\x98\x80z", 2), "a");
    EXPECT_EQ(CutBetweenCharacters("a\xF0\x9F\x98\x80z", 4), "a");
    EXPECT_EQ(CutBetweenCharacters("a\xF0\x9F\x98\x80z", 5), "a\xF0\x9F\x98\x80");
}

TEST(CutBetweenCharacters, AtTheVeryEnd_IsTheWholeText) { EXPECT_EQ(CutBetweenCharacters("ab", 2), "ab"); }

TEST(FoldCase, TheFirstAndLastOfEachAlphabet_AreFolded)
{
    EXPECT_EQ(FoldCase("AZ"), "az");
    EXPECT_EQ(Folded(0xC0), Utf8Of(0xE0));
    EXPECT_EQ(Folded(0xDE), Utf8Of(0xFE));
    EXPECT_EQ(Folded(0x178), Utf8Of(0xFF));
    EXPECT_EQ(Folded(0x100), Utf8Of(0x101));
    EXPECT_EQ(Folded(0x136), Utf8Of(0x137));
    EXPECT_EQ(Folded(0x139), Utf8Of(0x13A));
    EXPECT_EQ(Folded(0x147), Utf8Of(0x148));
    EXPECT_EQ(Folded(0x14A), Utf8Of(0x14B));
    EXPECT_EQ(Folded(0x176), Utf8Of(0x177));
    EXPECT_EQ(Folded(0x179), Utf8Of(0x17A));
    EXPECT_EQ(Folded(0x17D), Utf8Of(0x17E));
    EXPECT_EQ(Folded(0x391), Utf8Of(0x3B1));
    EXPECT_EQ(Folded(0x3AB), Utf8Of(0x3CB));
    EXPECT_EQ(Folded(0x400), Utf8Of(0x450));
    EXPECT_EQ(Folded(0x40F), Utf8Of(0x45F));
    EXPECT_EQ(Folded(0x410), Utf8Of(0x430));
    EXPECT_EQ(Folded(0x42F), Utf8Of(0x44F));
}

TEST(FoldCase, NeighboursOfTheAlphabets_Stay)
{
    for (const char32_t code : {0x40u,  0x5Bu,  0xBFu,  0xD7u,  0xDFu,  0x101u, 0x130u, 0x137u, 0x138u, 0x148u, 0x149u,
                                0x177u, 0x17Eu, 0x17Fu, 0x180u, 0x390u, 0x3A2u, 0x3ACu, 0x3FFu, 0x430u, 0x450u})
        EXPECT_EQ(Folded(code), Utf8Of(code)) << std::hex << static_cast<unsigned>(code);
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
