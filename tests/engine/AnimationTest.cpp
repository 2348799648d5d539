#include "EngineTest.h"

using namespace testing_character;

class AnimationTest : public EngineTest {
protected:
    // Shows a character that also has these animations.
    void LoadWith(std::vector<engine::Animation> animations)
    {
        engine::Character character = Make();
        for (engine::Animation& animation : animations)
            character.animations.push_back(std::move(animation));
        LoadShown(std::move(character));
    }
};

TEST_F(AnimationTest, Frames_LastTheirHundredths)
{
    LoadShown();
    const RequestRef wave = bot->Play("Wave");
    EXPECT_EQ(Pixel(), Green);
    host.Advance(99);
    EXPECT_EQ(Pixel(), Green);
    host.Advance(1);
    EXPECT_EQ(Pixel(), Blue);
    host.Advance(199);
    EXPECT_EQ(StatusOf(wave), 4);
    host.Advance(1);
    EXPECT_EQ(StatusOf(wave), 0);
}

TEST_F(AnimationTest, TheLastFrame_Stays)
{
    LoadShown();
    bot->Play("Wave");
    host.RunUntilIdle();
    EXPECT_EQ(Pixel(), Blue);
}

TEST_F(AnimationTest, TheSamePicture_IsSentOnlyOnce)
{
    LoadWith({MakeAnimation("Still", {MakeFrame(1, 10), MakeFrame(1, 10), MakeFrame(1, 10)})});
    const int before = host.Window().picturesSet;
    bot->Play("Still");
    host.RunUntilIdle();
    EXPECT_EQ(host.Window().picturesSet - before, 1);
}

TEST_F(AnimationTest, AnEmptyFrameWithoutDuration_IsNeverShown)
{
    LoadWith({MakeAnimation("Gap", {MakeFrame(1, 10), EmptyFrame(), MakeFrame(2, 10)})});
    const int before = host.Window().picturesSet;
    bot->Play("Gap");
    host.RunUntilIdle();
    EXPECT_EQ(host.Window().picturesSet - before, 2);
}

TEST_F(AnimationTest, AnEmptyFrameWithDuration_ShowsNothing)
{
    engine::Frame empty = EmptyFrame();
    empty.duration = 10;
    LoadWith({MakeAnimation("Vanish", {MakeFrame(1, 10), empty})});
    bot->Play("Vanish");
    host.RunUntilIdle();
    EXPECT_EQ(Pixel(), 0u);
}

TEST_F(AnimationTest, ABranch_IsTakenByItsChance)
{
    engine::Animation branching = MakeAnimation("Branch", {MakeFrame(0, 10), MakeFrame(1, 10), MakeFrame(2, 10)});
    branching.frames[0].branches.push_back({2, 30});
    LoadWith({branching});
    host.randomFractions = {0.29};
    bot->Play("Branch");
    host.Advance(100);
    EXPECT_EQ(Pixel(), Blue);
}

TEST_F(AnimationTest, TheRestOfAHundred_FallsThrough)
{
    engine::Animation branching = MakeAnimation("Branch", {MakeFrame(0, 10), MakeFrame(1, 10), MakeFrame(2, 10)});
    branching.frames[0].branches.push_back({2, 30});
    LoadWith({branching});
    host.randomFractions = {0.31};
    bot->Play("Branch");
    host.Advance(100);
    EXPECT_EQ(Pixel(), Green);
}

TEST_F(AnimationTest, TheSecondBranch_HasTheNextShareOfTheHundred)
{
    engine::Animation branching = MakeAnimation("Branch", {MakeFrame(0, 10), MakeFrame(1, 10), MakeFrame(2, 10)});
    branching.frames[0].branches = {{1, 30}, {2, 30}};
    LoadWith({branching});
    host.randomFractions = {0.45};
    bot->Play("Branch");
    host.Advance(100);
    EXPECT_EQ(Pixel(), Blue);
}

TEST_F(AnimationTest, ABranchOutOfTheAnimation_IsIgnored)
{
    engine::Animation branching = MakeAnimation("Branch", {MakeFrame(0, 10), MakeFrame(1, 10)});
    branching.frames[0].branches.push_back({99, 100});
    LoadWith({branching});
    const RequestRef play = bot->Play("Branch");
    host.RunUntilIdle();
    EXPECT_EQ(StatusOf(play), 0);
}

