#include "ui/OptionTabs.h"
#include "character/CTTSEngines.h"
#include "support/WiredTabs.h"

namespace {

using platform::Pointer;
using Texts = std::vector<std::string>;

class OptionTabs : public WiredTabs {
protected:
    // The names of the enabled frames that belong to a tab of the strip.
    Texts EnabledFrames() const
    {
        Texts names;
        for (const ui::CFrame* frame : {&window.fraStartup, &window.fraClipboard, &window.fraTime, &window.fraCharacter,
                                        &window.fraVoice, &window.fraBalloon, &window.fraGreetings, &window.fraAbout})
            if (frame->Enabled())
                names.push_back(frame->Name());
        return names;
    }
    std::string Focused() const { return window.Focused() ? window.Focused()->Name() : ""; }
};

}

TEST_F(OptionTabs, Tabs_HaveTheirOrder)
{
    EXPECT_EQ(window.tabMain.Tabs(), (Texts{"General", "Character", "Voice", "Balloon", "Read", "Greetings", "About"}));
}

TEST_F(OptionTabs, tabMain_Click_EnablesTheFramesOfTheSelectedTabOnly)
{
    Visit(General);
    EXPECT_EQ(EnabledFrames(), (Texts{"fraStartup", "fraClipboard", "fraTime"}));
    Visit(Character);
    EXPECT_EQ(EnabledFrames(), Texts{"fraCharacter"});
    Visit(Voice);
    EXPECT_EQ(EnabledFrames(), Texts{"fraVoice"});
    Visit(Balloon);
    EXPECT_EQ(EnabledFrames(), Texts{"fraBalloon"});
    Visit(Read);
    EXPECT_EQ(EnabledFrames(), Texts{});
    Visit(Greetings);
    EXPECT_EQ(EnabledFrames(), Texts{"fraGreetings"});
    Visit(About);
    EXPECT_EQ(EnabledFrames(), Texts{"fraAbout"});
}

TEST_F(OptionTabs, tabMain_Click_OfGeneral_FocusesTheStartBox)
{
    Visit(General);
    EXPECT_EQ(Focused(), "chkStartWithWindows");
}

TEST_F(OptionTabs, tabMain_Click_OfCharacter_FocusesTheList)
{
    Visit(Character);
    EXPECT_EQ(Focused(), "cboChar");
}

TEST_F(OptionTabs, tabMain_Click_OfBalloon_FocusesTheFontName)
{
    Visit(Balloon);
    EXPECT_EQ(Focused(), "cboFontName");
}

TEST_F(OptionTabs, tabMain_Click_OfGreetings_FocusesTheUsersName)
{
    Visit(Greetings);
    EXPECT_EQ(Focused(), "txtUserName");
}

TEST_F(OptionTabs, tabMain_Click_OfRead_FocusesTheEditor)
{
    Visit(Read);
    EXPECT_EQ(Focused(), "txtRead");
}

TEST_F(OptionTabs, tabMain_Click_OfVoiceOrAbout_LeavesTheFocus)
{
    ListVoices({"{AA}"});
    Visit(Greetings);
    Visit(Voice);
    EXPECT_EQ(Focused(), "txtUserName");
    Visit(About);
    EXPECT_EQ(Focused(), "txtUserName");
}

TEST_F(OptionTabs, tabMain_Click_WithoutACharacter_ReportsNothingOnAnyTab)
{
    ListVoices({"{AA}"});
    for (const Tab tab : {General, Character, Voice, Balloon, Read, Greetings, About})
        Visit(tab);
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
    EXPECT_EQ(window.cboChar.Text(), "");
    EXPECT_EQ(desktop.journal.Count("Character."), 0U);
}

TEST_F(OptionTabs, tabMain_Click_OfCharacter_ShowsTheLoadedOne)
{
    LoadMerlin();
    Visit(Character);
    EXPECT_EQ(window.cboChar.Text(), "Merlin");
}

