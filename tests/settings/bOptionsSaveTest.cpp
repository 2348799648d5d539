#include "settings/OptionsRecord.h"
#include "settings/bOptions.h"
#include "support/FailEachCall.h"
#include "support/LoadedCharacter.h"
#include "ui/EditorDocument.h"
#include "ui/frmParlune.h"
#include <gtest/gtest.h>

namespace {

using platform::Root;
using settings::Options;

constexpr char Key[] = "Software\\Tarrowind\\Parlune";

void Put(CHeadlessDesktop& desktop, const std::string& name, const std::string& text)
{
    desktop.registry.Put(Root::CurrentUser, Key, name, text);
}

std::optional<std::string> Stored(const CHeadlessDesktop& desktop, const std::string& name)
{
    return desktop.registry.Text(Root::CurrentUser, Key, name);
}

// A saved option by its place in the journal: every save reads the stored text first.
std::vector<std::string> SavedKeys(const CHeadlessDesktop& desktop)
{
    std::vector<std::string> keys;
    for (const std::string& call : desktop.journal.CallsOf("Registry.ValueSize "))
        keys.push_back(call.substr(std::string("Registry.ValueSize ").size()));
    return keys;
}

}

TEST(bOptionsSave, SetOptions_AfterAReset_WritesNothing)
{
    CHeadlessDesktop desktop;
    Options().Reset = true;
    MainWindow().txtUserName.SetText("Ann");

    bOptions::SetOptions();

    EXPECT_FALSE(desktop.registry.HasKey(Root::CurrentUser, Key));
    EXPECT_TRUE(desktop.journal.Calls().empty());
}

TEST(bOptionsSave, SetOptions_FirstTime_IsStoredAsZero)
{
    CHeadlessDesktop desktop;
    Options().FirstTime = true;
    bOptions::SetOptions();
    EXPECT_EQ(Stored(desktop, "FirstTime"), "0");
}

TEST(bOptionsSave, SetOptions_TheTextsOfTheRecord_AreStored)
{
    CHeadlessDesktop desktop;
    Options().Character = "Robby";
    Options().LastFolder = "C:\\Texts\\";
    Options().LastCharFolder = "C:\\Chars\\";
    ui::Document().currentFile = "C:\\Texts\\a.txt";

    bOptions::SetOptions();

    EXPECT_EQ(Stored(desktop, "Character"), "Robby");
    EXPECT_EQ(Stored(desktop, "LastFolder"), "C:\\Texts\\");
    EXPECT_EQ(Stored(desktop, "LastCharFolder"), "C:\\Chars\\");
    EXPECT_EQ(Stored(desktop, "FileName"), "C:\\Texts\\a.txt");
}

TEST(bOptionsSave, SetOptions_TheTextsOfTheControls_AreStored)
{
    CHeadlessDesktop desktop;
    frmParlune& window = MainWindow();
    window.txtUserName.SetText("Ann");
    window.txtTestText.SetText("Testing");
    window.cboSayTime.SetText("It is {Time}.");
    window.cboSayTimeInterval.SetText("15");
    window.cboSayTimeFormat.SetText("hh:nn");

    bOptions::SetOptions();

    EXPECT_EQ(Stored(desktop, "UserName"), "Ann");
    EXPECT_EQ(Stored(desktop, "TTSTestText"), "Testing");
    EXPECT_EQ(Stored(desktop, "SayTimeText"), "It is {Time}.");
    EXPECT_EQ(Stored(desktop, "SayTimeInterval"), "15");
    EXPECT_EQ(Stored(desktop, "SayTimeFormat"), "hh:nn");
}

TEST(bOptionsSave, SetOptions_AClearedGreeting_KeepsItsStoredTextWhileItsAnimationIsSaved)
{
    CHeadlessDesktop desktop;
    Put(desktop, "Greeting3", "Hello");
    Put(desktop, "GreetingAnimation3", "Wave");
    MainWindow().txtGreeting[2].SetText("");
    MainWindow().cboAnim[2].SetText("Announce");

    bOptions::SetOptions();

    EXPECT_EQ(Stored(desktop, "Greeting3"), "Hello");
    EXPECT_EQ(Stored(desktop, "GreetingAnimation3"), "Announce");
}

