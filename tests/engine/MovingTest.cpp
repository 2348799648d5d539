#include "EngineTest.h"

using namespace testing_character;

class MovingTest : public EngineTest {
protected:
    // A character whose moving animations show different colours: only `state` shows green.
    void LoadMoving(const std::string& state)
    {
        engine::Character character = Make();
        for (engine::State& known : character.states)
            if (known.name.rfind("MOVING", 0) == 0 && known.name != state)
                known.animations = {"RestPose"};
        LoadShown(std::move(character));
    }
};

TEST_F(MovingTest, SetLeftAndTop_MoveAtOnceAndTellEach)
{
    Load();
    bot->SetLeft(-30);
    bot->SetTop(40);
    EXPECT_EQ(bot->Left(), -30);
    EXPECT_EQ(bot->Top(), 40);
    EXPECT_EQ(bot->MoveCause(), 2);
    host.Advance(0);
    EXPECT_EQ(journal.lines, (Lines{"Move Bot -30 0 cause 2", "Move Bot -30 40 cause 2"}));
}

TEST_F(MovingTest, SetLeft_ToTheSamePlace_TellsNothing)
{
    LoadShown();
    bot->SetLeft(400);
    host.Advance(0);
    EXPECT_EQ(journal.lines, Lines{});
}

TEST_F(MovingTest, SetWidth_ScalesTheWindowAndTellsIt)
{
    LoadShown();
    bot->SetWidth(200);
    EXPECT_EQ(host.Window().place.width, 200);
    EXPECT_EQ(bot->OriginalWidth(), 4);
    host.Advance(0);
    EXPECT_EQ(journal.lines, Lines{"Size Bot 200 4"});
}

TEST_F(MovingTest, SetHeight_OfNothing_Fails)
{
    Load();
    EXPECT_EQ(FailureOf([&] { bot->SetHeight(0); }), code::InvalidArgument);
    EXPECT_EQ(bot->Height(), 4);
}

TEST_F(MovingTest, MoveTo_WithSpeedZero_Jumps)
{
    LoadShown();
    const RequestRef move = bot->MoveTo(10, 20, 0);
    EXPECT_EQ(host.Window().place, (engine::Rect{10, 20, 4, 4}));
    host.Advance(0);
    EXPECT_EQ(StatusOf(move), 0);
    EXPECT_EQ(Pixel(), Red);
}

TEST_F(MovingTest, MoveTo_PlaysThenSlidesOverItsTime)
{
    LoadShown();
    const RequestRef move = bot->MoveTo(600, 400, 1000);
    EXPECT_EQ(Pixel(), Green);
    host.Advance(100 + 500);
    EXPECT_EQ(bot->Left(), 500);
    host.Advance(499);
    EXPECT_EQ(StatusOf(move), 4);
    host.Advance(20);
    EXPECT_EQ(bot->Left(), 600);
    EXPECT_EQ(StatusOf(move), 0);
}

TEST_F(MovingTest, MoveTo_TellsItsArrivalOnce)
{
    LoadShown();
    bot->MoveTo(600, 300, 200);
    host.RunUntilIdle();
    EXPECT_EQ(journal.lines, Lines{"Move Bot 600 300 cause 2"});
}

TEST_F(MovingTest, MoveTo_WithoutASpeed_TakesASecond)
{
    LoadShown();
    const RequestRef move = bot->MoveTo(600, 400, std::nullopt);
    host.Advance(100 + 990);
    EXPECT_EQ(StatusOf(move), 4);
    host.Advance(40);
    EXPECT_EQ(StatusOf(move), 0);
}

TEST_F(MovingTest, MovingToTheViewersRight_IsTheCharactersLeft)
{
    LoadMoving("MOVINGLEFT");
    bot->MoveTo(600, 420, 1000);
    EXPECT_EQ(Pixel(), Green);
}

TEST_F(MovingTest, MovingToTheViewersLeft_IsTheCharactersRight)
{
    LoadMoving("MOVINGRIGHT");
    bot->MoveTo(200, 420, 1000);
    EXPECT_EQ(Pixel(), Green);
}

TEST_F(MovingTest, MovingMostlyUp_PlaysMovingUp)
{
    LoadMoving("MOVINGUP");
    bot->MoveTo(420, 100, 1000);
    EXPECT_EQ(Pixel(), Green);
}

TEST_F(MovingTest, MovingMostlyDown_PlaysMovingDown)
{
    LoadMoving("MOVINGDOWN");
    bot->MoveTo(420, 700, 1000);
    EXPECT_EQ(Pixel(), Green);
}

TEST_F(MovingTest, TheMovingFrame_StaysAfterwards)
{
    LoadShown();
    bot->MoveTo(600, 400, 100);
    host.RunUntilIdle();
    EXPECT_EQ(Pixel(), Green);
}

TEST_F(MovingTest, WithoutAMovingAnimation_TheFrameStillMoves)
{
    engine::Character character = Make();
    character.states.resize(3);
    LoadShown(character);
    const RequestRef move = bot->MoveTo(600, 400, 100);
    host.RunUntilIdle();
    EXPECT_EQ(bot->Left(), 600);
    EXPECT_EQ(StatusOf(move), 0);
}

TEST_F(MovingTest, StoppingASlide_LeavesTheFrameWhereItIs)
{
    LoadShown();
    bot->MoveTo(600, 400, 1000);
    host.Advance(100 + 500);
    bot->StopAll("Move");
    host.RunUntilIdle();
    EXPECT_EQ(bot->Left(), 500);
    EXPECT_EQ(journal.lines, Lines{"Move Bot 500 400 cause 2"});
}

TEST_F(MovingTest, AResolutionChange_BringsTheCharacterBack)
{
    LoadShown();
    host.desktop.Change({0, 0, 320, 240});
    host.Advance(0);
    EXPECT_EQ(journal.lines, Lines{"Move Bot 316 236 cause 4"});
    EXPECT_EQ(bot->MoveCause(), 4);
}

TEST_F(MovingTest, AResolutionChange_LeavesACharacterOnScreenAlone)
{
    LoadShown();
    host.desktop.Change({0, 0, 1920, 1080});
    host.Advance(0);
    EXPECT_EQ(journal.lines, Lines{});
}

TEST_F(MovingTest, MoveTo_OffTheScreen_IsAllowed)
{
    LoadShown();
    bot->MoveTo(-2, 5000, 0);
    EXPECT_EQ(bot->Top(), 5000);
}

TEST_F(MovingTest, MoveTo_AsFarSidewaysAsDown_WalksSideways)
{
    LoadMoving("MOVINGLEFT");
    bot->MoveTo(450, 450, 1000);
    EXPECT_EQ(Pixel(), Green);
}

TEST_F(MovingTest, MoveTo_SlidesInFiftyStepsASecond)
{
    LoadShown();
    bot->MoveTo(600, 400, 1000);
    host.Advance(100);
    const std::uint64_t before = host.time.CallsMade();
    host.Advance(900);
    EXPECT_GE(host.time.CallsMade() - before, 44u);
    EXPECT_LE(host.time.CallsMade() - before, 50u);
}
