#include "EngineTest.h"

using MouseTest = EngineTest;

TEST_F(MouseTest, AClick_IsToldWithItsButtonShiftAndPlace)
{
    LoadShown();
    host.Window().Click(1, 3, {401, 402});
    EXPECT_EQ(journal.lines, Lines{});
    host.Advance(0);
    EXPECT_EQ(journal.lines, Lines{"Click Bot button 1 shift 3 at 401 402"});
}

TEST_F(MouseTest, ADoubleClick_IsOneClickThenOneDblClick)
{
    LoadShown();
    host.Window().DoubleClick(1, 0, {401, 402});
    host.Advance(0);
    EXPECT_EQ(journal.lines, (Lines{"Click Bot button 1 shift 0 at 401 402", "DblClick Bot button 1 shift 0 at 401 402"}));
}

TEST_F(MouseTest, ARightClick_BelongsToTheEnginesMenu)
{
    LoadShown();
    EXPECT_TRUE(bot->AutoPopupMenu());
    host.Window().Click(2, 0, {401, 402});
    host.Advance(0);
    EXPECT_EQ(journal.lines, Lines{});
}

TEST_F(MouseTest, ARightClickWithoutAutoPopupMenu_IsTold)
{
    LoadShown();
    bot->SetAutoPopupMenu(false);
    host.Window().Click(2, 0, {401, 402});
    host.Advance(0);
    EXPECT_EQ(journal.lines, Lines{"Click Bot button 2 shift 0 at 401 402"});
}

TEST_F(MouseTest, ADrag_MovesTheCharacterAndIsNoClick)
{
    LoadShown();
    host.Window().Drag({401, 402}, {451, 392});
    host.Advance(0);
    EXPECT_EQ(bot->Left(), 450);
    EXPECT_EQ(bot->Top(), 390);
    EXPECT_EQ(bot->MoveCause(), 1);
    EXPECT_EQ(journal.lines, (Lines{"DragStart Bot button 1 shift 0 at 401 402", "Move Bot 450 390 cause 1",
                                    "DragComplete Bot button 1 shift 0 at 451 392"}));
}

TEST_F(MouseTest, TheWindow_FollowsThePointerDuringADrag)
{
    LoadShown();
    host.Window().mouse->Press(1, 0, {400, 400});
    host.Window().mouse->Move(1, 0, {410, 420});
    EXPECT_EQ(host.Window().place.left, 410);
    EXPECT_EQ(host.Window().place.top, 420);
}

TEST_F(MouseTest, ATremblingHand_StillClicks)
{
    LoadShown();
    host.Window().Drag({400, 400}, {404, 396});
    host.Advance(0);
    EXPECT_EQ(journal.lines, Lines{"Click Bot button 1 shift 0 at 404 396"});
    EXPECT_EQ(bot->Left(), 400);
}

TEST_F(MouseTest, TheRightButton_DoesNotDrag)
{
    LoadShown();
    host.Window().mouse->Press(2, 0, {400, 400});
    host.Window().mouse->Move(2, 0, {500, 500});
    host.Window().mouse->Release(2, 0, {500, 500});
    EXPECT_EQ(bot->Left(), 400);
}

TEST_F(MouseTest, MoveTo_DuringADrag_FailsWithMoveWhileDragging)
{
    LoadShown();
    host.Window().mouse->Press(1, 0, {400, 400});
    host.Window().mouse->Move(1, 0, {450, 400});
    const RequestRef move = bot->MoveTo(0, 0, 1000);
    host.Advance(0);
    EXPECT_EQ(StatusOf(move), 1);
    EXPECT_EQ(move->Number(), code::MoveWhileDragging);
    EXPECT_EQ(bot->Left(), 450);
}

TEST_F(MouseTest, ADragDuringASlide_EndsTheSlide)
{
    LoadShown();
    const RequestRef move = bot->MoveTo(600, 400, 1000);
    host.Advance(600);
    host.Window().mouse->Press(1, 0, {500, 400});
    host.Window().mouse->Move(1, 0, {520, 400});
    host.Advance(1000);
    EXPECT_EQ(move->Number(), code::MoveWhileDragging);
    EXPECT_EQ(bot->Left(), 520);
}

