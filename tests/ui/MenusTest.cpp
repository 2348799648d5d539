#include "ui/Menus.h"
#include "support/CharacterProgram.h"

class Menus : public CharacterProgram {
protected:
    // Notes each change of the items that follow the character, by name.
    void NoteChanges()
    {
        for (ui::CMenuItem* item :
             {&window.mnuPopReadClipboard, &window.mnuPopRead, &window.mnuPopSep1, &window.mnuPopSayTime,
              &window.mnuPopAutoReadClipboard, &window.mnuPopSep2, &window.mnuPopHide, &window.mnuPopCharStop,
              &window.mnuPopCharSkip, &window.mnuPopCharPause})
            item->SetPeer([this, item] { changes.push_back(item->Name()); });
        window.tmrTimer.SetPeer([this] { changes.push_back("tmrTimer"); });
    }
    std::vector<std::string> changes;
};

TEST_F(Menus, RefreshMenu_OfAShownCharacter_OffersToHideIt)
{
    window.mnuPopHide.SetCaption("&Show");
    ui::RefreshMenu(true);
    EXPECT_EQ(window.mnuPopHide.Caption(), "&Hide");
}

TEST_F(Menus, RefreshMenu_OfAHiddenCharacter_OffersToShowIt)
{
    ui::RefreshMenu(false);
    EXPECT_EQ(window.mnuPopHide.Caption(), "&Show");
}

TEST_F(Menus, RefreshMenu_OfAHiddenCharacter_HidesWhatNeedsIt)
{
    ui::RefreshMenu(false);
    EXPECT_FALSE(window.mnuPopReadClipboard.Visible());
    EXPECT_FALSE(window.mnuPopRead.Visible());
    EXPECT_FALSE(window.mnuPopSep1.Visible());
    EXPECT_FALSE(window.mnuPopSayTime.Visible());
    EXPECT_FALSE(window.mnuPopAutoReadClipboard.Visible());
    EXPECT_FALSE(window.mnuPopSep2.Visible());
    EXPECT_FALSE(window.mnuPopCharStop.Visible());
    EXPECT_FALSE(window.mnuPopCharSkip.Visible());
    EXPECT_FALSE(window.mnuPopCharPause.Visible());
}

TEST_F(Menus, RefreshMenu_OfAShownCharacter_ShowsWhatNeedsIt)
{
    ui::RefreshMenu(false);
    ui::RefreshMenu(true);
    EXPECT_TRUE(window.mnuPopReadClipboard.Visible());
    EXPECT_TRUE(window.mnuPopRead.Visible());
    EXPECT_TRUE(window.mnuPopSep1.Visible());
    EXPECT_TRUE(window.mnuPopSayTime.Visible());
    EXPECT_TRUE(window.mnuPopAutoReadClipboard.Visible());
    EXPECT_TRUE(window.mnuPopSep2.Visible());
    EXPECT_TRUE(window.mnuPopCharStop.Visible());
    EXPECT_TRUE(window.mnuPopCharSkip.Visible());
    EXPECT_TRUE(window.mnuPopCharPause.Visible());
}

TEST_F(Menus, RefreshMenu_OfAHiddenCharacter_KeepsTheOtherEntries)
{
    ui::RefreshMenu(false);
    EXPECT_TRUE(window.mnuPopReadTextFile.Visible());
    EXPECT_TRUE(window.mnuPopParluneOptions.Visible());
    EXPECT_TRUE(window.mnuPopSep3.Visible());
    EXPECT_TRUE(window.mnuPopHide.Visible());
    EXPECT_TRUE(window.mnuPopSep4.Visible());
    EXPECT_TRUE(window.mnuPopExit.Visible());
}

TEST_F(Menus, RefreshMenu_ChangesTheEntriesInOrderAndTheTimerLast)
{
    NoteChanges();
    ui::RefreshMenu(false);
    EXPECT_EQ(changes, (std::vector<std::string>{"mnuPopHide", "mnuPopReadClipboard", "mnuPopRead", "mnuPopSep1",
                                                 "mnuPopSayTime", "mnuPopAutoReadClipboard", "mnuPopSep2", "mnuPopCharStop",
                                                 "mnuPopCharSkip", "mnuPopCharPause", "tmrTimer"}));
}

TEST_F(Menus, ReevaluateTimer_WithAnnouncementsOn_StartsTheTimer)
{
    window.chkSayTime.SetValue(1);
    ui::ReevaluateTimer();
    EXPECT_TRUE(window.tmrTimer.Enabled());
}

TEST_F(Menus, ReevaluateTimer_WithAnnouncementsOff_StopsTheTimer)
{
    window.tmrTimer.SetEnabled(true);
    window.chkSayTime.SetValue(0);
    ui::ReevaluateTimer();
    EXPECT_FALSE(window.tmrTimer.Enabled());
}

TEST_F(Menus, ReevaluateTimer_WithAnyOtherValueThanOne_StopsTheTimer)
{
    window.tmrTimer.SetEnabled(true);
    window.chkSayTime.SetValue(2);
    ui::ReevaluateTimer();
    EXPECT_FALSE(window.tmrTimer.Enabled());
}

TEST_F(Menus, ReevaluateTimer_WhenTheTimerFails_IsSilent)
{
    window.tmrTimer.SetPeer([this] { throw failure; });
    window.chkSayTime.SetValue(1);
    ui::ReevaluateTimer();
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST_F(Menus, PopUpCharacterMenu_BringsTheMainWindowToTheFrontFirst)
{
    std::vector<std::string> asked;
    ui::CForm::Peer peer;
    peer.bringToFront = [&] { asked.push_back("front"); };
    peer.popUpMenu = [&](ui::CMenuItem& menu) { asked.push_back(menu.Name()); };
    window.SetPeer(peer);
    ui::PopUpCharacterMenu();
    EXPECT_EQ(asked, (std::vector<std::string>{"front", "mnuPopup"}));
}

TEST_F(Menus, PopUpCharacterMenu_WithoutANativeWindow_DoesNothing)
{
    ui::PopUpCharacterMenu();
    EXPECT_TRUE(desktop.journal.Calls().empty());
}
