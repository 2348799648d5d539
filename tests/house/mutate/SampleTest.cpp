#include "Sample.h"
#include <gtest/gtest.h>
#include <stdexcept>

// They leave gaps on purpose: nobody asks for the fare of a pupil, for the age of 6 and for what a ticket says.
TEST(IsGrown, AtTheLimit_IsTrue) { EXPECT_TRUE(IsGrown(18)); }

TEST(IsGrown, BelowTheLimit_IsFalse) { EXPECT_FALSE(IsGrown(17)); }

TEST(Fare, OfEachAge_IsItsOwn)
{
    EXPECT_EQ(Fare(5, false), 0);
    EXPECT_EQ(Fare(10, false), 2);
    EXPECT_EQ(Fare(30, false), 5);
}

TEST(Ticket, Always_IsCounted)
{
    int sold = 0;
    Ticket(30, sold);
    EXPECT_EQ(sold, 1);
}

TEST(SumTo, Three_AddsThreeNumbers) { EXPECT_EQ(SumTo(3), 6); }

TEST(Zone, BehindTheLastZone_BeginsAnew) { EXPECT_EQ(Zone(9), 1); }

TEST(Platform, OfATrain_IsNotKnown) { EXPECT_THROW(Platform("night train"), std::runtime_error); }
