#include "character/RequestWait.h"
#include "character/bParlune.h"
#include "support/CharacterProgram.h"

using character::State;
using platform::RequestStatus;
using Texts = std::vector<std::string>;

class CharUnload : public CharacterProgram {
protected:
    CharUnload() { LoadMerlin(); }
    void EndHidingAfter(std::int64_t milliseconds, RequestStatus status)
    {
        desktop.events.After(milliseconds, [this, status] { desktop.engine.requests.back()->status = status; });
    }
    // Milliseconds that pass during the call.
    std::int64_t Duration(bool waitForHide)
    {
        const std::int64_t start = desktop.clock.SteadyMilliseconds();
        bParlune::CharUnload(waitForHide);
        return desktop.clock.SteadyMilliseconds() - start;
    }
};

TEST_F(CharUnload, WithoutWaiting_StopsAndUnloadsAtOnce)
{
    bParlune::CharUnload(false);
    EXPECT_EQ(desktop.journal.Calls(), (Texts{"Character.StopAll -", "Engine.Characters", "Characters.Unload Bot"}));
}

TEST_F(CharUnload, ForgetsTheCharacterAndItsAnimations)
{
    EXPECT_FALSE(State().animationNames.empty());
    bParlune::CharUnload(false);
    EXPECT_EQ(State().current, nullptr);
    EXPECT_TRUE(State().animationNames.empty());
    EXPECT_FALSE(State().loaded);
}

TEST_F(CharUnload, KeepsTheRequests)
{
    bParlune::CharSpeak("Hello");
    const std::int32_t spoken = LastRequest().ID();
    bParlune::CharUnload(false);
    EXPECT_EQ(State().speechRequest->ID(), spoken);
    EXPECT_EQ(State().skipTarget->ID(), spoken);
}

TEST_F(CharUnload, WithWaiting_HidesBetweenStoppingAndUnloading)
{
    EndHidingAfter(120, RequestStatus::Completed);
    bParlune::CharUnload(true);
    EXPECT_EQ(desktop.journal.CallsOf("Character"),
              (Texts{"Character.StopAll -", "Character.Visible", "Character.Hide -", "Characters.Unload Bot"}));
}

TEST_F(CharUnload, WithWaiting_GoesOnWhenTheHideHasEnded)
{
    EndHidingAfter(1200, RequestStatus::Completed);
    EXPECT_EQ(Duration(true), 1200);
}

TEST_F(CharUnload, WithWaiting_GoesOnWhenTheHideIsInterrupted)
{
    EndHidingAfter(700, RequestStatus::Interrupted);
    EXPECT_EQ(Duration(true), 700);
}

TEST_F(CharUnload, WithWaiting_WaitsForAHideInProgressToo)
{
    EndHidingAfter(100, RequestStatus::InProgress);
    EndHidingAfter(2000, RequestStatus::Completed);
    EXPECT_EQ(Duration(true), 2000);
}

TEST_F(CharUnload, WithAHideThatNeverEnds_WaitsUntilMoreThanFiveWholeSecondsHavePassed)
{
    EXPECT_EQ(Duration(true), 6000);
    EXPECT_FALSE(State().loaded);
}

TEST_F(CharUnload, CountsTheSecondsOfTheClock)
{
    desktop.clock.Advance(900);
    EXPECT_EQ(Duration(true), 5100);
}

TEST_F(CharUnload, WhileWaiting_SleepsBetweenTheChecks)
{
    bParlune::CharUnload(true);
    EXPECT_LE(desktop.journal.Count("Events.WaitForEvents"), 200U);
    EXPECT_EQ(desktop.journal.Count("Events.RunPendingEvents"), 0U);
}

TEST_F(CharUnload, OfAHiddenCharacter_DoesNotWait)
{
    desktop.engine.loaded->visible = false;
    EXPECT_EQ(Duration(true), 0);
    EXPECT_EQ(desktop.journal.Count("Character.Hide"), 0U);
}

TEST_F(CharUnload, WhenAnEventUnloadsMeanwhile_IsContent)
{
    desktop.events.After(100, [] { bParlune::CharUnload(false); });
    bParlune::CharUnload(true);
    EXPECT_EQ(desktop.journal.Count("Characters.Unload"), 1U);
    EXPECT_TRUE(Reports().empty());
}

TEST_F(CharUnload, WhenAnEventLoadsAnotherMeanwhile_LeavesThatOne)
{
    desktop.events.After(100, [] { character::CharLoad("Genie", true); });
    bParlune::CharUnload(true);
    EXPECT_TRUE(State().loaded);
    EXPECT_EQ(State().currentID, "Genie");
}

TEST_F(CharUnload, WithoutCharacter_IsReported)
{
    bParlune::CharUnload(false);
    bParlune::CharUnload(true);
    EXPECT_EQ(Reports(), Texts{"bParlune:CharUnload"});
}

TEST_F(CharUnload, WhenStoppingFails_ReportsAndReturns)
{
    desktop.journal.FailNext("Character.StopAll", failure);
    bParlune::CharUnload(false);
    EXPECT_EQ(Reports(), Texts{"bParlune:CharUnload"});
    EXPECT_EQ(desktop.journal.Count("Characters.Unload"), 0U);
    EXPECT_TRUE(State().loaded);
}

TEST_F(CharUnload, WhenUnloadingFails_ReportsAndKeepsTheCharacter)
{
    desktop.journal.FailNext("Characters.Unload", failure);
    bParlune::CharUnload(false);
    EXPECT_EQ(Reports(), Texts{"bParlune:CharUnload"});
    EXPECT_TRUE(State().loaded);
}

TEST_F(CharUnload, WaitForRequest_OfNoRequest_ReturnsAtOnce)
{
    character::WaitForRequest(nullptr, 5);
    EXPECT_EQ(desktop.journal.Count("Events."), 0U);
}

TEST_F(CharUnload, StillRunning_OfEachStatus_IsTrueForPendingAndInProgressOnly)
{
    const auto request = std::make_shared<platform::headless::CRequest>(1, "Character.Hide -");
    request->status = RequestStatus::Completed;
    EXPECT_FALSE(character::StillRunning(request));
    request->status = RequestStatus::Failed;
    EXPECT_FALSE(character::StillRunning(request));
    request->status = RequestStatus::Pending;
    EXPECT_TRUE(character::StillRunning(request));
    request->status = RequestStatus::Interrupted;
    EXPECT_FALSE(character::StillRunning(request));
    request->status = RequestStatus::InProgress;
    EXPECT_TRUE(character::StillRunning(request));
    EXPECT_FALSE(character::StillRunning(nullptr));
}
