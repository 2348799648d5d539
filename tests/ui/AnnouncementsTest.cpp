#include "ui/Announcements.h"
#include "character/bParlune.h"
#include "common/zbErrorTrap.h"
#include "support/CharacterProgram.h"
#include "support/FailEachCall.h"
#include "support/LoadedCharacter.h"

using announcements::AnnouncementDue;
using character::State;
using platform::RequestStatus;
using Texts = std::vector<std::string>;

namespace {

constexpr std::int64_t Second = 1000, Minute = 60 * Second, Hour = 60 * Minute;

class Announcements : public CharacterProgram {
protected:
    Announcements()
    {
        LoadMerlin();
        window.tmrTimer.onTimer = announcements::tmrTimer_Timer;
        window.tmrTimer.SetEnabled(true);
        window.chkSayTime.SetValue(1);
        window.cboSayTime.SetText("{Time}");
        window.cboSayTimeFormat.SetText("hh:nn");
        desktop.events.onTimePasses = [this](std::int32_t) { EndRequests(); };
    }
    void Every(const std::string& minutes) { window.cboSayTimeInterval.SetText(minutes); }
    void At(int hour, int minute, int second = 0) { desktop.clock.Set(2026, 11, 20, hour, minute, second); }
    // Lets time pass, with a tick of the timer at its beginning and every half second.
    void Pass(std::int64_t milliseconds)
    {
        for (std::int64_t passed = 0; passed < milliseconds; passed += 500) {
            window.tmrTimer.Tick();
            desktop.clock.Advance(500);
            desktop.journal.Clear();
        }
    }
    void EndRequests()
    {
        for (const auto& request : desktop.engine.requests)
            request->status = RequestStatus::Completed;
        desktop.engine.requests.clear();
    }
    // The speech of this test does not end by itself.
    void SpeakForever() { desktop.events.onTimePasses = nullptr; }
    Texts Announced() const { return desktop.engine.Spoken(); }
};

// The schedule.

TEST(AnnouncementDue, OfAQuarter_IsDueFourTimesAnHour)
{
    std::vector<std::int32_t> due;
    for (std::int32_t minute = 1; minute <= 60; ++minute)
        if (AnnouncementDue(minute, 15))
            due.push_back(minute);
    EXPECT_EQ(due, (std::vector<std::int32_t>{15, 30, 45, 60}));
}

TEST(AnnouncementDue, OfAnIntervalThatDoesNotDivideTheHour_LeavesTheFullHourOut)
{
    std::vector<std::int32_t> due;
    for (std::int32_t minute = 1; minute <= 60; ++minute)
        if (AnnouncementDue(minute, 7))
            due.push_back(minute);
    EXPECT_EQ(due, (std::vector<std::int32_t>{7, 14, 21, 28, 35, 42, 49, 56}));
}

TEST(AnnouncementDue, OfAnHour_IsDueAtTheFullHourOnly)
{
    EXPECT_TRUE(AnnouncementDue(60, 60));
    EXPECT_FALSE(AnnouncementDue(30, 60));
    EXPECT_FALSE(AnnouncementDue(1, 60));
}

TEST(AnnouncementDue, OfMoreThanAnHour_IsNeverDue)
{
    for (std::int32_t minute = 1; minute <= 60; ++minute)
        EXPECT_FALSE(AnnouncementDue(minute, 61));
}

TEST(AnnouncementDue, OfNoInterval_Fails)
{
    try {
        AnnouncementDue(30, 0);
        FAIL();
    } catch (const platform::CFailure& failure) {
        EXPECT_EQ(failure.Number(), 11);
    }
}

TEST(AnnouncementDue, OfANegativeInterval_CountsLikeAPositiveOne)
{
    EXPECT_TRUE(AnnouncementDue(30, -15));
    EXPECT_FALSE(AnnouncementDue(31, -15));
    EXPECT_FALSE(AnnouncementDue(1, std::numeric_limits<std::int32_t>::min()));
}

// Ticks.

TEST_F(Announcements, Timer_OverTheBeginningOfADueMinute_AnnouncesOnce)
{
    Every("15");
    At(10, 14, 59);
    Pass(Minute);
    EXPECT_EQ(Announced(), Texts{"10:15"});
}

TEST_F(Announcements, Timer_TickingAHundredTimesInTheSameMoment_AnnouncesOnce)
{
    Every("15");
    At(10, 15);
    for (int tick = 0; tick < 100; ++tick)
        window.tmrTimer.Tick();
    EXPECT_EQ(Announced(), Texts{"10:15"});
}

TEST_F(Announcements, Timer_AtTheFullHour_TakesItForMinute60)
{
    Every("30");
    At(10, 59, 59);
    Pass(2 * Second);
    EXPECT_EQ(Announced(), Texts{"11:00"});
}

TEST_F(Announcements, Timer_WithAnIntervalOf45_AnnouncesAt45Only)
{
    Every("45");
    At(8, 1);
    Pass(2 * Hour);
    EXPECT_EQ(Announced(), (Texts{"08:45", "09:45"}));
}

TEST_F(Announcements, Timer_SwitchedOnInADueMinute_AnnouncesAtOnce)
{
    Every("30");
    At(10, 30, 40);
    Pass(500);
    EXPECT_EQ(Announced(), Texts{"10:30"});
}

TEST_F(Announcements, Timer_AcrossMidnight_GoesOn)
{
    Every("20");
    At(23, 30);
    Pass(Hour);
    EXPECT_EQ(Announced(), (Texts{"23:40", "00:00", "00:20"}));
}

TEST_F(Announcements, Timer_SwitchedOff_DoesNothing)
{
    window.chkSayTime.SetValue(0);
    Every("1");
    Pass(3 * Minute);
    EXPECT_EQ(Announced(), Texts{});
}

TEST_F(Announcements, Timer_FirstTickAtAMinuteThatIsDue_AnnouncesIt)
{
    for (const int minute : {0, 1, 30, 59}) {
        CHeadlessDesktop fresh;
        support::LoadCharacter(fresh, "Merlin");
        fresh.clock.Set(2026, 11, 20, 10, minute);
        MainWindow().chkSayTime.SetValue(1);
        MainWindow().cboSayTimeInterval.SetText("1");
        MainWindow().cboSayTime.SetText("Hello");
        announcements::tmrTimer_Timer();
        EXPECT_EQ(fresh.engine.Spoken(), Texts{"Hello"}) << minute;
    }
}

TEST_F(Announcements, Timer_WithABoxInItsThirdState_DoesNothing)
{
    window.chkSayTime.SetValue(2);
    Every("1");
    Pass(3 * Minute);
    EXPECT_EQ(Announced(), Texts{});
}

TEST_F(Announcements, Timer_SwitchedOffAndOnInTheSameMinute_DoesNotRepeatIt)
{
    Every("1");
    At(10, 15);
    Pass(Second);
    window.chkSayTime.SetValue(0);
    Pass(Second);
    window.chkSayTime.SetValue(1);
    Pass(Second);
    EXPECT_EQ(Announced(), Texts{"10:15"});
}

TEST_F(Announcements, Timer_WithANewInterval_UsesItFromTheNextMinuteOn)
{
    Every("30");
    At(10, 15);
    Pass(Second);
    Every("15");
    Pass(58 * Second);
    EXPECT_EQ(Announced(), Texts{});
    Every("16");
    Pass(2 * Second);
    EXPECT_EQ(Announced(), Texts{"10:16"});
}

class WholeDay : public Announcements, public testing::WithParamInterface<int> {};

TEST_P(WholeDay, Timer_OfAnInterval_MissesAndRepeatsNothing)
{
    const int interval = GetParam();
    Texts expected;
    for (int minute = 0; minute < 24 * 60; ++minute) {
        const int ofHour = minute % 60 == 0 ? 60 : minute % 60;
        char time[8];
        std::snprintf(time, sizeof time, "%02d:%02d", minute / 60, minute % 60);
        if (ofHour % interval == 0)
            expected.push_back(time);
    }
    Every(std::to_string(interval));
    At(0, 0);
    for (const std::int64_t end = desktop.clock.SteadyMilliseconds() + 24 * Hour; desktop.clock.SteadyMilliseconds() < end;)
        Pass(500);
    EXPECT_EQ(Announced(), expected);
}

INSTANTIATE_TEST_SUITE_P(Intervals, WholeDay, testing::Range(1, 61));

// Clock changes.

TEST_F(Announcements, Timer_ClockSetForwardOverDueMinutes_SkipsThem)
{
    Every("10");
    At(10, 9, 30);
    Pass(10 * Second);
    At(10, 34, 30);
    Pass(10 * Minute);
    EXPECT_EQ(Announced(), Texts{"10:40"});
}

TEST_F(Announcements, Timer_ClockSetForwardIntoADueMinute_AnnouncesAtOnce)
{
    Every("10");
    At(10, 9, 30);
    Pass(10 * Second);
    At(10, 40, 30);
    Pass(500);
    EXPECT_EQ(Announced(), Texts{"10:40"});
}

TEST_F(Announcements, Timer_ClockSetBackOverADueMinute_AnnouncesItAgain)
{
    Every("15");
    At(10, 15);
    Pass(20 * Second);
    At(10, 14, 50);
    Pass(20 * Second);
    EXPECT_EQ(Announced(), (Texts{"10:15", "10:15"}));
}

TEST_F(Announcements, Timer_ClockSetToTheSameMinuteOfAnotherHour_TakesItForTheSame)
{
    Every("15");
    At(10, 15);
    Pass(10 * Second);
    At(13, 15);
    Pass(10 * Second);
    EXPECT_EQ(Announced(), Texts{"10:15"});
}

TEST_F(Announcements, Timer_WhenDaylightSavingBegins_AnnouncesTheHourThatIsThere)
{
    Every("30");
    desktop.clock.Set(2027, 3, 28, 1, 25);
    Pass(35 * Minute - 500);
    desktop.clock.Set(2027, 3, 28, 3, 0);
    Pass(31 * Minute);
    EXPECT_EQ(Announced(), (Texts{"01:30", "03:00", "03:30"}));
}

TEST_F(Announcements, Timer_WhenDaylightSavingEnds_AnnouncesTheHourTwice)
{
    Every("30");
    desktop.clock.Set(2027, 10, 31, 1, 55);
    Pass(64 * Minute + 59 * Second);
    desktop.clock.Set(2027, 10, 31, 2, 0);
    Pass(61 * Minute);
    EXPECT_EQ(Announced(), (Texts{"02:00", "02:30", "02:00", "02:30", "03:00"}));
}

// Intervals that are none.

TEST_F(Announcements, Timer_WithIntervalZero_IsReportedOncePerMinute)
{
    Every("0");
    At(10, 15);
    Pass(3 * Minute);
    EXPECT_EQ(Reports(), (Texts{"Parlune:Timer", "Parlune:Timer", "Parlune:Timer"}));
    EXPECT_EQ(desktop.messageBoxes.Last().Line(3), "Error Code: 11");
    EXPECT_EQ(Announced(), Texts{});
}

TEST_F(Announcements, Timer_WithAnIntervalThatIsNoNumber_IsReportedOncePerMinute)
{
    Every("often");
    At(10, 15);
    Pass(2 * Minute);
    EXPECT_EQ(Reports(), (Texts{"Parlune:Timer", "Parlune:Timer"}));
    EXPECT_EQ(desktop.messageBoxes.Last().Line(3), "Error Code: 13");
}

TEST_F(Announcements, Timer_WithTooLargeAnInterval_IsReported)
{
    Every("99999999999");
    Pass(Second);
    EXPECT_EQ(Reports(), Texts{"Parlune:Timer"});
    EXPECT_EQ(desktop.messageBoxes.Last().Line(3), "Error Code: 6");
}

TEST_F(Announcements, Timer_AfterAMinuteThatFailed_DoesNotRetryIt)
{
    Every("0");
    At(10, 15);
    Pass(Second);
    Every("15");
    Pass(50 * Second);
    EXPECT_EQ(Announced(), Texts{});
    Pass(15 * Minute);
    EXPECT_EQ(Announced(), Texts{"10:30"});
}

TEST_F(Announcements, Timer_WhenTheClockFails_IsReportedAndTriesAgain)
{
    Every("15");
    At(10, 15);
    desktop.journal.FailNext("Clock.Now", failure);
    Pass(Second);
    EXPECT_EQ(Reports(), Texts{"Parlune:Timer"});
    EXPECT_EQ(Announced(), Texts{"10:15"});
}

TEST_F(Announcements, Timer_WhenACallFails_IsReportedByWhoMadeIt)
{
    support::FailEachCallAndExpect(
        {{"Clock.Now", "Parlune:Timer"},
         {"Character.Visible", ""},
         {"Character.Speak", "bParlune:CharSpeak"},
         {"", "Parlune:SayTime"}},
        [](CHeadlessDesktop& each) {
            support::LoadCharacter(each, "Merlin");
            each.engine.loaded->visible = true;
            each.clock.Set(2026, 11, 20, 10, 30);
            MainWindow().chkSayTime.SetValue(1);
            MainWindow().cboSayTimeInterval.SetText("30");
            MainWindow().cboSayTime.SetText("Hello");
        },
        [](CHeadlessDesktop&) { announcements::tmrTimer_Timer(); });
}

// The announcement.

TEST_F(Announcements, SayTime_SpeaksTheSentenceWithoutItsOuterBlanks)
{
    At(9, 5);
    window.cboSayTime.SetText("  It is now {Time}. ");
    announcements::SayTime();
    EXPECT_EQ(Announced(), Texts{"It is now 09:05."});
}

TEST_F(Announcements, SayTime_OfAVisibleCharacter_LeavesItVisibleAndLoaded)
{
    announcements::SayTime();
    EXPECT_TRUE(State().loaded);
    EXPECT_TRUE(desktop.engine.loaded->visible);
    EXPECT_EQ(desktop.journal.Count("Character.Show"), 0U);
}

TEST_F(Announcements, SayTime_OfAHiddenCharacter_ShowsSpeaksAndUnloadsIt)
{
    desktop.engine.loaded->visible = false;
    announcements::SayTime();
    EXPECT_EQ(desktop.journal.Count("Character.Show -"), 1U);
    EXPECT_EQ(Announced().size(), 1U);
    EXPECT_EQ(desktop.journal.Count("Characters.Unload Bot"), 1U);
    EXPECT_FALSE(State().loaded);
}

TEST_F(Announcements, SayTime_WithTheBoxAboutHiddenCharactersCleared_ShowsItAllTheSame)
{
    window.chkSayTimeShowIfHidden.SetValue(0);
    desktop.engine.loaded->visible = false;
    announcements::SayTime();
    EXPECT_EQ(desktop.journal.Count("Character.Show -"), 1U);
    EXPECT_EQ(Announced().size(), 1U);
}

TEST_F(Announcements, SayTime_WithoutALoadedCharacter_LoadsTheConfiguredOneForIt)
{
    bParlune::CharUnload(false);
    announcements::SayTime();
    EXPECT_EQ(Announced().size(), 1U);
    EXPECT_FALSE(State().loaded);
    announcements::SayTime();
    EXPECT_EQ(Announced().size(), 2U);
    EXPECT_EQ(Reports(), Texts{});
}

TEST_F(Announcements, SayTime_OfAHiddenCharacter_WaitsForTheEndOfTheSpeech)
{
    SpeakForever();
    desktop.engine.loaded->visible = false;
    desktop.events.After(3 * Second, [this] { EndRequests(); });
    announcements::SayTime();
    const auto unloaded = std::find(desktop.journal.Calls().begin(), desktop.journal.Calls().end(), "Characters.Unload Bot");
    EXPECT_NE(unloaded, desktop.journal.Calls().end());
    EXPECT_GE(desktop.clock.SteadyMilliseconds(), 3 * Second);
}

TEST_F(Announcements, SayTime_OfALongSpeech_WaitsUntilMoreThanFiveWholeSecondsHavePassed)
{
    SpeakForever();
    announcements::SayTime();
    EXPECT_EQ(desktop.clock.SteadyMilliseconds(), 6 * Second);
    EXPECT_TRUE(State().loaded);
    EXPECT_EQ(desktop.journal.Count("Character.StopAll"), 0U) << "a visible character speaks the whole sentence";
}

TEST_F(Announcements, SayTime_OfALongSpeechByAHiddenCharacter_IsCutOff)
{
    SpeakForever();
    desktop.engine.loaded->visible = false;
    announcements::SayTime();
    EXPECT_EQ(desktop.journal.Count("Character.StopAll -"), 1U);
    EXPECT_FALSE(State().loaded);
}

TEST_F(Announcements, SayTime_WhileTheSpeechIsInProgress_WaitsToo)
{
    SpeakForever();
    desktop.events.After(Second, [this] { desktop.engine.requests.back()->status = RequestStatus::InProgress; });
    announcements::SayTime();
    EXPECT_EQ(desktop.clock.SteadyMilliseconds(), 6 * Second);
}

TEST_F(Announcements, SayTime_OfAnInterruptedSpeech_StopsWaiting)
{
    SpeakForever();
    desktop.events.After(Second, [this] { desktop.engine.requests.back()->status = RequestStatus::Interrupted; });
    announcements::SayTime();
    EXPECT_EQ(desktop.clock.SteadyMilliseconds(), Second);
}

TEST_F(Announcements, SayTime_WithoutAKeptSpeech_LeavesTheCharacterAsItIs)
{
    desktop.engine.loaded->visible = false;
    desktop.events.AtYield(1, [] { State().speechRequest = nullptr; });
    announcements::SayTime();
    EXPECT_TRUE(State().loaded);
    EXPECT_TRUE(desktop.engine.loaded->visible);
}

TEST_F(Announcements, SayTime_WhenTheUserPutsTheCharacterAwayMeanwhile_IsSilent)
{
    desktop.engine.loaded->visible = false;
    desktop.events.AtYield(1, [] { bParlune::CharUnload(false); });
    announcements::SayTime();
    EXPECT_EQ(Reports(), Texts{});
    EXPECT_FALSE(State().loaded);
}

TEST_F(Announcements, SayTime_TicksDuringItsWait_ReturnAtOnce)
{
    SpeakForever();
    Every("1");
    At(10, 15);
    for (int tick = 1; tick <= 10; ++tick)
        desktop.events.After(tick * 500, [this] { window.tmrTimer.Tick(); });
    window.tmrTimer.Tick();
    EXPECT_EQ(Announced(), Texts{"10:15"});
}

TEST_F(Announcements, SayTime_TickOfANewMinuteDuringItsWait_AnnouncesThatOneToo)
{
    SpeakForever();
    Every("1");
    At(10, 15, 58);
    desktop.events.After(3 * Second, [this] { window.tmrTimer.Tick(); });
    window.tmrTimer.Tick();
    EXPECT_EQ(Announced(), (Texts{"10:15", "10:16"}));
    EXPECT_EQ(Reports(), Texts{});
}

TEST_F(Announcements, Timer_OfAnIntervalThatIsNoNumber_StacksNoReports)
{
    Every("15 minutes");
    At(10, 15);
    int minutes = 0;
    desktop.messageBoxes.whileShown = [&] {
        if (++minutes > 30)
            return;
        desktop.clock.Advance(Minute);
        window.tmrTimer.Tick();
    };
    window.tmrTimer.Tick();
    EXPECT_EQ(Reports(), Texts{"Parlune:Timer"});
    EXPECT_EQ(zbErrorTrap::UnshownReports(), 1U);
}

TEST_F(Announcements, Timer_OfAnIntervalThatIsNoNumber_IsReportedAgainInTheNextMinute)
{
    Every("15 minutes");
    At(10, 15);
    window.tmrTimer.Tick();
    window.tmrTimer.Tick();
    At(10, 16);
    window.tmrTimer.Tick();
    EXPECT_EQ(Reports(), (Texts{"Parlune:Timer", "Parlune:Timer"}));
}

TEST_F(Announcements, SayTime_WhenACallFails_IsReportedByWhoMadeIt)
{
    support::FailEachCallAndExpect(
        {{"Character.Visible", ""},
         {"Character.Speak", "bParlune:CharSpeak"},
         {"Clock.SteadyMilliseconds", "Parlune:SayTime"},
         {"Events.WaitForEvents", "Parlune:SayTime"}},
        [](CHeadlessDesktop& each) {
            support::LoadCharacter(each, "Merlin");
            each.engine.loaded->visible = true;
            MainWindow().cboSayTime.SetText("Hello");
        },
        [](CHeadlessDesktop&) { announcements::SayTime(); });
}

}
