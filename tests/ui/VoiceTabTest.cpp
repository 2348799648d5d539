#include "ui/VoiceTab.h"
#include "character/CharacterState.h"
#include "support/FailEachCall.h"
#include "support/WiredTabs.h"
#include "ui/VoiceModifiers.h"

namespace {

using Texts = std::vector<std::string>;

enum Button { TestButton, ResetButton, SetButton };
enum Page { TTSVoice, Modifiers };

// A character with the voice {AA}; the list offers {AA} and {BB}, and {BB} is selected.
class VoiceTab : public WiredTabs {
protected:
    VoiceTab()
    {
        desktop.engine.character.ttsModeID = "{AA}";
        ListVoices({"{AA}", "{BB}"});
        LoadMerlin();
        Visit(Voice);
        window.tabTTS.Select(TTSVoice);
        window.lstTTS.SetIndex(1);
        window.txtTestText.SetText("One two");
        desktop.journal.Clear();
    }
    void Press(Button button) { window.cmdTTSVoice[button].Click(); }
    Texts CharacterCalls() const { return desktop.journal.CallsOf("Character."); }
    void UseModifiers()
    {
        window.tabTTS.Select(Modifiers);
        window.cboChr.Add("Monotone");
        window.cboChr.Add("Whisper");
        window.cboChr.SetIndex(1);
        window.cboCtx.Add("Email");
        window.chkAdvSpkTags[0].SetValue(1);
        window.chkAdvSpkTags[1].SetValue(1);
        window.sldAdvSpeak[0].SetValue(150);
        window.sldAdvSpeak[1].SetValue(100);
        window.sldAdvSpeak[2].SetValue(40000);
        desktop.journal.Clear();
    }
};

}

TEST_F(VoiceTab, tabTTS_Click_ShowsTheFrameOfThatTabOnly)
{
    window.tabTTS.Select(Modifiers);
    EXPECT_FALSE(window.fraTTS.Visible());
    EXPECT_TRUE(window.fraVoiceModifiers.Visible());
    window.tabTTS.Select(TTSVoice);
    EXPECT_TRUE(window.fraTTS.Visible());
    EXPECT_FALSE(window.fraVoiceModifiers.Visible());
}

TEST_F(VoiceTab, tabTTS_Click_WhenAFrameFails_IsReportedAndTheOtherFollows)
{
    window.fraTTS.SetPeer([this] { throw failure; });
    window.tabTTS.Select(Modifiers);
    EXPECT_EQ(Reports(), Texts{"Parlune:tabTTS_Click"});
    EXPECT_TRUE(window.fraVoiceModifiers.Visible());
}

TEST_F(VoiceTab, cmdTTSVoice_Click_Test_SavesTheLookChangesTheVoiceAndSpeaks)
{
    Press(TestButton);
    const Texts calls = CharacterCalls();
    EXPECT_EQ(calls.front(), "Character.Width");
    ASSERT_GE(calls.size(), 2U);
    EXPECT_EQ(calls[calls.size() - 2], "Character.SetTTSModeID {BB}");
    EXPECT_EQ(calls.back(), "Character.Speak One two | -");
}

TEST_F(VoiceTab, cmdTTSVoice_Click_Test_TakesItsStepsInTheirOrder)
{
    Press(TestButton);
    EXPECT_EQ(desktop.journal.Calls(),
              (Texts{"Character.Width", "Character.Height", "Character.Balloon", "Balloon.FontName", "Character.Balloon",
                     "Balloon.FontSize", "Character.Balloon", "Balloon.Style", "Character.TTSModeID",
                     "Character.SetTTSModeID {BB}", "Character.Speak One two | -"}));
}

TEST_F(VoiceTab, cmdTTSVoice_Click_Set_TakesItsStepsInTheirOrder)
{
    Press(SetButton);
    EXPECT_EQ(desktop.journal.Calls(),
              (Texts{"Character.Name", "Profile.Write C:\\Data\\Parlune.ini [Merlin] TTSModeID={BB}",
                     "Character.SetTTSModeID {BB}", "Character.Speak Voice Changed. | -"}));
}

