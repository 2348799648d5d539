#include "character/CharacterSession.h"
#include "character/OptionListHandlers.h"
#include "support/CharacterProgram.h"

using character::CharLoad;
using Texts = std::vector<std::string>;

class CharLoad_AdvSpeechTags : public CharacterProgram {
protected:
    CharLoad_AdvSpeechTags()
    {
        for (const char* entry : {"Monotone", "Whisper", "Email", "Address"})
            window.cboChr.Add(entry);
        desktop.engine.character.ttsModeID = "{AA}";
    }
    void LoadWithRecord(const std::string& record, const std::string& key = "{AA}")
    {
        desktop.profile.Put(SettingsFile, "Merlin", key, record);
        CharLoad("Merlin", true);
    }
    // The boxes, as digits.
    std::string Boxes() const
    {
        std::string boxes;
        for (const ui::CCheckBox& box : window.chkAdvSpkTags)
            boxes += std::to_string(box.Value());
        return boxes;
    }
    std::vector<std::int32_t> Sliders() const
    {
        return {window.sldAdvSpeak[0].Value(), window.sldAdvSpeak[1].Value(), window.sldAdvSpeak[2].Value()};
    }
    Texts Labels() const
    {
        return {window.lblAdvSpeak[0].Caption(), window.lblAdvSpeak[1].Caption(), window.lblAdvSpeak[2].Caption()};
    }
};

TEST_F(CharLoad_AdvSpeechTags, OfAStoredRecord_ShowsAllSixFields)
{
    LoadWithRecord("10100,120,170,30000,2,-1");
    EXPECT_EQ(Boxes(), "10100");
    EXPECT_EQ(Sliders(), (std::vector<std::int32_t>{120, 170, 30000}));
    EXPECT_EQ(window.cboChr.Index(), 2);
    EXPECT_EQ(window.cboCtx.Index(), -1);
    EXPECT_TRUE(Reports().empty());
}

TEST_F(CharLoad_AdvSpeechTags, OfAStoredRecord_LabelsTheSliders)
{
    LoadWithRecord("10100,120,170,30000,2,-1");
    EXPECT_EQ(Labels(), (Texts{"120", "170", "30000"}));
}

TEST_F(CharLoad_AdvSpeechTags, OfAnUntickedCharacterWithAnEntry_StaysUnticked)
{
    window.cboChr.onClick = character::cboChr_Click;
    LoadWithRecord("00000,120,170,30000,2,-1");
    EXPECT_EQ(Boxes(), "00000");
    EXPECT_EQ(window.cboChr.Index(), 2);
}

TEST_F(CharLoad_AdvSpeechTags, OfAContextEntry_SelectsIt)
{
    window.cboCtx.Add("E-mail");
    LoadWithRecord("00001,120,170,30000,-1,0");
    EXPECT_EQ(window.cboCtx.Index(), 0);
    EXPECT_EQ(window.cboChr.Index(), -1);
}

TEST_F(CharLoad_AdvSpeechTags, OfAnotherDigitThanZeroOrOne_TicksTheBox)
{
    LoadWithRecord("02090,120,170,30000,-1,-1");
    EXPECT_EQ(Boxes(), "01010");
}

TEST_F(CharLoad_AdvSpeechTags, OfMissingDigits_ClearsTheBoxes)
{
    for (ui::CCheckBox& box : window.chkAdvSpkTags)
        box.SetValue(1);
    LoadWithRecord("1,120,170,30000,-1,-1");
    EXPECT_EQ(Boxes(), "10000");
}

TEST_F(CharLoad_AdvSpeechTags, WithoutRecord_ShowsTheCharactersPitchAndSpeed)
{
    desktop.engine.character.pitch = 90;
    desktop.engine.character.speed = 180;
    for (ui::CCheckBox& box : window.chkAdvSpkTags)
        box.SetValue(1);
    CharLoad("Merlin", true);
    EXPECT_EQ(Boxes(), "00000");
    EXPECT_EQ(Sliders(), (std::vector<std::int32_t>{90, 180, 32767}));
    EXPECT_EQ(Labels(), (Texts{"90", "180", "32767"}));
    EXPECT_EQ(window.cboChr.Index(), -1);
    EXPECT_EQ(window.cboCtx.Index(), -1);
}

TEST_F(CharLoad_AdvSpeechTags, WithoutRecord_LiftsPitchAndSpeedToTheirLeast)
{
    desktop.engine.character.pitch = -1;
    desktop.engine.character.speed = 49;
    CharLoad("Merlin", true);
    EXPECT_EQ(Sliders(), (std::vector<std::int32_t>{50, 50, 32767}));
}

