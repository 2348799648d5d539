#include "character/bParlune.h"
#include "support/CharacterProgram.h"

class SpeechModifiers : public CharacterProgram {
protected:
    SpeechModifiers()
    {
        for (const char* entry : {"Monotone", "Whisper", "Email", "Address"})
            window.cboChr.Add(entry);
    }
};

TEST_F(SpeechModifiers, GetAdvSpeakTags_WithNoneOn_IsEmpty) { EXPECT_EQ(bParlune::GetAdvSpeakTags(), ""); }

TEST_F(SpeechModifiers, GetAdvSpeakTags_OfVolumePitchAndCharacter_NamesThemInThisOrder)
{
    window.chkAdvSpkTags[0].SetValue(1);
    window.chkAdvSpkTags[2].SetValue(1);
    window.chkAdvSpkTags[3].SetValue(1);
    window.sldAdvSpeak[0].SetValue(150);
    window.sldAdvSpeak[2].SetValue(65535);
    window.cboChr.Select("Whisper");
    EXPECT_EQ(bParlune::GetAdvSpeakTags(), "\\Vol=65535\\\\Pit=150\\\\Chr=\"Whisper\"\\");
}

TEST_F(SpeechModifiers, GetAdvSpeakTags_OfAllFive_EndsWithSpeedCharacterAndContext)
{
    for (ui::CCheckBox& box : window.chkAdvSpkTags)
        box.SetValue(1);
    window.sldAdvSpeak[0].SetValue(90);
    window.sldAdvSpeak[1].SetValue(200);
    window.sldAdvSpeak[2].SetValue(1);
    window.cboChr.Select("Monotone");
    window.cboCtx.SetText("E-mail");
    EXPECT_EQ(bParlune::GetAdvSpeakTags(), "\\Vol=1\\\\Pit=90\\\\Spd=200\\\\Chr=\"Monotone\"\\\\Ctx=\"E-mail\"\\");
}

TEST_F(SpeechModifiers, GetAdvSpeakTags_OfACharacterWithoutText_LeavesItOut)
{
    window.chkAdvSpkTags[3].SetValue(1);
    EXPECT_EQ(bParlune::GetAdvSpeakTags(), "");
}

TEST_F(SpeechModifiers, GetAdvSpeakTags_OfAContextWithoutText_LeavesItOut)
{
    window.chkAdvSpkTags[4].SetValue(1);
    EXPECT_EQ(bParlune::GetAdvSpeakTags(), "");
}

TEST_F(SpeechModifiers, GetAdvSpeakTags_OfAnUntickedCharacter_LeavesItOut)
{
    window.cboChr.Select("Whisper");
    EXPECT_EQ(bParlune::GetAdvSpeakTags(), "");
}

TEST_F(SpeechModifiers, GetAdvSpeakTags_OfAGrayedBox_CountsItAsOn)
{
    window.chkAdvSpkTags[1].SetValue(2);
    window.sldAdvSpeak[1].SetValue(120);
    EXPECT_EQ(bParlune::GetAdvSpeakTags(), "\\Spd=120\\");
}
