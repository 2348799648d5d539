#include "ui/BalloonTab.h"
#include "character/CharacterProperties.h"
#include "support/FailEachCall.h"
#include "support/WiredTabs.h"

namespace {

using Texts = std::vector<std::string>;

enum Button { SetFont, ResetToDefault };

class BalloonTab : public WiredTabs {
protected:
    BalloonTab()
    {
        desktop.fonts.faceNames = {"Arial", "Courier New", "Tahoma"};
        desktop.engine.character.balloonStyle = 0x02200007;
    }
    void Press(Button button) { window.cmdSetFont[button].Click(); }
    void ShowTab()
    {
        LoadMerlin();
        Visit(Balloon);
        desktop.journal.Clear();
    }
    // Another character, with another balloon.
    void LoadGenie()
    {
        desktop.engine.character.balloonStyle = 0x0A280009;
        desktop.engine.character.fontName = "Courier New";
        desktop.engine.character.fontSize = 16;
        character::CharLoad("Genie", /*show*/ true);
    }
    // The whole page in one line: boxes 0 to 3, font, characters and lines, the preview's font.
    std::string Shown() const
    {
        std::string page;
        for (const ui::CCheckBox& box : window.chkBalloon)
            page += std::to_string(box.Value());
        const ui::TextStyle& preview = window.lblFontDisplay.Style();
        return page + " " + window.cboFontName.Text() + " " + window.cboFontSize.Text() + ", " +
               window.txtCharsPerLine.Text() + " x " + window.txtNumberOfLines.Text() + ", preview " + preview.fontName +
               " " + std::to_string(static_cast<int>(preview.fontSize));
    }
    // Shown and auto-paced, 40 characters in each of 10 lines.
    void Choose(const std::string& font, const std::string& size)
    {
        window.cboFontName.SetText(font);
        window.cboFontSize.SetText(size);
        for (int box = 0; box < 4; ++box)
            window.chkBalloon[box].SetValue(box == 0 || box == 3 ? 1 : 0);
        window.txtCharsPerLine.SetText("40");
        window.txtNumberOfLines.SetText("10");
    }
};

}

TEST_F(BalloonTab, Boxes_StandForTheBitsOfTheStyle)
{
    EXPECT_EQ(window.chkBalloon[0].Caption(), "Show Balloon");
    EXPECT_EQ(window.chkBalloon[1].Caption(), "Size to Text");
    EXPECT_EQ(window.chkBalloon[2].Caption(), "Auto-Hide");
    EXPECT_EQ(window.chkBalloon[3].Caption(), "Auto-Pace");
}

TEST_F(BalloonTab, ShowBalloon_TheFirstTime_ShowsFontAndLinesOfTheBalloon)
{
    ShowTab();
    EXPECT_EQ(window.cboFontName.Text(), "Arial");
    EXPECT_EQ(window.cboFontSize.Text(), "10");
    EXPECT_EQ(window.txtCharsPerLine.Text(), "32");
    EXPECT_EQ(window.txtNumberOfLines.Text(), "2");
    EXPECT_EQ(window.lblFontDisplay.Style().fontName, "Arial");
    EXPECT_EQ(window.lblFontDisplay.Style().fontSize, 10.0F);
}

TEST_F(BalloonTab, ShowBalloon_AtEachVisit_ShowsTheBalloonAsItIs)
{
    ShowTab();
    Choose("Tahoma", "12");
    Visit(General);
    Visit(Balloon);
    EXPECT_EQ(Shown(), "1110 Arial 10, 32 x 2, preview Arial 10");
}

TEST_F(BalloonTab, ShowBalloon_AfterAChangeOfCharacter_ShowsTheNewOne)
{
    ShowTab();
    Visit(Character);
    LoadGenie();
    Visit(Balloon);
    EXPECT_EQ(Shown(), "1001 Courier New 16, 40 x 10, preview Courier New 16");
}

TEST_F(BalloonTab, ShowBalloon_WhenTheCharacterChangesWhileItIsOpen_ShowsTheNewOne)
{
    ShowTab();
    LoadGenie();
    EXPECT_EQ(Shown(), "1001 Courier New 16, 40 x 10, preview Courier New 16");
}

TEST_F(BalloonTab, ShowBalloon_WhenAVoiceTestEndsWhileItIsOpen_ShowsTheBalloonThatCameBack)
{
    LoadMerlin();
    character::SaveCharProperties();
    Loaded().fontName = "Tahoma";
    Visit(Balloon);
    character::RestoreCharProperties();
    EXPECT_EQ(window.cboFontName.Text(), "Arial");
}

TEST_F(BalloonTab, ShowBalloon_OfManyLinesAndCharacters_ShowsTheirNumbers)
{
    desktop.engine.character.balloonStyle = static_cast<std::int32_t>(0xC8FA0007u);
    ShowTab();
    EXPECT_EQ(window.txtCharsPerLine.Text(), "250");
    EXPECT_EQ(window.txtNumberOfLines.Text(), "200");
}

