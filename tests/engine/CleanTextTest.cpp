#include "engine/base/CleanText.h"
#include <gtest/gtest.h>

using engine::CleanText;

TEST(CleanText, ControlCharacters_BecomeBlanks)
{
    EXPECT_EQ(CleanText(std::string("a\0b", 3)), "a b");
    EXPECT_EQ(CleanText("a\x1F\x62"), "a b");
    EXPECT_EQ(CleanText("a\x7F\x62"), "a b");
}

TEST(CleanText, LineEndsAndTabs_Stay) { EXPECT_EQ(CleanText("a\r\n\tb"), "a\r\n\tb"); }

TEST(CleanText, TheBlankAndTheLastVisibleSign_Stay) { EXPECT_EQ(CleanText(" ~"), " ~"); }

TEST(CleanText, AStrayByte_BecomesAReplacement) { EXPECT_EQ(CleanText("a\xFF\x62"), "a\xEF\xBF\xBD\x62"); }
