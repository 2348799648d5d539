#include "common/DateFormat.h"
#include "platform/Failure.h"
#include "platform/headless/Desktop.h"
#include <gtest/gtest.h>

namespace {

using platform::LocalTime;

// Sunday.
constexpr LocalTime Afternoon{2026, 11, 15, 14, 5, 9, 0};
constexpr LocalTime Night{2026, 3, 7, 0, 7, 0, 6};

struct Case {
    std::string format;
    std::string expected;
};

void PrintTo(const Case& each, std::ostream* out) { *out << each.format; }

std::string Written(const LocalTime& time, const std::string& format)
{
    const CHeadlessDesktop desktop;
    return common::FormatDate(time, format, desktop.locale);
}

class AfternoonFormat : public testing::TestWithParam<Case> {};
class NightFormat : public testing::TestWithParam<Case> {};

}

TEST_P(AfternoonFormat, FormatDate_TheFormat_WritesTheAfternoon)
{
    EXPECT_EQ(Written(Afternoon, GetParam().format), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Day, AfternoonFormat,
                         testing::Values(Case{"d", "15"}, Case{"dd", "15"}, Case{"ddd", "Sun"}, Case{"dddd", "Sunday"},
                                         Case{"ddddd", "11/15/2026"}, Case{"dddddd", "Sunday, November 15, 2026"},
                                         Case{"ddddddd", "Sunday, November 15, 202615"}, Case{"w", "1"}, Case{"ww", "47"},
                                         Case{"www", "471"}));

INSTANTIATE_TEST_SUITE_P(MonthAndYear, AfternoonFormat,
                         testing::Values(Case{"m", "11"}, Case{"mm", "11"}, Case{"mmm", "Nov"}, Case{"mmmm", "November"},
                                         Case{"q", "4"}, Case{"y", "319"}, Case{"yy", "26"}, Case{"yyyy", "2026"},
                                         Case{"yyy", "26319"}, Case{"m/d/yyyy", "11/15/2026"}, Case{"d.m.yy", "15.11.26"}));

INSTANTIATE_TEST_SUITE_P(Clock, AfternoonFormat,
                         testing::Values(Case{"h", "14"}, Case{"hh", "14"}, Case{"n", "5"}, Case{"nn", "05"}, Case{"s", "9"},
                                         Case{"ss", "09"}, Case{"ttttt", "2:05:09 PM"}, Case{"tttt", "tttt"},
                                         Case{"h:nn AM/PM", "2:05 PM"}, Case{"h:nn", "14:05"}, Case{"hh:nn", "14:05"},
                                         Case{"hh:nn AM/PM", "02:05 PM"}, Case{"h:nn am/pm", "2:05 pm"},
                                         Case{"h:nn A/P", "2:05 P"}, Case{"h:nn a/p", "2:05 p"}, Case{"h AMPM", "2 PM"},
                                         Case{"AM/PM h", "PM 2"}, Case{"h ampm", "2 PM"}));

INSTANTIATE_TEST_SUITE_P(Minutes, AfternoonFormat,
                         testing::Values(Case{"h:mm", "14:05"}, Case{"h:m", "14:5"}, Case{"h:mm AM/PM", "2:05 PM"},
                                         Case{"hh.mm", "14.05"}, Case{"h \"o'clock\" m", "14 o'clock 5"},
                                         Case{"hmm", "1405"}, Case{"h:mm:ss mm", "14:05:09 11"}, Case{"m h", "11 14"},
                                         Case{"h:mm m", "14:05 11"}, Case{"h mmm", "14 Nov"}, Case{"h AM/PM m", "2 PM 11"}));

INSTANTIATE_TEST_SUITE_P(Letters, AfternoonFormat,
                         testing::Values(Case{"DDDD", "Sunday"}, Case{"H:NN", "14:05"}, Case{"H:MM Am/Pm", "2:05 PM"},
                                         Case{"YYYY", "2026"}));

INSTANTIATE_TEST_SUITE_P(Copied, AfternoonFormat,
                         testing::Values(Case{"", ""}, Case{"It is h", "It i9 14"}, Case{"\"It is\" h", "It is 14"},
                                         Case{"\\h h", "h 14"}, Case{"h\\", "14\\"}, Case{"\\\\", "\\"},
                                         Case{"\\\"h", "\"14"}, Case{"\"h", "h"}, Case{"\"", ""}, Case{"\"\"h", "14"},
                                         Case{"h \xE2\x82\xAC", "14 €"}, Case{"\\ä", "ä"}, Case{"a p / :", "a p / :"},
                                         Case{"{%}-0#", "{%}-0#"},
                                         Case{"\xFFh\xC3", "\xFF"
                                                           "14\xC3"}));

INSTANTIATE_TEST_SUITE_P(Whole, AfternoonFormat,
                         testing::Values(Case{"c", "11/15/2026 2:05:09 PM"}, Case{"General Date", "11/15/2026 2:05:09 PM"},
                                         Case{"Long Date", "Sunday, November 15, 2026"}, Case{"Medium Date", "15-Nov-26"},
                                         Case{"Short Date", "11/15/2026"}, Case{"Long Time", "2:05:09 PM"},
                                         Case{"medium time", "02:05 PM"}, Case{"SHORT TIME", "14:05"}));

TEST_P(NightFormat, FormatDate_TheFormat_WritesTheNight)
{
    EXPECT_EQ(Written(Night, GetParam().format), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(AllSymbols, NightFormat,
                         testing::Values(Case{"h:nn AM/PM", "12:07 AM"}, Case{"h", "0"}, Case{"hh", "00"}, Case{"dd", "07"},
                                         Case{"mm", "03"}, Case{"mmm", "Mar"}, Case{"ddd", "Sat"}, Case{"w", "7"},
                                         Case{"ww", "10"}, Case{"q", "1"}, Case{"y", "66"}, Case{"h:nn a/p", "12:07 a"},
                                         Case{"h AMPM", "12 AM"}, Case{"h am/pm", "12 am"}));

TEST(DateFormat, FormatDate_CompleteNearMidnightAndAtAFullHour_WritesTheTime)
{
    EXPECT_EQ(Written({2026, 1, 1, 5, 0, 0}, "c"), "1/1/2026 5:00:00 AM");
    EXPECT_EQ(Written({2026, 1, 1, 0, 7, 0}, "c"), "1/1/2026 12:07:00 AM");
    EXPECT_EQ(Written({2026, 1, 1, 0, 0, 9}, "c"), "1/1/2026 12:00:09 AM");
}

TEST(DateFormat, FormatDate_CompleteAtMidnight_WritesOnlyTheDate) { EXPECT_EQ(Written({2026, 1, 1}, "c"), "1/1/2026"); }

TEST(DateFormat, FormatDate_Noon_IsTwelvePM) { EXPECT_EQ(Written({2026, 1, 1, 12}, "h:nn AM/PM"), "12:00 PM"); }

TEST(DateFormat, FormatDate_AWrongWeekdayInTheTime_FollowsTheDate)
{
    LocalTime wrong = Afternoon;
    wrong.weekday = 3;
    EXPECT_EQ(Written(wrong, "dddd w"), "Sunday 1");
}

TEST(DateFormat, FormatDate_TheFirstOfJanuary_IsInTheFirstWeek) { EXPECT_EQ(Written({2026, 1, 1}, "ww y"), "1 1"); }

TEST(DateFormat, FormatDate_TheFirstSunday_BeginsTheSecondWeek) { EXPECT_EQ(Written({2026, 1, 4}, "ww"), "2"); }

TEST(DateFormat, FormatDate_ALeapYear_Has366DaysAnd54Weeks) { EXPECT_EQ(Written({2000, 12, 31}, "y ww"), "366 54"); }

TEST(DateFormat, FormatDate_ASmallYear_HasFourDigits) { EXPECT_EQ(Written({7, 1, 1}, "yyyy yy"), "0007 07"); }

TEST(DateFormat, FormatDate_EachQuarter_BeginsWithItsMonth)
{
    EXPECT_EQ(Written({2026, 3, 31}, "q"), "1");
    EXPECT_EQ(Written({2026, 4, 1}, "q"), "2");
    EXPECT_EQ(Written({2026, 7, 1}, "q"), "3");
    EXPECT_EQ(Written({2026, 10, 1}, "q"), "4");
}

TEST(DateFormat, FormatDate_NamesOfTheLocale_AreUsed)
{
    CHeadlessDesktop desktop;
    desktop.locale.monthNames[11] = "novembre";
    desktop.locale.weekdayNames[0] = "dimanche";
    EXPECT_EQ(common::FormatDate(Afternoon, "dddd d mmmm", desktop.locale), "dimanche 15 novembre");
}

TEST(DateFormat, FormatDate_ALocaleWithoutNames_GivesEnglishOnes)
{
    CHeadlessDesktop desktop;
    desktop.locale.hasNames = false;
    EXPECT_EQ(common::FormatDate(Afternoon, "dddd ddd mmmm mmm h AMPM", desktop.locale), "Sunday Sun November Nov 2 PM");
}

TEST(DateFormat, FormatDate_ALocaleWithoutFormats_GivesEnglishOnes)
{
    CHeadlessDesktop desktop;
    desktop.locale.hasNames = false;
    EXPECT_EQ(common::FormatDate(Afternoon, "ddddd|dddddd|ttttt", desktop.locale),
              "11/15/2026|Sunday, November 15, 2026|2:05:09 PM");
}

TEST(DateFormat, FormatDate_OnlyAMPM_UsesTheTextsOfTheLocale)
{
    CHeadlessDesktop desktop;
    desktop.locale.pm = "nachm.";
    EXPECT_EQ(common::FormatDate(Afternoon, "h AMPM h AM/PM h a/p", desktop.locale), "2 nachm. 2 PM 2 p");
}

namespace {

// A locale whose formats name themselves.
class CCircularLocale final : public platform::ILocale {
public:
    std::string MonthName(int, bool) const override { return ""; }
    std::string WeekdayName(int, bool) const override { return ""; }
    std::string AmText() const override { return ""; }
    std::string PmText() const override { return ""; }
    std::string ShortDateFormat() const override { return "c ddddd"; }
    std::string LongDateFormat() const override { return "dddddd"; }
    std::string LongTimeFormat() const override { return "ttttt"; }
};

}

TEST(DateFormat, FormatDate_ALocaleFormatThatNamesItself_EndsWithTheEnglishOne)
{
    EXPECT_EQ(common::FormatDate(Afternoon, "dddddd", CCircularLocale()), "Sunday, November 15, 2026");
    EXPECT_EQ(common::FormatDate(Afternoon, "ddddd", CCircularLocale()), "11/15/2026 2:05:09 PM 11/15/2026");
    EXPECT_EQ(common::FormatDate(Afternoon, "ttttt", CCircularLocale()), "2:05:09 PM");
}

TEST(DateFormat, FormatDate_ADateOrTimeThatDoesNotExist_Fails)
{
    for (const LocalTime& time :
         {LocalTime{2026, 0, 1}, LocalTime{2026, 13, 1}, LocalTime{2026, 2, 29}, LocalTime{2026, 4, 31},
          LocalTime{2026, 1, 0}, LocalTime{0, 1, 1}, LocalTime{10000, 1, 1}, LocalTime{2026, 1, 1, 24},
          LocalTime{2026, 1, 1, 0, 60}, LocalTime{2026, 1, 1, 0, -1}, LocalTime{2026, 1, 1, 0, 0, 61}})
        EXPECT_THROW(Written(time, "c"), platform::CFailure);
}

TEST(DateFormat, FormatDate_ALeapDay_Exists) { EXPECT_EQ(Written({2024, 2, 29}, "d mmmm"), "29 February"); }
