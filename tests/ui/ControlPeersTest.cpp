#include "support/CharacterProgram.h"

// What a native control must show it is told of, once for each change.
namespace {

class ControlPeers : public CharacterProgram {
protected:
    // How often the control tells its peer while it is changed.
    template <class Change> int Told(ui::CControl& control, Change change)
    {
        int told = 0;
        control.SetPeer([&] { ++told; });
        change();
        control.SetPeer(nullptr);
        return told;
    }
};

}

TEST_F(ControlPeers, EveryControl_TellsOfCaptionToolTipEnabledAndVisible)
{
    ui::CControl& control = window.cmdLoadChar;
    EXPECT_EQ(Told(control, [&] { control.SetCaption("Another"); }), 1);
    EXPECT_EQ(Told(control, [&] { control.SetToolTip("Another"); }), 1);
    EXPECT_EQ(Told(control, [&] { control.SetEnabled(!control.Enabled()); }), 1);
    EXPECT_EQ(Told(control, [&] { control.SetVisible(!control.Visible()); }), 1);
    EXPECT_EQ(Told(control, [&] { control.SetCaption("Another"); }), 0);
}

TEST_F(ControlPeers, Texts_TellOfEachChange)
{
    EXPECT_EQ(Told(window.txtUserName, [&] { window.txtUserName.SetText("Ann"); }), 1);
    EXPECT_EQ(Told(window.txtUserName, [&] { window.txtUserName.SetText("Ann"); }), 0);
    EXPECT_EQ(Told(window.txtUserName, [&] { window.txtUserName.Select(1, 2); }), 1);
    EXPECT_EQ(Told(window.cboFontName, [&] { window.cboFontName.SetText("Ann"); }), 1);
    EXPECT_EQ(Told(window.cboFontName, [&] { window.cboFontName.SetText("Ann"); }), 0);
    EXPECT_EQ(Told(window.lblFontDisplay, [&] { window.lblFontDisplay.SetStyle({"Ann", 9}); }), 1);
    EXPECT_EQ(Told(window.lblFontDisplay, [&] { window.lblFontDisplay.SetStyle({"Ann", 9}); }), 0);
}

TEST_F(ControlPeers, Lists_TellOfEntriesAndOfTheSelection)
{
    EXPECT_EQ(Told(window.lstTTS, [&] { window.lstTTS.Add("Mary", 1); }), 1);
    EXPECT_EQ(Told(window.lstTTS, [&] { window.lstTTS.SetIndex(0); }), 1);
    EXPECT_EQ(Told(window.lstTTS, [&] { window.lstTTS.Select("Mary"); }), 1);
    EXPECT_EQ(Told(window.lstTTS, [&] { window.lstTTS.SetIndex(-1); }), 1);
    EXPECT_EQ(Told(window.lstTTS, [&] { window.lstTTS.Clear(); }), 1);
}

TEST_F(ControlPeers, Values_TellOfEachChange)
{
    ui::CSlider& slider = window.sldAdvSpeak[0];
    slider.SetValue(slider.Minimum());
    EXPECT_EQ(Told(slider, [&] { slider.SetValue(slider.Maximum() + 1); }), 1);
    EXPECT_EQ(Told(slider, [&] { slider.SetValue(slider.Maximum()); }), 0);
    EXPECT_EQ(Told(window.pbrTTSEngines, [&] { window.pbrTTSEngines.SetMaximum(7); }), 1);
    EXPECT_EQ(Told(window.pbrTTSEngines, [&] { window.pbrTTSEngines.SetValue(7); }), 1);
    EXPECT_EQ(Told(window.tabMain, [&] { window.tabMain.Select(3); }), 1);
    EXPECT_EQ(Told(window.chkSayTime, [&] { window.chkSayTime.SetValue(1 - window.chkSayTime.Value()); }), 1);
    EXPECT_EQ(Told(window.mnuPopSayTime, [&] { window.mnuPopSayTime.SetChecked(!window.mnuPopSayTime.Checked()); }), 1);
}

TEST_F(ControlPeers, Focus_Moved_IsToldToTheWindow)
{
    int moved = 0;
    ui::CForm::Peer peer;
    peer.focusMoved = [&] { ++moved; };
    window.SetPeer(peer);
    window.cmdLoadChar.SetFocus();
    window.txtUserName.SetFocus();
    EXPECT_EQ(moved, 2);
    EXPECT_TRUE(window.txtUserName.HasFocus());
    EXPECT_FALSE(window.cmdLoadChar.HasFocus());
}

TEST_F(ControlPeers, TheWindow_TellsOfCaptionIconVisibilityAndState)
{
    int changes = 0;
    ui::CForm::Peer peer;
    peer.changed = [&] { ++changes; };
    window.SetPeer(peer);
    window.SetCaption("Another");
    window.SetIcon("another");
    window.SetVisible(true);
    window.SetState(ui::WindowState::Minimized);
    EXPECT_EQ(changes, 4);
    window.SetCaption("Another");
    window.SetIcon("another");
    window.SetVisible(true);
    window.SetState(ui::WindowState::Minimized);
    EXPECT_EQ(changes, 4);
}
