#include "EngineTest.h"

using namespace testing_character;

namespace {

// Two screens side by side, the second one lower and with a panel on top; a character of 100 by 100 pixels.
class ScreensTest : public EngineTest {
protected:
    void LoadOn(std::int16_t left, std::int16_t top)
    {
        host.desktop.moreWorkAreas = {{1024, 124, 800, 576}};
        LoadShown();
        bot->SetWidth(100);
        bot->SetHeight(100);
        bot->SetLeft(left);
        bot->SetTop(top);
        host.RunUntilIdle();
        journal.Clear();
    }
    void Unplug()
    {
        host.desktop.Unplug();
        host.Advance(1);
    }
    const engine::Rect& BalloonPlace() { return host.Balloon().picture.place; }
};

}

TEST_F(ScreensTest, Unplugged_UnderTheCharacter_BringsItToTheOtherScreen)
{
    LoadOn(1400, 400);
    Unplug();
    EXPECT_EQ(host.Window().place, (engine::Rect{924, 400, 100, 100}));
    EXPECT_EQ(journal.lines, (Lines{"Move Bot 924 400 cause 4"}));
}

TEST_F(ScreensTest, Unplugged_BelowTheOtherScreen_BringsItToTheCorner)
{
    LoadOn(1400, 600);
    host.desktop.workArea = {0, 0, 640, 480};
    Unplug();
    EXPECT_EQ(host.Window().place, (engine::Rect{540, 380, 100, 100}));
}

TEST_F(ScreensTest, Unplugged_UnderAHiddenCharacter_MovesItToo)
{
    LoadOn(1400, 400);
    bot->Hide(true);
    host.RunUntilIdle();
    Unplug();
    EXPECT_EQ(bot->Left(), 924);
}

TEST_F(ScreensTest, Unplugged_Elsewhere_LeavesTheCharacterAlone)
{
    LoadOn(300, 300);
    Unplug();
    EXPECT_EQ(host.Window().place, (engine::Rect{300, 300, 100, 100}));
    EXPECT_TRUE(journal.lines.empty());
}

TEST_F(ScreensTest, Unplugged_WithMoreThanHalfInSight_LeavesTheCharacterAlone)
{
    LoadOn(974, 300);
    Unplug();
    EXPECT_EQ(bot->Left(), 974);
}

TEST_F(ScreensTest, Unplugged_WithHalfInSightAtTheBottom_LeavesTheCharacterAlone)
{
    LoadOn(300, 718);
    Unplug();
    EXPECT_EQ(bot->Top(), 718);
}

TEST_F(ScreensTest, Unplugged_WhileSlidingThere_EndsInSight)
{
    LoadOn(100, 400);
    const RequestRef move = bot->MoveTo(1500, 400, 1000);
    host.Advance(300);
    Unplug();
    host.RunUntilIdle();
    EXPECT_EQ(StatusOf(move), 0);
    EXPECT_EQ(bot->Left(), 924);
    EXPECT_EQ(bot->Top(), 400);
}

TEST_F(ScreensTest, Unplugged_UnderASlide_LetsItGoOn)
{
    LoadOn(1400, 400);
    bot->MoveTo(1500, 400, 1000);
    host.Advance(300);
    journal.Clear();
    Unplug();
    EXPECT_GT(bot->Left(), 1000);
    host.RunUntilIdle();
    EXPECT_EQ(bot->Left(), 924);
    EXPECT_EQ(journal.Of("Move"), Lines{"Move Bot 924 400 cause 2"});
}

TEST_F(ScreensTest, Unplugged_WhileSpeaking_BringsTheBalloonAlong)
{
    LoadOn(1400, 400);
    Say("Hello there everybody who is listening");
    host.Advance(100);
    ASSERT_TRUE(host.Balloon().shown);
    Unplug();
    EXPECT_TRUE(host.Balloon().shown);
    EXPECT_LE(BalloonPlace().Right(), 1024);
    EXPECT_GE(BalloonPlace().top, 0);
}

TEST_F(ScreensTest, Unplugged_WhileDragged_WaitsForTheUser)
{
    LoadOn(1400, 400);
    host.Window().mouse->Press(1, 0, {1410, 410});
    host.Window().mouse->Move(1, 0, {1450, 450});
    Unplug();
    EXPECT_EQ(bot->Left(), 1440);
}

TEST_F(ScreensTest, Balloon_OnTheSecondScreen_StaysInItsWorkArea)
{
    LoadOn(1030, 130);
    Say("Hello there everybody who is listening");
    host.Advance(100);
    EXPECT_GE(BalloonPlace().left, 1024);
    EXPECT_GE(BalloonPlace().top, 124);
}

// The corner of the frame is on the first screen still, but the character is on the second.
TEST_F(ScreensTest, Balloon_OfACharacterMostlyOnTheSecondScreen_StandsThere)
{
    LoadOn(1000, 400);
    Say("Hello there everybody who is listening");
    host.Advance(100);
    EXPECT_GE(BalloonPlace().left, 1024);
}

TEST_F(ScreensTest, WorkArea_ThatShrinks_MovesTheBalloonIntoIt)
{
    LoadOn(300, 200);
    Say("Hello there everybody who is listening");
    host.Advance(100);
    ASSERT_LT(BalloonPlace().top, 200);
    host.desktop.Change({0, 180, 1024, 588});
    EXPECT_GE(BalloonPlace().top, 180);
    EXPECT_EQ(bot->Top(), 200);
}
