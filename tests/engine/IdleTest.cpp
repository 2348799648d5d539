#include "EngineTest.h"

using namespace testing_character;

class IdleTest : public EngineTest {
protected:
    // Shown and idling allowed; idle animations are one second long. Time counts from the end of Show.
    void LoadIdling(engine::Character character = Make())
    {
        LoadShown(std::move(character));
        bot->SetIdleOn(true);
    }
};

TEST_F(IdleTest, Idling_BeginsAfterAWhile)
{
    LoadIdling();
    host.Advance(4999);
    EXPECT_EQ(journal.lines, Lines{});
    host.Advance(1);
    EXPECT_EQ(Pixel(), Green);
    host.Advance(0);
    EXPECT_EQ(journal.lines, Lines{"IdleStart Bot"});
}

TEST_F(IdleTest, BetweenIdleAnimations_OneTimerSleeps)
{
    LoadIdling();
    host.Advance(6001);
    const std::uint64_t before = host.time.CallsMade();
    EXPECT_EQ(host.time.Waiting(), 1u);
    host.Advance(3900);
    EXPECT_EQ(host.time.CallsMade(), before);
}

TEST_F(IdleTest, IdleAnimations_Repeat)
{
    LoadIdling();
    host.Advance(6000 + 4000);
    EXPECT_EQ(Pixel(), Green);
    EXPECT_EQ(journal.Count("IdleStart"), 1u);
}

TEST_F(IdleTest, TheLevel_RisesWithTime)
{
    engine::Character character = Make();
    for (engine::Animation& animation : character.animations) {
        if (animation.name == "Idle2_1")
            animation.frames[0] = MakeFrame(2, 50);
        if (animation.name == "Idle3_1")
            animation.frames[0] = EmptyFrame(), animation.frames[0].duration = 50;
    }
    LoadIdling(character);
    host.Advance(5000);
    EXPECT_EQ(Pixel(), Green);
    host.Advance(30000);
    EXPECT_EQ(Pixel(), Blue);
    host.Advance(30000);
    EXPECT_EQ(Pixel(), 0u);
}

TEST_F(IdleTest, ARequest_EndsIdling)
{
    LoadIdling();
    host.Advance(5100);
    journal.Clear();
    const RequestRef wave = bot->Play("Wave");
    host.Advance(3000);
    EXPECT_EQ(journal.Of("Idle"), Lines{"IdleComplete Bot"});
    EXPECT_EQ(StatusOf(wave), 0);
}

TEST_F(IdleTest, ARequestBeforeTheFirstIdleAnimation_TellsNothing)
{
    LoadIdling();
    host.Advance(1000);
    bot->Play("Wave");
    host.Advance(1000);
    EXPECT_EQ(journal.lines, Lines{});
}

TEST_F(IdleTest, IdleOff_NeverIdles)
{
    LoadShown();
    host.Advance(100000);
    EXPECT_EQ(journal.lines, Lines{});
    EXPECT_FALSE(bot->IdleOn());
}

TEST_F(IdleTest, SwitchingIdlingOff_LetsTheRunningAnimationEnd)
{
    LoadIdling();
    host.Advance(5100);
    bot->SetIdleOn(false);
    EXPECT_EQ(Pixel(), Green);
    host.Advance(60000);
    EXPECT_EQ(Pixel(), Red);
    EXPECT_EQ(host.time.Waiting(), 0u);
}

TEST_F(IdleTest, IdleOn_IsTheDefault)
{
    Load();
    EXPECT_TRUE(bot->IdleOn());
}

TEST_F(IdleTest, ACharacterWithoutIdleAnimations_SleepsForGood)
{
    engine::Character character = Make();
    character.states.resize(7);
    LoadIdling(character);
    host.Advance(5000);
    EXPECT_EQ(host.time.Waiting(), 0u);
}

TEST_F(IdleTest, AnEmptyLevel_FallsBackToTheOneBelow)
{
    engine::Character character = Make();
    character.states[8].animations.clear();
    character.states[9].animations.clear();
    LoadIdling(character);
    host.Advance(65000);
    EXPECT_EQ(Pixel(), Green);
}