TEST(bOptionsSave, SetOptions_AClearedAnimation_IsStoredEmpty)
{
    CHeadlessDesktop desktop;
    Put(desktop, "GreetingAnimation3", "Wave");
    bOptions::SetOptions();
    EXPECT_EQ(Stored(desktop, "GreetingAnimation3"), "");
}

TEST(bOptionsSave, SetOptions_AGreeting_IsStoredUnderItsNumberFromOne)
{
    CHeadlessDesktop desktop;
    MainWindow().txtGreeting[0].SetText("Hello");
    MainWindow().txtGreeting[4].SetText("Good day");
    bOptions::SetOptions();
    EXPECT_EQ(Stored(desktop, "Greeting1"), "Hello");
    EXPECT_EQ(Stored(desktop, "Greeting5"), "Good day");
    EXPECT_FALSE(Stored(desktop, "Greeting0").has_value());
}

TEST(bOptionsSave, SetOptions_WithoutACharacter_StoresNoSize)
{
    CHeadlessDesktop desktop;
    Options().CharWidth = 200;
    MainWindow().chkCustomSize.SetValue(1);

    bOptions::SetOptions();

    EXPECT_FALSE(Stored(desktop, "CharWidth").has_value());
    EXPECT_FALSE(Stored(desktop, "CharHeight").has_value());
    EXPECT_FALSE(Stored(desktop, "CharSize").has_value());
}

TEST(bOptionsSave, SetOptions_WithACharacter_StoresItsSize)
{
    CHeadlessDesktop desktop;
    support::LoadCharacter(desktop, "Robby");
    Options().CharWidth = 200;
    Options().CharHeight = 150;
    MainWindow().chkCustomSize.SetValue(1);

    bOptions::SetOptions();

    EXPECT_EQ(Stored(desktop, "CharWidth"), "200");
    EXPECT_EQ(Stored(desktop, "CharHeight"), "150");
    EXPECT_EQ(Stored(desktop, "CharSize"), "1");
}

TEST(bOptionsSave, SetOptions_WithSavePosOnClose_CopiesTheCharactersPositionIntoTheRecord)
{
    CHeadlessDesktop desktop;
    support::LoadCharacter(desktop, "Robby");
    desktop.engine.loaded->left = 300;
    desktop.engine.loaded->top = -20;

    bOptions::SetOptions();

    EXPECT_EQ(Options().CharLeft, 300);
    EXPECT_EQ(Options().CharTop, -20);
}

TEST(bOptionsSave, SetOptions_WithoutSavePosOnClose_LeavesThePositionInTheRecord)
{
    CHeadlessDesktop desktop;
    support::LoadCharacter(desktop, "Robby");
    desktop.engine.loaded->left = 300;
    Options().CharLeft = 7;
    MainWindow().chkSavePosOnClose.SetValue(0);

    bOptions::SetOptions();

    EXPECT_EQ(Options().CharLeft, 7);
    EXPECT_EQ(desktop.journal.Count("Character."), 0U);
}

TEST(bOptionsSave, SetOptions_ThePosition_IsNotStored)
{
    CHeadlessDesktop desktop;
    support::LoadCharacter(desktop, "Robby");
    bOptions::SetOptions();
    EXPECT_FALSE(Stored(desktop, "CharTop").has_value());
    EXPECT_FALSE(Stored(desktop, "CharLeft").has_value());
}

TEST(bOptionsSave, SetOptions_WhenTheCharactersPositionFails_IsNotReported)
{
    CHeadlessDesktop desktop;
    support::LoadCharacter(desktop, "Robby");
    desktop.journal.FailAlways("Character.", platform::failure::DeviceError());

    bOptions::SetOptions();

    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
    EXPECT_EQ(Stored(desktop, "CharSize"), "0");
}

