#include "base/text/Text.h"
#include <gtest/gtest.h>

TEST(Text, IsWhiteSpace_TabsLineEndsAndBlanks_IsTrue)
{
    for (const char32_t character :
         {0x09u, 0x0Au, 0x0Du, 0x20u, 0x85u, 0x1680u, 0x2000u, 0x200Au, 0x2028u, 0x2029u, 0x205Fu, 0x3000u})
        EXPECT_TRUE(text::IsWhiteSpace(character)) << std::hex << static_cast<unsigned>(character);
}

TEST(Text, IsWhiteSpace_TheirNeighbours_IsFalse)
{
    for (const char32_t character : {0x08u, 0x0Eu, 0x1Fu, 0x21u, 0x84u, 0x1FFFu, 0x200Bu, 0x2027u, 0x202Au, 0x3001u})
        EXPECT_FALSE(text::IsWhiteSpace(character)) << std::hex << static_cast<unsigned>(character);
}

TEST(Text, IsWhiteSpace_TheBlankThatHoldsWordsTogether_IsFalse) { EXPECT_FALSE(text::IsWhiteSpace(0xA0)); }

TEST(Text, Trim_BlanksAtBothEnds_AreTakenOff) { EXPECT_EQ(text::Trim("  a b  "), "a b"); }

TEST(Text, Trim_OnlyBlanks_LeavesNothing) { EXPECT_EQ(text::Trim("   "), ""); }

TEST(Text, Trim_AnEmptyText_StaysEmpty) { EXPECT_EQ(text::Trim(""), ""); }

TEST(Text, Trim_TabsAndLineEnds_StayThere) { EXPECT_EQ(text::Trim(" \ta\r\n "), "\ta\r\n"); }

TEST(Text, Trim_ANoBreakSpace_StaysThere) { EXPECT_EQ(text::Trim(" \u00A0 "), "\u00A0"); }

TEST(Text, Length_WideCharacters_CountOneEach) { EXPECT_EQ(text::Length("aé€😀"), 4U); }

TEST(Text, Length_AnEmptyText_IsZero) { EXPECT_EQ(text::Length(""), 0U); }

TEST(Text, Length_AStrayTailByte_CountsOne) { EXPECT_EQ(text::Length("a\x80z"), 3U); }

TEST(Text, Length_ACharacterCutOff_CountsEachOfItsBytes) { EXPECT_EQ(text::Length("\xE2\x82"), 2U); }

TEST(Text, Length_ALeadByteBeforeALetter_CountsOneAndTheLetterOne) { EXPECT_EQ(text::Length("\xC3z"), 2U); }

TEST(Text, Length_AnOverlongForm_CountsEachOfItsBytes) { EXPECT_EQ(text::Length("\xC0\x80"), 2U); }

TEST(Text, Length_ASurrogate_CountsEachOfItsBytes) { EXPECT_EQ(text::Length("\xED\xA0\x80"), 3U); }

TEST(Text, Length_ACodeBeyondTheLast_CountsEachOfItsBytes) { EXPECT_EQ(text::Length("\xF4\x90\x80\x80"), 4U); }

TEST(Text, Length_TheLastCode_CountsOne) { EXPECT_EQ(text::Length("\xF4\x8F\xBF\xBF"), 1U); }

TEST(Text, Length_ANul_CountsOne) { EXPECT_EQ(text::Length(std::string_view("a\0b", 3)), 3U); }

TEST(Text, Left_CountsCharactersNotBytes) { EXPECT_EQ(text::Left("äöü", 2), "äö"); }

TEST(Text, Left_MoreThanThereAre_GivesAll) { EXPECT_EQ(text::Left("äö", 9), "äö"); }

TEST(Text, Left_Zero_GivesNothing) { EXPECT_EQ(text::Left("abc", 0), ""); }

TEST(Text, Mid_FromTheFirst_GivesAll) { EXPECT_EQ(text::Mid("äöü", 1), "äöü"); }

TEST(Text, Mid_CountsCharactersFromOne) { EXPECT_EQ(text::Mid("äöü", 3), "ü"); }

