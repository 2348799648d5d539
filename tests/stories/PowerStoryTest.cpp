#include "reading/bRead.h"
#include "settings/SavedOptions.h"
#include "stories/Story.h"
#include <map>
#include <utility>

namespace {

// Runs that do not come to their end.
class PowerStory : public CStory {
protected:
    // Time for the event to be over.
    void Choose() { desktop.events.Pass(0); }
    // The machine is off from one moment to the next; then the program is started again.
    void LosePower()
    {
        desktop.stateFile.LosePower();
        common::RenewProgramState();
        host.Advance(0);
    }
    void LosePowerAndStart()
    {
        LosePower();
        Start();
    }
    static void ChooseSomething()
    {
        MainWindow().chkQueueReadCommands.SetValue(0);
        MainWindow().txtGreeting[2].SetText("Welcome back, {UserName}");
        MainWindow().cboSayTimeFormat.SetText("hh:nn");
        MainWindow().txtUserName.SetText("Ann");
    }
    std::map<std::string, std::string> StoredOptions() const
    {
        std::map<std::string, std::string> stored;
        settings::VisitSavedOptions([&](const settings::SavedOption& option) {
            if (const auto text = Option(option.key))
                stored[option.key] = *text;
        });
        return stored;
    }
};

TEST_F(PowerStory, PowerCut_OptionsChanged_AreThereAtTheNextStart)
{
    StartAndSettle();
    ChooseSomething();
    Choose();
    LosePowerAndStart();

    EXPECT_EQ(MainWindow().chkQueueReadCommands.Value(), 0);
    EXPECT_EQ(MainWindow().txtGreeting[2].Text(), "Welcome back, {UserName}");
    EXPECT_EQ(MainWindow().cboSayTimeFormat.Text(), "hh:nn");
    EXPECT_EQ(MainWindow().txtUserName.Text(), "Ann");
    EXPECT_FALSE(MainWindow().Visible());
    EXPECT_TRUE(desktop.stateFile.left.empty());
}

TEST_F(PowerStory, PowerCut_OptionsChanged_TheStoreIsAsAfterACleanEnd)
{
    StartAndSettle();
    ChooseSomething();
    Choose();
    LosePower();
    const auto before = StoredOptions();
    Start();
    const auto afterThePowerCut = StoredOptions();
    MainWindow().Unload();

    EXPECT_NE(before, afterThePowerCut);
    EXPECT_EQ(afterThePowerCut, StoredOptions());
}

TEST_F(PowerStory, PowerCut_NothingChosen_TheNextStartIsTheFirstAgain)
{
    StartAndSettle();
    Choose();
    LosePowerAndStart();
    EXPECT_TRUE(MainWindow().Visible());
    EXPECT_EQ(desktop.stateFile.keeps, 0U);
}

TEST_F(PowerStory, PowerCut_ASecondOne_LosesNothingOfTheFirstRun)
{
    StartAndSettle();
    ChooseSomething();
    Choose();
    LosePowerAndStart();
    LosePowerAndStart();
    EXPECT_EQ(MainWindow().txtUserName.Text(), "Ann");
}

TEST_F(PowerStory, PowerCut_TheSplashWasChosen_ShowsItAtTheNextStart)
{
    StartAndSettle();
    MainWindow().chkShowSplash.SetValue(1);
    Choose();
    LosePower();
    bool seen = false;
    desktop.events.onYield = [&] { seen = seen || SplashWindow().Visible(); };
    Start();
    desktop.events.onYield = {};
    EXPECT_TRUE(seen);
}

TEST_F(PowerStory, PowerCut_NoDetectSwitchAtTheNextStart_TakesTheOptionsOver)
{
    StartAndSettle();
    ChooseSomething();
    Choose();
    LosePower();
    desktop.environment.commandLine = "/NODETECT";
    Start();
    EXPECT_EQ(MainWindow().txtUserName.Text(), "Ann");
}

TEST_F(PowerStory, PowerCut_AnotherCharacterLoaded_ComesAtTheNextStart)
{
    StartAndSettle();
    source.files["Tester.acs"] = source.standard;
    MainWindow().cboChar.SetText("Tester");
    MainWindow().cmdLoadChar.Click();
    Choose();
    LosePowerAndStart();
    EXPECT_EQ(character::State().currentID, "Tester");
}

TEST_F(PowerStory, CleanEnd_OptionsChanged_LeavesNothingBehind)
{
    StartAndSettle();
    ChooseSomething();
    Choose();
    EXPECT_TRUE(desktop.stateFile.kept.has_value());
    MainWindow().mnuFileExit.Click();

    EXPECT_FALSE(desktop.stateFile.kept.has_value());
    EXPECT_EQ(Option("UserName"), "Ann");
}

TEST_F(PowerStory, Report_AnsweredWithCancel_KeepsTheChoices)
{
    StartAndSettle();
    ChooseSomething();
    Choose();
    desktop.messageBoxes.answers = {platform::BoxAnswer::Cancel};
    EXPECT_THROW(bRead::ReadTextFile("C:\\gone.txt"), platform::CProgramEnded);
    LosePowerAndStart();
    EXPECT_EQ(MainWindow().txtUserName.Text(), "Ann");
}

TEST_F(PowerStory, Reset_PowerLostWhileItIsBeingTold_StaysReset)
{
    StartAndSettle();
    ChooseSomething();
    Choose();
    desktop.messageBoxes.answers = {platform::BoxAnswer::Yes};
    desktop.messageBoxes.whileShown = [&] {
        desktop.events.Pass(10'000);
        if (desktop.messageBoxes.Last().buttons == platform::BoxButtons::Ok)
            desktop.stateFile.LosePower();
    };
    MainWindow().mnuFileResetDefaults.Click();
    desktop.messageBoxes.whileShown = {};
    common::RenewProgramState();
    Start();

    EXPECT_EQ(MainWindow().txtUserName.Text(), "");
    EXPECT_EQ(MainWindow().chkQueueReadCommands.Value(), 1);
}

TEST_F(PowerStory, AnotherRunEndedLater_WhatItStoredStays)
{
    StartAndSettle();
    MainWindow().txtUserName.SetText("Ann");
    MainWindow().chkQueueReadCommands.SetValue(0);
    Choose();
    desktop.stateFile.LosePower();
    const std::vector<std::string> leftByTheFirst = std::exchange(desktop.stateFile.left, {});
    common::RenewProgramState();
    Start();  // It ran beside the first one.
    MainWindow().txtUserName.SetText("Bea");
    MainWindow().Unload();
    desktop.stateFile.left = leftByTheFirst;
    common::RenewProgramState();
    Start();

    EXPECT_EQ(MainWindow().txtUserName.Text(), "Bea");
    EXPECT_EQ(MainWindow().chkQueueReadCommands.Value(), 0);
}

}
