#include "engine/base/Utf8.h"
#include <gtest/gtest.h>

using engine::CharacterAt;
using engine::CleanText;
using engine::IsWhiteSpace;

namespace {

// The one character that all bytes of a text are; 0 when they are none.
char32_t Whole(std::string_view text)
{
    const engine::Utf8Character character = CharacterAt(text, 0);
    return character.valid && character.bytes == text.size() ? character.value : 0;
}

// Whether the first byte of a text belongs to no character.
bool IsStray(std::string_view text)
{
    const engine::Utf8Character character = CharacterAt(text, 0);
    return !character.valid && character.bytes == 1 && character.value == 0xFFFD;
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

TEST(CharacterAt, APlaceInside_IsReadFromThere) { EXPECT_EQ(CharacterAt("a\xC3\xA4", 1).value, 0xE4u); }

TEST(CountCharacters, LettersOfAllLengthsAndAStrayByte_AreOneEach)
{
    EXPECT_EQ(engine::CountCharacters("a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80\xFF"), 5u);
}

TEST(CleanText, ControlCharacters_BecomeBlanks)
{
    EXPECT_EQ(CleanText(std::string("a\0b", 3)), "a b");
    EXPECT_EQ(CleanText("a\x1F\x62"), "a b");
    EXPECT_EQ(CleanText("a\x7F\x62"), "a b");
}

TEST(CleanText, LineEndsAndTabs_Stay) { EXPECT_EQ(CleanText("a\r\n\tb"), "a\r\n\tb"); }

TEST(CleanText, TheBlankAndTheLastVisibleSign_Stay) { EXPECT_EQ(CleanText(" ~"), " ~"); }

TEST(CleanText, AStrayByte_BecomesAReplacement) { EXPECT_EQ(CleanText("a\xFF\x62"), "a\xEF\xBF\xBD\x62"); }

TEST(IsWhiteSpace, TabsLineEndsAndBlanks_Are)
{
    for (const char32_t character :
         {0x09u, 0x0Au, 0x0Du, 0x20u, 0x85u, 0x1680u, 0x2000u, 0x200Au, 0x2028u, 0x2029u, 0x205Fu, 0x3000u})
        EXPECT_TRUE(IsWhiteSpace(character)) << std::hex << static_cast<unsigned>(character);
}

TEST(IsWhiteSpace, TheirNeighbours_AreNot)
{
    for (const char32_t character : {0x08u, 0x0Eu, 0x1Fu, 0x21u, 0x84u, 0x1FFFu, 0x200Bu, 0x2027u, 0x202Au, 0x3001u})
        EXPECT_FALSE(IsWhiteSpace(character)) << std::hex << static_cast<unsigned>(character);
}

TEST(IsWhiteSpace, TheBlankThatHoldsWordsTogether_IsNot) { EXPECT_FALSE(IsWhiteSpace(0xA0)); }

TEST(EqualIgnoringCase, TheFirstAndLastLetter_AreCompared)
{
    EXPECT_TRUE(engine::EqualIgnoringCase("AZ", "az"));
    EXPECT_FALSE(engine::EqualIgnoringCase("[{", "{["));
    EXPECT_FALSE(engine::EqualIgnoringCase("@", "`"));
}

TEST(EqualIgnoringCase, TextsOfDifferentLength_Differ)
{
    EXPECT_FALSE(engine::EqualIgnoringCase("show", "shows"));
    EXPECT_FALSE(engine::EqualIgnoringCase("shows", "show"));
}

TEST(UpperCaseOfAsciiLetters, AllElse_Stays) { EXPECT_EQ(engine::UpperCase("az`{\xC3\xA4"), "AZ`{\xC3\xA4"); }

TEST(TrimBlanks, BlanksAtBothEnds_GoAndThoseInsideStay) { EXPECT_EQ(engine::TrimBlanks("  a b "), "a b"); }

TEST(TrimBlanks, OnlyBlanks_AreNothing) { EXPECT_EQ(engine::TrimBlanks("   "), ""); }
