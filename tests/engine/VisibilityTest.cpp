#include "EngineTest.h"

using VisibilityTest = EngineTest;

TEST_F(VisibilityTest, Show_MakesTheFrameVisibleAtOnce)
{
    Load();
    bot->Show(std::nullopt);
    EXPECT_TRUE(bot->Visible());
    EXPECT_TRUE(host.Window().shown);
    EXPECT_EQ(bot->VisibilityCause(), 4);
}

TEST_F(VisibilityTest, Show_PlaysTheShowingAnimation)
{
    Load();
    const RequestRef show = bot->Show(std::nullopt);
    EXPECT_EQ(Pixel(), testing_character::Green);
    host.Advance(100);
    EXPECT_EQ(Pixel(), testing_character::Blue);
    host.Advance(199);
    EXPECT_EQ(StatusOf(show), 4);
    host.Advance(1);
    EXPECT_EQ(StatusOf(show), 0);
}

TEST_F(VisibilityTest, Show_TellsItBetweenItsStartAndItsCompletion)
{
    Load();
    Keep(bot->Show(std::nullopt));
    host.Advance(1000);
    EXPECT_EQ(journal.lines, (Lines{"RequestStart 2 status 4", "Show Bot cause 4", "RequestComplete 2 status 0"}));
}

TEST_F(VisibilityTest, Show_Fast_GivesAFrameWithoutAPicture)
{
    Load();
    Keep(bot->Show(true));
    host.Advance(0);
    EXPECT_EQ(Pixel(), 0u);
    EXPECT_EQ(journal.Count("RequestComplete 2 status 0"), 1u);
}

TEST_F(VisibilityTest, Show_OfAVisibleCharacter_RaisesItAndTellsNothing)
{
    LoadShown();
    const RequestRef show = bot->Show(std::nullopt);
    host.RunUntilIdle();
    EXPECT_EQ(StatusOf(show), 0);
    EXPECT_EQ(host.Window().raised, 1);
    EXPECT_EQ(journal.Of("Show"), Lines{});
}

TEST_F(VisibilityTest, ShowThenStopAll_LeavesTheCharacterVisibleWithItsPicture)
{
    Load();
    const RequestRef show = Keep(bot->Show(std::nullopt));
    bot->StopAll(std::nullopt);
    host.Advance(1000);
    EXPECT_TRUE(bot->Visible());
    EXPECT_TRUE(host.Window().shown);
    EXPECT_EQ(Pixel(), testing_character::Red);
    EXPECT_EQ(StatusOf(show), 3);
    EXPECT_EQ(journal.Of("Show"), Lines{"Show Bot cause 4"});
}

TEST_F(VisibilityTest, ShowThenStopAllThenSpeak_Speaks)
{
    Load();
    bot->Show(std::nullopt);
    bot->StopAll(std::nullopt);
    const RequestRef speech = Say("Hello");
    host.Advance(2000);
    EXPECT_EQ(StatusOf(speech), 0);
}

TEST_F(VisibilityTest, Hide_PlaysTheHidingAnimationThenHides)
{
    LoadShown();
    Keep(bot->Hide(std::nullopt));
    host.Advance(199);
    EXPECT_TRUE(bot->Visible());
    host.Advance(1);
    EXPECT_FALSE(bot->Visible());
    EXPECT_FALSE(host.Window().shown);
    EXPECT_EQ(bot->VisibilityCause(), 3);
    host.Advance(0);
    EXPECT_EQ(journal.lines, (Lines{"RequestStart 3 status 4", "Hide Bot cause 3", "RequestComplete 3 status 0"}));
}

TEST_F(VisibilityTest, Hide_Fast_HidesAtOnce)
{
    LoadShown();
    bot->Hide(true);
    EXPECT_FALSE(bot->Visible());
}

TEST_F(VisibilityTest, Hide_OfAHiddenCharacter_CompletesQuietly)
{
    Load();
    const RequestRef hide = bot->Hide(std::nullopt);
    host.RunUntilIdle();
    EXPECT_EQ(StatusOf(hide), 0);
    EXPECT_EQ(journal.Of("Hide"), Lines{});
}

TEST_F(VisibilityTest, Hide_TakesTheBalloonAway)
{
    LoadShown();
    Say("Hello");
    bot->Hide(std::nullopt);
    host.Advance(900);
    EXPECT_FALSE(host.Balloon().shown);
    EXPECT_EQ(journal.Count("BalloonHide"), 1u);
}

TEST_F(VisibilityTest, HideThenStopAll_LeavesAVisibleCharacterInNeutralPose)
{
    LoadShown();
    bot->Hide(std::nullopt);
    host.Advance(50);
    bot->StopAll(std::nullopt);
    host.RunUntilIdle();
    EXPECT_TRUE(bot->Visible());
    EXPECT_EQ(Pixel(), testing_character::Red);
}

TEST_F(VisibilityTest, Speak_WhileHidden_FailsWithItsRequestOnly)
{
    Load();
    const RequestRef speech = Keep(Say("Hello"));
    host.Advance(0);
    EXPECT_EQ(StatusOf(speech), 1);
    EXPECT_EQ(speech->Number(), code::CharacterHidden);
    EXPECT_EQ(Requests(), (Lines{"RequestStart 2 status 4", "RequestComplete 2 status 1"}));
    EXPECT_TRUE(host.sound.streams.empty());
    EXPECT_FALSE(bot->Visible());
}

TEST_F(VisibilityTest, Play_WhileHidden_Fails)
{
    Load();
    const RequestRef play = bot->Play("Wave");
    host.RunUntilIdle();
    EXPECT_EQ(StatusOf(play), 1);
}

TEST_F(VisibilityTest, MoveTo_WhileHidden_MovesAndFails)
{
    Load();
    const RequestRef move = bot->MoveTo(70, 80, 500);
    host.RunUntilIdle();
    EXPECT_EQ(bot->Left(), 70);
    EXPECT_EQ(StatusOf(move), 1);
    EXPECT_EQ(move->Number(), code::CharacterHidden);
    EXPECT_EQ(journal.Of("Move"), Lines{"Move Bot 70 80 cause 2"});
}

TEST_F(VisibilityTest, MoveTo_WithSpeedZeroWhileHidden_Completes)
{
    Load();
    const RequestRef move = bot->MoveTo(70, 80, 0);
    host.RunUntilIdle();
    EXPECT_EQ(StatusOf(move), 0);
}

TEST_F(VisibilityTest, AHiddenCharacter_RunsNoTimer)
{
    LoadShown();
    bot->SetIdleOn(true);
    bot->Hide(std::nullopt);
    host.Advance(1000);
    EXPECT_EQ(host.time.Waiting(), 0u);
}

TEST_F(VisibilityTest, QueuedBehindHide_FailsAsHidden)
{
    LoadShown();
    bot->Hide(std::nullopt);
    const RequestRef speech = Say("Hello");
    host.RunUntilIdle();
    EXPECT_EQ(speech->Number(), code::CharacterHidden);
}
