#include "ui/CharacterSize.h"
#include "support/WiredTabs.h"

namespace {

using settings::Options;
using Texts = std::vector<std::string>;

class CharacterSize : public WiredTabs {
protected:
    CharacterSize()
    {
        desktop.engine.character.originalWidth = 128;
        desktop.engine.character.originalHeight = 96;
        desktop.engine.character.width = 128;
        desktop.engine.character.height = 96;
        Options().CharWidth = 11;
        Options().CharHeight = 12;
    }
    void ShowSizes(const std::string& width, const std::string& height)
    {
        window.txtSize[0].SetText(width);
        window.txtSize[1].SetText(height);
    }
    // As the user types into a box and leaves it.
    void Type(int box, const std::string& text)
    {
        window.txtSize[box].SetText(text);
        window.txtSize[box].Commit();
    }
    void LoadWithCustomSize()
    {
        LoadMerlin();
        window.chkCustomSize.SetValue(1);
        desktop.journal.Clear();
    }
    void ExpectSize(int width, int height)
    {
        EXPECT_EQ(Loaded().width, width);
        EXPECT_EQ(Loaded().height, height);
    }
    void ExpectKept(int width, int height)
    {
        EXPECT_EQ(Options().CharWidth, width);
        EXPECT_EQ(Options().CharHeight, height);
    }
};

}

TEST_F(CharacterSize, chkCustomSize_Click_Ticked_OpensTheBoxesAndFocusesTheWidth)
{
    LoadMerlin();
    window.chkCustomSize.SetValue(1);
    EXPECT_TRUE(window.txtSize[0].Enabled());
    EXPECT_TRUE(window.txtSize[1].Enabled());
    EXPECT_TRUE(window.chkProportional.Enabled());
    EXPECT_TRUE(window.txtSize[0].HasFocus());
}

TEST_F(CharacterSize, chkCustomSize_Click_Ticked_GivesTheCharacterTheShownSize)
{
    LoadMerlin();
    ShowSizes("200", "150");
    window.chkCustomSize.SetValue(1);
    ExpectSize(200, 150);
    ExpectKept(200, 150);
}

