#include "settings/bOptions.h"
#include "settings/Paths.h"
#include "support/FailEachCall.h"
#include "support/LoadedCharacter.h"
#include <gtest/gtest.h>

namespace {

using bOptions::GetOption;
using bOptions::SetOption;
using platform::Root;

constexpr char Key[] = "Software\\Tarrowind\\Parlune";
constexpr char File[] = "C:\\Data\\Parlune.ini";

void Put(CHeadlessDesktop& desktop, const std::string& name, const std::string& text)
{
    desktop.registry.Put(Root::CurrentUser, Key, name, text);
}

void LoadRobby(CHeadlessDesktop& desktop)
{
    settings::Paths().settingsFile = File;
    support::LoadCharacter(desktop, "Robby");
}

}

TEST(bOptions, GetOption_AStoredText_IsReturned)
{
    CHeadlessDesktop desktop;
    Put(desktop, "UserName", "Ann");
    EXPECT_EQ(GetOption("UserName", ""), "Ann");
}

TEST(bOptions, GetOption_WithoutAnyOptionKey_GivesTheDefaultAndCreatesNothing)
{
    CHeadlessDesktop desktop;
    EXPECT_EQ(GetOption("CharTop", "-1"), "-1");
    EXPECT_FALSE(desktop.registry.HasKey(Root::CurrentUser, "Software"));
}

TEST(bOptions, GetOption_ValidatedTruthTexts_AreReturned)
{
    CHeadlessDesktop desktop;
    Put(desktop, "SayTime", "1");
    EXPECT_EQ(GetOption("SayTime", "0", /*validate*/ true), "1");
    Put(desktop, "SayTime", "0");
    EXPECT_EQ(GetOption("SayTime", "1", /*validate*/ true), "0");
}

TEST(bOptions, GetOption_ValidatedOtherTexts_GiveTheDefault)
{
    for (const char* text : {"TRUE", "2", "", "01", " 1", "-1"}) {
        CHeadlessDesktop desktop;
        Put(desktop, "SayTime", text);
        EXPECT_EQ(GetOption("SayTime", "0", /*validate*/ true), "0") << text;
    }
}

TEST(bOptions, GetOption_ValidatedAndMissing_GivesTheDefault)
{
    CHeadlessDesktop desktop;
    EXPECT_EQ(GetOption("SayTime", "0", /*validate*/ true), "0");
}

TEST(bOptions, GetOption_NotValidated_GivesAnyText)
{
    CHeadlessDesktop desktop;
    Put(desktop, "SayTime", "TRUE");
    EXPECT_EQ(GetOption("SayTime", "0"), "TRUE");
}

TEST(bOptions, GetOption_ASubPath_NamesAValueBelowTheOptionKey)
{
    CHeadlessDesktop desktop;
    desktop.registry.Put(Root::CurrentUser, "Software\\Tarrowind\\Parlune\\Group\\Inner", "Item", "7");
    EXPECT_EQ(GetOption("Group\\Inner\\Item", ""), "7");
}

TEST(bOptions, GetOption_ASubPath_IsPassedWithItsSeparatorAtTheEnd)
{
    CHeadlessDesktop desktop;
    GetOption("Group\\Item", "");
    EXPECT_EQ(desktop.journal.Calls(),
              std::vector<std::string>{"Registry.Open CurrentUser Software\\Tarrowind\\Parlune\\Group\\"});
}

TEST(bOptions, GetOption_WithoutASubPath_OpensTheOptionKeyItself)
{
    CHeadlessDesktop desktop;
    GetOption("Item", "");
    EXPECT_EQ(desktop.journal.Calls(), std::vector<std::string>{"Registry.Open CurrentUser Software\\Tarrowind\\Parlune"});
}

TEST(bOptions, GetOption_WhenTheRegistryRaises_GivesTheDefaultAndReportsTheRegistry)
{
    std::string value;
    support::FailEachCall([](CHeadlessDesktop& desktop) { Put(desktop, "SayTime", "1"); },
                          [&](CHeadlessDesktop&) { value = GetOption("SayTime", "0", /*validate*/ true); },
                          [&](const support::FailedRun& run) {
                              support::ExpectReport(run, {{"Registry.", "bRegistry:GetReg"}});
                              EXPECT_EQ(value, "0");
                          });
}

TEST(bOptions, SetOption_AnotherValue_IsWritten)
{
    CHeadlessDesktop desktop;
    Put(desktop, "UserName", "Ann");
    SetOption("UserName", "Bob");
    EXPECT_EQ(desktop.registry.Text(Root::CurrentUser, Key, "UserName"), "Bob");
}

TEST(bOptions, SetOption_AMissingOption_IsCreatedWithItsKeyPath)
{
    CHeadlessDesktop desktop;
    SetOption("UserName", "Ann");
    EXPECT_EQ(desktop.registry.Text(Root::CurrentUser, Key, "UserName"), "Ann");
}

TEST(bOptions, SetOption_TheStoredValue_IsNotWrittenAgain)
{
    CHeadlessDesktop desktop;
    Put(desktop, "UserName", "Ann");
    SetOption("UserName", "Ann");
    EXPECT_EQ(desktop.journal.Count("Registry.Create"), 0U);
    EXPECT_EQ(desktop.journal.Count("Registry.SetText"), 0U);
}