TEST_F(VoiceTab, cmdTTSVoice_Click_Reset_TakesItsStepsInTheirOrder)
{
    Press(ResetButton);
    EXPECT_EQ(
        desktop.journal.Calls(),
        (Texts{"Character.Name", "Profile.Write C:\\Data\\Parlune.ini [Merlin] TTSModeID=*", "Character.SetTTSModeID {AA}",
               "Character.TTSModeID", "Events.RunPendingEvents", "Character.Speak Voice Options are now Reset. | -"}));
}

TEST_F(VoiceTab, cmdTTSVoice_Click_ResetOfModifiers_TakesItsStepsInTheirOrder)
{
    UseModifiers();
    Press(ResetButton);
    EXPECT_EQ(desktop.journal.Calls(), (Texts{"Character.Pitch", "Character.Speed", "Character.TTSModeID", "Character.Name",
                                              "Profile.Write C:\\Data\\Parlune.ini [Merlin] {AA}=*",
                                              "Character.Speak Voice Options are now Reset. | -"}));
}

TEST_F(VoiceTab, cmdTTSVoice_Click_Test_KeepsTheRequestAsTestOnly)
{
    Press(TestButton);
    ASSERT_TRUE(character::State().testRequest);
    EXPECT_EQ(character::State().testRequest->ID(), LastRequest().ID());
    EXPECT_FALSE(character::State().speechRequest);
}

TEST_F(VoiceTab, cmdTTSVoice_Click_Test_OverReturnsToTheVoiceBefore)
{
    Press(TestButton);
    EXPECT_EQ(Loaded().ttsModeID, "{BB}");
    desktop.engine.Complete(desktop.engine.requests.size() - 1);
    EXPECT_EQ(Loaded().ttsModeID, "{AA}");
}

TEST_F(VoiceTab, cmdTTSVoice_Click_Test_StoresNothing)
{
    Press(TestButton);
    EXPECT_EQ(desktop.journal.Count("Profile.Write"), 0U);
}

TEST_F(VoiceTab, cmdTTSVoice_Click_TestOfAnEmptyText_FillsInTheWelcomeAndSpeaksIt)
{
    window.txtTestText.SetText("");
    Press(TestButton);
    EXPECT_EQ(window.txtTestText.Text(), "Welcome to Parlune from Tarrowind Technologies!");
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"Welcome to Parlune from Tarrowind Technologies!"});
}

TEST_F(VoiceTab, cmdTTSVoice_Click_TestOfABlankText_FillsInTheWelcomeAndSpeaksIt)
{
    window.txtTestText.SetText("   ");
    Press(TestButton);
    EXPECT_EQ(window.txtTestText.Text(), "Welcome to Parlune from Tarrowind Technologies!");
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"Welcome to Parlune from Tarrowind Technologies!"});
}

TEST_F(VoiceTab, cmdTTSVoice_Click_TestOfEmptyLines_FillsInTheWelcomeAndSpeaksIt)
{
    window.txtTestText.SetText(" \r\n\r\n");
    Press(TestButton);
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"Welcome to Parlune from Tarrowind Technologies!"});
}

TEST_F(VoiceTab, cmdTTSVoice_Click_TestOfTheFirstText_SpeaksItOnce)
{
    window.txtTestText.SetText("Welcome to Parlune from Tarrowind Technologies!\r\n");
    Press(TestButton);
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"Welcome to Parlune from Tarrowind Technologies!"});
    EXPECT_EQ(window.txtTestText.Text(), "Welcome to Parlune from Tarrowind Technologies!\r\n");
}

TEST_F(VoiceTab, cmdTTSVoice_Click_TestOfModifiers_SpeaksWithThemAndKeepsTheVoice)
{
    UseModifiers();
    Press(TestButton);
    EXPECT_EQ(CharacterCalls(), Texts{"Character.Speak \\Pit=150\\\\Spd=100\\\\Chr=\"Whisper\"\\One two | -"});
    EXPECT_FALSE(character::State().testRequest);
    EXPECT_TRUE(character::State().speechRequest);
}

TEST_F(VoiceTab, cmdTTSVoice_Click_TestOfModifiersWithoutText_FillsInTheWelcome)
{
    window.tabTTS.Select(Modifiers);
    window.txtTestText.SetText(" ");
    Press(TestButton);
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"Welcome to Parlune from Tarrowind Technologies!"});
}

TEST_F(VoiceTab, lstTTS_DblClick_Tests)
{
    window.lstTTS.SetIndex(0);
    window.lstTTS.DoubleClick();
    EXPECT_EQ(CharacterCalls().back(), "Character.Speak One two | -");
    EXPECT_TRUE(character::State().testRequest);
}

