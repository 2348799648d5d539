#include "base/text/Utf8.h"
#include <gtest/gtest.h>

namespace {

// The one character that all bytes of a text are; 0 when they are none.
char32_t Whole(std::string_view text)
{
    const text::Character character = text::CharacterAt(text, 0);
    return character.IsValid() && character.size == text.size() ? character.code : 0;
}

// Whether the first byte of a text belongs to no character.
bool IsStray(std::string_view text)
{
    const text::Character character = text::CharacterAt(text, 0);
    return !character.IsValid() && character.size == 1;
}

std::string Utf8Of(char32_t code)
{
    std::string text;
    text::AppendCharacter(text, code);
    return text;
}

}

TEST(CharacterAt, TheFirstAndLastOfEachLength_AreCharacters)
{
    EXPECT_EQ(Whole("\x01"), 0x01u);
    EXPECT_EQ(Whole("\x7F"), 0x7Fu);
    EXPECT_EQ(Whole("\xC2\x80"), 0x80u);
    EXPECT_EQ(Whole("\xDF\xBF"), 0x7FFu);
    EXPECT_EQ(Whole("\xE0\xA0\x80"), 0x800u);
    EXPECT_EQ(Whole("\xEF\xBF\xBF"), 0xFFFFu);
    EXPECT_EQ(Whole("\xF0\x90\x80\x80"), 0x10000u);
    EXPECT_EQ(Whole("\xF4\x8F\xBF\xBF"), 0x10FFFFu);
}

TEST(CharacterAt, TheNeighboursOfTheSurrogates_AreCharacters)
{
    EXPECT_EQ(Whole("\xED\x9F\xBF"), 0xD7FFu);
    EXPECT_EQ(Whole("\xEE\x80\x80"), 0xE000u);
}

TEST(CharacterAt, Surrogates_AreStray)
{
    EXPECT_TRUE(IsStray("\xED\xA0\x80"));
    EXPECT_TRUE(IsStray("\xED\xBF\xBF"));
}

TEST(CharacterAt, LongerFormsThanNeeded_AreStray)
{
    EXPECT_TRUE(IsStray("\xC1\xBF"));
    EXPECT_TRUE(IsStray("\xE0\x9F\xBF"));
    EXPECT_TRUE(IsStray("\xF0\x8F\xBF\xBF"));
}

TEST(CharacterAt, BeyondTheLastCharacter_IsStray)
{
    EXPECT_TRUE(IsStray("\xF4\x90\x80\x80"));
    EXPECT_TRUE(IsStray("\xF5\x80\x80\x80"));
}

TEST(CharacterAt, AFollowingByteAlone_IsStray)
{
    EXPECT_TRUE(IsStray("\x80"));
    EXPECT_TRUE(IsStray("\xBF"));
}

TEST(CharacterAt, ACutSequence_IsStray)
{
    EXPECT_TRUE(IsStray("\xC3"));
    EXPECT_TRUE(IsStray("\xE2\x82"));
    EXPECT_TRUE(IsStray("\xF0\x9F\x98"));
}

TEST(CharacterAt, ASequenceBrokenAtItsLastByte_IsStray)
{
    EXPECT_TRUE(IsStray("\xE2\x82\x41"));
    EXPECT_TRUE(IsStray("\xE2\x82\xC3"));
}

TEST(CharacterAt, APlaceInside_IsReadFromThere) { EXPECT_EQ(text::CharacterAt("a\xC3\xA4", 1).code, 0xE4u); }

TEST(AppendCharacter, TheFirstAndLastOfEachLength_AreWritten)
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

TEST(AppendCharacter, NoCharacter_IsAReplacement)
{
    for (const char32_t code : {char32_t{0xD800}, char32_t{0xDFFF}, char32_t{0x110000}, text::NoCode})
        EXPECT_EQ(Utf8Of(code), "\xEF\xBF\xBD");
    EXPECT_EQ(Utf8Of(0xD7FF), "\xED\x9F\xBF");
    EXPECT_EQ(Utf8Of(0xE000), "\xEE\x80\x80");
}

TEST(IsUtf8, AnInvalidByteAnywhereInALongText_IsSeen)
{
    for (std::size_t at = 0; at < 20; ++at) {
        std::string text(20, 'a');
        text[at] = '\x80';
        EXPECT_FALSE(text::IsUtf8(text)) << at;
    }
}

TEST(IsUtf8, ALongTextWithLettersInIt_Is) { EXPECT_TRUE(text::IsUtf8("abcdefgh\xC3\xA4ijklmnop\xE2\x82\xACqrstuvwx")); }

