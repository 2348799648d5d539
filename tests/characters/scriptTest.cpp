#include "motion/Script.h"
#include <gtest/gtest.h>

using motion::CScript;
using motion::Ease;
using nibbin::Pose;

TEST(Pose, Mix_Halfway_LiesBetween)
{
    Pose from, to;
    from.lean = 2;
    to.lean = 6;
    to.left.up = from.left.up + 10;
    const Pose middle = nibbin::Mix(from, to, 0.5);
    EXPECT_DOUBLE_EQ(middle.lean, 4);
    EXPECT_DOUBLE_EQ(middle.left.up, from.left.up + 5);
}

TEST(Pose, Mix_OnTheWay_HasTheGoalsTool)
{
    Pose from, to;
    to.tool = nibbin::Tool::Horn;
    EXPECT_EQ(nibbin::Mix(from, to, 0).tool, nibbin::Tool::None);
    EXPECT_EQ(nibbin::Mix(from, to, 0.1).tool, nibbin::Tool::Horn);
}

TEST(CScript, Go_ThreeFrames_EndsInTheChangedPose)
{
    const auto script = CScript("x", {}).Go(3, 7, Ease::Even, [](Pose& p) { p.lean = 9; }).Ends();
    ASSERT_EQ(script.steps.size(), 3U);
    EXPECT_DOUBLE_EQ(script.steps[0].pose.lean, 3);
    EXPECT_DOUBLE_EQ(script.steps[2].pose.lean, 9);
    EXPECT_EQ(script.steps[1].duration, 7);
}

TEST(CScript, Go_EaseOver_RunsPastItsGoalAndEndsInIt)
{
    const auto script = CScript("x", {}).Go(4, 7, Ease::Over, [](Pose& p) { p.lean = 10; }).Ends();
    EXPECT_GT(script.steps[2].pose.lean, 10);
    EXPECT_DOUBLE_EQ(script.steps[3].pose.lean, 10);
}

TEST(CScript, Hold_AfterAFrame_KeepsItLonger)
{
    const auto script = CScript("x", {}).GoTo(1, 7, Ease::Even, {}).Hold(20).Ends();
    EXPECT_EQ(script.steps[0].duration, 27);
}

TEST(CScript, Blink_InAPose_ClosesTheEyesAndOpensThem)
{
    const auto script = CScript("x", {}).Blink().Ends();
    ASSERT_EQ(script.steps.size(), 4U);
    EXPECT_DOUBLE_EQ(script.steps[1].pose.leftEye.lid, 1);
    EXPECT_DOUBLE_EQ(script.steps[3].pose.leftEye.lid, Pose().leftEye.lid);
}

TEST(CScript, ExitHere_AfterFrames_SendsThemToTheNextFrame)
{
    CScript script("x", {});
    script.GoTo(2, 7, Ease::Even, {}).ExitHere();
    script.GoTo(1, 7, Ease::Even, {});
    const auto steps = script.EndsByExits().steps;
    EXPECT_EQ(steps[0].exit, 2);
    EXPECT_EQ(steps[1].exit, 2);
    EXPECT_EQ(steps[2].exit, std::nullopt);
}