TEST(bOptions, SetOption_AnEmptyValueOfAMissingOption_IsNotWritten)
{
    CHeadlessDesktop desktop;
    SetOption("UserName", "");
    EXPECT_FALSE(desktop.registry.HasKey(Root::CurrentUser, Key));
    EXPECT_EQ(desktop.journal.Count("Registry.Create"), 0U);
}

TEST(bOptions, SetOption_AnEmptyValueOfAStoredOption_IsWritten)
{
    CHeadlessDesktop desktop;
    Put(desktop, "UserName", "Ann");
    SetOption("UserName", "");
    EXPECT_EQ(desktop.registry.Text(Root::CurrentUser, Key, "UserName"), "");
}

TEST(bOptions, SetOption_AnotherCase_IsWritten)
{
    CHeadlessDesktop desktop;
    Put(desktop, "UserName", "ann");
    SetOption("UserName", "Ann");
    EXPECT_EQ(desktop.registry.Text(Root::CurrentUser, Key, "UserName"), "Ann");
}

TEST(bOptions, SetOption_ANumber_IsWrittenAsDecimalText)
{
    CHeadlessDesktop desktop;
    SetOption("CharLeft", -120);
    EXPECT_EQ(desktop.registry.Text(Root::CurrentUser, Key, "CharLeft"), "-120");
}

TEST(bOptions, SetOption_ASubPath_IsCreatedBelowTheOptionKey)
{
    CHeadlessDesktop desktop;
    SetOption("Group\\Item", "7");
    EXPECT_EQ(desktop.registry.Text(Root::CurrentUser, "Software\\Tarrowind\\Parlune\\Group", "Item"), "7");
}

TEST(bOptions, SetOption_WhenTheRegistryRaises_ReportsTheOperationThatFailed)
{
    support::FailEachCallAndExpect(
        {{"Registry.Create", "bRegistry:SetReg"},
         {"Registry.SetText", "bRegistry:SetReg"},
         {"Registry.", "bRegistry:GetReg"}},
        [](CHeadlessDesktop& desktop) { Put(desktop, "UserName", "Ann"); },
        [](CHeadlessDesktop&) { SetOption("UserName", "Bob"); });
}

TEST(bOptions, SetOption_WhenReadingTheCurrentValueFails_StillWrites)
{
    CHeadlessDesktop desktop;
    Put(desktop, "UserName", "Ann");
    desktop.journal.FailNext("Registry.Open", platform::failure::DeviceError());

    SetOption("UserName", "Bob");

    EXPECT_EQ(desktop.registry.Text(Root::CurrentUser, Key, "UserName"), "Bob");
}

TEST(bOptions, GetCharOption_AValueOfTheLoadedCharacter_IsReadFromItsSection)
{
    CHeadlessDesktop desktop;
    LoadRobby(desktop);
    desktop.profile.Put(File, "Robby", "FontName", "Arial");
    EXPECT_EQ(bOptions::GetCharOption("FontName", "x"), "Arial");
}

TEST(bOptions, GetCharOption_AMissingValue_GivesTheDefault)
{
    CHeadlessDesktop desktop;
    LoadRobby(desktop);
    desktop.profile.Put(File, "Merlin", "FontName", "Arial");
    EXPECT_EQ(bOptions::GetCharOption("FontName", "x"), "x");
}

TEST(bOptions, SetCharOption_AValue_IsWrittenIntoTheCharactersSection)
{
    CHeadlessDesktop desktop;
    LoadRobby(desktop);
    bOptions::SetCharOption("{ca141fd0-ac7f-11d1-97a3-006008273000}", "11000,150,100,32767,0,2");
    EXPECT_EQ(desktop.profile.Value(File, "Robby", "{ca141fd0-ac7f-11d1-97a3-006008273000}"), "11000,150,100,32767,0,2");
}

TEST(bOptions, SetCharOption_AnEmptyValue_RemovesTheKeyFromTheCharactersSection)
{
    CHeadlessDesktop desktop;
    LoadRobby(desktop);
    desktop.profile.Put(File, "Robby", "FontName", "Arial");
    bOptions::SetCharOption("FontName", "");
    EXPECT_FALSE(desktop.profile.Value(File, "Robby", "FontName").has_value());
    EXPECT_TRUE(desktop.profile.HasSection(File, "Robby"));
}

TEST(bOptions, GetCharOption_WithoutACharacter_FailsAtItsCallers)
{
    CHeadlessDesktop desktop;
    EXPECT_THROW(bOptions::GetCharOption("FontName", ""), platform::CFailure);
    EXPECT_THROW(bOptions::SetCharOption("FontName", "Arial"), platform::CFailure);
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST(bOptions, GetCharOption_WhenTheCharactersNameFails_FailsAtItsCallers)
{
    CHeadlessDesktop desktop;
    LoadRobby(desktop);
    desktop.journal.FailNext("Character.Name", platform::failure::DeviceError());
    EXPECT_THROW(bOptions::GetCharOption("FontName", ""), platform::CFailure);
}

TEST(bOptions, SetCharOption_WhenTheSettingsFileRaises_IsReportedByTheProfile)
{
    CHeadlessDesktop desktop;
    LoadRobby(desktop);
    desktop.journal.FailNext("Profile.Write", platform::failure::DeviceError());

    bOptions::SetCharOption("FontName", "Arial");

    EXPECT_EQ(desktop.messageBoxes.Last().Line(1), "Section: bProfile:SetProfile");
}
