#include "character/bParlune.h"
#include "support/CharacterProgram.h"

using character::State;
using Texts = std::vector<std::string>;

class CharSpeak : public CharacterProgram {
protected:
    CharSpeak()
    {
        LoadMerlin();
        window.cboSayTimeFormat.SetText("h:nn AM/PM");
        window.txtUserName.SetText("Ann");
    }
    Texts Speaks() const { return desktop.journal.CallsOf("Character.Speak"); }
    void SwitchSpeedOn()
    {
        window.chkAdvSpkTags[1].SetValue(1);
        window.sldAdvSpeak[1].SetValue(200);
    }
};

TEST_F(CharSpeak, OfOneLine_IsOneRequestWithoutSound)
{
    bParlune::CharSpeak("Hello");
    EXPECT_EQ(Speaks(), Texts{"Character.Speak Hello | -"});
}

TEST_F(CharSpeak, OfBlanksAroundAText_SpeaksItWithoutThem)
{
    bParlune::CharSpeak("   Hello  ");
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"Hello"});
}

TEST_F(CharSpeak, OfThreeLinesWithAnEmptyOne_MakesTwoRequests)
{
    bParlune::CharSpeak("A\r\n\r\nB");
    EXPECT_EQ(desktop.engine.Spoken(), (Texts{"A", "B"}));
}

TEST_F(CharSpeak, OfSeveralLines_KeepsTheRequestOfTheLast)
{
    bParlune::CharSpeak("A\r\n\r\nB");
    EXPECT_EQ(LastRequest().what, "Character.Speak B | -");
    EXPECT_EQ(State().speechRequest->ID(), LastRequest().ID());
    EXPECT_EQ(State().skipTarget->ID(), LastRequest().ID());
    EXPECT_EQ(State().testRequest, nullptr);
}

TEST_F(CharSpeak, AsATest_KeepsTheTestRequestOnly)
{
    bParlune::CharSpeak("Before");
    const std::int32_t before = LastRequest().ID();
    bParlune::CharSpeak("Test", "", /*isTest*/ true);
    EXPECT_EQ(State().testRequest->ID(), LastRequest().ID());
    EXPECT_EQ(State().speechRequest->ID(), before);
    EXPECT_EQ(State().skipTarget->ID(), before);
}

TEST_F(CharSpeak, OfBlanksOnly_SpeaksNothingAndKeepsTheRequests)
{
    bParlune::CharSpeak("Before");
    const std::int32_t before = LastRequest().ID();
    bParlune::CharSpeak("    ");
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"Before"});
    EXPECT_EQ(State().speechRequest->ID(), before);
    EXPECT_EQ(State().skipTarget->ID(), before);
}

TEST_F(CharSpeak, OfASoundOnly_PlaysItWithoutText)
{
    bParlune::CharSpeak("  ", "bell.wav");
    EXPECT_EQ(Speaks(), Texts{"Character.Speak - | bell.wav"});
}

TEST_F(CharSpeak, OfASoundOnly_KeepsItAsSpeechRequestButNotForSkip)
{
    bParlune::CharSpeak("Before");
    const std::int32_t before = LastRequest().ID();
    bParlune::CharSpeak("", "bell.wav");
    EXPECT_EQ(State().speechRequest->ID(), LastRequest().ID());
    EXPECT_EQ(State().skipTarget->ID(), before);
}

TEST_F(CharSpeak, OfASoundOnlyAsATest_StillKeepsItAsSpeechRequest)
{
    bParlune::CharSpeak("", "bell.wav", /*isTest*/ true);
    EXPECT_EQ(State().speechRequest->ID(), LastRequest().ID());
    EXPECT_EQ(State().testRequest, nullptr);
}

TEST_F(CharSpeak, WithASound_GivesItToTheFirstLineOnly)
{
    bParlune::CharSpeak("A\r\nB", "bell.wav");
    EXPECT_EQ(Speaks(), (Texts{"Character.Speak A | bell.wav", "Character.Speak B | -"}));
}

TEST_F(CharSpeak, WithASoundAndAnEmptyFirstLine_NeverPlaysTheSound)
{
    bParlune::CharSpeak("\r\nHello", "bell.wav");
    EXPECT_EQ(Speaks(), Texts{"Character.Speak Hello | -"});
}

