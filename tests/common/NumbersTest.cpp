#include "common/Numbers.h"
#include "platform/Failure.h"
#include <clocale>
#include <cmath>
#include <gtest/gtest.h>

namespace {

struct Number {
    std::string text;
    double value;
};

class LeadingNumberOf : public testing::TestWithParam<Number> {};
class WholeNumberTextOf : public testing::TestWithParam<Number> {};
class NoWholeNumber : public testing::TestWithParam<std::string> {};

template <class Statement> std::int32_t FailureNumber(Statement statement)
{
    try {
        statement();
    } catch (const platform::CFailure& failure) {
        return failure.Number();
    }
    return 0;
}

}

TEST_P(LeadingNumberOf, LeadingNumber_TheText_GivesItsNumber)
{
    EXPECT_DOUBLE_EQ(text::LeadingNumber(GetParam().text), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, LeadingNumberOf,
    testing::Values(Number{"", 0}, Number{"abc", 0}, Number{"30", 30}, Number{"30 minutes", 30}, Number{"  12", 12},
                    Number{"1 2 3", 123}, Number{"\t7\r\n8", 78}, Number{"-5", -5}, Number{"- 5", -5}, Number{"+4", 4},
                    Number{"--5", 0}, Number{"1.5", 1.5}, Number{"1.5.7", 1.5}, Number{".25", 0.25}, Number{"7.", 7},
                    Number{".", 0}, Number{"-.", 0}, Number{"-", 0}, Number{"1,5", 1}, Number{"2e3", 2000},
                    Number{"2E+3x", 2000}, Number{"2d3", 2000}, Number{"25e-1", 2.5}, Number{"2e", 2}, Number{"2e+", 2},
                    Number{"2ex", 2}, Number{"e5", 0}, Number{"&HFF", 255}, Number{"&hff", 255}, Number{"&HFFx", 255},
                    Number{"&H", 0}, Number{"&O17", 15}, Number{"&O18", 1}, Number{"&H02200009", 35651593},
                    Number{"&HFFFFFFFF", -1}, Number{"&H80000000", -2147483648.0}, Number{"inf", 0}, Number{"nan", 0},
                    Number{"0x10", 0}, Number{"1e-400", 0}, Number{"0e999", 0}, Number{"5\xC3\xA4", 5}));

TEST(Numbers, LeadingNumber_TooLargeForADouble_IsInfinite)
{
    EXPECT_TRUE(std::isinf(text::LeadingNumber("1e999")));
    EXPECT_TRUE(std::isinf(text::LeadingNumber("-1e999")));
    EXPECT_TRUE(std::isinf(text::LeadingNumber(std::string(400, '9'))));
}

TEST(Numbers, LeadingNumber_ManyZerosBehindThePoint_IsZero)
{
    EXPECT_DOUBLE_EQ(text::LeadingNumber("0." + std::string(400, '0') + "1"), 0);
}

TEST(Numbers, LeadingNumber_OfManyZeros_GoesByTheFirstDigitThatCounts)
{
    const std::string zeros(400, '0');
    EXPECT_TRUE(std::isinf(text::LeadingNumber("0." + zeros + "1e900")));
    EXPECT_TRUE(std::isinf(text::LeadingNumber("1" + zeros + "e+10")));
    EXPECT_EQ(text::LeadingNumber("1" + zeros + "e-900"), 0);
    EXPECT_EQ(text::LeadingNumber("0." + zeros + "1e+10"), 0);
}

TEST(Numbers, LeadingNumber_MoreThan32Bits_IsInfinite) { EXPECT_TRUE(std::isinf(text::LeadingNumber("&H123456789"))); }

TEST(Numbers, LeadingNumber_AHugeExponentThatZerosMakeUpFor_StaysFinite)
{
    EXPECT_DOUBLE_EQ(text::LeadingNumber("0." + std::string(400, '0') + "1e401"), 1);
}

TEST_P(WholeNumberTextOf, WholeNumberText_TheText_GivesItsNumber)
{
    EXPECT_DOUBLE_EQ(text::WholeNumberText(GetParam().text), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Texts, WholeNumberTextOf,
                         testing::Values(Number{"0", 0}, Number{"-1", -1}, Number{" 42 ", 42}, Number{"+3", 3},
                                         Number{"007", 7}, Number{"1.5", 1.5}, Number{".5", 0.5}, Number{"5.", 5},
                                         Number{"1e2", 100}, Number{"1D2", 100}, Number{"-2.5E-1", -0.25},
                                         Number{"&H10", 16}, Number{"&o10", 8}, Number{" &HFFFFFFFE ", -2}));

TEST_P(NoWholeNumber, WholeNumberText_TheText_IsATypeMismatch)
{
    EXPECT_EQ(FailureNumber([&] { text::WholeNumberText(GetParam()); }), 13);
}

INSTANTIATE_TEST_SUITE_P(Texts, NoWholeNumber,
                         testing::Values("", "   ", "abc", "12a", "1 2", "1,000", "1.2.3", "--1", "-", ".", "1e", "e1", "&H",
                                         "&HG", "&H1G", "&O8", "0x10", "inf", "nan", "True", "5%", "\t5", "٣"));

TEST(Numbers, ToInt32_Halves_GoToTheEvenNeighbour)
{
    EXPECT_EQ(text::ToInt32(0.5), 0);
    EXPECT_EQ(text::ToInt32(1.5), 2);
    EXPECT_EQ(text::ToInt32(2.5), 2);
    EXPECT_EQ(text::ToInt32(-0.5), 0);
    EXPECT_EQ(text::ToInt32(-1.5), -2);
    EXPECT_EQ(text::ToInt32(-2.5), -2);
}

TEST(Numbers, ToInt32_OtherFractions_GoToTheNearestNumber)
{
    EXPECT_EQ(text::ToInt32(2.4999), 2);
    EXPECT_EQ(text::ToInt32(2.5001), 3);
}

TEST(Numbers, ToInt32_TheLimits_Fit)
{
    EXPECT_EQ(text::ToInt32(2147483647.0), 2147483647);
    EXPECT_EQ(text::ToInt32(-2147483648.0), -2147483647 - 1);
    EXPECT_EQ(text::ToInt32(2147483647.4), 2147483647);
}

TEST(Numbers, ToInt32_BeyondTheLimits_Overflows)
{
    EXPECT_EQ(FailureNumber([] { text::ToInt32(2147483647.5); }), 6);
    EXPECT_EQ(FailureNumber([] { text::ToInt32(-2147483649.0); }), 6);
    EXPECT_EQ(FailureNumber([] { text::ToInt32(HUGE_VAL); }), 6);
    EXPECT_EQ(FailureNumber([] { text::ToInt32(std::nan("")); }), 6);
}

TEST(Numbers, ToInt16_TheLimits_Fit)
{
    EXPECT_EQ(text::ToInt16(32767.0), 32767);
    EXPECT_EQ(text::ToInt16(-32768.0), -32768);
}

TEST(Numbers, ToInt16_BeyondTheLimits_Overflows)
{
    EXPECT_EQ(FailureNumber([] { text::ToInt16(32767.5); }), 6);
    EXPECT_EQ(FailureNumber([] { text::ToInt16(-32769.0); }), 6);
}

TEST(Numbers, ToInt32_AText_IsConvertedAndRounded)
{
    EXPECT_EQ(text::ToInt32(std::string_view(" 1.5 ")), 2);
    EXPECT_EQ(text::ToInt16(std::string_view("-7")), -7);
}

TEST(Numbers, ToInt32_AnEmptyText_IsATypeMismatch)
{
    EXPECT_EQ(FailureNumber([] { text::ToInt32(std::string_view()); }), 13);
    EXPECT_EQ(FailureNumber([] { text::ToInt16(std::string_view("x")); }), 13);
}

TEST(Numbers, ToInt32_ATextTooLarge_Overflows)
{
    EXPECT_EQ(FailureNumber([] { text::ToInt32(std::string_view("2147483648")); }), 6);
    EXPECT_EQ(FailureNumber([] { text::ToInt32(std::string_view("1e999")); }), 6);
    EXPECT_EQ(FailureNumber([] { text::ToInt16(std::string_view("40000")); }), 6);
    EXPECT_EQ(FailureNumber([] { text::ToInt32(std::string_view("&H123456789")); }), 6);
}

TEST(Numbers, WholeNumberText_InALocaleWithADecimalComma_StillKnowsThePoint)
{
    const char* former = std::setlocale(LC_ALL, nullptr);
    const std::string restored = former == nullptr ? "C" : former;
    for (const char* locale : {"de_DE.UTF-8", "de_DE", "fr_FR.UTF-8", "German"})
        if (std::setlocale(LC_ALL, locale) != nullptr)
            break;

    const double value = text::WholeNumberText("1.5");

    std::setlocale(LC_ALL, restored.c_str());
    EXPECT_DOUBLE_EQ(value, 1.5);
}
