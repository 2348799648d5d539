#include "settings/OptionsRecord.h"
#include "settings/bOptions.h"
#include "support/FailEachCall.h"
#include "support/LoadedCharacter.h"
#include "ui/frmParlune.h"
#include <gtest/gtest.h>

namespace {

using platform::Root;
using settings::Options;

constexpr char Key[] = "Software\\Tarrowind\\Parlune";
constexpr char BrowserEntry[] = "Software\\Microsoft\\Internet Explorer\\MenuExt\\Read with Parlune";

void Put(CHeadlessDesktop& desktop, const std::string& name, const std::string& text)
{
    desktop.registry.Put(Root::CurrentUser, Key, name, text);
}

std::optional<std::string> Stored(const CHeadlessDesktop& desktop, const std::string& name)
{
    return desktop.registry.Text(Root::CurrentUser, Key, name);
}

// Without these two every load reports twice; the tests that are not about that put them.
void PutSize(CHeadlessDesktop& desktop)
{
    Put(desktop, "CharWidth", "0");
    Put(desktop, "CharHeight", "0");
}

struct BoxOption {
    const char* key;
    ui::CCheckBox frmParlune::*box;
    int designState;
};
void PrintTo(const BoxOption& option, std::ostream* out) { *out << option.key; }

class BoxOptions : public testing::TestWithParam<BoxOption> {
protected:
    CHeadlessDesktop desktop;
    ui::CCheckBox& Box() { return MainWindow().*GetParam().box; }
};

constexpr BoxOption AllBoxes[] = {
    {"CharSize", &frmParlune::chkCustomSize, 0},
    {"ShowIfHidden", &frmParlune::chkShowIfHidden, 0},
    {"SavePosOnClose", &frmParlune::chkSavePosOnClose, 1},
    {"StartWithWindows", &frmParlune::chkStartWithWindows, 0},
    {"StartUpHideInTray", &frmParlune::chkStartUpHideInTray, 0},
    {"IdleOn", &frmParlune::chkIdleOn, 1},
    {"SoundEffectsOn", &frmParlune::chkSoundEffectsOn, 1},
    {"ReadClipboardOnDblClick", &frmParlune::chkReadClipBoardOnDblClick, 1},
    {"QueueReadCommands", &frmParlune::chkQueueReadCommands, 1},
    {"ReadGreeting", &frmParlune::chkReadGreeting, 1},
    {"ShowSplash", &frmParlune::chkShowSplash, 0},
    {"MinimizeOnClose", &frmParlune::chkMinimizeOnClose, 1},
    {"PlayReadAnimation", &frmParlune::chkPlayReadAnimation, 1},
    {"SayTime", &frmParlune::chkSayTime, 1},
    {"SayTimeShowIfHidden", &frmParlune::chkSayTimeShowIfHidden, 1},
    {"MonitorClipboard", &frmParlune::chkMonitorClipboard, 0},
};

}

INSTANTIATE_TEST_SUITE_P(All, BoxOptions, testing::ValuesIn(AllBoxes));

TEST_P(BoxOptions, GetOptions_AMissingOption_KeepsTheDesignState)
{
    PutSize(desktop);
    bOptions::GetOptions();
    EXPECT_EQ(Box().Value(), GetParam().designState);
}

TEST_P(BoxOptions, GetOptions_AStoredTruthValue_IsShown)
{
    PutSize(desktop);
    Put(desktop, GetParam().key, GetParam().designState == 0 ? "1" : "0");
    bOptions::GetOptions();
    EXPECT_EQ(Box().Value(), GetParam().designState == 0 ? 1 : 0);
}

TEST_P(BoxOptions, GetOptions_AStoredTwo_IsTreatedAsMissing)
{
    PutSize(desktop);
    Put(desktop, GetParam().key, "2");
    bOptions::GetOptions();
    EXPECT_EQ(Box().Value(), GetParam().designState);
}

TEST_P(BoxOptions, GetOptions_ABox_RunsItsClickHandler)
{
    PutSize(desktop);
    int clicks = 0;
    Box().onClick = [&] { ++clicks; };
    bOptions::GetOptions();
    EXPECT_GE(clicks, 1);
}

