#include "ui/CharacterTab.h"
#include "platform/headless/Files.h"
#include "settings/bOptions.h"
#include "support/FailEachCall.h"
#include "support/WiredTabs.h"

namespace {

using platform::Root;
using Texts = std::vector<std::string>;

constexpr char OptionKey[] = "Software\\Tarrowind\\Parlune";

class CharacterTab : public WiredTabs {
protected:
    Texts Listed() const
    {
        Texts names;
        for (std::int32_t index = 0; index < window.cboChar.Count(); ++index)
            names.push_back(window.cboChar.Item(index));
        return names;
    }
    void Select(const std::string& entry)
    {
        window.cboChar.SetText(entry);
        window.cmdLoadChar.Click();
    }
    std::optional<std::string> Option(const std::string& name) const
    {
        return desktop.registry.Text(Root::CurrentUser, OptionKey, name);
    }
    std::size_t Loads() const { return desktop.journal.Count("Characters.Load"); }
    std::size_t Sheets() const { return desktop.journal.Count("Engine.ShowDefaultCharacterProperties"); }
};

}

TEST_F(CharacterTab, cmdLoadChar_Click_LoadsAndShowsTheListedOne)
{
    Select("Genie");
    EXPECT_EQ(desktop.journal.CallsOf("Characters.Load"), Texts{"Characters.Load Bot Genie.acs"});
    EXPECT_TRUE(Loaded().visible);
    EXPECT_EQ(window.cboChar.Text(), "Genie");
}

TEST_F(CharacterTab, cmdLoadChar_Click_OfTheDefaultWhileAnotherIsLoaded_LoadsTheDefault)
{
    LoadMerlin();
    Select("(Default Character)");
    EXPECT_EQ(desktop.journal.CallsOf("Characters.Load"), Texts{"Characters.Load Bot -"});
    EXPECT_EQ(Loaded().name, "(Default Character)");
    EXPECT_TRUE(Loaded().visible);
    EXPECT_EQ(Sheets(), 0U);
}

TEST_F(CharacterTab, cmdLoadChar_Click_OfTheDefaultWhileItIsLoaded_OpensItsSheetAndLoadsNothing)
{
    character::CharLoad("(Default Character)", /*show*/ true);
    desktop.journal.Clear();
    Select("(Default Character)");
    EXPECT_EQ(Sheets(), 1U);
    EXPECT_EQ(Loads(), 0U);
    EXPECT_EQ(window.cboChar.Text(), "(Default Character)");
}

