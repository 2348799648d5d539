#include "engine/hosts/qt/QtTimers.h"
#include "Support.h"

using engine::CQtTimers;
using engine::TimerID;

namespace {

class QtTimers : public testing::Test {
protected:
    QtTimers() { support::NeedApplication(); }
};

}

TEST_F(QtTimers, CallLater_ZeroDelays_RunInOrderInTheNextTurn)
{
    CQtTimers timers;
    std::string order;
    timers.CallLater(0, [&] { order += 'a'; });
    timers.CallLater(0, [&] { order += 'b'; });
    timers.CallLater(-5, [&] { order += 'c'; });

    EXPECT_EQ(order, "");
    EXPECT_TRUE(support::RunLoopUntil([&] { return order.size() == 3; }));
    EXPECT_EQ(order, "abc");
}

TEST_F(QtTimers, CallLater_DifferentDelays_RunWhenDue)
{
    CQtTimers timers;
    std::string order;
    const std::int64_t begin = timers.NowMilliseconds();
    std::int64_t lateRanAt = 0;
    timers.CallLater(60, [&] {
        order += 'l';
        lateRanAt = timers.NowMilliseconds();
    });
    timers.CallLater(20, [&] { order += 'e'; });

    EXPECT_TRUE(support::RunLoopUntil([&] { return order.size() == 2; }));
    EXPECT_EQ(order, "el");
    EXPECT_GE(lateRanAt - begin, 60);
}

TEST_F(QtTimers, Cancel_WaitingCall_NeverRuns)
{
    CQtTimers timers;
    bool ran = false;
    bool laterRan = false;
    const TimerID timer = timers.CallLater(0, [&] { ran = true; });
    timers.CallLater(20, [&] { laterRan = true; });
    timers.Cancel(timer);
    timers.Cancel(timer);
    timers.Cancel(0);

    EXPECT_TRUE(support::RunLoopUntil([&] { return laterRan; }));
    EXPECT_FALSE(ran);
}

TEST_F(QtTimers, Cancel_OfTheOtherCallInTheSameTurn_Holds)
{
    CQtTimers timers;
    bool ran = false;
    bool done = false;
    TimerID second = 0;
    timers.CallLater(0, [&] { timers.Cancel(second); });
    second = timers.CallLater(0, [&] { ran = true; });
    timers.CallLater(10, [&] { done = true; });

    EXPECT_TRUE(support::RunLoopUntil([&] { return done; }));
    EXPECT_FALSE(ran);
}

TEST_F(QtTimers, CallLater_CallThatRenewsItself_LetsTheLoopGoOn)
{
    CQtTimers timers;
    int runs = 0;
    bool otherRan = false;
    std::function<void()> again = [&] {
        ++runs;
        timers.CallLater(0, again);
    };
    timers.CallLater(0, again);
    timers.CallLater(20, [&] { otherRan = true; });

    EXPECT_TRUE(support::RunLoopUntil([&] { return otherRan; }));
    EXPECT_GT(runs, 2);
}

TEST_F(QtTimers, CallLater_InsideALoopOfACall_RunsThere)
{
    CQtTimers timers;
    bool innerRan = false;
    bool seenInside = false;
    bool over = false;
    timers.CallLater(0, [&] {
        seenInside = support::RunLoopUntil([&] { return innerRan; });
        over = true;
    });
    timers.CallLater(5, [&] { innerRan = true; });

    EXPECT_TRUE(support::RunLoopUntil([&] { return over; }));
    EXPECT_TRUE(seenInside);
}