TEST_P(BoxOptions, SetOptions_ATickedBox_IsStoredAsOne)
{
    support::LoadCharacter(desktop, "Robby");
    Box().SetValue(1);
    bOptions::SetOptions();
    EXPECT_EQ(Stored(desktop, GetParam().key), "1");
}

TEST_P(BoxOptions, SetOptions_AnEmptyBox_IsStoredAsZero)
{
    support::LoadCharacter(desktop, "Robby");
    Box().SetValue(0);
    bOptions::SetOptions();
    EXPECT_EQ(Stored(desktop, GetParam().key), "0");
}

TEST(bOptionsRecord, GetOptions_AnEmptyOptionKey_GivesTheDefaultsOfTheRecord)
{
    CHeadlessDesktop desktop;

    bOptions::GetOptions();

    EXPECT_TRUE(Options().FirstTime);
    EXPECT_EQ(Options().Character, "");
    EXPECT_EQ(Options().CharTop, -1);
    EXPECT_EQ(Options().CharLeft, -1);
    EXPECT_EQ(Options().LastFolder, "");
    EXPECT_EQ(Options().LastCharFolder, "");
}

TEST(bOptionsRecord, GetOptions_AnEmptyOptionKey_GivesTheFirstTextsOfTheControls)
{
    CHeadlessDesktop desktop;

    bOptions::GetOptions();

    const frmParlune& window = MainWindow();
    EXPECT_EQ(window.txtUserName.Text(), "");
    EXPECT_EQ(window.txtGreeting[0].Text(), "");
    EXPECT_EQ(window.cboAnim[4].Text(), "");
    EXPECT_EQ(window.txtTestText.Text(), "Welcome to Parlune from Tarrowind Technologies!\r\n");
    EXPECT_EQ(window.cboSayTime.Text(), "The time is now {Time}");
    EXPECT_EQ(window.cboSayTimeInterval.Text(), "30");
    EXPECT_EQ(window.cboSayTimeFormat.Text(), "h:mm AM/PM");
}

TEST(bOptionsRecord, GetOptions_AnEmptyOptionKey_IsNotCreated)
{
    CHeadlessDesktop desktop;
    bOptions::GetOptions();
    EXPECT_FALSE(desktop.registry.HasKey(Root::CurrentUser, Key));
}

TEST(bOptionsRecord, GetOptions_AMissingSize_IsReportedAsTypeMismatchAndKeepsThePreviousValue)
{
    CHeadlessDesktop desktop;
    Options().CharWidth = 90;
    Options().CharHeight = 70;

    bOptions::GetOptions();

    ASSERT_EQ(desktop.messageBoxes.shown.size(), 2U);
    for (const platform::headless::ShownBox& box : desktop.messageBoxes.shown) {
        EXPECT_EQ(box.Line(1), "Section: bOptions:GetOptions");
        EXPECT_EQ(box.Line(3), "Error Code: 13");
        EXPECT_EQ(box.Line(4), "'Type mismatch'");
    }
    EXPECT_EQ(Options().CharWidth, 90);
    EXPECT_EQ(Options().CharHeight, 70);
}

TEST(bOptionsRecord, GetOptions_AStoredSize_IsNotReported)
{
    CHeadlessDesktop desktop;
    Put(desktop, "CharWidth", "200");
    Put(desktop, "CharHeight", "150");

    bOptions::GetOptions();

    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
    EXPECT_EQ(Options().CharWidth, 200);
    EXPECT_EQ(Options().CharHeight, 150);
}

TEST(bOptionsRecord, GetOptions_AStoredPosition_IsLoaded)
{
    CHeadlessDesktop desktop;
    PutSize(desktop);
    Put(desktop, "CharTop", "-40");
    Put(desktop, "CharLeft", "1200");

    bOptions::GetOptions();

    EXPECT_EQ(Options().CharTop, -40);
    EXPECT_EQ(Options().CharLeft, 1200);
}