TEST_F(VoiceTab, cmdTTSVoice_Click_Set_StoresTheVoiceGivesItAndSaysSo)
{
    Press(SetButton);
    EXPECT_EQ(Stored("TTSModeID"), "{BB}");
    EXPECT_EQ(Loaded().ttsModeID, "{BB}");
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"Voice Changed."});
    EXPECT_TRUE(character::State().speechRequest);
}

TEST_F(VoiceTab, cmdTTSVoice_Click_Set_WithoutSelection_RemovesTheStoredVoice)
{
    desktop.profile.Put(SettingsFile, "Merlin", "TTSModeID", "{CC}");
    window.lstTTS.SetIndex(-1);
    Press(SetButton);
    EXPECT_EQ(Stored("TTSModeID"), std::nullopt);
}

TEST_F(VoiceTab, cmdTTSVoice_Click_Reset_ReturnsToTheVoiceOfTheCharacterAndMarksIt)
{
    Press(SetButton);
    Press(ResetButton);
    EXPECT_EQ(Stored("TTSModeID"), std::nullopt);
    EXPECT_EQ(Loaded().ttsModeID, "{AA}");
    EXPECT_EQ(window.lstTTS.Index(), 0);
    EXPECT_EQ(desktop.engine.Spoken(), (Texts{"Voice Changed.", "Voice Options are now Reset."}));
}

TEST_F(VoiceTab, Record_HoldsSixFields)
{
    UseModifiers();
    EXPECT_EQ(voiceModifiers::Record(), "11010,150,100,40000,1,-1");
}

TEST_F(VoiceTab, Record_EndsWithTheIndexesOfBothLists)
{
    for (const char* entry : {"Monotone", "Whisper", "Email"}) {
        window.cboChr.Add(entry);
        window.cboCtx.Add(entry);
    }
    window.chkAdvSpkTags[0].SetValue(1);
    window.chkAdvSpkTags[1].SetValue(1);
    window.cboChr.SetIndex(0);
    window.cboCtx.SetIndex(2);
    window.chkAdvSpkTags[3].SetValue(0);
    window.chkAdvSpkTags[4].SetValue(0);
    EXPECT_EQ(voiceModifiers::Record(), "11000,100,150,32767,0,2");
}

TEST_F(VoiceTab, Record_OfATickWithAnotherValue_IsStillADigit)
{
    window.chkAdvSpkTags[4].SetValue(2);
    EXPECT_EQ(voiceModifiers::Record(), "00001,100,150,32767,-1,-1");
}

TEST_F(VoiceTab, cmdTTSVoice_Click_SetOfModifiers_StoresThemForTheVoiceSilently)
{
    UseModifiers();
    Press(SetButton);
    EXPECT_EQ(Stored("{AA}"), "11010,150,100,40000,1,-1");
    EXPECT_EQ(Stored("AdvSpeak"), std::nullopt);
    EXPECT_TRUE(desktop.engine.Spoken().empty());
}

TEST_F(VoiceTab, cmdTTSVoice_Click_SetOfModifiersWithoutVoice_StoresThemUnderTheirOwnName)
{
    Loaded().ttsModeID = "";
    UseModifiers();
    Press(SetButton);
    EXPECT_EQ(Stored("AdvSpeak"), "11010,150,100,40000,1,-1");
}

TEST_F(VoiceTab, cmdTTSVoice_Click_SetOfModifiers_AreThereAfterTheNextLoad)
{
    UseModifiers();
    Press(SetButton);
    window.sldAdvSpeak[0].SetValue(300);
    window.chkAdvSpkTags[0].SetValue(0);
    window.cboChr.SetIndex(0);
    LoadMerlin();
    EXPECT_EQ(voiceModifiers::Record(), "11010,150,100,40000,1,-1");
}

TEST_F(VoiceTab, cmdTTSVoice_Click_ResetOfModifiers_ShowsTheCharactersOwnVoice)
{
    Loaded().pitch = 120;
    Loaded().speed = 170;
    UseModifiers();
    window.cboCtx.SetIndex(0);
    Press(ResetButton);
    EXPECT_EQ(voiceModifiers::Record(), "00000,120,170,32767,-1,-1");
    EXPECT_EQ(window.lblAdvSpeak[0].Caption(), "120");
    EXPECT_EQ(window.lblAdvSpeak[1].Caption(), "170");
    EXPECT_EQ(window.lblAdvSpeak[2].Caption(), "32767");
}