TEST_F(OptionTabs, tabMain_Click_OfVoice_FillsTheListOnce)
{
    ListVoices({"{AA}", "{BB}"});
    Visit(Voice);
    Visit(General);
    Visit(Voice);
    EXPECT_EQ(desktop.journal.Count("SpeechEngines.Open"), 1U);
    EXPECT_EQ(window.lstTTS.Count(), 2);
}

TEST_F(OptionTabs, tabMain_Click_OfVoiceAfterAFillThatFailed_DoesNotFillAgain)
{
    Visit(Voice);
    EXPECT_EQ(desktop.messageBoxes.shown.size(), 1U);
    ListVoices({"{AA}"});
    Visit(Voice);
    EXPECT_EQ(desktop.messageBoxes.shown.size(), 1U);
    EXPECT_EQ(window.lstTTS.Count(), 0);
}

TEST_F(OptionTabs, tabMain_Click_BeforeTheVoiceTab_LeavesTheVoiceListEmpty)
{
    ListVoices({"{AA}"});
    for (const Tab tab : {General, Character, Balloon, Read, Greetings, About})
        Visit(tab);
    EXPECT_EQ(window.lstTTS.Count(), 0);
    EXPECT_EQ(desktop.journal.Count("SpeechEngines."), 0U);
}

TEST_F(OptionTabs, tabMain_Click_OfVoice_MarksTheCharactersVoiceAtEachVisit)
{
    ListVoices({"{AA}", "bb"});
    desktop.engine.character.ttsModeID = "{BB}";
    LoadMerlin();
    Visit(Voice);
    EXPECT_EQ(window.lstTTS.Index(), 1);
    Loaded().ttsModeID = "{aa}";
    Visit(Voice);
    EXPECT_EQ(window.lstTTS.Index(), 0);
}

TEST_F(OptionTabs, tabMain_Click_OfBalloon_FillsTheFontListsOnce)
{
    desktop.fonts.faceNames = {"Arial", "Tahoma"};
    Visit(Balloon);
    Visit(General);
    window.cboFontName.Clear();
    Visit(Balloon);
    EXPECT_EQ(desktop.journal.Count("Fonts.EnumerateFamilies"), 1U);
    EXPECT_EQ(window.cboFontName.Count(), 0);
    EXPECT_EQ(window.cboFontSize.Count(), 16);
}

TEST_F(OptionTabs, tabMain_Click_BeforeTheBalloonTab_LeavesTheFontListsEmpty)
{
    desktop.fonts.faceNames = {"Arial"};
    for (const Tab tab : {General, Character, Read, Greetings, About})
        Visit(tab);
    EXPECT_EQ(window.cboFontName.Count(), 0);
    EXPECT_EQ(window.cboFontSize.Count(), 0);
}

TEST_F(OptionTabs, tabMain_Click_WhenTheUserLeavesTheBalloonTabDuringTheFill_LeavesTheFocusWhereItWent)
{
    desktop.events.AtYield(1, [this] { Visit(Greetings); });
    Visit(Balloon);
    EXPECT_EQ(Focused(), "txtUserName");
    EXPECT_EQ(EnabledFrames(), Texts{"fraGreetings"});
}

TEST_F(OptionTabs, tabMain_Click_WhenTheUserComesBackDuringTheFill_FillsOnce)
{
    ListVoices({"{AA}"});
    desktop.events.AtYield(1, [this] {
        Visit(General);
        Visit(Voice);
    });
    Visit(Voice);
    EXPECT_EQ(window.lstTTS.Count(), 1);
}

TEST_F(OptionTabs, tabMain_Click_OfBalloon_ShowsTheStyleOfTheBalloon)
{
    LoadMerlin();
    Loaded().balloonStyle = 0x0A28000A;
    Visit(Balloon);
    EXPECT_EQ(window.chkBalloon[0].Value(), 0);
    EXPECT_EQ(window.chkBalloon[1].Value(), 1);
    EXPECT_EQ(window.chkBalloon[2].Value(), 0);
    EXPECT_EQ(window.chkBalloon[3].Value(), 1);
}