TEST_F(AnimationTest, ALoopingAnimation_HoldsTheQueueUntilItIsStopped)
{
    LoadShown();
    const RequestRef looping = bot->Play("Processing");
    const RequestRef behind = Say("Hello");
    host.Advance(60000);
    EXPECT_EQ(StatusOf(looping), 4);
    EXPECT_EQ(StatusOf(behind), 2);
    bot->Stop(looping);
    host.Advance(2000);
    EXPECT_EQ(StatusOf(behind), 0);
}

TEST_F(AnimationTest, AStoppedAnimation_LeavesByItsExitFrames)
{
    LoadShown();
    bot->Play("Processing");
    host.Advance(50);
    bot->StopAll(std::nullopt);
    EXPECT_EQ(Pixel(), Green);
    host.Advance(50);
    EXPECT_EQ(Pixel(), Red);
    EXPECT_TRUE(host.RunUntilIdle());
}

TEST_F(AnimationTest, AStoppedAnimation_LeavesItsPresentFrameAtOnce)
{
    LoadShown();
    bot->Play("Processing");
    host.Advance(50);
    EXPECT_EQ(Pixel(), Green);
    bot->StopAll(std::nullopt);
    host.Advance(0);
    EXPECT_EQ(Pixel(), Red);
}

TEST_F(AnimationTest, AnAnimationLeftInTheMiddle_PlaysItsReturnAnimationBeforeTheNext)
{
    engine::Character character = Make();
    for (engine::State& state : character.states)
        if (state.name == "IDLINGLEVEL1")
            state.animations = {"Read"};
    LoadShown(std::move(character));
    bot->SetIdleOn(true);
    host.Advance(5000);
    EXPECT_EQ(Pixel(), Green);
    bot->Play("Greet");
    host.Advance(0);
    EXPECT_EQ(Pixel(), Green);  // The rest of Read.
    host.Advance(150);
    EXPECT_EQ(Pixel(), Blue);  // ReadReturn.
}

TEST_F(AnimationTest, ANewRequest_WaitsForTheExit)
{
    LoadShown();
    bot->Play("Processing");
    host.Advance(50);
    bot->StopAll(std::nullopt);
    bot->Play("Wave");
    EXPECT_EQ(Pixel(), Green);
    host.Advance(60);
    EXPECT_EQ(Pixel(), Red);
    host.Advance(100);
    EXPECT_EQ(Pixel(), Green);
}

TEST_F(AnimationTest, EndlessFramesWithoutDuration_DoNotHang)
{
    engine::Animation endless = MakeAnimation("Endless", {MakeFrame(1, 0)});
    endless.frames[0].branches.push_back({0, 100});
    LoadWith({endless});
    const RequestRef play = bot->Play("Endless");
    const std::uint64_t before = host.time.CallsMade();
    host.Advance(1000);
    EXPECT_EQ(StatusOf(play), 4);
    EXPECT_LE(host.time.CallsMade() - before, 110u);
    bot->StopAll(std::nullopt);
    EXPECT_TRUE(host.RunUntilIdle());
}

TEST_F(AnimationTest, CircularExitFrames_End)
{
    engine::Animation circle = MakeAnimation("Circle", {MakeFrame(0, 10), MakeFrame(1, 10), MakeFrame(2, 10)});
    circle.frames[0].exitFrame = 1;
    circle.frames[1].exitFrame = 0;
    LoadWith({circle});
    bot->Play("Circle");
    host.Advance(50);
    bot->StopAll(std::nullopt);
    EXPECT_TRUE(host.RunUntilIdle(2000));
}

TEST_F(AnimationTest, AnExitFrameOutOfTheAnimation_IsIgnored)
{
    engine::Animation wrong = MakeAnimation("Wrong", {MakeFrame(0, 10), MakeFrame(1, 10)});
    wrong.frames[0].exitFrame = 500;
    LoadWith({wrong});
    bot->Play("Wrong");
    bot->StopAll(std::nullopt);
    EXPECT_TRUE(host.RunUntilIdle(2000));
}

TEST_F(AnimationTest, ALongChainWithoutDurations_ShowsItsLastFrame)
{
    engine::Animation chain = MakeAnimation("Chain", {});
    chain.frames.assign(1001, MakeFrame(1, 0));
    chain.frames.back() = MakeFrame(2, 0);
    LoadWith({chain});
    const RequestRef play = bot->Play("Chain");
    host.RunUntilIdle();
    EXPECT_EQ(StatusOf(play), 0);
    EXPECT_EQ(Pixel(), Blue);
}

