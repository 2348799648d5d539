#include "character/CharacterProperties.h"
#include "support/CharacterProgram.h"

using Texts = std::vector<std::string>;

class CharacterProperties : public CharacterProgram {
protected:
    CharacterProperties()
    {
        desktop.engine.character.ttsModeID = "{AA}";
        LoadMerlin();
    }
    void DressOtherwise()
    {
        platform::headless::EngineCharacter& merlin = *desktop.engine.loaded;
        merlin.width = 64;
        merlin.height = 96;
        merlin.fontName = "Courier";
        merlin.fontSize = 24;
        merlin.balloonStyle = 0x01080000;
        merlin.ttsModeID = "{BB}";
    }
    void ExpectTheFirstLook() const
    {
        const platform::headless::EngineCharacter& merlin = *desktop.engine.loaded;
        EXPECT_EQ(merlin.width, 128);
        EXPECT_EQ(merlin.height, 128);
        EXPECT_EQ(merlin.fontName, "Arial");
        EXPECT_EQ(merlin.fontSize, 10);
        EXPECT_EQ(merlin.balloonStyle, 0x02200007);
        EXPECT_EQ(merlin.ttsModeID, "{AA}");
    }
};

TEST_F(CharacterProperties, SaveCharProperties_ReadsInOrder)
{
    character::SaveCharProperties();
    EXPECT_EQ(desktop.journal.Calls(),
              (Texts{"Character.Width", "Character.Height", "Character.Balloon", "Balloon.FontName", "Character.Balloon",
                     "Balloon.FontSize", "Character.Balloon", "Balloon.Style", "Character.TTSModeID"}));
}

TEST_F(CharacterProperties, RestoreCharProperties_WritesInOrder)
{
    character::SaveCharProperties();
    desktop.journal.Clear();
    character::RestoreCharProperties();
    EXPECT_EQ(desktop.journal.Calls(),
              (Texts{"Character.SetWidth 128", "Character.SetHeight 128", "Character.Balloon", "Balloon.SetFontName Arial",
                     "Character.Balloon", "Balloon.SetFontSize 10", "Character.Balloon", "Balloon.SetStyle 35651591",
                     "Character.SetTTSModeID {AA}"}));
}

TEST_F(CharacterProperties, RestoreCharProperties_GivesBackTheLookBeforeTheTest)
{
    character::SaveCharProperties();
    DressOtherwise();
    character::RestoreCharProperties();
    ExpectTheFirstLook();
}

TEST_F(CharacterProperties, SaveCharProperties_BeforeASecondTest_TakesNothing)
{
    character::SaveCharProperties();
    DressOtherwise();
    desktop.journal.Clear();
    character::SaveCharProperties();
    EXPECT_TRUE(desktop.journal.Calls().empty());
    character::RestoreCharProperties();
    ExpectTheFirstLook();
}

TEST_F(CharacterProperties, SaveCharProperties_AfterARestore_StillTakesNothing)
{
    character::SaveCharProperties();
    character::RestoreCharProperties();
    desktop.engine.loaded->fontName = "Courier";
    character::SaveCharProperties();
    character::RestoreCharProperties();
    ExpectTheFirstLook();
}

TEST_F(CharacterProperties, SaveCharProperties_WhenAReadFails_ReportsAndReadsTheRest)
{
    desktop.journal.FailNext("Character.Width", failure);
    character::SaveCharProperties();
    EXPECT_EQ(Reports(), Texts{"Parlune:SaveCharProperties"});
    EXPECT_EQ(desktop.journal.Calls().back(), "Character.TTSModeID");
}

TEST_F(CharacterProperties, RestoreCharProperties_WhenAWriteFails_ReportsAndWritesTheRest)
{
    character::SaveCharProperties();
    DressOtherwise();
    desktop.journal.FailNext("Character.SetWidth", failure);
    character::RestoreCharProperties();
    EXPECT_EQ(Reports(), Texts{"Parlune:RestoreCharProperties"});
    EXPECT_EQ(desktop.engine.loaded->width, 64);
    EXPECT_EQ(desktop.engine.loaded->height, 128);
    EXPECT_EQ(desktop.engine.loaded->ttsModeID, "{AA}");
}