TEST_F(VoiceTab, cmdTTSVoice_Click_ResetOfModifiers_RemovesTheRecordAndSaysSo)
{
    UseModifiers();
    Press(SetButton);
    Press(ResetButton);
    EXPECT_EQ(Stored("{AA}"), std::nullopt);
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"Voice Options are now Reset."});
}

TEST_F(VoiceTab, cmdTTSVoice_Click_ResetOfModifiersWithoutVoice_RemovesTheRecordOfThatName)
{
    desktop.profile.Put(SettingsFile, "Merlin", "AdvSpeak", "11000,150,100,32767,0,-1");
    Loaded().ttsModeID = "";
    window.tabTTS.Select(Modifiers);
    Press(ResetButton);
    EXPECT_EQ(Stored("AdvSpeak"), std::nullopt);
}

TEST_F(VoiceTab, cmdTTSVoice_Click_ResetOfModifiers_KeepsTheVoice)
{
    Press(SetButton);
    window.tabTTS.Select(Modifiers);
    Press(ResetButton);
    EXPECT_EQ(Stored("TTSModeID"), "{BB}");
    EXPECT_EQ(Loaded().ttsModeID, "{BB}");
}

TEST_F(VoiceTab, sldAdvSpeak_Change_ShowsTheValue)
{
    window.sldAdvSpeak[1].SetValue(200);
    EXPECT_EQ(window.lblAdvSpeak[1].Caption(), "200");
    window.sldAdvSpeak[2].SetValue(0);
    EXPECT_EQ(window.lblAdvSpeak[2].Caption(), "0");
}

TEST_F(VoiceTab, sldAdvSpeak_Change_WhenTheLabelFails_IsReported)
{
    window.lblAdvSpeak[1].SetPeer([this] { throw failure; });
    window.sldAdvSpeak[1].SetValue(200);
    EXPECT_EQ(Reports(), Texts{"Parlune:sldAdvSpeak_Change"});
}

TEST_F(VoiceTab, Modifiers_ChoosingASpeakingCharacter_SwitchesItOn)
{
    window.cboChr.Add("Whisper");
    window.cboChr.SetIndex(0);
    EXPECT_EQ(window.chkAdvSpkTags[3].Value(), 1);
}

namespace {

class VoiceTabAlone : public WiredTabs {};

}

TEST_F(VoiceTabAlone, cmdTTSVoice_Click_WithoutACharacter_IsOneReportForEachButton)
{
    window.txtTestText.SetText("One two");
    for (ui::CButton& button : window.cmdTTSVoice)
        button.Click();
    EXPECT_EQ(Reports(), (Texts{"Parlune:cmdTestVoice_Click", "Parlune:cmdTestVoice_Click", "Parlune:cmdTestVoice_Click"}));
    EXPECT_EQ(desktop.messageBoxes.Last().Line(3), "Error Code: 91");
}

TEST_F(VoiceTabAlone, cmdTTSVoice_Click_TestOfABlankTextWithoutACharacter_FillsInTheWelcome)
{
    window.txtTestText.SetText("  ");
    window.cmdTTSVoice[TestButton].Click();
    EXPECT_EQ(window.txtTestText.Text(), "Welcome to Parlune from Tarrowind Technologies!");
    EXPECT_EQ(Reports(), Texts{"Parlune:cmdTestVoice_Click"});
}

TEST_F(VoiceTabAlone, cmdTTSVoice_Click_OtherButtonsWithABlankText_LeaveItBlank)
{
    window.txtTestText.SetText("  ");
    window.cmdTTSVoice[ResetButton].Click();
    window.cmdTTSVoice[SetButton].Click();
    EXPECT_EQ(window.txtTestText.Text(), "  ");
}

TEST_F(VoiceTabAlone, cmdTTSVoice_Click_WithoutACharacter_DoesNotSpoilTheLookThatATestReturnsTo)
{
    desktop.engine.character.ttsModeID = "{AA}";
    window.cmdTTSVoice[TestButton].Click();
    LoadMerlin();
    window.cmdTTSVoice[TestButton].Click();
    desktop.engine.Complete(desktop.engine.requests.size() - 1);
    EXPECT_EQ(Loaded().width, 128);
    EXPECT_EQ(Loaded().ttsModeID, "{AA}");
}