TEST(CutBetweenCharacters, CharactersOfTwoAndFourBytes_AreNotSplit)
{
    EXPECT_EQ(text::CutBetweenCharacters("\xC3\xA4z", 1), "");
    EXPECT_EQ(text::CutBetweenCharacters("\xC3\xA4z", 2), "\xC3\xA4");
    EXPECT_EQ(text::CutBetweenCharacters("a\xF0\x9F\x98\x80z", 2), "a");
    EXPECT_EQ(text::CutBetweenCharacters("a\xF0\x9F\x98\x80z", 4), "a");
    EXPECT_EQ(text::CutBetweenCharacters("a\xF0\x9F\x98\x80z", 5), "a\xF0\x9F\x98\x80");
}

TEST(CutBetweenCharacters, AtTheVeryEnd_IsTheWholeText) { EXPECT_EQ(text::CutBetweenCharacters("ab", 2), "ab"); }

TEST(ToUtf16, LettersOfAllLengths_BecomeUnits)
{
    EXPECT_EQ(text::ToUtf16("a\xC3\xB6\xE2\x82\xAC\xF0\x9F\x99\x82"), u"a\u00F6\u20AC\U0001F642");
}

TEST(ToUtf16, InvalidBytes_BecomeReplacements)
{
    EXPECT_EQ(text::ToUtf16("\xFFx"), u"\uFFFDx");
    EXPECT_EQ(text::ToUtf16("\xC3"), u"\uFFFD");                      // Cut off.
    EXPECT_EQ(text::ToUtf16("\xC0\x80"), u"\uFFFD\uFFFD");            // Longer than needed.
    EXPECT_EQ(text::ToUtf16("\xE0\x80\x80"), u"\uFFFD\uFFFD\uFFFD");  // Longer than needed.
    EXPECT_EQ(text::ToUtf16("\xED\xA0\x80"), u"\uFFFD\uFFFD\uFFFD");  // Half of a pair.
    EXPECT_EQ(text::ToUtf16("\xF4\x90\x80\x80"), u"\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST(ToUtf8, LettersOfAllLengths_BecomeBytes)
{
    EXPECT_EQ(text::ToUtf8(u"a\u00F6\u20AC\U0001F642"), "a\xC3\xB6\xE2\x82\xAC\xF0\x9F\x99\x82");
}

TEST(ToUtf8, HalvesOfPairs_BecomeReplacements)
{
    const std::u16string halves{0xDC00, u'x', 0xD800};

    EXPECT_EQ(text::ToUtf8(halves), "\xEF\xBF\xBDx\xEF\xBF\xBD");
}

TEST(ToUtf16, TheFirstAndLastOfEachLength_AreCharacters)
{
    EXPECT_EQ(text::ToUtf16("\x7F\xC2\x80\xDF\xBF"), u"\x7F\x80\u07FF");
    EXPECT_EQ(text::ToUtf16("\xE0\xA0\x80\xEF\xBF\xBF"), u"\u0800\uFFFF");
    EXPECT_EQ(text::ToUtf16("\xED\x9F\xBF\xEE\x80\x80"), u"\uD7FF\uE000");
    EXPECT_EQ(text::ToUtf16("\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"), u"\U00010000\U0010FFFF");
}

TEST(ToUtf16, WhatLiesJustOutside_BecomesReplacements)
{
    EXPECT_EQ(text::ToUtf16("\xC1\xBF"), u"\uFFFD\uFFFD");
    EXPECT_EQ(text::ToUtf16("\xE0\x9F\xBF"), u"\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(text::ToUtf16("\xED\xBF\xBF"), u"\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(text::ToUtf16("\xF0\x8F\xBF\xBF"), u"\uFFFD\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(text::ToUtf16("\xF5\x80\x80\x80"), u"\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST(ToUtf16, ASequenceBrokenByALetter_KeepsTheLetter) { EXPECT_EQ(text::ToUtf16("\xE2\x82x"), u"\uFFFD\uFFFDx"); }

TEST(ToUtf8, TheFirstAndLastOfEachLength_AreBytes)
{
    EXPECT_EQ(text::ToUtf8(u"\x7F\x80\u07FF\u0800"), "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80");
    EXPECT_EQ(text::ToUtf8(u"\uD7FF\uE000\uFFFF"), "\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF");
    EXPECT_EQ(text::ToUtf8(u"\U00010000\U0010FFFF"), "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF");
}

TEST(ToUtf8, TheFirstAndLastHalvesAlone_BecomeReplacements)
{
    const std::u16string halves{0xD800, u'x', 0xDBFF, u'x', 0xDC00, u'x', 0xDFFF};
    EXPECT_EQ(text::ToUtf8(halves), "\xEF\xBF\xBDx\xEF\xBF\xBDx\xEF\xBF\xBDx\xEF\xBF\xBD");
}

TEST(ToUtf8, TwoFirstHalves_AreNoPair)
{
    const std::u16string halves{0xD800, 0xDBFF};
    EXPECT_EQ(text::ToUtf8(halves), "\xEF\xBF\xBD\xEF\xBF\xBD");
}
