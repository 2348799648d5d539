#include "character/CharacterSession.h"
#include "support/CharacterProgram.h"

using character::CharLoad;
using settings::Options;
using Texts = std::vector<std::string>;

// The screen has 1024 x 768 pixels, the character 128 x 128.
class CharLoad_Placement : public CharacterProgram {
protected:
    void LoadAt(std::int32_t left, std::int32_t top)
    {
        Options().CharLeft = left;
        Options().CharTop = top;
        CharLoad("Merlin", true);
    }
    Texts Moves() const { return desktop.journal.CallsOf("Character.MoveTo"); }
};

TEST_F(CharLoad_Placement, WithoutStoredPosition_StandsInTheBottomRightCorner)
{
    LoadAt(-1, -1);
    EXPECT_EQ(Moves(), Texts{"Character.MoveTo 846 590 -"});
    EXPECT_EQ(Options().CharLeft, 846);
    EXPECT_EQ(Options().CharTop, 590);
}

TEST_F(CharLoad_Placement, OfACharacterThatDoesNotTellItsSize_LeavesTheDistanceToTheCorner)
{
    desktop.journal.FailAlways("Character.Width", failure);
    desktop.journal.FailAlways("Character.Height", failure);
    LoadAt(-1, -1);
    EXPECT_EQ(Moves(), Texts{"Character.MoveTo 974 718 -"});
}

TEST_F(CharLoad_Placement, WithAStoredPosition_StandsThere)
{
    LoadAt(300, 200);
    EXPECT_EQ(Moves(), Texts{"Character.MoveTo 300 200 -"});
}

TEST_F(CharLoad_Placement, WithOnlyOneMinusOne_TakesItAsAPosition)
{
    LoadAt(-1, 200);
    EXPECT_EQ(Moves(), Texts{"Character.MoveTo -1 200 -"});
}

TEST_F(CharLoad_Placement, MoreThanHalfBeyondTheLeftEdge_IsPulledBack)
{
    LoadAt(-70, 200);
    EXPECT_EQ(Moves(), Texts{"Character.MoveTo 0 200 -"});
    EXPECT_EQ(Options().CharLeft, 0);
}

TEST_F(CharLoad_Placement, LessThanHalfBeyondTheLeftEdge_IsKept)
{
    LoadAt(-60, 200);
    EXPECT_EQ(Moves(), Texts{"Character.MoveTo -60 200 -"});
}

TEST_F(CharLoad_Placement, ExactlyHalfBeyondTheLeftEdge_IsKept)
{
    LoadAt(-64, 200);
    EXPECT_EQ(Moves(), Texts{"Character.MoveTo -64 200 -"});
}

TEST_F(CharLoad_Placement, ExactlyHalfBeyondTheRightEdge_IsKept)
{
    LoadAt(960, 200);
    EXPECT_EQ(Moves(), Texts{"Character.MoveTo 960 200 -"});
}

TEST_F(CharLoad_Placement, MoreThanHalfBeyondTheRightEdge_IsPulledBack)
{
    LoadAt(961, 200);
    EXPECT_EQ(Moves(), Texts{"Character.MoveTo 896 200 -"});
}

TEST_F(CharLoad_Placement, MoreThanHalfBeyondTheUpperEdge_IsPulledBack)
{
    LoadAt(300, -65);
    EXPECT_EQ(Moves(), Texts{"Character.MoveTo 300 0 -"});
}

TEST_F(CharLoad_Placement, MoreThanHalfBeyondTheLowerEdge_IsPulledBack)
{
    LoadAt(300, 705);
    EXPECT_EQ(Moves(), Texts{"Character.MoveTo 300 640 -"});
}

TEST_F(CharLoad_Placement, WithAPositionFarAway_IsPulledBack)
{
    LoadAt(2147483647, -2147483647);
    EXPECT_EQ(Moves(), Texts{"Character.MoveTo 896 0 -"});
}