TEST_F(CharSpeak, ReplacesDateTokensInAnyCaseAndTheUserNameInItsOwn)
{
    desktop.clock.Set(2026, 11, 15, 9, 30);
    bParlune::CharSpeak("Good {timeofday}, {UserName}|Hi {username}");
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"Good Morning, Ann|Hi {username}"});
}

TEST_F(CharSpeak, ReplacesEveryToken)
{
    bParlune::CharSpeak("{Day} {Date} {Time} {TimeOfDay} {UserName}");
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"Sunday November 15th, 2026 2:05 PM Afternoon Ann"});
}

TEST_F(CharSpeak, ReplacesATokenWhereverItStands)
{
    bParlune::CharSpeak("{TIME}, {time}\r\nand {Time}");
    EXPECT_EQ(desktop.engine.Spoken(), (Texts{"2:05 PM, 2:05 PM", "and 2:05 PM"}));
}

TEST_F(CharSpeak, UsesTheChosenTimeFormat)
{
    window.cboSayTimeFormat.SetText("hh:nn");
    bParlune::CharSpeak("{Time}");
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"14:05"});
}

TEST_F(CharSpeak, LeavesATokenInsideTheUserNameAlone)
{
    window.txtUserName.SetText("{Day}");
    bParlune::CharSpeak("Hello {UserName}");
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"Hello {Day}"});
}

TEST_F(CharSpeak, WithoutToken_ReadsNoClock)
{
    bParlune::CharSpeak("No {token} here");
    EXPECT_EQ(desktop.journal.Count("Clock."), 0U);
}

TEST_F(CharSpeak, PutsTheTagsBeforeEveryLine)
{
    SwitchSpeedOn();
    bParlune::CharSpeak("A\r\nB");
    EXPECT_EQ(desktop.engine.Spoken(), (Texts{"\\Spd=200\\A", "\\Spd=200\\B"}));
}

TEST_F(CharSpeak, PutsTheTagsBeforeEveryAlternative)
{
    SwitchSpeedOn();
    bParlune::CharSpeak("A|B");
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"\\Spd=200\\A|\\Spd=200\\B"});
}

TEST_F(CharSpeak, BuildsTheTagsOnceForAllLines)
{
    SwitchSpeedOn();
    desktop.engine.whenSpoken = [this] { window.sldAdvSpeak[1].SetValue(100); };
    bParlune::CharSpeak("A\r\nB");
    EXPECT_EQ(desktop.engine.Spoken(), (Texts{"\\Spd=200\\A", "\\Spd=200\\B"}));
}

TEST_F(CharSpeak, OfASoundOnly_HasNoTags)
{
    SwitchSpeedOn();
    bParlune::CharSpeak("", "bell.wav");
    EXPECT_EQ(Speaks(), Texts{"Character.Speak - | bell.wav"});
}

TEST_F(CharSpeak, WithoutCharacter_IsReportedOnce)
{
    bParlune::CharUnload(false);
    bParlune::CharSpeak("A\r\nB");
    EXPECT_EQ(Reports(), Texts{"bParlune:CharSpeak"});
    EXPECT_EQ(desktop.messageBoxes.Last().Line(3), "Error Code: 91");
}

TEST_F(CharSpeak, WhenALineFails_ReportsAndSpeaksNoFurtherLine)
{
    desktop.journal.FailNext("Character.Speak B", failure);
    bParlune::CharSpeak("A\r\nB\r\nC");
    EXPECT_EQ(Reports(), Texts{"bParlune:CharSpeak"});
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"A"});
    EXPECT_EQ(LastRequest().ID(), State().speechRequest->ID());
}

class CharRequests : public CharacterProgram {
protected:
    CharRequests() { LoadMerlin(); }
    Texts EngineCalls() const { return desktop.journal.CallsOf("Character."); }
};

TEST_F(CharRequests, CharPlay_PlaysTheAnimation)
{
    bParlune::CharPlay("Wave");
    EXPECT_EQ(EngineCalls(), Texts{"Character.Play Wave"});
}

TEST_F(CharRequests, CharPlay_WithoutLoadedCharacter_AsksNothing)
{
    State().loaded = false;
    bParlune::CharPlay("Wave");
    EXPECT_TRUE(EngineCalls().empty());
}