TEST(bOptionsSave, SetOptions_ValuesThatAreStoredAlready_AreNotWrittenAgain)
{
    CHeadlessDesktop desktop;
    support::LoadCharacter(desktop, "Robby");
    bOptions::SetOptions();
    desktop.journal.Clear();

    bOptions::SetOptions();

    EXPECT_EQ(desktop.journal.Count("Registry.Create"), 0U);
    EXPECT_EQ(desktop.journal.Count("Registry.SetText"), 0U);
}

TEST(bOptionsSave, SetOptions_TheMainWindow_IsMadeFirst)
{
    CHeadlessDesktop desktop;
    bOptions::SetOptions();
    EXPECT_TRUE(MainWindow().Loaded());
}

TEST(bOptionsSave, SetOptions_WhatWasSaved_IsLoadedAgain)
{
    CHeadlessDesktop desktop;
    support::LoadCharacter(desktop, "Robby");
    MainWindow().txtUserName.SetText("Ann ä \"x\"");
    MainWindow().chkShowSplash.SetValue(1);
    bOptions::SetOptions();
    MainWindow().txtUserName.SetText("");
    MainWindow().chkShowSplash.SetValue(0);

    bOptions::GetOptions();

    EXPECT_EQ(MainWindow().txtUserName.Text(), "Ann ä \"x\"");
    EXPECT_EQ(MainWindow().chkShowSplash.Value(), 1);
    EXPECT_FALSE(Options().FirstTime);
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST(bOptionsSave, SetOptions_Options_AreSavedInTheirOrder)
{
    CHeadlessDesktop desktop;
    support::LoadCharacter(desktop, "Robby");
    Put(desktop, "Key", "exists");  // Values are only asked for where the key exists.
    for (ui::CTextBox& greeting : MainWindow().txtGreeting)
        greeting.SetText("Hello");

    bOptions::SetOptions();

    EXPECT_EQ(SavedKeys(desktop), (std::vector<std::string>{"CharWidth",
                                                            "CharHeight",
                                                            "CharSize",
                                                            "FirstTime",
                                                            "Character",
                                                            "UserName",
                                                            "LastFolder",
                                                            "LastCharFolder",
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
                                                            "SayTime",
                                                            "SayTimeInterval",
                                                            "SayTimeText",
                                                            "SayTimeFormat",
                                                            "SayTimeShowIfHidden",
                                                            "PlayReadAnimation",
                                                            "MonitorClipboard",
                                                            "FileName"}));
}

TEST(bOptionsSave, SetOptions_WhenACallFails_IsReportedOnceOrIgnoredAndTheRestIsSaved)
{
    const std::vector<support::ReportRule> rules{{"Registry.Create", "bRegistry:SetReg"},
                                                 {"Registry.SetText", "bRegistry:SetReg"},
                                                 {"Registry.", "bRegistry:GetReg"},
                                                 {"Character.", ""}};
    const auto prepare = [](CHeadlessDesktop& desktop) {
        support::LoadCharacter(desktop, "Robby");
        ui::Document().currentFile = "C:\\Texts\\a.txt";
    };
    int runsWithoutTheLastOption = 0;
    support::FailEachCall(
        prepare, [](CHeadlessDesktop&) { bOptions::SetOptions(); },
        [&](const support::FailedRun& run) {
            support::ExpectReport(run, rules);
            runsWithoutTheLastOption += Stored(run.desktop, "FileName") == "C:\\Texts\\a.txt" ? 0 : 1;
        });
    EXPECT_EQ(runsWithoutTheLastOption, 2);  // Those in which its own key or its own value could not be written.
}

TEST(bOptionsSave, SetOptions_WhenLoadingTheWindowFails_ReportsItselfAndSaves)
{
    CHeadlessDesktop desktop;
    MainWindow().onLoad = [] { throw platform::failure::OutOfMemory(); };

    bOptions::SetOptions();

    EXPECT_EQ(desktop.messageBoxes.Last().Line(1), "Section: bOptions:SetOptions");
    EXPECT_EQ(Stored(desktop, "FirstTime"), "0");
}