TEST_F(CharLoad_Placement, OnAScreenSmallerThanTheDistance_StaysOnTheScreen)
{
    desktop.screen.width = 100;
    desktop.screen.height = 100;
    LoadAt(-1, -1);
    EXPECT_EQ(Moves(), Texts{"Character.MoveTo 0 0 -"});
}

TEST_F(CharLoad_Placement, OfAReplacement_KeepsTheCentre)
{
    desktop.engine.characterOfFile["Genie.acs"].width = 200;
    desktop.engine.characterOfFile["Genie.acs"].height = 60;
    LoadAt(300, 200);
    desktop.engine.loaded->left = 400;
    desktop.engine.loaded->top = 300;
    desktop.journal.Clear();
    CharLoad("Genie", true);
    EXPECT_EQ(Moves(), Texts{"Character.MoveTo 364 334 -"});
}

TEST_F(CharLoad_Placement, OfAReplacementWithOddSizes_HalvesWholePixels)
{
    desktop.engine.characterOfFile["Genie.acs"].width = 131;
    desktop.engine.characterOfFile["Genie.acs"].height = 99;
    desktop.engine.character.width = 129;
    desktop.engine.character.height = 101;
    LoadAt(300, 200);
    desktop.journal.Clear();
    CharLoad("Genie", true);
    EXPECT_EQ(Moves(), Texts{"Character.MoveTo 299 201 -"});
}

TEST_F(CharLoad_Placement, OfAReplacementBeyondTheEdge_IsPulledBack)
{
    LoadAt(300, 200);
    desktop.engine.loaded->left = 1000;
    desktop.journal.Clear();
    CharLoad("Genie", true);
    EXPECT_EQ(Moves(), Texts{"Character.MoveTo 896 200 -"});
}

class CharLoad_CustomSize : public CharacterProgram {
protected:
    void LoadWithSize(std::int32_t width, std::int32_t height)
    {
        Options().CharWidth = width;
        Options().CharHeight = height;
        CharLoad("Merlin", true);
    }
};

TEST_F(CharLoad_CustomSize, SwitchedOn_IsAppliedAndShown)
{
    window.chkCustomSize.SetValue(1);
    LoadWithSize(64, 80);
    EXPECT_EQ(desktop.engine.loaded->width, 64);
    EXPECT_EQ(desktop.engine.loaded->height, 80);
    EXPECT_EQ(window.txtSize[0].Text(), "64");
    EXPECT_EQ(window.txtSize[1].Text(), "80");
}

TEST_F(CharLoad_CustomSize, SwitchedOff_ShowsTheCharactersSize)
{
    desktop.engine.character.height = 150;
    LoadWithSize(64, 80);
    EXPECT_EQ(desktop.engine.loaded->width, 128);
    EXPECT_EQ(window.txtSize[0].Text(), "128");
    EXPECT_EQ(window.txtSize[1].Text(), "150");
}

TEST_F(CharLoad_CustomSize, Grayed_IsNotApplied)
{
    window.chkCustomSize.SetValue(2);
    LoadWithSize(64, 80);
    EXPECT_EQ(desktop.engine.loaded->width, 128);
}

TEST_F(CharLoad_CustomSize, TooLargeForTheEngine_IsReportedAndTheHeightStillApplied)
{
    window.chkCustomSize.SetValue(1);
    LoadWithSize(40000, 80);
    EXPECT_EQ(Reports(), Texts{"Parlune:CharLoad"});
    EXPECT_EQ(desktop.messageBoxes.Last().Line(3), "Error Code: 6");
    EXPECT_EQ(desktop.engine.loaded->width, 128);
    EXPECT_EQ(desktop.engine.loaded->height, 80);
}

TEST_F(CharLoad_CustomSize, IsCountedByThePlacement)
{
    window.chkCustomSize.SetValue(1);
    Options().CharLeft = -1;
    Options().CharTop = -1;
    LoadWithSize(64, 80);
    EXPECT_EQ(desktop.journal.CallsOf("Character.MoveTo"), Texts{"Character.MoveTo 910 638 -"});
}