TEST_F(BalloonTab, ShowBalloon_OnAnotherTab_IsLeftForTheNextVisit)
{
    ShowTab();
    Visit(General);
    desktop.journal.Clear();
    LoadGenie();
    EXPECT_EQ(window.cboFontName.Text(), "Arial");
}

TEST_F(BalloonTab, ShowBalloon_WhenThePartsOfTheBalloonCannotBeHad_ShowsNoMixture)
{
    for (const char* call : {"Balloon.Style", "Balloon.FontName", "Balloon.FontSize"}) {
        ShowTab();
        LoadGenie();
        const std::string before = Shown();
        Loaded().balloonStyle = 0x02200007;
        Loaded().fontName = "Tahoma";
        Loaded().fontSize = 8;
        desktop.journal.FailNext(call, failure);
        Visit(Balloon);
        EXPECT_EQ(Shown(), before) << call;
        EXPECT_EQ(Reports().back(), "Parlune:tabMain_Click");
    }
}

TEST_F(BalloonTab, cmdSetFont_Click_AfterAChangeOfCharacter_StoresNoMixture)
{
    ShowTab();
    LoadGenie();
    Press(SetFont);
    EXPECT_EQ(desktop.profile.Value(SettingsFile, "Genie", "FontName"), "Courier New");
    EXPECT_EQ(desktop.profile.Value(SettingsFile, "Genie", "FontSize"), "16");
    EXPECT_EQ(desktop.profile.Value(SettingsFile, "Genie", "BalloonStyle"), "&H0A280009");
}

TEST_F(BalloonTab, cmdSetFont_Click_Set_DressesTheBalloon)
{
    ShowTab();
    Choose("Tahoma", "12");
    Press(SetFont);
    EXPECT_EQ(Loaded().fontName, "Tahoma");
    EXPECT_EQ(Loaded().fontSize, 12);
    EXPECT_EQ(Loaded().balloonStyle, 0x0A280009);
}

TEST_F(BalloonTab, cmdSetFont_Click_Set_StoresTheLookAtOnce)
{
    ShowTab();
    Choose("Tahoma", "12");
    Press(SetFont);
    EXPECT_EQ(Stored("FontName"), "Tahoma");
    EXPECT_EQ(Stored("FontSize"), "12");
    EXPECT_EQ(Stored("BalloonStyle"), "&H0A280009");
}

TEST_F(BalloonTab, cmdSetFont_Click_Set_DressesBeforeItStores)
{
    ShowTab();
    Choose("Tahoma", "12");
    Press(SetFont);
    const Texts calls = desktop.journal.Calls();
    const auto style = std::find(calls.begin(), calls.end(), "Balloon.SetStyle 170393609");
    ASSERT_NE(style, calls.end());
    EXPECT_TRUE(std::none_of(calls.begin(), style, [](const std::string& call) { return call.starts_with("Profile."); }));
}

