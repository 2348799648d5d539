#include "character/bParlune.h"
#include "support/CharacterProgram.h"

class BalloonStyle : public CharacterProgram {};

TEST_F(BalloonStyle, FormatBalloonStyle_OfASmallNumber_PadsToEightDigits)
{
    EXPECT_EQ(bParlune::FormatBalloonStyle(7), "&H00000007");
}

TEST_F(BalloonStyle, FormatBalloonStyle_WritesCapitalDigits)
{
    EXPECT_EQ(bParlune::FormatBalloonStyle(0x0ABCDEF9), "&H0ABCDEF9");
}

TEST_F(BalloonStyle, FormatBalloonStyle_OfANegativeNumber_HasEightDigits)
{
    EXPECT_EQ(bParlune::FormatBalloonStyle(-1), "&HFFFFFFFF");
}

TEST_F(BalloonStyle, GetBalloonStyle_OfShownAutoPacedBalloon_SetsBitsZeroAndThree)
{
    window.chkBalloon[0].SetValue(1);
    window.chkBalloon[3].SetValue(1);
    window.txtCharsPerLine.SetText("32");
    window.txtNumberOfLines.SetText("2");
    EXPECT_EQ(bParlune::GetBalloonStyle(), "&H02200009");
}

TEST_F(BalloonStyle, GetBalloonStyle_OfTheMiddleBoxes_SetsBitsOneAndTwo)
{
    window.chkBalloon[1].SetValue(1);
    window.chkBalloon[2].SetValue(1);
    window.txtCharsPerLine.SetText("8");
    window.txtNumberOfLines.SetText("127");
    EXPECT_EQ(bParlune::GetBalloonStyle(), "&H7F080006");
}

TEST_F(BalloonStyle, GetBalloonStyle_WithTooManyCharactersPerLine_SpillsIntoTheLines)
{
    window.txtCharsPerLine.SetText("257");
    window.txtNumberOfLines.SetText("2");
    EXPECT_EQ(bParlune::GetBalloonStyle(), "&H03010000");
}

TEST_F(BalloonStyle, GetBalloonStyle_WithEmptyBoxes_CountsThemAsZero)
{
    window.chkBalloon[0].SetValue(1);
    EXPECT_EQ(bParlune::GetBalloonStyle(), "&H00000001");
    EXPECT_TRUE(Reports().empty());
}

TEST_F(BalloonStyle, GetBalloonStyle_WithAFraction_IsRoundedAfterTheShift)
{
    window.txtCharsPerLine.SetText("1.5");
    window.txtNumberOfLines.SetText("0");
    EXPECT_EQ(bParlune::GetBalloonStyle(), "&H00018000");
}

TEST_F(BalloonStyle, GetBalloonStyle_With128Lines_ReportsAnOverflow)
{
    window.txtCharsPerLine.SetText("32");
    window.txtNumberOfLines.SetText("128");
    EXPECT_EQ(bParlune::GetBalloonStyle(), "");
    EXPECT_EQ(Reports(), std::vector<std::string>{"bParlune:GetBalloonStyle"});
    EXPECT_EQ(desktop.messageBoxes.Last().Line(3), "Error Code: 6");
}
