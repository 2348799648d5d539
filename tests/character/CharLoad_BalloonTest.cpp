#include "character/CharacterSession.h"
#include "support/CharacterProgram.h"

using character::CharLoad;
using Texts = std::vector<std::string>;

class CharLoad_Balloon : public CharacterProgram {
protected:
    void LoadWith(const std::string& key, const std::string& value)
    {
        desktop.profile.Put(SettingsFile, "Merlin", key, value);
        CharLoad("Merlin", true);
    }
    std::string Boxes() const
    {
        std::string boxes;
        for (const ui::CCheckBox& box : window.chkBalloon)
            boxes += std::to_string(box.Value());
        return boxes;
    }
    void ExpectNoStyleApplied() const
    {
        EXPECT_EQ(desktop.journal.Count("Balloon.SetStyle"), 0U);
        EXPECT_EQ(Boxes(), "1010");
        EXPECT_EQ(window.txtCharsPerLine.Text(), "99");
        EXPECT_EQ(window.txtNumberOfLines.Text(), "9");
        EXPECT_TRUE(Reports().empty());
    }
    void ShowAnotherStyle()
    {
        window.chkBalloon[0].SetValue(1);
        window.chkBalloon[2].SetValue(1);
        window.txtCharsPerLine.SetText("99");
        window.txtNumberOfLines.SetText("9");
    }
};

TEST_F(CharLoad_Balloon, Font_Stored_IsGivenToTheBalloon)
{
    desktop.profile.Put(SettingsFile, "Merlin", "FontName", "Courier New");
    LoadWith("FontSize", "24");
    EXPECT_EQ(desktop.engine.loaded->fontName, "Courier New");
    EXPECT_EQ(desktop.engine.loaded->fontSize, 24);
}

TEST_F(CharLoad_Balloon, Font_NotStored_StaysTheCharactersOwn)
{
    CharLoad("Merlin", true);
    EXPECT_EQ(desktop.engine.loaded->fontName, "Arial");
    EXPECT_EQ(desktop.engine.loaded->fontSize, 10);
}

TEST_F(CharLoad_Balloon, Font_RefusedByTheEngine_IsSilentAndStillSetsTheSize)
{
    desktop.journal.FailNext("Balloon.SetFontName", failure);
    LoadWith("FontSize", "24");
    EXPECT_TRUE(Reports().empty());
    EXPECT_EQ(desktop.engine.loaded->fontSize, 24);
}

TEST_F(CharLoad_Balloon, Font_WithASizeThatIsNoNumber_IsSilentAndKeepsTheSize)
{
    LoadWith("FontSize", "big");
    EXPECT_TRUE(Reports().empty());
    EXPECT_EQ(desktop.engine.loaded->fontSize, 10);
}

TEST_F(CharLoad_Balloon, Font_ThatCannotBeRead_IsReportedAndLeavesTheName)
{
    desktop.journal.FailNext("Balloon.FontName", failure, /*passes*/ 1);
    LoadWith("FontSize", "24");
    EXPECT_EQ(Reports(), Texts{"Parlune:CharLoad_BalloonFont"});
    EXPECT_EQ(desktop.engine.loaded->fontName, "Arial");
    EXPECT_EQ(desktop.engine.loaded->fontSize, 24);
}

TEST_F(CharLoad_Balloon, Style_Stored_IsShownAndGivenToTheBalloon)
{
    ShowAnotherStyle();
    LoadWith("BalloonStyle", "&H0A280001");
    EXPECT_EQ(Boxes(), "1000");
    EXPECT_EQ(window.txtCharsPerLine.Text(), "40");
    EXPECT_EQ(window.txtNumberOfLines.Text(), "10");
    EXPECT_EQ(desktop.engine.loaded->balloonStyle, 170393601);
}

TEST_F(CharLoad_Balloon, Style_WithAllBits_TicksAllBoxes)
{
    LoadWith("BalloonStyle", "&H7FFF000F");
    EXPECT_EQ(Boxes(), "1111");
    EXPECT_EQ(window.txtCharsPerLine.Text(), "255");
    EXPECT_EQ(window.txtNumberOfLines.Text(), "127");
}

TEST_F(CharLoad_Balloon, Style_WithSmallLetters_IsApplied)
{
    LoadWith("BalloonStyle", "&h0a280006");
    EXPECT_EQ(Boxes(), "0110");
    EXPECT_EQ(desktop.engine.loaded->balloonStyle, 170393606);
}

TEST_F(CharLoad_Balloon, Style_BeyondThirtyOneBits_IsTheNegativeNumber)
{
    LoadWith("BalloonStyle", "&HFFFFFFFF");
    EXPECT_EQ(window.txtNumberOfLines.Text(), "255");
    EXPECT_EQ(desktop.engine.loaded->balloonStyle, -1);
}

TEST_F(CharLoad_Balloon, Style_NotStored_ChangesNothing)
{
    ShowAnotherStyle();
    CharLoad("Merlin", true);
    ExpectNoStyleApplied();
}

TEST_F(CharLoad_Balloon, Style_OfNineCharacters_ChangesNothing)
{
    ShowAnotherStyle();
    LoadWith("BalloonStyle", "&HA280001");
    ExpectNoStyleApplied();
}

TEST_F(CharLoad_Balloon, Style_OfElevenCharacters_ChangesNothing)
{
    ShowAnotherStyle();
    LoadWith("BalloonStyle", "&H00A280001");
    ExpectNoStyleApplied();
}

TEST_F(CharLoad_Balloon, Style_OfTenCharactersThatAreNoNumber_ChangesNothing)
{
    ShowAnotherStyle();
    LoadWith("BalloonStyle", "&H0A28000G");
    ExpectNoStyleApplied();
}

TEST_F(CharLoad_Balloon, Style_OfTenDigits_ChangesNothing)
{
    ShowAnotherStyle();
    LoadWith("BalloonStyle", "0123456789");
    ExpectNoStyleApplied();
}

TEST_F(CharLoad_Balloon, Style_WithASignAmongTheDigits_ChangesNothing)
{
    ShowAnotherStyle();
    LoadWith("BalloonStyle", "&H-A280001");
    ExpectNoStyleApplied();
}

TEST_F(CharLoad_Balloon, Style_RefusedByTheEngine_IsReportedAndLoadingGoesOn)
{
    desktop.journal.FailNext("Balloon.SetStyle", failure);
    LoadWith("BalloonStyle", "&H0A280001");
    EXPECT_EQ(Reports(), Texts{"Parlune:CharLoad"});
    EXPECT_EQ(Boxes(), "1000");
    EXPECT_TRUE(character::State().loaded);
}