TEST_F(AnimationTest, AHundredFramesWithoutDuration_TakeNoTime)
{
    engine::Animation chain = MakeAnimation("Chain", {});
    chain.frames.assign(100, MakeFrame(1, 0));
    LoadWith({chain});
    const RequestRef play = bot->Play("Chain");
    host.Advance(0);
    EXPECT_EQ(StatusOf(play), 0);
}

TEST_F(AnimationTest, TheReturnAnimationOfASpeakingPose_PlaysBeforeTheNext)
{
    engine::Character character = Make();
    character.animations.push_back(
        MakeAnimation("Talk", {SpeakingFrame(0, 10)}, engine::Transition::ReturnAnimation, "TalkReturn"));
    character.animations.push_back(MakeAnimation("TalkReturn", {MakeFrame(2, 20)}));
    for (engine::State& state : character.states)
        if (state.name == "SPEAKING")
            state.animations = {"Talk"};
    LoadShown(std::move(character));
    Say("Hello");
    host.RunUntilIdle();
    bot->Play("Greet");
    host.Advance(100);
    EXPECT_EQ(Pixel(), Blue);  // TalkReturn.
    host.Advance(150);
    EXPECT_EQ(Pixel(), Green);  // Greet.
}

TEST_F(AnimationTest, AReturnAnimation_PlaysBeforeTheNext)
{
    LoadShown();
    bot->Play("Read");
    bot->Play("Wave");
    host.Advance(200);
    EXPECT_EQ(Pixel(), Blue);  // ReadReturn.
    host.Advance(200);
    EXPECT_EQ(Pixel(), Green);  // Wave.
}

TEST_F(AnimationTest, AReturnAnimationAskedForByName_PlaysOnce)
{
    LoadShown();
    bot->Play("Read");
    const RequestRef back = bot->Play("ReadReturn");
    host.Advance(399);
    EXPECT_EQ(StatusOf(back), 4);
    host.Advance(1);
    EXPECT_EQ(StatusOf(back), 0);
}

TEST_F(AnimationTest, AReturnAnimationOfItself_DoesNotHang)
{
    LoadWith({MakeAnimation("Self", {MakeFrame(1, 10)}, engine::Transition::ReturnAnimation, "Self")});
    bot->Play("Self");
    const RequestRef wave = bot->Play("Wave");
    host.RunUntilIdle();
    EXPECT_EQ(StatusOf(wave), 0);
}

TEST_F(AnimationTest, ExitBranchesOfAnEndedAnimation_LeadBackBeforeTheNext)
{
    engine::Animation pose =
        MakeAnimation("Pose", {MakeFrame(1, 10), MakeFrame(0, 10), MakeFrame(2, 10)}, engine::Transition::ExitBranches);
    pose.frames[0].branches.push_back({2, 100});
    pose.frames[2].exitFrame = 1;
    LoadWith({pose});
    bot->Play("Pose");
    host.Advance(200);
    EXPECT_EQ(Pixel(), Blue);
    bot->Play("Wave");
    EXPECT_EQ(Pixel(), Red);
}

TEST_F(AnimationTest, AState_PicksOneOfItsAnimationsAtRandom)
{
    engine::Character character = Make();
    character.states[0].animations = {"Hide", "Wave"};
    Load(character);
    host.randomFractions = {0.6};
    bot->Show(std::nullopt);
    host.Advance(150);
    EXPECT_EQ(Pixel(), Blue);
}

TEST_F(AnimationTest, ASound_PlaysWithItsFrame)
{
    LoadShown();
    bot->Play("Noisy");
    ASSERT_EQ(host.sound.streams.size(), 1u);
    EXPECT_EQ(host.sound.streams[0].written, 500);
    EXPECT_EQ(host.sound.streams[0].sampleRate, 1000);
}

TEST_F(AnimationTest, AnAnimation_EndsWithItsSound)
{
    LoadShown();
    const RequestRef noisy = bot->Play("Noisy");
    host.Advance(499);
    EXPECT_EQ(StatusOf(noisy), 4);
    host.Advance(1);
    EXPECT_EQ(StatusOf(noisy), 0);
}

TEST_F(AnimationTest, SoundEffectsOff_PlaysSilently)
{
    LoadShown();
    bot->SetSoundEffectsOn(false);
    const RequestRef noisy = bot->Play("Noisy");
    host.Advance(200);
    EXPECT_TRUE(host.sound.streams.empty());
    EXPECT_EQ(StatusOf(noisy), 0);
}

