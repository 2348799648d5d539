#include "common/Text.h"
#include <gtest/gtest.h>

namespace {

struct Pair {
    std::string small;
    std::string capital;
};

class LetterCase : public testing::TestWithParam<Pair> {};

}

TEST_P(LetterCase, Upper_TheSmallLetters_GivesTheCapitalOnes)
{
    EXPECT_EQ(text::Upper(GetParam().small), GetParam().capital);
}

TEST_P(LetterCase, Lower_TheCapitalLetters_GivesTheSmallOnes)
{
    EXPECT_EQ(text::Lower(GetParam().capital), GetParam().small);
}

TEST_P(LetterCase, EqualIgnoringCase_BothCases_AreEqual)
{
    EXPECT_TRUE(text::EqualIgnoringCase(GetParam().small, GetParam().capital));
}

TEST_P(LetterCase, Upper_CapitalLetters_StayAsTheyAre) { EXPECT_EQ(text::Upper(GetParam().capital), GetParam().capital); }

TEST_P(LetterCase, Lower_SmallLetters_StayAsTheyAre) { EXPECT_EQ(text::Lower(GetParam().small), GetParam().small); }

INSTANTIATE_TEST_SUITE_P(Scripts, LetterCase,
                         testing::Values(Pair{"abcxyz", "ABCXYZ"}, Pair{"ärger", "ÄRGER"}, Pair{"àâçéèñøþ", "ÀÂÇÉÈÑØÞ"},
                                         Pair{"ÿ", "Ÿ"}, Pair{"ąćęłńóśźż", "ĄĆĘŁŃÓŚŹŻ"}, Pair{"čďěňřšťůž", "ČĎĚŇŘŠŤŮŽ"},
                                         Pair{"ğŋœ", "ĞŊŒ"}, Pair{"őűĳķ", "ŐŰĲĶ"}, Pair{"αβγδωσ", "ΑΒΓΔΩΣ"},
                                         Pair{"άέήίόύώϊϋ", "ΆΈΉΊΌΎΏΪΫ"},
                                         Pair{"абвгдежзийклмнопрстуфхцчшщъыьэюя", "АБВГДЕЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯ"},
                                         Pair{"ёђѓєіїўџ", "ЁЂЃЄІЇЎЏ"}, Pair{"ґқңүәө", "ҐҚҢҮӘӨ"}, Pair{"ӏӂ", "ӀӁ"},
                                         Pair{"ạếữ", "ẠẾỮ"}, Pair{"șț", "ȘȚ"}, Pair{"ơưǎǽə", "ƠƯǍǼƏ"}, Pair{"հայ", "ՀԱՅ"}));

TEST(TextCase, Upper_DigitsSignsAndLettersWithoutCase_StayAsTheyAre)
{
    EXPECT_EQ(text::Upper("1.,;@[`{×÷ßĸŉ中😀"), "1.,;@[`{×÷ßĸŉ中😀");
}

TEST(TextCase, Lower_SignsBetweenTheLetters_StayAsTheyAre) { EXPECT_EQ(text::Lower("@[`{×÷ß中😀"), "@[`{×÷ß中😀"); }

TEST(TextCase, Upper_DotlessI_BecomesI) { EXPECT_EQ(text::Upper("ı"), "I"); }

TEST(TextCase, Lower_DottedCapitalI_BecomesI) { EXPECT_EQ(text::Lower("İ"), "i"); }

TEST(TextCase, Upper_FinalSigma_BecomesSigma) { EXPECT_EQ(text::Upper("ς"), "Σ"); }

TEST(TextCase, Upper_MicroSignAndLongS_BecomeTheirCapitals) { EXPECT_EQ(text::Upper("µſ"), "ΜS"); }

TEST(TextCase, Upper_StrayBytes_StayAsTheyAre) { EXPECT_EQ(text::Upper("a\xFF\xC3z\xE2\x82"), "A\xFF\xC3Z\xE2\x82"); }

TEST(TextCase, Upper_AnEmptyText_StaysEmpty) { EXPECT_EQ(text::Upper(""), ""); }

TEST(TextCase, EqualIgnoringCase_OneTextLonger_IsNotEqual)
{
    EXPECT_FALSE(text::EqualIgnoringCase("open", "open "));
    EXPECT_FALSE(text::EqualIgnoringCase("open", "ope"));
}

TEST(TextCase, EqualIgnoringCase_OtherLetters_AreNotEqual) { EXPECT_FALSE(text::EqualIgnoringCase("ä", "ö")); }

TEST(TextCase, EqualIgnoringCase_NothingAndNothing_AreEqual) { EXPECT_TRUE(text::EqualIgnoringCase("", "")); }

TEST(TextCase, EqualIgnoringCase_DifferentStrayBytes_AreNotEqual)
{
    EXPECT_TRUE(text::EqualIgnoringCase("\xFF", "\xFF"));
    EXPECT_FALSE(text::EqualIgnoringCase("\xFF", "\xFE"));
}

TEST(TextCase, EqualIgnoringCase_AStrayByteAndALetter_AreNotEqual) { EXPECT_FALSE(text::EqualIgnoringCase("\xFF", "ÿ")); }
