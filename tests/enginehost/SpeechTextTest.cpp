#include "engine/hosts/qt/SpeechText.h"

using engine::CSpeechText;

TEST(SpeechText, WordAt_EachWordOnce_GivesItsIndex)
{
    CSpeechText text("One two three", false);

    EXPECT_EQ(text.WordAt(1), 0U);
    EXPECT_EQ(text.WordAt(5), 4U);
    EXPECT_EQ(text.WordAt(9), 8U);
}

TEST(SpeechText, WordAt_PositionsInsideANumber_CountOnce)
{
    CSpeechText text("Pi is 3.14 now", false);

    EXPECT_EQ(text.WordAt(7), 6U);
    EXPECT_EQ(text.WordAt(8), std::nullopt);
    EXPECT_EQ(text.WordAt(9), std::nullopt);
    EXPECT_EQ(text.WordAt(12), 11U);
}

TEST(SpeechText, WordAt_EarlierWord_GivesNothing)
{
    CSpeechText text("One two three", false);

    EXPECT_EQ(text.WordAt(9), 8U);
    EXPECT_EQ(text.WordAt(5), std::nullopt);
}

TEST(SpeechText, WordAt_NonLatinCharacters_CountsCharacters)
{
    CSpeechText text("\xD0\xBC\xD0\xB0 \xF0\x9F\x98\x80 end", false);

    EXPECT_EQ(text.WordAt(4), 3U);
    EXPECT_EQ(text.WordAt(6), 5U);
}

TEST(SpeechText, WordAt_PositionBeyondTheText_GivesTheLastWord)
{
    CSpeechText text("One two", false);

    EXPECT_EQ(text.WordAt(999), 4U);
}

TEST(SpeechText, WordAt_PositionZeroOrLess_GivesTheFirstWord)
{
    EXPECT_EQ(CSpeechText("One", false).WordAt(0), 0U);
    EXPECT_EQ(CSpeechText("One", false).WordAt(-7), 0U);
}

TEST(SpeechText, WordAt_EmptyText_GivesNothing) { EXPECT_EQ(CSpeechText("", false).WordAt(1), std::nullopt); }

TEST(SpeechText, WordAt_Emphasis_CountsPastTheInsertedCommands)
{
    CSpeechText text(" Big dogs", true);
    const std::string& spoken = text.Spoken();

    EXPECT_EQ(text.WordAt(static_cast<int>(spoken.find("Big")) + 1), 1U);
    EXPECT_EQ(text.WordAt(static_cast<int>(spoken.find("dogs")) + 1), 5U);
}

TEST(SpeechText, Spoken_InvalidBytes_BecomeOneReplacementEach)
{
    EXPECT_EQ(CSpeechText("a\xFF\xC3z", false).Spoken(), "a\xEF\xBF\xBD\xEF\xBF\xBDz");
    EXPECT_EQ(CSpeechText("\xED\xA0\x80", false).Spoken(), "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(CSpeechText("\xF0\x9F", false).Spoken(), "\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(SpeechText, Spoken_ControlCharacters_BecomeBlanks)
{
    EXPECT_EQ(CSpeechText(std::string("a\0b\x01"
                                      "9Pc\nd",
                                      9),
                          false)
                  .Spoken(),
              "a b 9Pc\nd");
}

TEST(SpeechText, Blank_OnlyBlanksAndControls_IsTrue)
{
    EXPECT_TRUE(CSpeechText(" \t\r\n\x01\xE3\x80\x80", false).Blank());
    EXPECT_FALSE(CSpeechText(" a", false).Blank());
}
