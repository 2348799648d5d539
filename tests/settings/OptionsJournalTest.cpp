#include "settings/OptionsJournal.h"
#include "common/ProgramState.h"
#include "settings/ChoiceRecords.h"
#include "settings/OptionsRecord.h"
#include "settings/bOptions.h"
#include "support/LoadedCharacter.h"
#include "ui/EditorDocument.h"
#include "ui/frmParlune.h"
#include <algorithm>
#include <gtest/gtest.h>

namespace {

using platform::Root;
using settings::Choice;
using settings::Options;

constexpr char Key[] = "Software\\Tarrowind\\Parlune";

class OptionsJournal : public testing::Test {
protected:
    OptionsJournal() { BeginRun(); }

    void BeginRun()
    {
        MainWindow().onControlChange = optionsJournal::Hint;
        bOptions::GetOptions();
        optionsJournal::Begin();
        desktop.journal.Clear();
        desktop.messageBoxes.shown.clear();
    }
    // The run ends in the middle; the next one takes over what it left.
    void LosePowerAndTakeOver()
    {
        desktop.stateFile.LosePower();
        common::RenewProgramState();
        desktop.journal.Clear();
        optionsJournal::TakeOver();
    }
    void Leave(const std::vector<Choice>& choices) { desktop.stateFile.left.push_back(settings::WriteChoices(choices)); }
    void Put(const std::string& name, const std::string& text) { desktop.registry.Put(Root::CurrentUser, Key, name, text); }
    std::optional<std::string> Stored(const std::string& name) const
    {
        return desktop.registry.Text(Root::CurrentUser, Key, name);
    }
    std::vector<Choice> Kept() const { return settings::ReadChoices(desktop.stateFile.kept.value_or("")); }
    // What is kept for an option; nothing when it is not among them.
    std::optional<std::string> Kept(const std::string& key) const
    {
        for (const Choice& choice : Kept())
            if (choice.key == key)
                return choice.chosen;
        return std::nullopt;
    }
    std::size_t RegistryCalls() const { return desktop.journal.Count("Registry."); }

