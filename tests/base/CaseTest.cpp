#include "base/text/Case.h"
#include "base/text/Utf8.h"
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

namespace {

std::string Utf8Of(char32_t code)
{
    std::string text;
    text::AppendCharacter(text, code);
    return text;
}

// The characters, U+0080 and up, for which something holds.
template <class Condition> std::u32string CharactersThat(Condition holds)
{
    std::u32string found;
    for (char32_t code = 0x80; code <= 0x10FFFF; ++code)
        if ((code < 0xD800 || code > 0xDFFF) && holds(Utf8Of(code)))
            found += code;
    return found;
}

}

TEST(FoldCase, LettersOfOneNameInAnyCase_BecomeTheSame)
{
    EXPECT_EQ(text::FoldCase("STRAẞE ΣΊΣΥΦΟΣ"), text::FoldCase("straße σίσυφος"));
    EXPECT_EQ(text::FoldCase("µſ"), text::FoldCase("Μs"));
}

TEST(FoldCase, LettersOfScriptsBeyondTheFirstPlane_AreFolded)
{
    EXPECT_EQ(text::FoldCase("\U00010400\U0001E900"), "\U00010428\U0001E922");
}

TEST(FoldCase, CherokeeLetters_BecomeTheOlderCapitalOnes) { EXPECT_EQ(text::FoldCase("\uAB70\u13F8"), "\u13A0\u13F0"); }

TEST(FoldCase, SharpSAndTheTurkishLetters_StayThemselves) { EXPECT_EQ(text::FoldCase("ßİı"), "ßİı"); }

TEST(FoldCase, StrayBytes_StayAsTheyAre) { EXPECT_EQ(text::FoldCase("A\xFF\xC3Z"), "a\xFF\xC3z"); }

TEST(FoldCase, EveryCharacter_IsFoldedAtOnce)
{
    EXPECT_EQ(
        CharactersThat([](const std::string& one) { return text::FoldCase(text::FoldCase(one)) != text::FoldCase(one); }),
        U"");
}

TEST(FoldCase, EveryLetter_IsFoldedAsItsCapitalIs)
{
    const std::u32string other =
        CharactersThat([](const std::string& one) { return text::FoldCase(text::Upper(one)) != text::FoldCase(one); });
    EXPECT_EQ(other, U"ı");
}

TEST(FoldCase, EveryLetter_IsFoldedAsItsSmallOneIs)
{
    const std::u32string other =
        CharactersThat([](const std::string& one) { return text::FoldCase(text::Lower(one)) != text::FoldCase(one); });
    EXPECT_EQ(other, U"İ");
}

// As many as the data of Unicode 15.0 has beyond ASCII.
TEST(Case, AllLetters_HaveTheirCounterparts)
{
    EXPECT_EQ(CharactersThat([](const std::string& one) { return text::Upper(one) != one; }).size(), 1424U);
    EXPECT_EQ(CharactersThat([](const std::string& one) { return text::Lower(one) != one; }).size(), 1407U);
    EXPECT_EQ(CharactersThat([](const std::string& one) { return text::FoldCase(one) != one; }).size(), 1428U);
}
