#include "startup/StartedProgram.h"
#include "startup/bInit.h"

namespace {

// The main window's load procedure calls bInit::Initialize; here it is called alone.
class Initialize : public testing::Test, public StartedProgram {
protected:
    Initialize() { MainWindow().onLoad = nullptr; }
};

std::vector<std::string> Entries(const ui::CListControl& list)
{
    std::vector<std::string> entries;
    for (std::int32_t index = 0; index < list.Count(); ++index)
        entries.push_back(list.Item(index));
    return entries;
}

TEST_F(Initialize, NoOfficeApplications_HidesTheirMenuEntries)
{
    bInit::Initialize();
    EXPECT_FALSE(MainWindow().mnuPopReadWordDocument.Visible());
    EXPECT_FALSE(MainWindow().mnuPopReadWordSelection.Visible());
    EXPECT_FALSE(MainWindow().mnuPopReadExcelSelection.Visible());
}

TEST_F(Initialize, WordRegistered_ShowsBothWordEntriesOnly)
{
    desktop.registry.Put(platform::Root::ClassesRoot, "Word.Application\\CLSID", "",
                         "{000209FF-0000-0000-C000-000000000046}");
    bInit::Initialize();
    EXPECT_TRUE(MainWindow().mnuPopReadWordDocument.Visible());
    EXPECT_TRUE(MainWindow().mnuPopReadWordSelection.Visible());
    EXPECT_FALSE(MainWindow().mnuPopReadExcelSelection.Visible());
    EXPECT_EQ(desktop.journal.Count("Office."), 0U);
}

TEST_F(Initialize, ExcelRegistered_ShowsTheExcelEntryOnly)
{
    desktop.registry.Put(platform::Root::ClassesRoot, "Excel.Application\\CLSID", "",
                         "{00024500-0000-0000-C000-000000000046}");
    bInit::Initialize();
    EXPECT_FALSE(MainWindow().mnuPopReadWordDocument.Visible());
    EXPECT_TRUE(MainWindow().mnuPopReadExcelSelection.Visible());
}

TEST_F(Initialize, Always_HidesThePopupEntrySkipAndPause)
{
    bInit::Initialize();
    EXPECT_FALSE(MainWindow().mnuPopup.Visible());
    EXPECT_FALSE(MainWindow().mnuPopCharSkip.Visible());
    EXPECT_FALSE(MainWindow().mnuPopCharPause.Visible());
}

TEST_F(Initialize, Always_SelectsTheFirstTabOfEveryStrip)
{
    MainWindow().tabMain.Select(2);
    MainWindow().tabTTS.Select(1);
    MainWindow().tabGreetings.Select(4);
    bInit::Initialize();
    EXPECT_EQ(MainWindow().tabMain.Selected(), 0);
    EXPECT_EQ(MainWindow().tabTTS.Selected(), 0);
    EXPECT_EQ(MainWindow().tabGreetings.Selected(), 0);
}

TEST_F(Initialize, Always_ShowsTheFullVersionOnTheAboutPage)
{
    bInit::Initialize();
    EXPECT_EQ(MainWindow().lblVersion.Caption(), "Version 2.6.3");
}

TEST_F(Initialize, Always_OffersThreeAnnouncements)
{
    bInit::Initialize();
    EXPECT_EQ(Entries(MainWindow().cboSayTime),
              (std::vector<std::string>{"The time is now {Time}.", "Good {TimeOfDay}!  It is now {Time}.",
                                        "It is now {Time} on {Date}."}));
}

TEST_F(Initialize, Always_OffersThreeTimeFormats)
{
    bInit::Initialize();
    EXPECT_EQ(Entries(MainWindow().cboSayTimeFormat), (std::vector<std::string>{"h:nn AM/PM", "h:nn", "hh:nn"}));
}

TEST_F(Initialize, Always_PutsAllFourVoiceCharactersIntoOneList)
{
    bInit::Initialize();
    EXPECT_EQ(Entries(MainWindow().cboChr), (std::vector<std::string>{"Monotone", "Whisper", "Email", "Address"}));
    EXPECT_EQ(MainWindow().cboCtx.Count(), 0);
}

TEST_F(Initialize, Always_KeepsTheTextsOfTheListsItFills)
{
    bInit::Initialize();
    EXPECT_EQ(MainWindow().cboSayTime.Text(), "The time is now {Time}");
    EXPECT_EQ(MainWindow().cboSayTimeFormat.Text(), "h:mm AM/PM");
}

TEST_F(Initialize, Always_ListsTheCharacters)
{
    bInit::Initialize();
    EXPECT_EQ(Entries(MainWindow().cboChar), (std::vector<std::string>{"(Default Character)", "Merlin"}));
}

// The order shows in what is there when a step asks its first question of the system.
TEST_F(Initialize, Always_SettlesTheFoldersThenReadsTheOptionsThenListsTheCharacters)
{
    bInit::Initialize();
    const auto& calls = desktop.journal.Calls();
    const auto first = [&](const char* beginning) {
        return std::find_if(calls.begin(), calls.end(),
                            [&](const std::string& call) { return call.starts_with(beginning); });
    };
    const std::string optionKey = std::string("Registry.Open CurrentUser ") + OptionKey;
    const auto lastOption = std::find(calls.rbegin(), calls.rend(), optionKey).base();
    ASSERT_NE(first("Files.Match"), calls.end());
    EXPECT_LT(first("Environment.Variable APPDATA"), first(optionKey.c_str()));
    EXPECT_LT(lastOption, first("Files.Match"));
    EXPECT_LT(first("Files.Match"), first("Registry.Open ClassesRoot Word.Application"));
}

}