TEST_F(OptionTabs, tabMain_Click_OfBalloon_TakesChangesBackThatWereNotSet)
{
    LoadMerlin();
    Visit(Balloon);
    window.chkBalloon[0].SetValue(0);
    Visit(General);
    Visit(Balloon);
    EXPECT_EQ(window.chkBalloon[0].Value(), 1);
}

TEST_F(OptionTabs, tabMain_Click_WhenTheStyleFails_IsReportedAndTheFocusMoves)
{
    LoadMerlin();
    desktop.journal.FailNext("Balloon.Style", failure);
    Visit(Balloon);
    EXPECT_EQ(Reports(), Texts{"Parlune:tabMain_Click"});
    EXPECT_EQ(Focused(), "cboFontName");
}

TEST_F(OptionTabs, tabMain_Click_WhenTheFocusFails_IsReported)
{
    window.cboChar.SetEnabled(false);
    Visit(Character);
    EXPECT_EQ(Reports(), Texts{"Parlune:tabMain_Click"});
}

TEST_F(OptionTabs, tabMain_Click_WhenAFrameFails_IsReportedAndTheOthersFollow)
{
    window.fraVoice.SetPeer([this] { throw failure; });
    Visit(Balloon);
    EXPECT_EQ(Reports(), Texts{"Parlune:tabMain_Click"});
    EXPECT_TRUE(window.fraBalloon.Enabled());
    EXPECT_FALSE(window.fraAbout.Enabled());
}

TEST_F(OptionTabs, InitTTSTab_FillsUnderTheHourglass)
{
    std::vector<Pointer> atFill;
    optionTabs::SetFills({[&] { atFill = desktop.screen.pointers; }, nullptr});
    optionTabs::InitTTSTab();
    EXPECT_EQ(atFill, std::vector<Pointer>{Pointer::Hourglass});
    EXPECT_EQ(desktop.screen.pointers, (std::vector<Pointer>{Pointer::Hourglass, Pointer::Default}));
}

TEST_F(OptionTabs, InitBalloonTab_FillsUnderTheHourglass)
{
    std::vector<Pointer> atFill;
    optionTabs::SetFills({nullptr, [&] { atFill = desktop.screen.pointers; }});
    optionTabs::InitBalloonTab();
    EXPECT_EQ(atFill, std::vector<Pointer>{Pointer::Hourglass});
    EXPECT_EQ(desktop.screen.pointers, (std::vector<Pointer>{Pointer::Hourglass, Pointer::Default}));
}

TEST_F(OptionTabs, InitTTSTab_WhenTheFillFails_IsReportedAndThePointerReturns)
{
    optionTabs::SetFills({[this] { throw failure; }, nullptr});
    optionTabs::InitTTSTab();
    EXPECT_EQ(Reports(), Texts{"Parlune:InitTTSTab"});
    EXPECT_EQ(desktop.screen.pointers.back(), Pointer::Default);
}

TEST_F(OptionTabs, InitTTSTab_WhenThePointerFails_IsReportedAndTheListIsFilled)
{
    ListVoices({"{AA}"});
    desktop.journal.FailNext("Screen.SetPointer 11", failure);
    optionTabs::InitTTSTab();
    EXPECT_EQ(Reports(), Texts{"Parlune:InitTTSTab"});
    EXPECT_EQ(window.lstTTS.Count(), 1);
}

TEST_F(OptionTabs, InitBalloonTab_WhenTheFillFails_IsReportedAndThePointerReturns)
{
    optionTabs::SetFills({nullptr, [this] { throw failure; }});
    optionTabs::InitBalloonTab();
    EXPECT_EQ(Reports(), Texts{"Parlune:InitBalloonTab"});
    EXPECT_EQ(desktop.screen.pointers.back(), Pointer::Default);
}

TEST_F(OptionTabs, InitBalloonTab_WhenThePointerFails_IsReportedAndTheListsAreFilled)
{
    desktop.fonts.faceNames = {"Arial"};
    desktop.journal.FailNext("Screen.SetPointer 11", failure);
    optionTabs::InitBalloonTab();
    EXPECT_EQ(Reports(), Texts{"Parlune:InitBalloonTab"});
    EXPECT_EQ(window.cboFontName.Count(), 1);
}