TEST_F(AnimationTest, AnUndecodableSound_IsSilent)
{
    engine::Character character = Make();
    character.sounds[0] = std::make_shared<const std::vector<std::uint8_t>>(std::vector<std::uint8_t>{1, 2, 3});
    LoadShown(character);
    const RequestRef noisy = bot->Play("Noisy");
    host.RunUntilIdle();
    EXPECT_TRUE(host.sound.streams.empty());
    EXPECT_EQ(StatusOf(noisy), 0);
}

TEST_F(AnimationTest, AnUnknownSound_IsSilent)
{
    engine::Character character = Make();
    character.sounds.clear();
    LoadShown(character);
    bot->Play("Noisy");
    EXPECT_TRUE(host.RunUntilIdle());
}

TEST_F(AnimationTest, ABrokenSoundOutput_DoesNotHoldTheAnimationForGood)
{
    LoadShown();
    host.sound.broken = true;
    const RequestRef noisy = bot->Play("Noisy");
    host.RunUntilIdle();
    EXPECT_EQ(StatusOf(noisy), 0);
}

TEST_F(AnimationTest, Speech_WaitsForARunningEffect)
{
    engine::Character character = Make();
    character.states[2].animations = {"Noisy"};
    LoadShown(character);
    Say("Hello");
    host.Advance(499);
    EXPECT_EQ(host.sound.streams.size(), 1u);
    host.Advance(50);
    EXPECT_EQ(host.sound.streams.size(), 2u);
}

TEST_F(AnimationTest, StoppingAnAnimation_StopsItsSound)
{
    LoadShown();
    bot->Play("Noisy");
    host.Advance(50);
    bot->StopAll(std::nullopt);
    EXPECT_TRUE(host.sound.streams[0].stopped);
}

TEST_F(AnimationTest, AVisibleCharacterAtRest_RunsNoTimerWithIdlingOff)
{
    LoadShown();
    bot->Play("Wave");
    host.Advance(1000);
    EXPECT_EQ(host.time.Waiting(), 0u);
}

TEST_F(AnimationTest, AFractionAtTheEndOfABranchsShare_FallsThrough)
{
    engine::Animation branching = MakeAnimation("Branch", {MakeFrame(0, 10), MakeFrame(1, 10), MakeFrame(2, 10)});
    branching.frames[0].branches.push_back({2, 25});
    LoadWith({branching});
    host.randomFractions = {0.25};
    bot->Play("Branch");
    host.Advance(100);
    EXPECT_EQ(Pixel(), Green);
}

TEST_F(AnimationTest, ABranchOf100Percent_IsTakenAlways)
{
    engine::Animation branching = MakeAnimation("Branch", {MakeFrame(0, 10), MakeFrame(1, 10), MakeFrame(2, 10)});
    branching.frames[0].branches.push_back({2, 100});
    LoadWith({branching});
    host.randomFractions = {0.9999};
    bot->Play("Branch");
    host.Advance(100);
    EXPECT_EQ(Pixel(), Blue);
}

TEST_F(AnimationTest, ABranchOnTheLastFrame_LeadsBack)
{
    engine::Animation branching = MakeAnimation("Branch", {MakeFrame(1, 10), MakeFrame(2, 10)});
    branching.frames[1].branches.push_back({0, 100});
    LoadWith({branching});
    const RequestRef play = bot->Play("Branch");
    host.Advance(200);
    EXPECT_EQ(Pixel(), Green);
    EXPECT_EQ(StatusOf(play), 4);
}

TEST_F(AnimationTest, AShortDelay_IsMadeUpFor)
{
    LoadWith({MakeAnimation("Long", {MakeFrame(1, 50), MakeFrame(2, 50), MakeFrame(0, 50)})});
    bot->Play("Long");
    host.time.HoldUp(700);
    host.time.RunDue();  // The second frame, 200 milliseconds late.
    EXPECT_EQ(Pixel(), Blue);
    host.Advance(299);
    EXPECT_EQ(Pixel(), Blue);
    host.Advance(1);
    EXPECT_EQ(Pixel(), Red);
}

