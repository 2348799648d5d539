#include "common/bGlobal.h"
#include "support/FailEachCall.h"
#include <gtest/gtest.h>

namespace {

constexpr auto Nothing = [](CHeadlessDesktop&) {};

struct OrdinalDay {
    int day;
    std::string expected;
};
class GetDateOf : public testing::TestWithParam<OrdinalDay> {};

struct PartOfDay {
    int hour;
    int minute;
    std::string expected;
};
class GetTimeOfDayAt : public testing::TestWithParam<PartOfDay> {};

}

TEST(bGlobalPhrases, GetDate_TheFifteenthOfNovember_IsWrittenInWords)
{
    CHeadlessDesktop desktop;
    EXPECT_EQ(bGlobal::GetDate(), "November 15th, 2026");
}

TEST_P(GetDateOf, GetDate_EachDay_HasItsSuffix)
{
    CHeadlessDesktop desktop;
    desktop.clock.Set(2026, 1, GetParam().day, 9, 0);
    EXPECT_EQ(bGlobal::GetDate(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(January, GetDateOf,
                         testing::Values(OrdinalDay{1, "January 1st, 2026"}, OrdinalDay{2, "January 2nd, 2026"},
                                         OrdinalDay{3, "January 3rd, 2026"}, OrdinalDay{4, "January 4th, 2026"},
                                         OrdinalDay{5, "January 5th, 2026"}, OrdinalDay{6, "January 6th, 2026"},
                                         OrdinalDay{7, "January 7th, 2026"}, OrdinalDay{8, "January 8th, 2026"},
                                         OrdinalDay{9, "January 9th, 2026"}, OrdinalDay{10, "January 10th, 2026"},
                                         OrdinalDay{11, "January 11th, 2026"}, OrdinalDay{12, "January 12th, 2026"},
                                         OrdinalDay{13, "January 13th, 2026"}, OrdinalDay{14, "January 14th, 2026"},
                                         OrdinalDay{15, "January 15th, 2026"}, OrdinalDay{16, "January 16th, 2026"},
                                         OrdinalDay{17, "January 17th, 2026"}, OrdinalDay{18, "January 18th, 2026"},
                                         OrdinalDay{19, "January 19th, 2026"}, OrdinalDay{20, "January 20th, 2026"},
                                         OrdinalDay{21, "January 21st, 2026"}, OrdinalDay{22, "January 22nd, 2026"},
                                         OrdinalDay{23, "January 23rd, 2026"}, OrdinalDay{24, "January 24th, 2026"},
                                         OrdinalDay{25, "January 25th, 2026"}, OrdinalDay{26, "January 26th, 2026"},
                                         OrdinalDay{27, "January 27th, 2026"}, OrdinalDay{28, "January 28th, 2026"},
                                         OrdinalDay{29, "January 29th, 2026"}, OrdinalDay{30, "January 30th, 2026"},
                                         OrdinalDay{31, "January 31st, 2026"}));

TEST(bGlobalPhrases, GetDate_TheMonthName_IsThatOfTheUsersLanguage)
{
    CHeadlessDesktop desktop;
    desktop.locale.monthNames[11] = "novembre";
    EXPECT_EQ(bGlobal::GetDate(), "novembre 15th, 2026");
}

TEST(bGlobalPhrases, GetDate_ASystemWithoutNames_GivesTheEnglishOne)
{
    CHeadlessDesktop desktop;
    desktop.locale.hasNames = false;
    EXPECT_EQ(bGlobal::GetDate(), "November 15th, 2026");
}

TEST(bGlobalPhrases, GetDate_ReadsTheClockThreeTimes)
{
    CHeadlessDesktop desktop;
    bGlobal::GetDate();
    EXPECT_EQ(desktop.journal.Count("Clock.Now"), 3U);
}

TEST(bGlobalPhrases, GetDate_WhenACallFails_IsReportedAndEmpty)
{
    std::string date;
    support::FailEachCall(
        Nothing, [&](CHeadlessDesktop&) { date = bGlobal::GetDate(); },
        [&](const support::FailedRun& run) {
            support::ExpectReport(run, {{"", "bGlobal:GetDate"}});
            EXPECT_EQ(date, "");
        });
}

TEST(bGlobalPhrases, GetDay_ASunday_IsItsFullName)
{
    CHeadlessDesktop desktop;
    EXPECT_EQ(bGlobal::GetDay(), "Sunday");
}

TEST(bGlobalPhrases, GetDay_TheName_IsThatOfTheUsersLanguage)
{
    CHeadlessDesktop desktop;
    desktop.locale.weekdayNames[0] = "dimanche";
    EXPECT_EQ(bGlobal::GetDay(), "dimanche");
}

TEST(bGlobalPhrases, GetDay_WhenACallFails_IsReportedAndEmpty)
{
    std::string day;
    support::FailEachCall(
        Nothing, [&](CHeadlessDesktop&) { day = bGlobal::GetDay(); },
        [&](const support::FailedRun& run) {
            support::ExpectReport(run, {{"", "bGlobal:GetDay"}});
            EXPECT_EQ(day, "");
        });
}

TEST(bGlobalPhrases, GetTime_TheFormatsOffered_GiveTheTime)
{
    CHeadlessDesktop desktop;
    EXPECT_EQ(bGlobal::GetTime("h:nn AM/PM"), "2:05 PM");
    EXPECT_EQ(bGlobal::GetTime("h:nn"), "14:05");
    EXPECT_EQ(bGlobal::GetTime("hh:nn"), "14:05");
    EXPECT_EQ(bGlobal::GetTime("h:mm AM/PM"), "2:05 PM");
}

TEST(bGlobalPhrases, GetTime_SevenMinutesAfterMidnight_IsTwelveSevenAM)
{
    CHeadlessDesktop desktop;
    desktop.clock.Set(2026, 11, 15, 0, 7);
    EXPECT_EQ(bGlobal::GetTime("h:nn AM/PM"), "12:07 AM");
}

TEST(bGlobalPhrases, GetTime_Noon_IsTwelvePM)
{
    CHeadlessDesktop desktop;
    desktop.clock.Set(2026, 11, 15, 12, 0);
    EXPECT_EQ(bGlobal::GetTime("h:nn AM/PM"), "12:00 PM");
}

TEST(bGlobalPhrases, GetTime_AnyOtherText_IsCopied)
{
    CHeadlessDesktop desktop;
    EXPECT_EQ(bGlobal::GetTime("\"It is\" h - {o'}"), "It is 14 - {o'}");
}

TEST(bGlobalPhrases, GetTime_WhenACallFails_IsReportedAndEmpty)
{
    std::string time;
    support::FailEachCall(
        Nothing, [&](CHeadlessDesktop&) { time = bGlobal::GetTime("h:nn"); },
        [&](const support::FailedRun& run) {
            support::ExpectReport(run, {{"", "bGlobal:GetTime"}});
            EXPECT_EQ(time, "");
        });
}

TEST_P(GetTimeOfDayAt, GetTimeOfDay_EachHour_HasItsPhrase)
{
    CHeadlessDesktop desktop;
    desktop.clock.Set(2026, 11, 15, GetParam().hour, GetParam().minute);
    EXPECT_EQ(bGlobal::GetTimeOfDay(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Bounds, GetTimeOfDayAt,
                         testing::Values(PartOfDay{0, 0, "Morning"}, PartOfDay{0, 30, "Morning"},
                                         PartOfDay{11, 0, "Morning"}, PartOfDay{11, 59, "Morning"},
                                         PartOfDay{12, 0, "Afternoon"}, PartOfDay{16, 59, "Afternoon"},
                                         PartOfDay{17, 0, "Evening"}, PartOfDay{23, 30, "Evening"}));

TEST(bGlobalPhrases, GetTimeOfDay_WhenACallFails_IsReportedAndEmpty)
{
    std::string part;
    support::FailEachCall(
        Nothing, [&](CHeadlessDesktop&) { part = bGlobal::GetTimeOfDay(); },
        [&](const support::FailedRun& run) {
            support::ExpectReport(run, {{"", "bGlobal:GetTimeOfDay"}});
            EXPECT_EQ(part, "");
        });
}
