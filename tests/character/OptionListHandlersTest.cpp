#include "character/OptionListHandlers.h"
#include "support/CharacterProgram.h"

using Texts = std::vector<std::string>;

class OptionListHandlers : public CharacterProgram {};

TEST_F(OptionListHandlers, cboAnim_Click_StopsAndPlaysTheChosenAnimation)
{
    LoadMerlin();
    window.cboAnim[3].Select("Wave");
    character::cboAnim_Click(3);
    EXPECT_EQ(desktop.journal.CallsOf("Character."), (Texts{"Character.StopAll -", "Character.Play Wave"}));
}

TEST_F(OptionListHandlers, cboAnim_Click_WhileTheListsAreFilled_DoesNothing)
{
    LoadMerlin();
    character::State().fillingGreetingLists = "True";
    character::cboAnim_Click(0);
    EXPECT_TRUE(desktop.journal.Calls().empty());
}

TEST_F(OptionListHandlers, cboChr_Click_TicksTheCharacterBoxOnly)
{
    character::cboChr_Click();
    EXPECT_EQ(window.chkAdvSpkTags[3].Value(), 1);
    EXPECT_EQ(window.chkAdvSpkTags[4].Value(), 0);
}

TEST_F(OptionListHandlers, cboCtx_Click_TicksTheContextBoxOnly)
{
    character::cboCtx_Click();
    EXPECT_EQ(window.chkAdvSpkTags[4].Value(), 1);
    EXPECT_EQ(window.chkAdvSpkTags[3].Value(), 0);
}

TEST_F(OptionListHandlers, cboFontName_Click_ShowsThePlainFont)
{
    ui::TextStyle style;
    style.bold = style.italic = style.underline = style.strikeThrough = true;
    style.fontSize = 12;
    style.color = 0x0000FF;
    window.lblFontDisplay.SetStyle(style);
    window.cboFontName.SetText("Courier New");
    character::cboFontName_Click();
    ui::TextStyle expected;
    expected.fontName = "Courier New";
    expected.fontSize = 12;
    expected.color = 0x0000FF;
    EXPECT_EQ(window.lblFontDisplay.Style(), expected);
}

TEST_F(OptionListHandlers, cboFontName_Click_WhenTheLabelFails_IsReported)
{
    window.cboFontName.SetText("Courier New");
    window.lblFontDisplay.SetPeer([this] { throw failure; });
    character::cboFontName_Click();
    EXPECT_EQ(Reports(), Texts{"Parlune:cboFontName_Click"});
}

TEST_F(OptionListHandlers, cboFontSize_Click_ShowsTheSize)
{
    window.cboFontSize.SetText("10.5");
    character::cboFontSize_Click();
    EXPECT_EQ(window.lblFontDisplay.Style().fontSize, 10.5F);
}

TEST_F(OptionListHandlers, cboFontSize_Click_OfNoNumber_ReportsAMismatchAndKeepsTheSize)
{
    window.cboFontSize.SetText("big");
    character::cboFontSize_Click();
    EXPECT_EQ(Reports(), Texts{"Parlune:cboFontSize_Click"});
    EXPECT_EQ(desktop.messageBoxes.Last().Line(3), "Error Code: 13");
    EXPECT_EQ(window.lblFontDisplay.Style().fontSize, 8.0F);
}

TEST_F(OptionListHandlers, cboFontSize_Click_OfATooLargeNumber_ReportsAnOverflow)
{
    window.cboFontSize.SetText("1e39");
    character::cboFontSize_Click();
    EXPECT_EQ(Reports(), Texts{"Parlune:cboFontSize_Click"});
    EXPECT_EQ(desktop.messageBoxes.Last().Line(3), "Error Code: 6");
}
