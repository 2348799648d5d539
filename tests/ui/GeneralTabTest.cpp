#include "ui/GeneralTab.h"
#include "reading/bClipboard.h"
#include "settings/bOptions.h"
#include "support/WiredTabs.h"

namespace {

using Texts = std::vector<std::string>;

class GeneralTab : public WiredTabs {};

}

TEST_F(GeneralTab, chkMonitorClipboard_Click_Ticked_WatchesTheClipboard)
{
    window.chkMonitorClipboard.SetValue(1);
    EXPECT_TRUE(bClipboard::Monitoring());
    EXPECT_TRUE(desktop.clipboard.Watched());
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST_F(GeneralTab, chkMonitorClipboard_Click_Cleared_StopsWatching)
{
    window.chkMonitorClipboard.SetValue(1);
    window.chkMonitorClipboard.SetValue(0);
    EXPECT_FALSE(bClipboard::Monitoring());
    EXPECT_FALSE(desktop.clipboard.Watched());
}

TEST_F(GeneralTab, chkMonitorClipboard_Click_OfAnyOtherValueThanOne_StopsWatching)
{
    window.chkMonitorClipboard.SetValue(1);
    window.chkMonitorClipboard.SetValue(2);
    EXPECT_FALSE(bClipboard::Monitoring());
}

TEST_F(GeneralTab, chkMonitorClipboard_Click_Ticked_DoesNotReadWhatIsThereAlready)
{
    LoadMerlin();
    desktop.clipboard.Put("old");
    window.chkMonitorClipboard.SetValue(1);
    EXPECT_TRUE(desktop.engine.Spoken().empty());
    desktop.clipboard.Put("new");
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"new"});
}

TEST_F(GeneralTab, chkMonitorClipboard_Click_OnADesktopThatCannotBeWatched_SaysSoOnce)
{
    desktop.clipboard.canWatch = false;
    window.chkMonitorClipboard.SetValue(1);
    window.chkMonitorClipboard.SetValue(0);
    window.chkMonitorClipboard.SetValue(1);
    ASSERT_EQ(desktop.messageBoxes.shown.size(), 1U);
    EXPECT_EQ(desktop.messageBoxes.Last().title, "Parlune");
    EXPECT_EQ(desktop.messageBoxes.Last().Line(1), "This desktop does not tell Parlune when the clipboard changes,");
    EXPECT_EQ(desktop.messageBoxes.Last().buttons, platform::BoxButtons::Ok);
}

TEST_F(GeneralTab, chkMonitorClipboard_Click_OnADesktopThatCannotBeWatched_LeavesTheBoxTicked)
{
    desktop.clipboard.canWatch = false;
    window.chkMonitorClipboard.SetValue(1);
    EXPECT_EQ(window.chkMonitorClipboard.Value(), 1);
}

TEST_F(GeneralTab, chkMonitorClipboard_Click_ClearedOnADesktopThatCannotBeWatched_SaysNothing)
{
    desktop.clipboard.canWatch = false;
    window.chkMonitorClipboard.SetValue(0);
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST_F(GeneralTab, chkMonitorClipboard_Click_WhileTheOptionsAreLoaded_SaysNothingYet)
{
    desktop.clipboard.canWatch = false;
    window.onLoad = [this] { window.chkMonitorClipboard.SetValue(1); };
    window.Load();
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
    window.chkMonitorClipboard.SetValue(1);
    EXPECT_EQ(desktop.messageBoxes.shown.size(), 1U);
}

TEST_F(GeneralTab, chkMonitorClipboard_Click_WhenTheClipboardCannotBeAsked_IsReported)
{
    desktop.journal.FailNext("Clipboard.CanWatch", failure);
    window.chkMonitorClipboard.SetValue(1);
    EXPECT_EQ(Reports(), Texts{"Parlune:chkMonitorClipboard_Click"});
    EXPECT_TRUE(bClipboard::Monitoring());
}

TEST_F(GeneralTab, cmdReadClipboard_Click_ShowsTheCharacterAndReads)
{
    LoadMerlin();
    Loaded().visible = false;
    desktop.clipboard.Put("a text");
    window.cmdReadClipboard.Click();
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"a text"});
    EXPECT_EQ(desktop.journal.CallsOf("Character.").front(), "Character.Show -");
    EXPECT_TRUE(Loaded().visible);
}

TEST_F(GeneralTab, cmdReadClipboard_Click_WithoutACharacter_LoadsIt)
{
    settings::Options().Character = "Merlin";
    desktop.clipboard.Put("a text");
    window.cmdReadClipboard.Click();
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"a text"});
}

TEST_F(GeneralTab, cmdReadClipboard_Click_OfAPicture_OnlyShowsTheCharacter)
{
    LoadMerlin();
    desktop.clipboard.Put(std::nullopt);
    window.cmdReadClipboard.Click();
    EXPECT_EQ(desktop.journal.CallsOf("Character."), Texts{"Character.Show -"});
}

TEST_F(GeneralTab, chkSayTime_Click_RunsTheTimerExactlyWhileTicked)
{
    window.chkSayTime.SetValue(1);
    EXPECT_TRUE(window.tmrTimer.Enabled());
    window.chkSayTime.SetValue(0);
    EXPECT_FALSE(window.tmrTimer.Enabled());
}

TEST_F(GeneralTab, chkSayTime_Click_LeavesTheMarkOfTheMenu)
{
    window.chkSayTime.SetValue(1);
    EXPECT_FALSE(window.mnuPopSayTime.Checked());
}

TEST_F(GeneralTab, chkMonitorClipboard_Click_LeavesTheMarkOfTheMenu)
{
    window.chkMonitorClipboard.SetValue(1);
    EXPECT_FALSE(window.mnuPopAutoReadClipboard.Checked());
}

TEST_F(GeneralTab, chkSayTimeShowIfHidden_Click_KeepsItsState)
{
    EXPECT_FALSE(generalTab::ShowIfHidden());
    window.chkSayTimeShowIfHidden.SetValue(2);
    EXPECT_TRUE(generalTab::ShowIfHidden());
    window.chkSayTimeShowIfHidden.SetValue(0);
    EXPECT_FALSE(generalTab::ShowIfHidden());
}

TEST_F(GeneralTab, chkSayTimeShowIfHidden_Click_ReevaluatesTheTimer)
{
    window.tmrTimer.SetEnabled(false);
    window.chkSayTimeShowIfHidden.SetValue(0);
    EXPECT_TRUE(window.tmrTimer.Enabled());
}

TEST_F(GeneralTab, PlainBoxes_Click_WriteNothing)
{
    for (ui::CCheckBox* box : {&window.chkShowSplash, &window.chkMinimizeOnClose, &window.chkReadClipBoardOnDblClick,
                               &window.chkQueueReadCommands, &window.chkPlayReadAnimation, &window.chkStartUpHideInTray,
                               &window.chkReadGreeting, &window.chkProportional})
        box->SetValue(1 - box->Value());
    EXPECT_TRUE(desktop.journal.Calls().empty());
}