TEST(Text, Mid_BeyondTheEnd_GivesNothing) { EXPECT_EQ(text::Mid("äöü", 4), ""); }

TEST(Text, Mid_StartZero_IsTakenAsOne) { EXPECT_EQ(text::Mid("abc", 0), "abc"); }

TEST(Text, Mid_WithACount_GivesSoManyCharacters) { EXPECT_EQ(text::Mid("äöüß", 2, 2), "öü"); }

TEST(Text, Mid_WithACountBeyondTheEnd_GivesTheRest) { EXPECT_EQ(text::Mid("äöüß", 4, 5), "ß"); }

TEST(Text, Replace_EveryOccurrence_IsReplaced) { EXPECT_EQ(text::Replace("a|b|c", "|", "||"), "a||b||c"); }

TEST(Text, Replace_TheReplacement_IsNotSearchedAgain) { EXPECT_EQ(text::Replace("aaa", "aa", "a"), "aa"); }

TEST(Text, Replace_AnotherCase_IsNotReplaced) { EXPECT_EQ(text::Replace("{username}", "{UserName}", "Ann"), "{username}"); }

TEST(Text, Replace_AnEmptyWhat_ChangesNothing) { EXPECT_EQ(text::Replace("abc", "", "x"), "abc"); }

TEST(Text, Replace_ByNothing_Removes) { EXPECT_EQ(text::Replace("a-b-", "-", ""), "ab"); }

TEST(Text, Replace_InAnEmptyText_GivesNothing) { EXPECT_EQ(text::Replace("", "a", "b"), ""); }

TEST(Text, ReplaceIgnoringCase_AnyCase_IsReplaced)
{
    EXPECT_EQ(text::ReplaceIgnoringCase("{time} {TIME} {Time}", "{Time}", "2"), "2 2 2");
}

TEST(Text, ReplaceIgnoringCase_AnEmptyWhat_ChangesNothing) { EXPECT_EQ(text::ReplaceIgnoringCase("abc", "", "x"), "abc"); }

TEST(Text, ReplaceIgnoringCase_TheReplacement_IsNotSearchedAgain)
{
    EXPECT_EQ(text::ReplaceIgnoringCase("{A}", "{a}", "{A}{a}"), "{A}{a}");
}

TEST(Text, ReplaceIgnoringCase_BytesOfOtherLetters_AreNotTakenForAsciiLetters)
{
    EXPECT_EQ(text::ReplaceIgnoringCase("Ä[`{", "@[", "x"), "Ä[`{");
}

TEST(Text, FindIgnoringCase_TheFirstOccurrence_IsAByteOffset) { EXPECT_EQ(text::FindIgnoringCase("ä.ACS.acs", ".acs"), 2U); }

TEST(Text, FindIgnoringCase_NoOccurrence_IsNpos)
{
    EXPECT_EQ(text::FindIgnoringCase("robby.ac", ".acs"), std::string_view::npos);
}

TEST(Text, FindIgnoringCase_Nothing_IsFoundAtTheStart) { EXPECT_EQ(text::FindIgnoringCase("", ""), 0U); }

TEST(Text, FindIgnoringCase_InAnEmptyText_IsNpos) { EXPECT_EQ(text::FindIgnoringCase("", "a"), std::string_view::npos); }

TEST(Text, EndsWith_TheEnd_IsTrue) { EXPECT_TRUE(text::EndsWith("a.acs", ".acs")); }

TEST(Text, EndsWith_AnotherCase_IsFalse) { EXPECT_FALSE(text::EndsWith("a.ACS", ".acs")); }

TEST(Text, EndsWith_ALongerEnd_IsFalse) { EXPECT_FALSE(text::EndsWith("acs", ".acs")); }

TEST(Text, LineBreaks_AreCarriageReturnAndLineFeed)
{
    EXPECT_EQ(std::string(text::LineBreak), "\x0D\x0A");
    EXPECT_EQ(std::string(text::DoubleLineBreak), "\x0D\x0A\x0D\x0A");
}