TEST_F(BalloonTab, cmdSetFont_Click_SetUntouched_ChangesNothingOfTheBalloon)
{
    ShowTab();
    Press(SetFont);
    EXPECT_EQ(Loaded().fontName, "Arial");
    EXPECT_EQ(Loaded().fontSize, 10);
    EXPECT_EQ(Loaded().balloonStyle, 0x02200007);
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST_F(BalloonTab, cmdSetFont_Click_SetIsThereAfterTheNextLoad)
{
    ShowTab();
    Choose("Tahoma", "12");
    Press(SetFont);
    LoadMerlin();
    EXPECT_EQ(Loaded().fontName, "Tahoma");
    EXPECT_EQ(Loaded().fontSize, 12);
    EXPECT_EQ(Loaded().balloonStyle, 0x0A280009);
}

TEST_F(BalloonTab, cmdSetFont_Click_SetOfTooManyCharacters_SpillsIntoTheLines)
{
    ShowTab();
    Choose("Tahoma", "12");
    window.txtCharsPerLine.SetText("256");
    Press(SetFont);
    EXPECT_EQ(Stored("BalloonStyle"), "&H0B000009");
}

TEST_F(BalloonTab, cmdSetFont_Click_SetOfTooManyLines_IsReportedTwiceAndKeepsTheStyle)
{
    ShowTab();
    Choose("Tahoma", "12");
    Press(SetFont);
    window.txtNumberOfLines.SetText("128");
    Press(SetFont);
    EXPECT_EQ(Reports(), (Texts{"bParlune:GetBalloonStyle", "Parlune:cmdSetFont_Click"}));
    EXPECT_EQ(desktop.messageBoxes.shown[0].Line(3), "Error Code: 6");
    EXPECT_EQ(desktop.messageBoxes.shown[1].Line(3), "Error Code: 13");
    EXPECT_EQ(Loaded().balloonStyle, 0x0A280009);
    EXPECT_EQ(Stored("BalloonStyle"), "&H0A280009");
}

TEST_F(BalloonTab, cmdSetFont_Click_SetOfTooManyLines_StoresTheFontAllTheSame)
{
    ShowTab();
    Choose("Tahoma", "12");
    window.txtNumberOfLines.SetText("128");
    Press(SetFont);
    EXPECT_EQ(Loaded().fontName, "Tahoma");
    EXPECT_EQ(Stored("FontName"), "Tahoma");
    EXPECT_EQ(Stored("FontSize"), "12");
    EXPECT_EQ(Stored("BalloonStyle"), std::nullopt);
}

TEST_F(BalloonTab, cmdSetFont_Click_SetOfNoFontSize_IsReportedAndTheStyleFollows)
{
    ShowTab();
    Choose("Tahoma", "big");
    Press(SetFont);
    EXPECT_EQ(Reports(), Texts{"Parlune:cmdSetFont_Click"});
    EXPECT_EQ(desktop.messageBoxes.Last().Line(3), "Error Code: 13");
    EXPECT_EQ(Loaded().fontName, "Tahoma");
    EXPECT_EQ(Loaded().fontSize, 10);
    EXPECT_EQ(Loaded().balloonStyle, 0x0A280009);
}

TEST_F(BalloonTab, cmdSetFont_Click_Reset_ReturnsToWhatTheCharacterBrought)
{
    ShowTab();
    Choose("Tahoma", "12");
    Press(SetFont);
    Press(ResetToDefault);
    EXPECT_EQ(Loaded().fontName, "Arial");
    EXPECT_EQ(Loaded().fontSize, 10);
    EXPECT_EQ(Loaded().balloonStyle, 0x02200007);
}

TEST_F(BalloonTab, cmdSetFont_Click_Reset_RemovesWhatIsStored)
{
    ShowTab();
    Choose("Tahoma", "12");
    Press(SetFont);
    Press(ResetToDefault);
    EXPECT_EQ(Stored("FontName"), std::nullopt);
    EXPECT_EQ(Stored("FontSize"), std::nullopt);
    EXPECT_EQ(Stored("BalloonStyle"), std::nullopt);
}

TEST_F(BalloonTab, cmdSetFont_Click_Reset_ShowsTheDefaults)
{
    ShowTab();
    Choose("Tahoma", "12");
    Press(ResetToDefault);
    EXPECT_EQ(window.cboFontName.Text(), "Arial");
    EXPECT_EQ(window.cboFontSize.Text(), "10");
    EXPECT_EQ(window.lblFontDisplay.Style().fontName, "Arial");
    EXPECT_EQ(window.chkBalloon[1].Value(), 1);
    EXPECT_EQ(window.chkBalloon[3].Value(), 0);
    EXPECT_EQ(window.txtCharsPerLine.Text(), "32");
    EXPECT_EQ(window.txtNumberOfLines.Text(), "2");
}

TEST_F(BalloonTab, cmdSetFont_Click_ResetAfterALoadWithStoredLook_ReturnsToTheCharactersOwn)
{
    desktop.profile.Put(SettingsFile, "Merlin", "FontName", "Tahoma");
    desktop.profile.Put(SettingsFile, "Merlin", "FontSize", "14");
    desktop.profile.Put(SettingsFile, "Merlin", "BalloonStyle", "&H0A280009");
    ShowTab();
    Press(ResetToDefault);
    EXPECT_EQ(Loaded().fontName, "Arial");
    EXPECT_EQ(Loaded().fontSize, 10);
    EXPECT_EQ(Loaded().balloonStyle, 0x02200007);
}

TEST_F(BalloonTab, cmdSetFont_Click_WithoutACharacter_IsOneReportForEachButton)
{
    Press(SetFont);
    Press(ResetToDefault);
    EXPECT_EQ(Reports(), (Texts{"Parlune:cmdSetFont_Click", "Parlune:cmdSetFont_Click"}));
    EXPECT_EQ(desktop.messageBoxes.Last().Line(3), "Error Code: 91");
}

TEST_F(BalloonTab, Preview_ShowsAChosenFontAtOnce)
{
    ShowTab();
    window.cboFontName.Select("Courier New");
    window.cboFontSize.Select("24");
    EXPECT_EQ(window.lblFontDisplay.Style().fontName, "Courier New");
    EXPECT_EQ(window.lblFontDisplay.Style().fontSize, 24.0F);
    EXPECT_EQ(Loaded().fontName, "Arial");
}

namespace {

void ExpectReports(Button button, const std::vector<support::ReportRule>& rules)
{
    support::FailEachCallAndExpect(
        rules,
        [](CHeadlessDesktop&) {
            settings::Paths().settingsFile = "C:\\Data\\Parlune.ini";
            startup::WireTabs(MainWindow());
            character::CharLoad("Merlin", /*show*/ true);
            MainWindow().tabMain.Select(3);
        },
        [&](CHeadlessDesktop&) { MainWindow().cmdSetFont[button].Click(); });
}

}

TEST(BalloonTabFailures, cmdSetFont_Click_Set_WhicheverCallFails_IsReportedOnce)
{
    ExpectReports(SetFont, {{"Profile.", "bProfile:SetProfile"}, {"", "Parlune:cmdSetFont_Click"}});
}

TEST(BalloonTabFailures, cmdSetFont_Click_Reset_WhicheverCallFails_IsReportedOnce)
{
    ExpectReports(ResetToDefault, {{"Profile.", "bProfile:SetProfile"}, {"", "Parlune:cmdSetFont_Click"}});
}