    CHeadlessDesktop desktop;
};

TEST_F(OptionsJournal, Look_NothingChanged_KeepsNothing)
{
    EXPECT_FALSE(optionsJournal::Look());
    EXPECT_FALSE(desktop.stateFile.kept.has_value());
}

TEST_F(OptionsJournal, Look_AnOptionChanged_KeepsExactlyWhatTheWriterWrites)
{
    support::LoadCharacter(desktop, "Robby");
    for (ui::CTextBox& greeting : MainWindow().txtGreeting)
        greeting.SetText("Hello");
    for (ui::CComboBox& animation : MainWindow().cboAnim)
        animation.SetText("Wave");
    MainWindow().txtUserName.SetText("Ann");
    MainWindow().chkShowSplash.SetValue(1);
    Options() = {
        .Character = "Robby", .CharWidth = 120, .CharHeight = 90, .LastFolder = "C:\\T\\", .LastCharFolder = "C:\\C\\"};
    ui::Document().currentFile = "C:\\T\\a.txt";
    ASSERT_TRUE(optionsJournal::Look());
    const std::vector<Choice> kept = Kept();

    bOptions::SetOptions();

    EXPECT_EQ(kept.size(), 38U);
    std::vector<std::string> written = desktop.journal.CallsOf("Registry.SetText ");
    ASSERT_EQ(kept.size(), written.size());
    for (std::size_t index = 0; index < kept.size(); ++index) {
        EXPECT_TRUE(written[index].starts_with("Registry.SetText " + kept[index].key)) << written[index];
        EXPECT_EQ(Stored(kept[index].key), kept[index].chosen);
    }
}

TEST_F(OptionsJournal, Look_AClearedGreeting_IsNotAmongThem)
{
    MainWindow().txtGreeting[2].SetText("Hello");
    optionsJournal::Look();
    EXPECT_EQ(Kept("Greeting3"), "Hello");
    MainWindow().txtGreeting[2].SetText("");
    optionsJournal::Look();

    EXPECT_EQ(Kept("Greeting3"), std::nullopt);
    EXPECT_EQ(Kept("GreetingAnimation3"), "");
}

TEST_F(OptionsJournal, Look_WithoutACharacter_KeepsNoSize)
{
    Options().CharWidth = 120;
    optionsJournal::Look();
    EXPECT_EQ(Kept("UserName"), "");
    EXPECT_EQ(Kept("CharWidth"), std::nullopt);
}

TEST_F(OptionsJournal, Look_ThePosition_IsNeverAmongThem)
{
    support::LoadCharacter(desktop, "Robby");
    Options().CharLeft = 300;
    MainWindow().txtUserName.SetText("Ann");
    desktop.journal.Clear();
    optionsJournal::Look();

    EXPECT_EQ(Kept("UserName"), "Ann");
    EXPECT_EQ(Kept("CharLeft"), std::nullopt);
    EXPECT_EQ(Kept("CharTop"), std::nullopt);
    EXPECT_TRUE(desktop.journal.Calls().empty());
}

TEST_F(OptionsJournal, Look_AfterTheFirstChange_TheNextStartIsNotTheFirst)
{
    MainWindow().chkSayTime.SetValue(0);
    optionsJournal::Look();
    EXPECT_EQ(Kept("FirstTime"), "0");
}

TEST_F(OptionsJournal, Hint_AControlChanges_IsKeptWhenTheEventIsOver)
{
    MainWindow().chkSayTime.SetValue(0);
    EXPECT_EQ(desktop.stateFile.keeps, 0U);
    desktop.events.Pass(0);

    EXPECT_EQ(Kept("SayTime"), "0");
    EXPECT_EQ(RegistryCalls(), 0U);
}

TEST_F(OptionsJournal, Hint_ANativeBoxIsEdited_IsKept)
{
    std::string typed;
    ui::CTextBox::Keeper keeper;
    keeper.put = [](const std::string&) {};
    keeper.text = [&] { return typed; };
    keeper.isEmpty = [&] { return typed.empty(); };
    keeper.select = [](ui::TextSelection) {};
    MainWindow().txtUserName.SetKeeper(std::move(keeper));
    typed = "Ann";
    MainWindow().txtUserName.Edited();
    desktop.events.Pass(0);

    EXPECT_EQ(Kept("UserName"), "Ann");
    MainWindow().txtUserName.SetKeeper({});
}

TEST_F(OptionsJournal, Hint_AFieldOfTheRecordChanges_IsKept)
{
    Options().LastFolder = "C:\\Texts\\";
    desktop.events.Pass(0);
    EXPECT_EQ(Kept("LastFolder"), "C:\\Texts\\");
}

TEST_F(OptionsJournal, Hint_TheDocumentChanges_IsKept)
{
    ui::Document().currentFile = "C:\\Texts\\a.txt";
    desktop.events.Pass(0);
    EXPECT_EQ(Kept("FileName"), "C:\\Texts\\a.txt");
}

TEST_F(OptionsJournal, Hint_AHundredChangesInTwoSeconds_AreKeptTwiceASecondAndTheLastOneStays)
{
    for (int change = 1; change <= 100; ++change) {
        MainWindow().txtTestText.SetText(std::to_string(change));
        desktop.events.Pass(20);
    }
    EXPECT_LE(desktop.stateFile.keeps, 5U);
    desktop.events.Pass(500);

    EXPECT_EQ(Kept("TTSTestText"), "100");
}

TEST_F(OptionsJournal, Hint_AfterTheLastChange_NothingIsKeptAgain)
{
    MainWindow().chkSayTime.SetValue(0);
    desktop.events.Pass(10'000);
    EXPECT_EQ(desktop.stateFile.keeps, 1U);
    MainWindow().chkSayTime.SetValue(0);  // As it is.
    desktop.events.Pass(10'000);
    EXPECT_EQ(desktop.stateFile.keeps, 1U);
}

TEST_F(OptionsJournal, Hint_AChangeAfterALongRest_IsKeptAtOnce)
{
    MainWindow().chkSayTime.SetValue(0);
    desktop.events.Pass(10'000);
    MainWindow().chkSayTime.SetValue(1);
    desktop.events.Pass(0);
    EXPECT_EQ(Kept("SayTime"), "1");
}

TEST_F(OptionsJournal, Hint_BeforeBegin_KeepsNothing)
{
    common::RenewProgramState();
    MainWindow().onControlChange = optionsJournal::Hint;
    MainWindow().chkSayTime.SetValue(0);
    desktop.events.Pass(10'000);
    EXPECT_EQ(desktop.stateFile.keeps, 0U);
}

TEST_F(OptionsJournal, Look_TheFileCannotBeWritten_IsNotReportedAndTriedAtTheNextChange)
{
    desktop.stateFile.refuses = true;
    MainWindow().txtUserName.SetText("Ann");
    optionsJournal::Look();
    desktop.stateFile.refuses = false;
    MainWindow().chkSayTime.SetValue(0);
    optionsJournal::Look();

    EXPECT_EQ(Kept("UserName"), "Ann");
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST_F(OptionsJournal, Close_TheStoreHasEverything_RemovesTheFile)
{
    MainWindow().txtUserName.SetText("Ann");
    optionsJournal::Look();
    bOptions::SetOptions();
    optionsJournal::Close();

    EXPECT_FALSE(desktop.stateFile.kept.has_value());
}

TEST_F(OptionsJournal, Close_TheStoreRefused_KeepsTheChoices)
{
    MainWindow().txtUserName.SetText("Ann");
    desktop.registry.RefuseToWrite(true);
    bOptions::SetOptions();
    optionsJournal::Close();

    EXPECT_EQ(Kept("UserName"), "Ann");
}

TEST_F(OptionsJournal, Close_AfterIt_NothingIsKept)
{
    bOptions::SetOptions();
    optionsJournal::Close();
    MainWindow().txtUserName.SetText("Ann");
    desktop.events.Pass(10'000);
    EXPECT_EQ(desktop.stateFile.keeps, 0U);
}

TEST_F(OptionsJournal, Forget_AfterAChange_LeavesNothing)
{
    MainWindow().txtUserName.SetText("Ann");
    optionsJournal::Look();
    optionsJournal::Forget();
    MainWindow().chkSayTime.SetValue(0);
    desktop.events.Pass(10'000);

    EXPECT_FALSE(desktop.stateFile.kept.has_value());
}

TEST_F(OptionsJournal, TakeOver_NothingLeft_AsksTheStoreNothing)
{
    desktop.journal.Clear();
    optionsJournal::TakeOver();
    EXPECT_TRUE(desktop.journal.Calls().empty());
}

TEST_F(OptionsJournal, TakeOver_OnAFreshStore_GivesWhatACleanEndGives)
{
    MainWindow().txtUserName.SetText("Ann");
    MainWindow().chkMinimizeOnClose.SetValue(0);
    optionsJournal::Look();
    const std::vector<Choice> kept = Kept();
    LosePowerAndTakeOver();

    for (const Choice& choice : kept)
        EXPECT_EQ(Stored(choice.key).value_or(""), choice.chosen) << choice.key;
    EXPECT_EQ(Stored("UserName"), "Ann");
    EXPECT_EQ(Stored("MinimizeOnClose"), "0");
    EXPECT_EQ(Stored("FirstTime"), "0");
    EXPECT_TRUE(desktop.stateFile.left.empty());
}

TEST_F(OptionsJournal, TakeOver_ValuesThatAreStoredAlready_AreNotWrittenAgain)
{
    bOptions::SetOptions();
    MainWindow().txtUserName.SetText("Ann");
    optionsJournal::Look();
    LosePowerAndTakeOver();

    EXPECT_EQ(desktop.journal.CallsOf("Registry.SetText "), std::vector<std::string>{"Registry.SetText UserName Ann"});
}

TEST_F(OptionsJournal, TakeOver_AClearedGreeting_KeepsItsStoredText)
{
    Put("Greeting3", "Hello");
    BeginRun();
    MainWindow().txtGreeting[2].SetText("");
    optionsJournal::Look();
    LosePowerAndTakeOver();
    EXPECT_EQ(Stored("Greeting3"), "Hello");
}

TEST_F(OptionsJournal, TakeOver_AnOptionStoredLater_Stays)
{
    MainWindow().txtUserName.SetText("Ann");
    MainWindow().chkSayTime.SetValue(0);
    optionsJournal::Look();
    Put("UserName", "Bea");  // By the clean end of another run.
    LosePowerAndTakeOver();

    EXPECT_EQ(Stored("UserName"), "Bea");
    EXPECT_EQ(Stored("SayTime"), "0");
}

TEST_F(OptionsJournal, TakeOver_AnOptionStoredByTheSameRun_DoesNotCountAsLater)
{
    bOptions::SetOption("SayTime", "0");
    MainWindow().chkSayTime.SetValue(0);
    optionsJournal::Look();
    MainWindow().chkSayTime.SetValue(1);
    optionsJournal::Look();
    LosePowerAndTakeOver();
    EXPECT_EQ(Stored("SayTime"), "1");
}

TEST_F(OptionsJournal, TakeOver_AStoredTextThatIsNoTruthValue_CountsAsMissing)
{
    Put("SayTime", "maybe");
    BeginRun();
    MainWindow().chkSayTime.SetValue(0);
    optionsJournal::Look();
    LosePowerAndTakeOver();
    EXPECT_EQ(Stored("SayTime"), "0");
}

TEST_F(OptionsJournal, TakeOver_OtherNames_AreNotWritten)
{
    Leave({{"SkipAgentDetect", "", "1"},
           {"Sub\\UserName", "", "x"},
           {"CharLeft", "-1", "5"},
           {"username", "", "x"},
           {"", "", "x"},
           {"UserName", "", "Ann"}});
    optionsJournal::TakeOver();

    EXPECT_EQ(desktop.journal.CallsOf("Registry.SetText "), std::vector<std::string>{"Registry.SetText UserName Ann"});
}

TEST_F(OptionsJournal, TakeOver_ADamagedFile_GivesWhatIsWholeAndTheFileGoes)
{
    const std::string whole = settings::WriteChoices({{"UserName", "", "Ann"}, {"SayTime", "1", "0"}});
    desktop.stateFile.left = {whole.substr(0, whole.size() - 3), "rubbish", std::string()};
    optionsJournal::TakeOver();

    EXPECT_EQ(Stored("UserName"), "Ann");
    EXPECT_EQ(Stored("SayTime"), std::nullopt);
    EXPECT_TRUE(desktop.stateFile.left.empty());
}

TEST_F(OptionsJournal, TakeOver_TheStoreRefuses_LeavesTheFile)
{
    Leave({{"UserName", "", "Ann"}});
    desktop.registry.RefuseToWrite(true);
    optionsJournal::TakeOver();
    EXPECT_EQ(desktop.stateFile.left.size(), 1U);
    desktop.registry.RefuseToWrite(false);
    optionsJournal::TakeOver();

    EXPECT_EQ(Stored("UserName"), "Ann");
    EXPECT_TRUE(desktop.stateFile.left.empty());
}

TEST_F(OptionsJournal, TakeOver_TwoRunsThatLostPower_GivesTheChoicesOfBoth)
{
    Leave({{"UserName", "", "Ann"}, {"SayTime", "1", "1"}});
    Leave({{"UserName", "", ""}, {"SayTime", "1", "0"}});
    optionsJournal::TakeOver();

    EXPECT_EQ(Stored("UserName"), "Ann");
    EXPECT_EQ(Stored("SayTime"), "0");
}

}