TEST_F(IdleTest, BeforeIdling_TheReturnAnimationPlays)
{
    LoadIdling();
    bot->Play("Read");
    host.Advance(200 + 5000);
    EXPECT_EQ(Pixel(), Blue);
    host.Advance(200);
    EXPECT_EQ(Pixel(), Green);
}

TEST_F(IdleTest, HidingAnIdlingCharacter_EndsIt)
{
    LoadIdling();
    host.Advance(5100);
    bot->Hide(true);
    host.Advance(0);
    EXPECT_EQ(journal.Count("IdleComplete"), 1u);
    EXPECT_EQ(host.time.Waiting(), 0u);
}

TEST_F(IdleTest, SpeechDuringAnIdleAnimation_StillSpeaks)
{
    LoadIdling();
    host.Advance(5100);
    const RequestRef speech = Say("Hi");
    host.Advance(3000);
    EXPECT_EQ(StatusOf(speech), 0);
}

TEST_F(IdleTest, BetweenIdleAnimations_LieFourSeconds)
{
    LoadIdling();
    host.Advance(5000 + 1000 + 3999);
    EXPECT_EQ(Pixel(), Red);
    host.Advance(1);
    EXPECT_EQ(Pixel(), Green);
}

TEST_F(IdleTest, TheFirstLevel_LastsThirtySeconds)
{
    engine::Character character = Make();
    for (engine::Animation& animation : character.animations)
        if (animation.name == "Idle2_1")
            animation.frames[0] = MakeFrame(2, 50);
    LoadIdling(character);
    host.Advance(5000 + 5 * 5000);  // The last animation of the first level.
    EXPECT_EQ(Pixel(), Green);
    host.Advance(5000);
    EXPECT_EQ(Pixel(), Blue);
}

TEST_F(IdleTest, TheSecondLevel_LastsThirtySecondsToo)
{
    engine::Character character = Make();
    for (engine::Animation& animation : character.animations)
        if (animation.name == "Idle3_1")
            animation.frames[0] = MakeFrame(2, 50);
    LoadIdling(character);
    host.Advance(5000 + 11 * 5000);
    EXPECT_EQ(Pixel(), Green);
    host.Advance(5000);
    EXPECT_EQ(Pixel(), Blue);
}

TEST_F(IdleTest, ACharacterWithTheHighestLevelOnly_IdlesWithIt)
{
    engine::Character character = Make();
    character.states[7].animations.clear();
    character.states[8].animations.clear();
    for (engine::Animation& animation : character.animations)
        if (animation.name == "Idle3_1")
            animation.frames[0] = MakeFrame(2, 50);
    LoadIdling(character);
    host.Advance(5000);
    EXPECT_EQ(Pixel(), Blue);
}

TEST_F(IdleTest, AfterARequest_TheFirstLevelBeginsAnew)
{
    engine::Character character = Make();
    for (engine::Animation& animation : character.animations)
        if (animation.name == "Idle2_1")
            animation.frames[0] = MakeFrame(2, 50);
    LoadIdling(character);
    host.Advance(5000 + 6 * 5000 + 1500);
    journal.Clear();
    bot->Play("Nothing");
    host.Advance(4999);
    EXPECT_EQ(journal.Count("IdleStart"), 0u);
    host.Advance(1);
    host.Advance(0);
    EXPECT_EQ(Pixel(), Green);
    EXPECT_EQ(journal.Count("IdleStart"), 1u);
}

TEST_F(IdleTest, SwitchedOnAgainWhileAnIdleAnimationPlays_GoesOnAfterIt)
{
    LoadIdling();
    host.Advance(5100);
    bot->SetIdleOn(false);
    bot->SetIdleOn(true);
    host.Advance(900 + 3999);
    EXPECT_EQ(Pixel(), Red);
    host.Advance(1);
    EXPECT_EQ(Pixel(), Green);
}

TEST_F(IdleTest, SwitchedOnTwice_WaitsNoLonger)
{
    LoadIdling();
    host.Advance(3000);
    bot->SetIdleOn(true);
    host.Advance(2000);
    EXPECT_EQ(Pixel(), Green);
}
