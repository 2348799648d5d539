#include "engine/files/Text.h"
#include <gtest/gtest.h>

using namespace engine::files;

TEST(ToUtf16, LettersOfAllLengths_BecomeUnits)
{
    EXPECT_EQ(ToUtf16("a\xC3\xB6\xE2\x82\xAC\xF0\x9F\x99\x82"), u"a\u00F6\u20AC\U0001F642");
}

TEST(ToUtf16, InvalidBytes_BecomeReplacements)
{
    EXPECT_EQ(ToUtf16("\xFFx"), u"\uFFFDx");
    EXPECT_EQ(ToUtf16("\xC3"), u"\uFFFD");                      // Cut off.
    EXPECT_EQ(ToUtf16("\xC0\x80"), u"\uFFFD\uFFFD");            // Longer than needed.
    EXPECT_EQ(ToUtf16("\xE0\x80\x80"), u"\uFFFD\uFFFD\uFFFD");  // Longer than needed.
    EXPECT_EQ(ToUtf16("\xED\xA0\x80"), u"\uFFFD\uFFFD\uFFFD");  // Half of a pair.
    EXPECT_EQ(ToUtf16("\xF4\x90\x80\x80"), u"\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST(ToUtf8, LettersOfAllLengths_BecomeBytes)
{
    EXPECT_EQ(ToUtf8(u"a\u00F6\u20AC\U0001F642"), "a\xC3\xB6\xE2\x82\xAC\xF0\x9F\x99\x82");
}

TEST(ToUtf8, HalvesOfPairs_BecomeReplacements)
{
    const std::u16string halves{0xDC00, u'x', 0xD800};

    EXPECT_EQ(ToUtf8(halves), "\xEF\xBF\xBDx\xEF\xBF\xBD");
}

TEST(UpperCase, LettersOfEuropeanAlphabets_BecomeCapitals)
{
    EXPECT_EQ(UpperCase("Show_1 \xC3\xA4\xC3\xBF"), "SHOW_1 \xC3\x84\xC5\xB8");
    EXPECT_EQ(UpperCase("\xC5\x82\xC5\xBC\xC4\x99"), "\xC5\x81\xC5\xBB\xC4\x98");  // Polish.
    EXPECT_EQ(UpperCase("\xCE\xB1\xCF\x89"), "\xCE\x91\xCE\xA9");                  // Greek.
    EXPECT_EQ(UpperCase("\xD0\xB4\xD1\x8F\xD1\x91"), "\xD0\x94\xD0\xAF\xD0\x81");  // Cyrillic.
}

TEST(UpperCase, SignsAndCapitals_Stay)
{
    EXPECT_EQ(UpperCase("A\xC3\xB7\xC3\x9F\xE2\x82\xAC"), "A\xC3\xB7\xC3\x9F\xE2\x82\xAC");
}

TEST(ToUtf16, TheFirstAndLastOfEachLength_AreCharacters)
{
    EXPECT_EQ(ToUtf16("\x7F\xC2\x80\xDF\xBF"), u"\x7F\x80\u07FF");
    EXPECT_EQ(ToUtf16("\xE0\xA0\x80\xEF\xBF\xBF"), u"\u0800\uFFFF");
    EXPECT_EQ(ToUtf16("\xED\x9F\xBF\xEE\x80\x80"), u"\uD7FF\uE000");
    EXPECT_EQ(ToUtf16("\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"), u"\U00010000\U0010FFFF");
}

TEST(ToUtf16, WhatLiesJustOutside_BecomesReplacements)
{
    EXPECT_EQ(ToUtf16("\xC1\xBF"), u"\uFFFD\uFFFD");
    EXPECT_EQ(ToUtf16("\xE0\x9F\xBF"), u"\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(ToUtf16("\xED\xBF\xBF"), u"\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(ToUtf16("\xF0\x8F\xBF\xBF"), u"\uFFFD\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(ToUtf16("\xF5\x80\x80\x80"), u"\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST(ToUtf16, ASequenceBrokenByALetter_KeepsTheLetter) { EXPECT_EQ(ToUtf16("\xE2\x82x"), u"\uFFFD\uFFFDx"); }

TEST(ToUtf8, TheFirstAndLastOfEachLength_AreBytes)
{
    EXPECT_EQ(ToUtf8(u"\x7F\x80\u07FF\u0800"), "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80");
    EXPECT_EQ(ToUtf8(u"\uD7FF\uE000\uFFFF"), "\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF");
    EXPECT_EQ(ToUtf8(u"\U00010000\U0010FFFF"), "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF");
}

TEST(ToUtf8, TheFirstAndLastHalvesAlone_BecomeReplacements)
{
    const std::u16string halves{0xD800, u'x', 0xDBFF, u'x', 0xDC00, u'x', 0xDFFF};
    EXPECT_EQ(ToUtf8(halves), "\xEF\xBF\xBDx\xEF\xBF\xBDx\xEF\xBF\xBDx\xEF\xBF\xBD");
}

TEST(ToUtf8, TwoFirstHalves_AreNoPair)
{
    const std::u16string halves{0xD800, 0xDBFF};
    EXPECT_EQ(ToUtf8(halves), "\xEF\xBF\xBD\xEF\xBF\xBD");
}

// The ends of every stretch of small letters, as characters.
TEST(UpperCase, TheFirstAndLastOfEachAlphabet_BecomeCapitals)
{
    const auto upper = [](std::u16string_view text) { return ToUtf16(UpperCase(ToUtf8(text))); };
    EXPECT_EQ(upper(u"az"), u"AZ");
    EXPECT_EQ(upper(u"\u00E0\u00FE\u00FF"), u"\u00C0\u00DE\u0178");
    EXPECT_EQ(upper(u"\u0101\u0137\u014B\u0177"), u"\u0100\u0136\u014A\u0176");
    EXPECT_EQ(upper(u"\u013A\u0148\u017A\u017E"), u"\u0139\u0147\u0179\u017D");
    EXPECT_EQ(upper(u"\u03B1\u03C1\u03C3\u03CB"), u"\u0391\u03A1\u03A3\u03AB");
    EXPECT_EQ(upper(u"\u0430\u044F\u0450\u045F"), u"\u0410\u042F\u0400\u040F");
    EXPECT_EQ(upper(u"\u0461\u0481"), u"\u0460\u0480");
}

TEST(UpperCase, NeighboursOfTheAlphabets_Stay)
{
    const auto stays = [](std::u16string_view text) { return ToUtf16(UpperCase(ToUtf8(text))) == text; };
    EXPECT_TRUE(stays(u"`{\u00DF\u00F7"));
    EXPECT_TRUE(stays(u"\u0100\u0131\u0136\u0138\u0149\u014A\u0176\u0179"));
    EXPECT_TRUE(stays(u"\u0139\u0147\u017D\u017F"));
    EXPECT_TRUE(stays(u"\u03B0\u03C2\u03CC\u042F"));
    EXPECT_TRUE(stays(u"\u0460\u0480\u0482\u0483"));
}