TEST_F(CharLoad_AdvSpeechTags, WithoutRecord_LowersPitchAndSpeedToTheirMost)
{
    desktop.engine.character.pitch = 401;
    desktop.engine.character.speed = 251;
    CharLoad("Merlin", true);
    EXPECT_EQ(Sliders(), (std::vector<std::int32_t>{400, 250, 32767}));
}

TEST_F(CharLoad_AdvSpeechTags, WithoutVoice_ReadsTheCommonRecord)
{
    desktop.engine.character.ttsModeID = "";
    LoadWithRecord("10000,120,170,30000,-1,-1", "AdvSpeak");
    EXPECT_EQ(Sliders(), (std::vector<std::int32_t>{120, 170, 30000}));
}

TEST_F(CharLoad_AdvSpeechTags, AfterSwitchingTheVoice_ReadsTheRecordOfTheNewOne)
{
    desktop.profile.Put(SettingsFile, "Merlin", "TTSModeID", "{BB}");
    desktop.profile.Put(SettingsFile, "Merlin", "{AA}", "00000,100,100,100,-1,-1");
    LoadWithRecord("00000,222,111,333,-1,-1", "{BB}");
    EXPECT_EQ(Sliders(), (std::vector<std::int32_t>{222, 111, 333}));
}

TEST_F(CharLoad_AdvSpeechTags, OfARecordWithFiveFields_ShowsTheCharactersOwnVoiceAndKeepsTheBoxes)
{
    desktop.engine.character.pitch = 90;
    desktop.engine.character.speed = 180;
    desktop.engine.character.namedNumbers["Volume"] = 40000;
    window.chkAdvSpkTags[1].SetValue(1);
    window.cboChr.SetIndex(1);
    LoadWithRecord("10100,120,170,30000,2");
    EXPECT_EQ(Boxes(), "01000");
    EXPECT_EQ(Sliders(), (std::vector<std::int32_t>{90, 180, 40000}));
    EXPECT_EQ(Labels(), (Texts{"90", "180", "40000"}));
    EXPECT_EQ(window.cboChr.Index(), -1);
    EXPECT_EQ(window.cboCtx.Index(), -1);
}

TEST_F(CharLoad_AdvSpeechTags, OfARecordWithSevenFields_ShowsTheCharactersOwnVoice)
{
    desktop.engine.character.pitch = 90;
    desktop.engine.character.namedNumbers["Volume"] = 40000;
    LoadWithRecord("10100,120,170,30000,2,-1,5");
    EXPECT_EQ(Sliders(), (std::vector<std::int32_t>{90, 150, 40000}));
}

TEST_F(CharLoad_AdvSpeechTags, OfAnEngineWithoutVolume_ReportsAndKeepsTheSlider)
{
    window.sldAdvSpeak[2].SetValue(1234);
    LoadWithRecord("10100,120");
    EXPECT_EQ(Reports(), Texts{"Parlune:CharLoad_AdvSpeechTags"});
    EXPECT_EQ(desktop.messageBoxes.Last().Line(3), "Error Code: 438");
    EXPECT_EQ(window.sldAdvSpeak[2].Value(), 1234);
    EXPECT_EQ(Labels(), (Texts{"100", "150", "1234"}));
}

TEST_F(CharLoad_AdvSpeechTags, OfAFieldThatIsNoNumber_ReportsItAndShowsTheOthers)
{
    LoadWithRecord("11111,fast,170,30000,1,-1");
    EXPECT_EQ(Reports(), Texts{"Parlune:CharLoad_AdvSpeechTags"});
    EXPECT_EQ(desktop.messageBoxes.Last().Line(3), "Error Code: 13");
    EXPECT_EQ(Boxes(), "11111");
    EXPECT_EQ(Sliders(), (std::vector<std::int32_t>{100, 170, 30000}));
    EXPECT_EQ(window.cboChr.Index(), 1);
}

TEST_F(CharLoad_AdvSpeechTags, OfAnEntryBeyondTheList_ReportsItAndShowsTheOthers)
{
    LoadWithRecord("10000,120,170,30000,0,2");
    EXPECT_EQ(Reports(), Texts{"Parlune:CharLoad_AdvSpeechTags"});
    EXPECT_EQ(desktop.messageBoxes.Last().Line(3), "Error Code: 380");
    EXPECT_EQ(window.cboChr.Index(), 0);
    EXPECT_EQ(Sliders(), (std::vector<std::int32_t>{120, 170, 30000}));
}
