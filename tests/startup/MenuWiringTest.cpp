#include "startup/StartedProgram.h"

namespace {

using Texts = std::vector<std::string>;

// An entry and what lies below it, one text each: two blanks for each level, the name, the caption.
void List(const ui::CMenuItem& menu, const std::string& indent, Texts& list)
{
    for (const ui::CMenuItem* item : menu.Items()) {
        list.push_back(indent + item->Name() + " " + item->Caption());
        List(*item, indent + "  ", list);
    }
}

Texts EntriesOf(const ui::CMenuItem& menu)
{
    Texts list{menu.Name() + " " + menu.Caption()};
    List(menu, "  ", list);
    return list;
}

class MenuWiring : public testing::Test, public StartedProgram {};

TEST_F(MenuWiring, FileMenu_HasItsEntriesInOrder)
{
    EXPECT_EQ(EntriesOf(MainWindow().mnuFile),
              (Texts{"mnuFile &File", "  mnuFileNew &New", "  mnuFileOpen &Open...", "  mnuFileSave &Save",
                     "  mnuFileRead &Read", "  mnuFileClose &Close", "  mnuSep3 -", "  mnuFileStop Sto&p", "  mnuFileSep1 -",
                     "  mnuFileResetDefaults &Reset Defaults...", "  mnuFileSep2 -", "  mnuFileExit E&xit"}));
}

TEST_F(MenuWiring, DownloadAndHelpMenus_HaveTheirEntriesInOrder)
{
    EXPECT_EQ(EntriesOf(MainWindow().mnuDownload), (Texts{"mnuDownload &Download", "  mnuDownloadCharacters Characters...",
                                                          "  mnuDownloadTTSEngines TTS Voice Engines..."}));
    EXPECT_EQ(EntriesOf(MainWindow().frmHelp), (Texts{"frmHelp &Help", "  frmHelpAbout &About..."}));
}

TEST_F(MenuWiring, PopupMenu_HasItsEntriesInOrder)
{
    EXPECT_EQ(EntriesOf(MainWindow().mnuPopup),
              (Texts{"mnuPopup Popup", "  mnuPopReadClipboard Read &Clipboard", "  mnuPopReadTextFile Read Text &File...",
                     "  mnuPopRead &Read Other", "    mnuPopReadWordDocument Word &Document",
                     "    mnuPopReadWordSelection &Word Selection", "    mnuPopReadExcelSelection &Excel Selection",
                     "  mnuPopSep1 -", "  mnuPopSayTime Announce &Time", "  mnuPopAutoReadClipboard &Auto-Read Clipboard",
                     "  mnuPopSep2 -", "  mnuPopParluneOptions &Options...", "  mnuPopSep3 -", "  mnuPopHide &Hide",
                     "  mnuPopCharSkip Skip", "  mnuPopCharPause &Pause", "  mnuPopCharStop &Stop", "  mnuPopSep4 -",
                     "  mnuPopExit &Exit Parlune"}));
}

TEST_F(MenuWiring, EveryEntryThatIsACommand_DoesSomething)
{
    for (const ui::CControl* control : MainWindow().Controls()) {
        const auto* item = dynamic_cast<const ui::CMenuItem*>(control);
        const bool isCommand = item != nullptr && !item->IsSeparator() && item->Items().empty();
        EXPECT_EQ(item != nullptr && item->onClick != nullptr, isCommand) << control->Name();
    }
}

TEST_F(MenuWiring, AutoReadClipboard_Clicked_SwitchesTheMonitorWithTheBox)
{
    Start();
    MainWindow().mnuPopAutoReadClipboard.Click();
    EXPECT_TRUE(desktop.clipboard.Watched());
    EXPECT_EQ(MainWindow().chkMonitorClipboard.Value(), 1);
    MainWindow().mnuPopAutoReadClipboard.Click();
    EXPECT_FALSE(desktop.clipboard.Watched());
}

TEST_F(MenuWiring, SayTimeBox_Clicked_LeavesTheMenusMark)
{
    Start();
    ASSERT_TRUE(MainWindow().mnuPopSayTime.Checked());
    MainWindow().chkSayTime.SetValue(0);
    EXPECT_TRUE(MainWindow().mnuPopSayTime.Checked());
    EXPECT_FALSE(MainWindow().tmrTimer.Enabled());
}

TEST_F(MenuWiring, ResetDefaults_Clicked_EndsTheProgramWithoutSavingAnything)
{
    PutOption("UserName", "Ann");
    Start();
    MainWindow().mnuFileResetDefaults.Click();
    EXPECT_FALSE(MainWindow().Loaded());
    EXPECT_FALSE(desktop.registry.HasKey(platform::Root::CurrentUser, OptionKey));
    EXPECT_EQ(desktop.trayIcon.tip, std::nullopt);
}

TEST_F(MenuWiring, Timer_Ticking_AnnouncesTheTime)
{
    PutOption("SayTimeInterval", "5");
    PutOption("SayTimeText", "Cuckoo");
    Start();
    MainWindow().tmrTimer.Tick();  // At 14:05.
    EXPECT_EQ(desktop.engine.Spoken(), Texts{"Cuckoo"});
}

TEST_F(MenuWiring, TrayIcon_DoubleClicked_TogglesTheMainWindow)
{
    Start();
    ASSERT_TRUE(MainWindow().Visible());
    desktop.trayIcon.Mouse(515);
    EXPECT_FALSE(MainWindow().Visible());
    desktop.trayIcon.Mouse(515);
    EXPECT_TRUE(MainWindow().Visible());
}

}