TEST_F(CharRequests, CharPlay_WhenItFails_IsSilent)
{
    desktop.journal.FailNext("Character.Play", failure);
    bParlune::CharPlay("Wave");
    EXPECT_TRUE(Reports().empty());
}

TEST_F(CharRequests, CharStop_StopsEverything)
{
    bParlune::CharStop();
    EXPECT_EQ(EngineCalls(), Texts{"Character.StopAll -"});
}

TEST_F(CharRequests, CharStop_WithoutCharacter_IsSilent)
{
    bParlune::CharUnload(false);
    bParlune::CharStop();
    EXPECT_TRUE(Reports().empty());
}

TEST_F(CharRequests, CharHide_StopsAndHides)
{
    bParlune::CharHide();
    EXPECT_EQ(EngineCalls(), (Texts{"Character.StopAll -", "Character.Hide -"}));
}

TEST_F(CharRequests, CharHide_WhenStoppingFails_StillHides)
{
    desktop.journal.FailNext("Character.StopAll", failure);
    bParlune::CharHide();
    EXPECT_EQ(EngineCalls(), (Texts{"Character.StopAll -", "Character.Hide -"}));
    EXPECT_TRUE(Reports().empty());
}

TEST_F(CharRequests, CharHide_WhenHidingFails_IsSilent)
{
    desktop.journal.FailNext("Character.Hide", failure);
    bParlune::CharHide();
    EXPECT_TRUE(Reports().empty());
}

TEST_F(CharRequests, CharShow_Shows)
{
    bParlune::CharShow();
    EXPECT_EQ(EngineCalls(), Texts{"Character.Show -"});
}

TEST_F(CharRequests, CharShow_WhenItFails_LoadsTheSameCharacterAndShowsAgain)
{
    desktop.journal.FailNext("Character.Show", failure);
    bParlune::CharShow();
    EXPECT_EQ(desktop.journal.CallsOf("Characters.Load"), Texts{"Characters.Load Bot Merlin.acs"});
    EXPECT_EQ(desktop.journal.Count("Character.Show"), 3U);
    EXPECT_TRUE(desktop.engine.loaded->visible);
    EXPECT_TRUE(Reports().empty());
}

TEST_F(CharRequests, CharShow_AfterUnloading_LoadsTheCharacterAgain)
{
    bParlune::CharUnload(false);
    desktop.journal.Clear();
    bParlune::CharShow();
    EXPECT_EQ(desktop.journal.CallsOf("Characters.Load"), Texts{"Characters.Load Bot Merlin.acs"});
    EXPECT_TRUE(State().loaded);
}

TEST_F(CharRequests, CharShow_WhenTheSecondShowFailsToo_IsSilent)
{
    desktop.journal.FailNext("Character.Show", failure);
    desktop.journal.FailNext("Character.Show", failure, /*passes*/ 1);
    bParlune::CharShow();
    EXPECT_TRUE(Reports().empty());
}

TEST_F(CharRequests, CharVisible_TellsWhetherTheCharacterIs)
{
    EXPECT_TRUE(bParlune::CharVisible());
    desktop.engine.loaded->visible = false;
    EXPECT_FALSE(bParlune::CharVisible());
}

TEST_F(CharRequests, CharVisible_WhenItFails_IsFalseAndSilent)
{
    desktop.journal.FailNext("Character.Visible", failure);
    EXPECT_FALSE(bParlune::CharVisible());
    EXPECT_TRUE(Reports().empty());
}

TEST_F(CharRequests, CharVisible_WithoutCharacter_IsFalseAndSilent)
{
    bParlune::CharUnload(false);
    EXPECT_FALSE(bParlune::CharVisible());
    EXPECT_TRUE(Reports().empty());
}

class CharShowBeforeAnyLoad : public CharacterProgram {};

TEST_F(CharShowBeforeAnyLoad, LoadsTheCharacterOfTheOptions)
{
    settings::Options().Character = "Genie";
    bParlune::CharShow();
    EXPECT_EQ(desktop.journal.CallsOf("Characters.Load"), Texts{"Characters.Load Bot Genie.acs"});
    EXPECT_TRUE(desktop.engine.loaded->visible);
}