TEST(bOptionsRecord, GetOptions_APositionThatIsNoNumber_IsReportedAndLoadingContinues)
{
    CHeadlessDesktop desktop;
    PutSize(desktop);
    Put(desktop, "CharTop", "top");
    Put(desktop, "CharLeft", "99999999999");
    Put(desktop, "UserName", "Ann");

    bOptions::GetOptions();

    ASSERT_EQ(desktop.messageBoxes.shown.size(), 2U);
    EXPECT_EQ(desktop.messageBoxes.shown[0].Line(3), "Error Code: 13");
    EXPECT_EQ(desktop.messageBoxes.shown[1].Line(3), "Error Code: 6");
    EXPECT_EQ(Options().CharTop, 0);
    EXPECT_EQ(MainWindow().txtUserName.Text(), "Ann");
}

TEST(bOptionsRecord, GetOptions_FirstTime_FollowsTheStoredNumber)
{
    CHeadlessDesktop desktop;
    PutSize(desktop);
    Put(desktop, "FirstTime", "0");
    bOptions::GetOptions();
    EXPECT_FALSE(Options().FirstTime);
}

TEST(bOptionsRecord, GetOptions_FirstTimeThatIsNoTruthValue_IsTreatedAsMissing)
{
    CHeadlessDesktop desktop;
    PutSize(desktop);
    Put(desktop, "FirstTime", "never");
    bOptions::GetOptions();
    EXPECT_TRUE(Options().FirstTime);
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST(bOptionsRecord, GetOptions_TheTextsOfTheRecord_AreLoaded)
{
    CHeadlessDesktop desktop;
    PutSize(desktop);
    Put(desktop, "Character", "Robby");
    Put(desktop, "LastFolder", "C:\\Texts\\");
    Put(desktop, "LastCharFolder", "C:\\Chars\\");

    bOptions::GetOptions();

    EXPECT_EQ(Options().Character, "Robby");
    EXPECT_EQ(Options().LastFolder, "C:\\Texts\\");
    EXPECT_EQ(Options().LastCharFolder, "C:\\Chars\\");
}

TEST(bOptionsRecord, GetOptions_TheTextsOfTheControls_AreLoaded)
{
    CHeadlessDesktop desktop;
    PutSize(desktop);
    Put(desktop, "UserName", "Ann");
    Put(desktop, "TTSTestText", "Testing");
    Put(desktop, "SayTimeText", "It is {Time}.");
    Put(desktop, "SayTimeInterval", "15");
    Put(desktop, "SayTimeFormat", "hh:nn");

    bOptions::GetOptions();

    const frmParlune& window = MainWindow();
    EXPECT_EQ(window.txtUserName.Text(), "Ann");
    EXPECT_EQ(window.txtTestText.Text(), "Testing");
    EXPECT_EQ(window.cboSayTime.Text(), "It is {Time}.");
    EXPECT_EQ(window.cboSayTimeInterval.Text(), "15");
    EXPECT_EQ(window.cboSayTimeFormat.Text(), "hh:nn");
}

TEST(bOptionsRecord, GetOptions_TheFiveGreetings_AreNumberedFromOne)
{
    CHeadlessDesktop desktop;
    PutSize(desktop);
    Put(desktop, "Greeting1", "Hello");
    Put(desktop, "GreetingAnimation1", "Wave");
    Put(desktop, "Greeting5", "Good {TimeOfDay}");
    Put(desktop, "GreetingAnimation5", "Announce");

    bOptions::GetOptions();

    const frmParlune& window = MainWindow();
    EXPECT_EQ(window.txtGreeting[0].Text(), "Hello");
    EXPECT_EQ(window.cboAnim[0].Text(), "Wave");
    EXPECT_EQ(window.txtGreeting[4].Text(), "Good {TimeOfDay}");
    EXPECT_EQ(window.cboAnim[4].Text(), "Announce");
    EXPECT_EQ(window.txtGreeting[2].Text(), "");
}

TEST(bOptionsRecord, GetOptions_AStoredEmptyGreeting_ClearsTheBox)
{
    CHeadlessDesktop desktop;
    PutSize(desktop);
    MainWindow().txtGreeting[0].SetText("first text");
    Put(desktop, "Greeting1", "");
    bOptions::GetOptions();
    EXPECT_EQ(MainWindow().txtGreeting[0].Text(), "");
}

TEST(bOptionsRecord, GetOptions_AnIntervalWithoutANumber_IsShownAs30)
{
    for (const char* interval : {"0", "abc", "", "0.0", "-0"}) {
        CHeadlessDesktop desktop;
        PutSize(desktop);
        Put(desktop, "SayTimeInterval", interval);
        bOptions::GetOptions();
        EXPECT_EQ(MainWindow().cboSayTimeInterval.Text(), "30") << interval;
    }
}

TEST(bOptionsRecord, GetOptions_AnIntervalThatBeginsWithANumber_IsLeftAsItIs)
{
    CHeadlessDesktop desktop;
    PutSize(desktop);
    Put(desktop, "SayTimeInterval", "5 minutes");
    bOptions::GetOptions();
    EXPECT_EQ(MainWindow().cboSayTimeInterval.Text(), "5 minutes");
}

TEST(bOptionsRecord, GetOptions_TheInterval_HasAFixedDefault)
{
    CHeadlessDesktop desktop;
    PutSize(desktop);
    MainWindow().cboSayTimeInterval.SetText("45");
    bOptions::GetOptions();
    EXPECT_EQ(MainWindow().cboSayTimeInterval.Text(), "30");
}

TEST(bOptionsRecord, GetOptions_MonitorClipboardMissing_UnticksATickedBox)
{
    CHeadlessDesktop desktop;
    PutSize(desktop);
    MainWindow().chkMonitorClipboard.SetValue(1);
    bOptions::GetOptions();
    EXPECT_EQ(MainWindow().chkMonitorClipboard.Value(), 0);
}

TEST(bOptionsRecord, GetOptions_MonitorClipboard_IsReadTwice)
{
    CHeadlessDesktop desktop;
    PutSize(desktop);
    bOptions::GetOptions();
    EXPECT_EQ(desktop.journal.Count("Registry.ValueSize MonitorClipboard"), 2U);
}

TEST(bOptionsRecord, GetOptions_TheCheckMarksOfThePopupMenu_FollowTheirBoxes)
{
    CHeadlessDesktop desktop;
    PutSize(desktop);
    Put(desktop, "SayTime", "0");
    Put(desktop, "MonitorClipboard", "1");
    MainWindow().mnuPopSayTime.SetChecked(true);

    bOptions::GetOptions();

    EXPECT_FALSE(MainWindow().mnuPopSayTime.Checked());
    EXPECT_TRUE(MainWindow().mnuPopAutoReadClipboard.Checked());
}

TEST(bOptionsRecord, GetOptions_ABrowserEntryWithAPage_TicksItsBox)
{
    CHeadlessDesktop desktop;
    PutSize(desktop);
    desktop.registry.Put(Root::CurrentUser, BrowserEntry, "", "C:\\Parlune.htm");
    bOptions::GetOptions();
    EXPECT_EQ(MainWindow().chkIEMenu.Value(), 1);
}

TEST(bOptionsRecord, GetOptions_AnEmptyOrMissingBrowserEntry_UnticksItsBox)
{
    CHeadlessDesktop desktop;
    PutSize(desktop);
    MainWindow().chkIEMenu.SetValue(1);
    bOptions::GetOptions();
    EXPECT_EQ(MainWindow().chkIEMenu.Value(), 0);

    MainWindow().chkIEMenu.SetValue(1);
    desktop.registry.Put(Root::CurrentUser, BrowserEntry, "", "");
    bOptions::GetOptions();
    EXPECT_EQ(MainWindow().chkIEMenu.Value(), 0);
}

TEST(bOptionsRecord, GetOptions_TheMainWindow_IsMadeAndStaysHidden)
{
    CHeadlessDesktop desktop;
    bOptions::GetOptions();
    EXPECT_TRUE(MainWindow().Loaded());
    EXPECT_FALSE(MainWindow().Visible());
}

TEST(bOptionsRecord, GetOptions_Options_AreReadInTheirOrder)
{
    CHeadlessDesktop desktop;
    PutSize(desktop);

    bOptions::GetOptions();

    std::vector<std::string> keys;
    for (const std::string& call : desktop.journal.CallsOf("Registry.ValueSize "))
        keys.push_back(call.substr(std::string("Registry.ValueSize ").size()));
    EXPECT_EQ(keys, (std::vector<std::string>{"FirstTime",
                                              "Character",
                                              "CharTop",
                                              "CharLeft",
                                              "CharWidth",
                                              "CharHeight",
                                              "CharSize",
                                              "LastFolder",
                                              "LastCharFolder",
                                              "UserName",
                                              "Greeting1",
                                              "GreetingAnimation1",
                                              "Greeting2",
                                              "GreetingAnimation2",
                                              "Greeting3",
                                              "GreetingAnimation3",
                                              "Greeting4",
                                              "GreetingAnimation4",
                                              "Greeting5",
                                              "GreetingAnimation5",
                                              "ShowIfHidden",
                                              "SavePosOnClose",
                                              "StartWithWindows",
                                              "StartUpHideInTray",
                                              "IdleOn",
                                              "SoundEffectsOn",
                                              "ReadClipboardOnDblClick",
                                              "QueueReadCommands",
                                              "ReadGreeting",
                                              "ShowSplash",
                                              "MinimizeOnClose",
                                              "TTSTestText",
                                              "PlayReadAnimation",
                                              "SayTime",
                                              "SayTimeText",
                                              "SayTimeInterval",
                                              "SayTimeFormat",
                                              "SayTimeShowIfHidden",
                                              "MonitorClipboard",
                                              "FileName",
                                              "MonitorClipboard"}));
}

TEST(bOptionsRecord, GetOptions_WhenTheRegistryRaises_ReportsItOnceAndGoesOn)
{
    const auto prepare = [](CHeadlessDesktop& desktop) {
        PutSize(desktop);
        Put(desktop, "FileName", "C:\\Texts\\a.txt");
        desktop.registry.Put(Root::CurrentUser, BrowserEntry, "", "page.htm");
    };
    int runsWithASecondReport = 0;
    support::FailEachCall(
        prepare, [](CHeadlessDesktop&) { bOptions::GetOptions(); },
        [&](const support::FailedRun& run) {
            std::vector<std::string> reports = run.Reports();
            if (reports.size() == 2 && reports.back() == "bOptions:GetOptions") {
                ++runsWithASecondReport;
                reports.pop_back();
            }
            EXPECT_EQ(reports,
                      std::vector<std::string>{run.FailedIn("Files.Kind") ? "bGlobal:FileExists" : "bRegistry:GetReg"});
            EXPECT_EQ(run.desktop.journal.Count("Registry.Open"), 42U);
        });
    EXPECT_EQ(runsWithASecondReport, 6);  // Width and height, whose default "" is no number, by three calls each.
}

TEST(bOptionsRecord, GetOptions_WhenAClickHandlerFails_ReportsItselfAndGoesOn)
{
    CHeadlessDesktop desktop;
    PutSize(desktop);
    Put(desktop, "SoundEffectsOn", "0");
    MainWindow().chkIdleOn.onClick = [] { throw platform::failure::ObjectNotSet(); };

    bOptions::GetOptions();

    ASSERT_EQ(desktop.messageBoxes.shown.size(), 1U);
    EXPECT_EQ(desktop.messageBoxes.Last().Line(1), "Section: bOptions:GetOptions");
    EXPECT_EQ(desktop.messageBoxes.Last().Line(3), "Error Code: 91");
    EXPECT_EQ(MainWindow().chkSoundEffectsOn.Value(), 0);
}

TEST(bOptionsRecord, GetOptions_CancelOfAReport_EndsTheProgram)
{
    CHeadlessDesktop desktop;
    desktop.messageBoxes.answers = {platform::BoxAnswer::Cancel};
    EXPECT_THROW(bOptions::GetOptions(), platform::CProgramEnded);
    EXPECT_EQ(desktop.messageBoxes.shown.size(), 1U);
}
