#include "engine/hosts/qt/PlayClock.h"

using engine::CPlayClock;

TEST(PlayClock, Position_BeforeAnySample_IsZero)
{
    CPlayClock clock;
    clock.Start(1000, 0, 0, 0);

    EXPECT_EQ(clock.Position(5000000), 0);
}

TEST(PlayClock, Position_WhileSamplesLast_FollowsTime)
{
    CPlayClock clock;
    clock.Start(1000, 0, 0, 0);
    clock.Add(800, 2000000);

    EXPECT_EQ(clock.Position(2000000), 0);
    EXPECT_EQ(clock.Position(2250000), 250);
    EXPECT_EQ(clock.Position(9000000), 800);
}

TEST(PlayClock, Position_AfterAGap_GoesOnFromTheLateSamples)
{
    CPlayClock clock;
    clock.Start(1000, 0, 0, 0);
    clock.Add(100, 0);
    clock.Add(100, 3000000);

    EXPECT_EQ(clock.Position(3050000), 150);
}

TEST(PlayClock, Stop_InTheMiddle_KeepsThePosition)
{
    CPlayClock clock;
    clock.Start(1000, 0, 0, 0);
    clock.Add(1000, 0);
    clock.Stop(400000);

    EXPECT_EQ(clock.Position(900000), 400);
}

TEST(PlayClock, Start_InMidStream_GoesOnFromThere)
{
    CPlayClock clock;
    clock.Start(1000, 500, 900, 1000000);

    EXPECT_EQ(clock.Position(1100000), 600);
    EXPECT_EQ(clock.Position(8000000), 900);
}
