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
