#include "character/CharacterSession.h"
#include "endurance/LiveMemory.h"
#include "stories/Story.h"
#include <cstdio>

namespace {

constexpr std::int64_t Second = 1000, Minute = 60 * Second;

// A whole day in the life of the program: the user copies something every ten seconds, the time is announced every minute,
// tabs are looked at, and characters come and go.
class Day : public CStory {
protected:
    Day()
    {
        PutOption("MonitorClipboard", "1");
        PutOption("SayTimeInterval", "1");
        PutOption("SayTimeText", "{Time}");
        PutOption("SayTimeFormat", "hh:nn");
        desktop.events.onTimePasses = [this](std::int32_t milliseconds) { Happen(milliseconds); };
        desktop.speechEngines.engines = {{"{11111111-2222-3333-4444-555555555555}", "Ann"}};
        host.sound.streams.reserve(100'000);  // A record of the test's, not of the program's.
    }

    // Lets the program live from here to a time of this day.
    void LiveUntil(std::int64_t time)
    {
        while (m_now < time) {
            const std::int64_t step = 500 - m_now % 500;
            desktop.clock.Advance(step);
            Happen(step);
        }
    }
    // One minute, from its second 0 to the next one's: the announcement first, then what the user does.
    void LiveMinute(int minute)
    {
        LiveUntil(minute * Minute + 4 * Second);
        CountAnnouncement(minute);
        Flip(minute);
        LiveUntil(minute * Minute + 33 * Second);
        if (minute % 10 == 3)
            Reload(minute);
        LiveUntil((minute + 1) * Minute - 500);
        copiesRead += SpokenTimes("This is copied");
        ForgetRecords();
    }

    static constexpr int WarmUpMinutes = 120;
    int announced = 0;   // Minutes.
    int repeated = 0;    // Minutes that were announced more than once.
    int copiesRead = 0;  // To their end.

private:
    // The clock has moved on already: so much time has passed for everybody else too.
    void Happen(std::int64_t milliseconds)
    {
        const std::int64_t before = m_now;
        m_now += milliseconds;
        host.Advance(milliseconds);
        if (before / 500 != m_now / 500)
            MainWindow().tmrTimer.Tick();
        if ((before + 5 * Second) / (10 * Second) != (m_now + 5 * Second) / (10 * Second))
            desktop.clipboard.Put("This is copied text number " + std::to_string(++m_copied) + ", to be read.");
    }
    // How many texts that begin like this were spoken to their end since the records were forgotten.
    int SpokenTimes(std::string_view beginning) const
    {
        int times = 0;
        for (const auto& order : host.synthesizer.Orders())
            for (const engine::SpeechSegment& segment : order.segments)
                times += !order.cancelled && segment.text.starts_with(beginning) ? 1 : 0;
        return times;
    }
    void CountAnnouncement(int minute)
    {
        char time[8];
        std::snprintf(time, sizeof time, "%02d:%02d", minute / 60 % 24, minute % 60);
        const int times = SpokenTimes(time);
        announced += times > 0 ? 1 : 0;
        repeated += times > 1 ? 1 : 0;
    }
    static void Flip(int minute)
    {
        MainWindow().tabMain.Select(minute % 7);
        MainWindow().tabTTS.Select(minute % 2);
        MainWindow().tabGreetings.Select(minute % 5);
    }
    // Another character takes its place, or it is put away, and comes back twenty minutes later.
    static void Reload(int minute)
    {
        if (minute % 20 == 3)
            character::CharLoad(minute % 40 == 3 ? "Tester" : "", /*show*/ true);
        else
            MainWindow().mnuPopHide.Click();
    }
    void ForgetRecords()
    {
        desktop.journal.Clear();
        desktop.screen.pointers.clear();
        host.synthesizer.ForgetOrders();
        while (host.windows.size() > 1 && host.windows.front().destroyed)
            host.windows.pop_front();
        while (host.balloons.size() > 1 && host.balloons.front().destroyed)
            host.balloons.pop_front();
    }

    std::int64_t m_now = 0;  // Milliseconds since the day began.
    int m_copied = 0;
};

TEST_F(Day, OfCopiesAnnouncementsAndReloads_MissesNothingAndKeepsItsMemory)
{
    desktop.clock.Set(2026, 11, 20, 0, 0);
    Start();
    for (int minute = 0; minute < WarmUpMinutes; ++minute)
        LiveMinute(minute);
    const std::int64_t bytes = liveMemory::Bytes();
    const std::int64_t blocks = liveMemory::Blocks();
    const int announcedBefore = announced;
    const int copiesReadBefore = copiesRead;

    for (int minute = WarmUpMinutes; minute < WarmUpMinutes + 24 * 60; ++minute)
        LiveMinute(minute);

    EXPECT_EQ(announced - announcedBefore, 24 * 60);
    EXPECT_EQ(repeated, 0);
    EXPECT_GT(copiesRead - copiesReadBefore, 4'000);  // The others came while the character was away, or was sent away.
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
    // Less than one number for each announcement: no list grows with what happens.
    EXPECT_LT(liveMemory::Bytes() - bytes, 24 * 60 * 4);
    EXPECT_LT(liveMemory::Blocks() - blocks, 24);
}

TEST(LiveMemory, Bytes_OfWhatIsHeld_AreCounted)
{
    const std::int64_t bytes = liveMemory::Bytes(), blocks = liveMemory::Blocks();
    {
        const std::vector<char> held(5'000);
        EXPECT_EQ(liveMemory::Bytes() - bytes, 5'000);
        EXPECT_EQ(liveMemory::Blocks() - blocks, 1);
    }
    EXPECT_EQ(liveMemory::Bytes(), bytes);
    EXPECT_EQ(liveMemory::Blocks(), blocks);
}

}