TEST_F(AnimationTest, ALongDelay_IsNotMadeUpFor)
{
    LoadWith({MakeAnimation("Long", {MakeFrame(1, 50), MakeFrame(2, 50), MakeFrame(0, 50)})});
    bot->Play("Long");
    host.time.HoldUp(701);
    host.time.RunDue();  // The second frame, 201 milliseconds late.
    host.Advance(499);
    EXPECT_EQ(Pixel(), Blue);
    host.Advance(1);
    EXPECT_EQ(Pixel(), Red);
}

TEST_F(AnimationTest, ADelayLongerThanAFrame_LetsItBeSeenBriefly)
{
    LoadWith({MakeAnimation("Short", {MakeFrame(1, 10), MakeFrame(2, 10), MakeFrame(0, 10)})});
    bot->Play("Short");
    host.time.HoldUp(250);
    host.time.RunDue();  // The second frame is over when it comes, 150 milliseconds late.
    EXPECT_EQ(Pixel(), Red);
}

TEST_F(AnimationTest, TheSameSoundWithinATenthOfASecond_IsNotBegunAgain)
{
    engine::Animation noisy = MakeAnimation("Twice", {MakeFrame(1, 9), MakeFrame(2, 10)});
    noisy.frames[0].sound = 0;
    noisy.frames[1].sound = 0;
    LoadWith({noisy});
    bot->Play("Twice");
    host.Advance(90);
    EXPECT_EQ(host.sound.streams.size(), 1u);
}

TEST_F(AnimationTest, TheSameSoundAfterATenthOfASecond_IsBegunAgain)
{
    engine::Animation noisy = MakeAnimation("Twice", {MakeFrame(1, 10), MakeFrame(2, 10)});
    noisy.frames[0].sound = 0;
    noisy.frames[1].sound = 0;
    LoadWith({noisy});
    bot->Play("Twice");
    host.Advance(100);
    EXPECT_EQ(host.sound.streams.size(), 2u);
}

TEST_F(AnimationTest, AnotherSoundAtOnce_TakesItsPlace)
{
    engine::Character character = Make();
    character.sounds.push_back(std::make_shared<const std::vector<std::uint8_t>>(MakeWave(300)));
    engine::Animation noisy = MakeAnimation("Two", {MakeFrame(1, 5), MakeFrame(2, 10)});
    noisy.frames[0].sound = 0;
    noisy.frames[1].sound = 1;
    character.animations.push_back(noisy);
    LoadShown(character);
    bot->Play("Two");
    host.Advance(50);
    ASSERT_EQ(host.sound.streams.size(), 2u);
    EXPECT_EQ(host.sound.streams[1].written, 300);
}

TEST_F(AnimationTest, ASoundThatHasEnded_IsBegunAgainAtOnce)
{
    engine::Character character = Make();
    character.sounds[0] = std::make_shared<const std::vector<std::uint8_t>>(MakeWave(20));
    engine::Animation noisy = MakeAnimation("Twice", {MakeFrame(1, 5), MakeFrame(2, 10)});
    noisy.frames[0].sound = 0;
    noisy.frames[1].sound = 0;
    character.animations.push_back(noisy);
    LoadShown(character);
    bot->Play("Twice");
    host.Advance(50);
    EXPECT_EQ(host.sound.streams.size(), 2u);
}

TEST_F(AnimationTest, ASoundThatStandsStill_IsGivenUpAfterItsLengthAndThreeSeconds)
{
    LoadShown();
    host.sound.broken = true;
    const RequestRef noisy = bot->Play("Noisy");
    host.Advance(3499);
    EXPECT_EQ(StatusOf(noisy), 4);
    host.Advance(1);
    EXPECT_EQ(StatusOf(noisy), 0);
}

TEST_F(AnimationTest, AStopWhileTheExitIsPlayed_LetsTheExitGoOn)
{
    engine::Animation slow = MakeAnimation("Slow", {MakeFrame(0, 10), MakeFrame(1, 10), MakeFrame(2, 10)});
    slow.frames[0].exitFrame = 1;
    slow.frames[1].exitFrame = 2;
    LoadWith({slow});
    bot->Play("Slow");
    host.Advance(50);
    bot->StopAll(std::nullopt);
    host.Advance(50);
    EXPECT_EQ(Pixel(), Green);
    bot->Play("Wave");
    bot->StopAll(std::nullopt);
    host.Advance(49);
    EXPECT_EQ(Pixel(), Green);
    host.Advance(1);
    EXPECT_EQ(Pixel(), Blue);
    EXPECT_TRUE(host.RunUntilIdle(1000));
}