TEST_F(CharacterTab, cmdLoadChar_Click_OfTheDefaultWhileNoneIsLoaded_LoadsItWithoutReport)
{
    Select("(Default Character)");
    EXPECT_EQ(Loads(), 1U);
    EXPECT_EQ(Loaded().name, "(Default Character)");
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST_F(CharacterTab, cmdLoadChar_Click_OfAMissingFile_ShowsTheCharacterThatStandsIn)
{
    desktop.engine.missingFiles = {"Nobody.acs"};
    desktop.engine.character.name = "Robby";
    Select("Nobody");
    EXPECT_EQ(window.cboChar.Text(), "Robby");
    EXPECT_EQ(Listed(), Texts{"Robby"});
}

TEST_F(CharacterTab, cmdLoadChar_Click_WhenNoneCanBeLoaded_KeepsTheListSilently)
{
    desktop.journal.FailAlways("Characters.Load", platform::CFailure(platform::engineError::NoStandardCharacter, "none"));
    Select("Genie");
    EXPECT_EQ(window.cboChar.Text(), "Genie");
    EXPECT_TRUE(Listed().empty());
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST_F(CharacterTab, cmdLoadChar_Click_WhenTheIdentityFails_IsReportedAndLoadsNothing)
{
    LoadMerlin();
    desktop.journal.FailNext("Character.Name", failure);
    Select("(Default Character)");
    EXPECT_EQ(Reports(), Texts{"Parlune:cmdLoadChar_Click"});
    EXPECT_EQ(desktop.messageBoxes.Last().Line(3), "Error Code: 13");
    EXPECT_EQ(Loads(), 0U);
    EXPECT_EQ(window.cboChar.Text(), "Merlin");
}

TEST_F(CharacterTab, ShowLoadedCharacter_OfAFile_ShowsItsNameWithoutFolder)
{
    character::CharLoad("D:\\Friends\\Fox.acs", /*show*/ false);
    characterTab::ShowLoadedCharacter();
    EXPECT_EQ(window.cboChar.Text(), "Fox.acs");
    EXPECT_EQ(Listed(), Texts{"Fox.acs"});
}

TEST_F(CharacterTab, ShowLoadedCharacter_OfAListedOne_DoesNotListItTwice)
{
    window.cboChar.Add("(Default Character)");
    window.cboChar.Add("Merlin");
    LoadMerlin();
    characterTab::ShowLoadedCharacter();
    EXPECT_EQ(Listed(), (Texts{"(Default Character)", "Merlin"}));
    EXPECT_EQ(window.cboChar.Index(), 1);
}

TEST_F(CharacterTab, ShowLoadedCharacter_OfTheOneThatIsShown_AddsNothing)
{
    LoadMerlin();
    window.cboChar.SetText("Merlin");
    characterTab::ShowLoadedCharacter();
    EXPECT_TRUE(Listed().empty());
}

TEST_F(CharacterTab, cboBrowseChar_Click_AsksForACharacterFile)
{
    window.cboBrowseChar.Click();
    ASSERT_EQ(desktop.fileDialogs.asked.size(), 1U);
    const platform::FileDialog& dialog = desktop.fileDialogs.asked[0];
    EXPECT_EQ(dialog.mode, platform::FileDialog::Mode::Open);
    EXPECT_EQ(dialog.filter, std::string("Agent Characters (*.acs)\0*.acs", 30));
    EXPECT_EQ(dialog.defaultExtension, "ACS");
    EXPECT_EQ(dialog.title, "Select Agent Character");
    EXPECT_EQ(dialog.initialFile, "");
    EXPECT_TRUE(dialog.fileMustExist);
}

TEST_F(CharacterTab, cboBrowseChar_Click_TheFirstTime_StartsInTheCharacterFolder)
{
    window.cboBrowseChar.Click();
    EXPECT_EQ(desktop.fileDialogs.asked.at(0).initialFolder, "C:\\WINDOWS\\MSAgent\\Chars\\");
}

TEST_F(CharacterTab, cboBrowseChar_Click_Later_StartsInTheLastFolder)
{
    settings::Options().LastCharFolder = "D:\\Friends\\";
    window.cboBrowseChar.Click();
    EXPECT_EQ(desktop.fileDialogs.asked.at(0).initialFolder, "D:\\Friends\\");
}

TEST_F(CharacterTab, cboBrowseChar_Click_OfAFile_LoadsShowsAndListsIt)
{
    desktop.fileDialogs.answers = {"D:\\Friends\\Fox.acs"};
    window.cboBrowseChar.Click();
    EXPECT_EQ(settings::Options().LastCharFolder, "D:\\Friends\\");
    EXPECT_EQ(desktop.journal.CallsOf("Characters.Load"), Texts{"Characters.Load Bot D:\\Friends\\Fox.acs"});
    EXPECT_TRUE(Loaded().visible);
    EXPECT_EQ(window.cboChar.Text(), "Fox.acs");
}

TEST_F(CharacterTab, cboBrowseChar_Click_Cancelled_ChangesNothing)
{
    LoadMerlin();
    window.cboChar.SetText("Genie");
    settings::Options().LastCharFolder = "D:\\Friends\\";
    window.cboBrowseChar.Click();
    EXPECT_EQ(settings::Options().LastCharFolder, "D:\\Friends\\");
    EXPECT_EQ(window.cboChar.Text(), "Genie");
    EXPECT_EQ(Loads(), 0U);
}

TEST_F(CharacterTab, cboBrowseChar_Click_WhenTheDialogFails_IsReportedAndChangesNothing)
{
    desktop.journal.FailNext("FileDialogs.Ask", failure);
    window.cboBrowseChar.Click();
    EXPECT_EQ(Reports(), Texts{"bGetFileName:GetFileName"});
    EXPECT_EQ(Loads(), 0U);
}

TEST_F(CharacterTab, cmdSaveCurrentPos_Click_StoresThePositionAtOnce)
{
    LoadMerlin();
    Loaded().left = 300;
    Loaded().top = -40;
    window.chkSavePosOnClose.SetValue(0);
    window.cmdSaveCurrentPos.Click();
    EXPECT_EQ(settings::Options().CharLeft, 300);
    EXPECT_EQ(settings::Options().CharTop, -40);
    EXPECT_EQ(Option("CharLeft"), "300");
    EXPECT_EQ(Option("CharTop"), "-40");
}

TEST_F(CharacterTab, cmdSaveCurrentPos_Click_WithoutACharacter_DoesNothing)
{
    settings::Options().CharLeft = 7;
    window.cmdSaveCurrentPos.SetEnabled(true);
    window.cmdSaveCurrentPos.Click();
    EXPECT_EQ(settings::Options().CharLeft, 7);
    EXPECT_TRUE(desktop.journal.Calls().empty());
}

TEST_F(CharacterTab, cmdSaveCurrentPos_Click_WhenLeftFails_StoresTheFormerLeftAndTheNewTop)
{
    LoadMerlin();
    settings::Options().CharLeft = 7;
    Loaded().top = 50;
    desktop.journal.FailNext("Character.Left", failure);
    characterTab::cmdSaveCurrentPos_Click();
    EXPECT_EQ(Reports(), Texts{"Parlune:cmdSaveCurrentPos_Click"});
    EXPECT_EQ(Option("CharLeft"), "7");
    EXPECT_EQ(Option("CharTop"), "50");
}

TEST_F(CharacterTab, chkSavePosOnClose_Click_Ticked_DisablesSavingThePosition)
{
    window.chkSavePosOnClose.SetValue(1);
    EXPECT_FALSE(window.cmdSaveCurrentPos.Enabled());
}

TEST_F(CharacterTab, chkSavePosOnClose_Click_Cleared_EnablesSavingThePosition)
{
    window.chkSavePosOnClose.SetValue(0);
    EXPECT_TRUE(window.cmdSaveCurrentPos.Enabled());
}

TEST_F(CharacterTab, chkSavePosOnClose_Click_WhenTheButtonFails_IsReported)
{
    window.cmdSaveCurrentPos.SetPeer([this] { throw failure; });
    window.chkSavePosOnClose.SetValue(0);
    EXPECT_EQ(Reports(), Texts{"Parlune:chkSavePosOnClose_Click"});
}

TEST_F(CharacterTab, chkIdleOn_Click_SetsTheCharactersSwitch)
{
    LoadMerlin();
    window.chkIdleOn.SetValue(0);
    EXPECT_FALSE(Loaded().idleOn);
    window.chkIdleOn.SetValue(2);
    EXPECT_TRUE(Loaded().idleOn);
}

TEST_F(CharacterTab, chkSoundEffectsOn_Click_SetsTheCharactersSwitch)
{
    LoadMerlin();
    window.chkSoundEffectsOn.SetValue(0);
    EXPECT_FALSE(Loaded().soundEffectsOn);
    window.chkSoundEffectsOn.SetValue(2);
    EXPECT_TRUE(Loaded().soundEffectsOn);
}

TEST_F(CharacterTab, cmdCharacterOptions_Click_OpensTheEnginesSheet)
{
    LoadMerlin();
    window.cmdCharacterOptions.Click();
    EXPECT_TRUE(desktop.engine.propertySheetVisible);
}

TEST_F(CharacterTab, cmdSetDefault_Click_OpensTheChoiceOfTheDefault)
{
    LoadMerlin();
    window.cmdSetDefault.Click();
    EXPECT_EQ(Sheets(), 1U);
}

TEST_F(CharacterTab, SilentControls_WithoutACharacter_DoNothing)
{
    window.chkIdleOn.SetValue(0);
    window.chkSoundEffectsOn.SetValue(0);
    window.cmdCharacterOptions.Click();
    window.cmdSetDefault.Click();
    EXPECT_TRUE(desktop.journal.Calls().empty());
}

TEST_F(CharacterTab, SilentControls_WhenTheEngineFails_ReportNothing)
{
    LoadMerlin();
    desktop.journal.FailAlways("Character.", failure);
    desktop.journal.FailAlways("Engine.", failure);
    window.chkIdleOn.SetValue(0);
    window.chkSoundEffectsOn.SetValue(0);
    window.cmdCharacterOptions.Click();
    window.cmdSetDefault.Click();
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

namespace {

void LoadBeforeTheTest(CHeadlessDesktop&)
{
    settings::Paths().settingsFile = "C:\\Data\\Parlune.ini";
    character::CharLoad("Merlin", /*show*/ true);
}

}

TEST(CharacterTabFailures, cmdSaveCurrentPos_Click_WhicheverCallFails_IsReportedByItsProcedure)
{
    int registryCalls = 0;
    support::FailEachCall(
        LoadBeforeTheTest, [](CHeadlessDesktop&) { characterTab::cmdSaveCurrentPos_Click(); },
        [&](const support::FailedRun& run) {
            if (run.FailedIn("Character."))
                support::ExpectReport(run, {{"", "Parlune:cmdSaveCurrentPos_Click"}});
            else
                EXPECT_TRUE(run.Reports() == Texts{"bRegistry:GetReg"} || run.Reports() == Texts{"bRegistry:SetReg"});
            registryCalls += run.FailedIn("Registry.") ? 1 : 0;
        });
    EXPECT_GT(registryCalls, 0);
}