TEST_F(MouseTest, HidingDuringADrag_EndsTheDrag)
{
    LoadShown();
    host.Window().mouse->Press(1, 0, {400, 400});
    host.Window().mouse->Move(1, 0, {450, 400});
    bot->Hide(true);
    host.Advance(0);
    EXPECT_EQ(journal.Count("DragComplete"), 1u);
}

TEST_F(MouseTest, AClickDuringSpeech_LeavesTheBalloon)
{
    LoadShown();
    Say("Hello there you");
    host.Advance(300);
    host.Window().Click(1, 0, {401, 402});
    EXPECT_TRUE(host.Balloon().shown);
}

TEST_F(MouseTest, AClickAfterSpeech_HidesTheBalloon)
{
    LoadShown();
    bot->Balloon()->SetStyle(0x02200009);
    Say("Hello");
    host.RunUntilIdle();
    EXPECT_TRUE(host.Balloon().shown);
    host.Window().Click(1, 0, {401, 402});
    EXPECT_FALSE(host.Balloon().shown);
}

TEST_F(MouseTest, ADragAfterSpeech_HidesTheBalloon)
{
    LoadShown();
    bot->Balloon()->SetStyle(0x02200009);
    Say("Hello");
    host.RunUntilIdle();
    host.Window().Drag({401, 402}, {501, 402});
    EXPECT_FALSE(host.Balloon().shown);
}

TEST_F(MouseTest, AClick_StopsNothing)
{
    LoadShown();
    const RequestRef speech = Say("Hello there");
    host.Advance(200);
    host.Window().Click(1, 0, {401, 402});
    host.RunUntilIdle();
    EXPECT_EQ(StatusOf(speech), 0);
}

TEST_F(MouseTest, FourPixels_AreNoDrag)
{
    LoadShown();
    host.Window().mouse->Press(1, 0, {400, 400});
    host.Window().mouse->Move(1, 0, {404, 396});
    EXPECT_EQ(host.Window().place.left, 400);
    host.Window().mouse->Release(1, 0, {404, 396});
    host.Advance(0);
    EXPECT_EQ(journal.lines, Lines{"Click Bot button 1 shift 0 at 404 396"});
}

TEST_F(MouseTest, FivePixelsSideways_AreADrag)
{
    LoadShown();
    host.Window().mouse->Press(1, 0, {400, 400});
    host.Window().mouse->Move(1, 0, {395, 400});
    EXPECT_EQ(host.Window().place.left, 395);
}

TEST_F(MouseTest, FivePixelsUpwards_AreADrag)
{
    LoadShown();
    host.Window().mouse->Press(1, 0, {400, 400});
    host.Window().mouse->Move(1, 0, {400, 395});
    EXPECT_EQ(host.Window().place.top, 395);
}

TEST_F(MouseTest, AMoveWithoutTheButton_IsNoDrag)
{
    LoadShown();
    host.Window().mouse->Press(1, 0, {400, 400});
    host.Window().mouse->Move(0, 0, {450, 450});
    EXPECT_EQ(host.Window().place.left, 400);
}

TEST_F(MouseTest, AnotherButtonReleased_EndsNoDrag)
{
    LoadShown();
    host.Window().mouse->Press(1, 0, {400, 400});
    host.Window().mouse->Move(1, 0, {450, 400});
    host.Window().mouse->Release(2, 0, {450, 400});
    host.Window().mouse->Move(1, 0, {460, 400});
    EXPECT_EQ(host.Window().place.left, 460);
}

TEST_F(MouseTest, ADoublePress_BeginsADragToo)
{
    LoadShown();
    host.Window().mouse->DoublePress(1, 0, {401, 402});
    host.Window().mouse->Move(1, 0, {451, 402});
    EXPECT_EQ(host.Window().place.left, 450);
}