TEST_F(VoiceTabAlone, cmdTTSVoice_Click_ResetOfAnUnusualVoice_ShowsTheNearestValues)
{
    desktop.engine.character.pitch = -1;
    desktop.engine.character.speed = 600;
    LoadMerlin();
    window.tabTTS.Select(Modifiers);
    window.cmdTTSVoice[ResetButton].Click();
    EXPECT_EQ(voiceModifiers::Record(), "00000,50,250,32767,-1,-1");
    EXPECT_EQ(window.lblAdvSpeak[0].Caption(), "50");
    EXPECT_EQ(window.lblAdvSpeak[1].Caption(), "250");
}

namespace {

using support::FailEachCall;
using support::FailedRun;

// What the button does while each of its calls fails in turn; with `report` for the calls that have no other reporter.
void ExpectReports(Page page, Button button, const std::vector<support::ReportRule>& rules, const char* lastSpoken)
{
    FailEachCall(
        [&](CHeadlessDesktop& desktop) {
            settings::Paths().settingsFile = "C:\\Data\\Parlune.ini";
            desktop.speechEngines.engines = {{"{AA}", "A"}, {"{BB}", "B"}};
            startup::WireTabs(MainWindow());
            character::CharLoad("Merlin", /*show*/ true);
            MainWindow().tabMain.Select(2);
            MainWindow().tabTTS.Select(page);
            MainWindow().txtTestText.SetText("One two");
        },
        [&](CHeadlessDesktop&) { MainWindow().cmdTTSVoice[button].Click(); },
        [&](const FailedRun& run) {
            support::ExpectReport(run, rules);
            const bool speaks = lastSpoken != nullptr && !run.FailedIn("Character.Speak");
            EXPECT_EQ(run.desktop.engine.Spoken(), speaks ? Texts{lastSpoken} : Texts{});
        });
}

}

TEST(VoiceTabFailures, cmdTTSVoice_Click_Test_WhicheverCallFails_StillSpeaks)
{
    ExpectReports(TTSVoice, TestButton,
                  {{"Character.SetTTSModeID", ""},
                   {"Character.Speak", "bParlune:CharSpeak"},
                   {"Character.", "Parlune:SaveCharProperties"},
                   {"Balloon.", "Parlune:SaveCharProperties"}},
                  "One two");
}

TEST(VoiceTabFailures, cmdTTSVoice_Click_Set_WhicheverCallFails_StillSpeaks)
{
    ExpectReports(TTSVoice, SetButton,
                  {{"Character.SetTTSModeID", ""},
                   {"Character.Speak", "bParlune:CharSpeak"},
                   {"Character.Name", "Parlune:cmdTestVoice_Click"},
                   {"Profile.", "bProfile:SetProfile"}},
                  "Voice Changed.");
}

TEST(VoiceTabFailures, cmdTTSVoice_Click_Reset_WhicheverCallFails_StillSpeaks)
{
    ExpectReports(TTSVoice, ResetButton,
                  {{"Character.SetTTSModeID", ""},
                   {"Character.Speak", "bParlune:CharSpeak"},
                   {"Character.Name", "Parlune:cmdTestVoice_Click"},
                   {"Profile.", "bProfile:SetProfile"},
                   {"Character.TTSModeID", "bParlune:SetTTSModeID"},
                   {"Events.", "bParlune:SetTTSModeID"}},
                  "Voice Options are now Reset.");
}

TEST(VoiceTabFailures, cmdTTSVoice_Click_SetOfModifiers_WhicheverCallFails_IsReported)
{
    ExpectReports(Modifiers, SetButton, {{"Profile.", "bProfile:SetProfile"}, {"Character.", "Parlune:cmdTestVoice_Click"}},
                  nullptr);
}

TEST(VoiceTabFailures, cmdTTSVoice_Click_ResetOfModifiers_WhicheverCallFails_StillSpeaks)
{
    ExpectReports(Modifiers, ResetButton,
                  {{"Character.Speak", "bParlune:CharSpeak"},
                   {"Profile.", "bProfile:SetProfile"},
                   {"Character.", "Parlune:cmdTestVoice_Click"}},
                  "Voice Options are now Reset.");
}