TEST_F(CharacterSize, chkCustomSize_Click_Ticked_KeepsWhatTheCharacterSays)
{
    LoadMerlin();
    ShowSizes("200", "150");
    desktop.journal.FailNext("Character.SetHeight", failure);
    window.chkCustomSize.SetValue(1);
    ExpectKept(200, 96);
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST_F(CharacterSize, chkCustomSize_Click_TickedWithAZero_OpensTheBoxesAndChangesNoSize)
{
    LoadMerlin();
    ShowSizes("0", "150");
    window.chkCustomSize.SetValue(1);
    EXPECT_TRUE(window.txtSize[0].Enabled());
    ExpectSize(128, 96);
    ExpectKept(11, 12);
}

TEST_F(CharacterSize, chkCustomSize_Click_TickedWithoutANumber_OpensTheBoxesAndChangesNoSize)
{
    LoadMerlin();
    ShowSizes("200", "tall");
    window.chkCustomSize.SetValue(1);
    EXPECT_TRUE(window.txtSize[1].Enabled());
    ExpectSize(128, 96);
    ExpectKept(11, 12);
}

TEST_F(CharacterSize, chkCustomSize_Click_TickedWithATooLargeNumber_ChangesWhatItCanSilently)
{
    LoadMerlin();
    ShowSizes("40000", "150");
    window.chkCustomSize.SetValue(1);
    ExpectSize(128, 150);
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST_F(CharacterSize, chkCustomSize_Click_Cleared_ReturnsToTheOwnSizeAndShowsIt)
{
    LoadMerlin();
    ShowSizes("200", "150");
    window.chkCustomSize.SetValue(1);
    window.chkCustomSize.SetValue(0);
    ExpectSize(128, 96);
    EXPECT_EQ(window.txtSize[0].Text(), "128");
    EXPECT_EQ(window.txtSize[1].Text(), "96");
    EXPECT_FALSE(window.txtSize[0].Enabled());
    EXPECT_FALSE(window.txtSize[1].Enabled());
    EXPECT_FALSE(window.chkProportional.Enabled());
}

TEST_F(CharacterSize, chkCustomSize_Click_WithoutACharacter_OpensAndClosesTheBoxesSilently)
{
    ShowSizes("200", "150");
    window.chkCustomSize.SetValue(1);
    EXPECT_TRUE(window.txtSize[0].Enabled());
    window.chkCustomSize.SetValue(0);
    EXPECT_FALSE(window.txtSize[0].Enabled());
    EXPECT_EQ(window.txtSize[0].Text(), "200");
    ExpectKept(11, 12);
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST_F(CharacterSize, chkCustomSize_Click_WhicheverCallFails_ReportsNothing)
{
    for (const int value : {0, 1}) {
        LoadMerlin();
        ShowSizes("200", "150");
        desktop.journal.FailAlways("Character.", failure);
        window.chkCustomSize.SetValue(value);
        EXPECT_TRUE(desktop.messageBoxes.shown.empty());
        EXPECT_EQ(window.txtSize[1].Enabled(), value == 1);
        desktop.journal.ForgetFailures();
    }
}

TEST_F(CharacterSize, txtSize_Commit_GivesTheCharacterTheSizeAndKeepsIt)
{
    LoadWithCustomSize();
    Type(0, "200");
    ExpectSize(200, 96);
    ExpectKept(200, 96);
}

TEST_F(CharacterSize, txtSize_Commit_WithoutCustomSize_ChangesNothing)
{
    LoadMerlin();
    Type(0, "200");
    ExpectSize(128, 96);
    ExpectKept(11, 12);
}

TEST_F(CharacterSize, txtSize_Commit_ProportionalWidth_SetsTheHeight)
{
    LoadWithCustomSize();
    window.chkProportional.SetValue(1);
    Type(0, "64");
    EXPECT_EQ(window.txtSize[1].Text(), "48");
    ExpectSize(64, 48);
    ExpectKept(64, 48);
}

TEST_F(CharacterSize, txtSize_Commit_ProportionalHeight_SetsTheWidth)
{
    LoadWithCustomSize();
    window.chkProportional.SetValue(1);
    Type(1, "192");
    EXPECT_EQ(window.txtSize[0].Text(), "256");
    ExpectSize(256, 192);
}

TEST_F(CharacterSize, txtSize_Commit_Proportional_RoundsToAWholeNumber)
{
    LoadWithCustomSize();
    window.chkProportional.SetValue(1);
    Type(0, "101");
    EXPECT_EQ(window.txtSize[1].Text(), "76");
}

TEST_F(CharacterSize, txtSize_Commit_NotProportional_LeavesTheOtherBox)
{
    LoadWithCustomSize();
    Type(0, "64");
    EXPECT_EQ(window.txtSize[1].Text(), "96");
    ExpectSize(64, 96);
}

TEST_F(CharacterSize, txtSize_Commit_OfAZero_AppliesTheOtherBoxOnly)
{
    LoadWithCustomSize();
    Loaded().height = 50;
    Type(0, "0");
    ExpectSize(128, 96);
    ExpectKept(128, 96);
}

TEST_F(CharacterSize, txtSize_Commit_OfOnePixel_IsTaken)
{
    LoadWithCustomSize();
    Type(0, "1");
    Type(1, "1");
    ExpectSize(1, 1);
    ExpectKept(1, 1);
}

TEST_F(CharacterSize, txtSize_Commit_OfAZeroHeight_AppliesTheWidthOnly)
{
    LoadWithCustomSize();
    Loaded().width = 50;
    Type(1, "0");
    ExpectSize(128, 96);
    ExpectKept(128, 96);
}

TEST_F(CharacterSize, txtSize_Commit_ProportionalWithoutANumber_LeavesTheOtherBox)
{
    LoadWithCustomSize();
    window.chkProportional.SetValue(1);
    Type(0, "wide");
    EXPECT_EQ(window.txtSize[1].Text(), "96");
    ExpectSize(128, 96);
}

TEST_F(CharacterSize, txtSize_Commit_OfATooLargeNumber_IsReportedAndTheOtherBoxHolds)
{
    LoadWithCustomSize();
    Loaded().height = 50;
    Type(0, "40000");
    EXPECT_EQ(Reports(), Texts{"Parlune:txtSize_LostFocus"});
    EXPECT_EQ(desktop.messageBoxes.Last().Line(3), "Error Code: 6");
    ExpectSize(128, 96);
}

TEST_F(CharacterSize, txtSize_Commit_OfACharacterWithoutSize_ReportsTheDivision)
{
    desktop.engine.character.originalWidth = 0;
    LoadWithCustomSize();
    window.chkProportional.SetValue(1);
    Type(0, "64");
    EXPECT_EQ(Reports(), Texts{"Parlune:txtSize_LostFocus"});
    EXPECT_EQ(desktop.messageBoxes.Last().Line(3), "Error Code: 11");
    ExpectSize(64, 96);
}

TEST_F(CharacterSize, txtSize_Commit_WithoutACharacter_KeepsTheSizeForTheNextOne)
{
    window.chkCustomSize.SetValue(1);
    window.chkProportional.SetValue(1);
    Type(0, "200");
    Type(1, "150");
    ExpectKept(200, 150);
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
    LoadMerlin();
    ExpectSize(200, 150);
}

TEST_F(CharacterSize, txtSize_Commit_AgainWhileAReportIsShown_IsNotHandledTwice)
{
    LoadWithCustomSize();
    desktop.messageBoxes.whileShown = [this] { window.txtSize[0].Commit(); };
    Type(0, "40000");
    EXPECT_EQ(Reports().size(), 1U);
    EXPECT_EQ(desktop.journal.Count("Character.SetHeight"), 1U);
    desktop.messageBoxes.whileShown = nullptr;
    Type(0, "64");
    ExpectSize(64, 96);
}

TEST_F(CharacterSize, txtSize_Commit_WhenTheCharacterRefuses_IsReportedAndNotKept)
{
    LoadWithCustomSize();
    desktop.journal.FailNext("Character.SetWidth", failure);
    Type(0, "64");
    EXPECT_EQ(Reports(), Texts{"Parlune:txtSize_LostFocus"});
    ExpectKept(128, 96);
}

TEST_F(CharacterSize, NumberBoxes_Enter_SelectAllOfTheirText)
{
    for (ui::CTextBox* box : {&window.txtSize[0], &window.txtSize[1], &window.txtCharsPerLine, &window.txtNumberOfLines}) {
        box->SetText("128");
        box->Enter();
        EXPECT_EQ(box->SelectionStart(), 0) << box->Name();
        EXPECT_EQ(box->SelectionLength(), 3) << box->Name();
    }
}

TEST_F(CharacterSize, OtherBoxes_Enter_LeaveTheCaret)
{
    window.txtUserName.SetText("Ann");
    window.txtUserName.Enter();
    EXPECT_EQ(window.txtUserName.SelectionLength(), 0);
}

TEST_F(CharacterSize, SelectAll_CountsCharacters)
{
    window.txtUserName.SetText("Zo\xC3\xAB");
    window.txtUserName.SelectAll();
    EXPECT_EQ(window.txtUserName.SelectionLength(), 3);
}

TEST_F(CharacterSize, chkCustomSize_Click_WhenTheWidthIsRefused_SetsTheHeight)
{
    LoadMerlin();
    ShowSizes("200", "150");
    desktop.journal.FailNext("Character.SetWidth", failure);
    window.chkCustomSize.SetValue(1);
    ExpectSize(128, 150);
    ExpectKept(128, 150);
    EXPECT_EQ(Reports(), Texts{});
}

TEST_F(CharacterSize, chkCustomSize_Click_WhenTheOwnWidthIsRefused_ReturnsToTheOwnHeight)
{
    LoadWithCustomSize();
    Type(0, "200");
    Type(1, "150");
    desktop.journal.FailNext("Character.SetWidth", failure);
    window.chkCustomSize.SetValue(0);
    ExpectSize(200, 96);
}

TEST_F(CharacterSize, txtSize_LostFocus_WhenTheWidthIsRefused_SetsTheHeight)
{
    LoadWithCustomSize();
    window.txtSize[0].SetText("200");
    desktop.journal.FailNext("Character.SetWidth", failure);
    Type(1, "150");
    ExpectSize(128, 150);
    EXPECT_EQ(Reports(), Texts{"Parlune:txtSize_LostFocus"});
}
