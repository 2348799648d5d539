#include "character/CharacterSession.h"
#include "character/CharacterState.h"
#include "character/Greeting.h"
#include "settings/OptionsRecord.h"
#include "settings/bOptions.h"
#include "startup/StartedProgram.h"
#include "ui/Announcements.h"
#include "ui/GeneralTab.h"
#include <set>

namespace {

using character::State;
using settings::Options;

// The program, with what the journeys need of the user's machine.
struct Program : StartedProgram {
    Program()
    {
        for (const char* file : {"C:\\Texts\\a.txt", "D:\\Other\\b.txt"})
            desktop.files.PutFile(file, "content");
        desktop.files.PutFile("E:\\Chars\\Robby.acs");
        desktop.speechEngines.engines = {{"{AA}", "Ann"}};
        desktop.clipboard.Put("copied");
        desktop.events.onYield = [this] { splashSeen = splashSeen || SplashWindow().Visible(); };
    }
    frmParlune& Window() { return MainWindow(); }
    platform::headless::EngineCharacter& Figure() { return *desktop.engine.loaded; }
    std::string LastSpoken() const { return desktop.engine.Spoken().empty() ? "" : desktop.engine.Spoken().back(); }
    bool Called(const std::string& call) const { return desktop.journal.Count(call) > 0; }
    void ReadClipboard()
    {
        desktop.journal.Clear();
        Window().mnuPopReadClipboard.Click();
    }
    void Greet(int greeting)
    {
        desktop.journal.Clear();
        character::Greet(greeting, /*check*/ false);
    }
    void AnswerDialog(const std::string& path) { desktop.fileDialogs.answers = {path}; }
    std::string FolderOfDialog() const { return desktop.fileDialogs.asked.back().initialFolder; }
    std::string RunValue() const
    {
        return desktop.registry
            .Text(platform::Root::CurrentUser, "Software\\Microsoft\\Windows\\CurrentVersion\\Run", "Parlune")
            .value_or("(none)");
    }
    bool splashSeen = false;
};

using Stored = std::vector<std::pair<std::string, std::string>>;

// One option's way: from the store into its control or field, to what it does, through the user's change, into the store.
struct Journey {
    std::string key;
    std::string stored;
    std::function<std::string()> shown;
    std::function<bool(Program&)> works;  // What the stored value makes the program do.
    std::function<void(Program&)> change;
    std::string written;
    Stored others = {};  // Stored too.
};
void PrintTo(const Journey& journey, std::ostream* out) { *out << journey.key; }

Journey Box(const std::string& key, const std::string& stored, ui::CCheckBox frmParlune::*box,
            std::function<bool(Program&)> works, Stored others = {})
{
    return {key,
            stored,
            [box] { return std::to_string((MainWindow().*box).Value()); },
            std::move(works),
            [box](Program&) { (MainWindow().*box).SetValue((MainWindow().*box).Ticked() ? 0 : 1); },
            stored == "1" ? "0" : "1",
            std::move(others)};
}

template <class Control>
Journey Text(const std::string& key, const std::string& stored, Control& (*control)(), std::function<bool(Program&)> works,
             const std::string& written, Stored others = {})
{
    return {key,
            stored,
            [control] { return control().Text(); },
            std::move(works),
            [control, written](Program&) { control().SetText(written); },
            written,
            std::move(others)};
}

Journey Field(const std::string& key, const std::string& stored, std::function<std::string()> shown,
              std::function<bool(Program&)> works, std::function<void(Program&)> change, const std::string& written,
              Stored others = {})
{
    return {key, stored, std::move(shown), std::move(works), std::move(change), written, std::move(others)};
}

void AddRecord(std::vector<Journey>& all)
{
    const Stored fixedPlace{{"SavePosOnClose", "0"}, {"CharTop", "77"}, {"CharLeft", "88"}};
    const Stored customSize{{"CharSize", "1"}, {"CharWidth", "64"}, {"CharHeight", "80"}};
    const auto savePlace = [](Program& program) {
        program.Figure().top = 12;
        program.Figure().left = 34;
        program.Window().cmdSaveCurrentPos.Click();
    };
    const auto resize = [](Program& program) {
        for (int side = 0; side < 2; ++side) {
            program.Window().txtSize[side].SetText(side == 0 ? "100" : "120");
            program.Window().txtSize[side].Commit();
        }
    };
    all.push_back(Field(
        "FirstTime", "1", [] { return std::to_string(Options().FirstTime); },
        [](Program& program) { return program.Window().Visible(); }, [](Program&) {}, "0"));
    all.push_back(Field(
        "Character", "Merlin", [] { return Options().Character; },
        [](Program& program) { return program.Called("Characters.Load Bot Merlin.acs"); },
        [](Program& program) {
            program.Window().cboChar.SetText("Robby");
            program.Window().cmdLoadChar.Click();
        },
        "Robby"));
    all.push_back(Field(
        "CharTop", "77", [] { return std::to_string(Options().CharTop); },
        [](Program& program) { return program.Figure().top == 77; }, savePlace, "12", fixedPlace));
    all.push_back(Field(
        "CharLeft", "88", [] { return std::to_string(Options().CharLeft); },
        [](Program& program) { return program.Figure().left == 88; }, savePlace, "34", fixedPlace));
    all.push_back(Field(
        "CharWidth", "64", [] { return std::to_string(Options().CharWidth); },
        [](Program& program) { return program.Figure().width == 64; }, resize, "100", customSize));
    all.push_back(Field(
        "CharHeight", "80", [] { return std::to_string(Options().CharHeight); },
        [](Program& program) { return program.Figure().height == 80; }, resize, "120", customSize));
    all.push_back(Box(
        "CharSize", "1", &frmParlune::chkCustomSize, [](Program& program) { return program.Figure().width == 64; },
        customSize));
}

void AddFolders(std::vector<Journey>& all)
{
    all.push_back(Field(
        "LastFolder", "C:\\Texts\\", [] { return Options().LastFolder; },
        [](Program& program) {
            program.Window().mnuPopReadTextFile.Click();
            return program.FolderOfDialog() == "C:\\Texts\\";
        },
        [](Program& program) {
            program.AnswerDialog("D:\\Other\\b.txt");
            program.Window().mnuPopReadTextFile.Click();
        },
        "D:\\Other\\"));
    all.push_back(Field(
        "LastCharFolder", "C:\\Texts\\", [] { return Options().LastCharFolder; },
        [](Program& program) {
            program.Window().cboBrowseChar.Click();
            return program.FolderOfDialog() == "C:\\Texts\\";
        },
        [](Program& program) {
            program.AnswerDialog("E:\\Chars\\Robby.acs");
            program.Window().cboBrowseChar.Click();
        },
        "E:\\Chars\\"));
    all.push_back(Field(
        "FileName", "C:\\Texts\\a.txt",
        [] { return MainWindow().txtRead.Text() == "content\r\n" ? "C:\\Texts\\a.txt" : ""; },
        [](Program& program) {
            program.Window().mnuFileRead.Click();
            return program.LastSpoken() == "content";
        },
        [](Program& program) {
            program.AnswerDialog("D:\\Other\\b.txt");
            program.Window().mnuFileOpen.Click();
        },
        "D:\\Other\\b.txt"));
}

template <int greeting> void AddGreeting(std::vector<Journey>& all)
{
    const std::string number = std::to_string(greeting + 1);
    all.push_back(Text<ui::CTextBox>(
        "Greeting" + number, "Hello", []() -> ui::CTextBox& { return MainWindow().txtGreeting[greeting]; },
        [](Program& program) {
            program.Greet(greeting);
            return program.LastSpoken() == "Hello";
        },
        "Welcome"));
    all.push_back(Field(
        "GreetingAnimation" + number, "Wave", [] { return MainWindow().cboAnim[greeting].Text(); },
        [](Program& program) {
            program.Greet(greeting);
            return program.Called("Character.Play Wave");
        },
        [](Program& program) { program.Window().cboAnim[greeting].Select("Announce"); }, "Announce"));
}

void AddGreetings(std::vector<Journey>& all)
{
    AddGreeting<0>(all);
    AddGreeting<1>(all);
    AddGreeting<2>(all);
    AddGreeting<3>(all);
    AddGreeting<4>(all);
    all.push_back(Text<ui::CTextBox>(
        "UserName", "Ann", []() -> ui::CTextBox& { return MainWindow().txtUserName; },
        [](Program& program) {
            program.Greet(0);
            return program.LastSpoken() == "Hello Ann";
        },
        "Bob", {{"Greeting1", "Hello {UserName}"}}));
    all.push_back(Box("ReadGreeting", "0", &frmParlune::chkReadGreeting,
                      [](Program& program) { return program.LastSpoken().empty(); }, {{"Greeting1", "Hello"}}));
    // Deliberate: kept in a box that nobody sees, and asked by nobody.
    all.push_back(Box("ShowIfHidden", "1", &frmParlune::chkShowIfHidden,
                      [](Program& program) { return !program.Window().chkShowIfHidden.Visible(); }));
}

void AddCharacterBoxes(std::vector<Journey>& all)
{
    all.push_back(Box("SavePosOnClose", "0", &frmParlune::chkSavePosOnClose,
                      [](Program& program) { return program.Window().cmdSaveCurrentPos.Enabled(); }));
    all.push_back(Box("StartUpHideInTray", "1", &frmParlune::chkStartUpHideInTray,
                      [](Program& program) { return !State().loaded && !program.Called("Characters.Load"); }));
    all.push_back(Box("IdleOn", "0", &frmParlune::chkIdleOn, [](Program& program) { return !program.Figure().idleOn; }));
    all.push_back(Box("SoundEffectsOn", "0", &frmParlune::chkSoundEffectsOn,
                      [](Program& program) { return !program.Figure().soundEffectsOn; }));
    all.push_back(Box("PlayReadAnimation", "0", &frmParlune::chkPlayReadAnimation, [](Program& program) {
        program.ReadClipboard();
        return program.LastSpoken() == "copied" && !program.Called("Character.Play Read");
    }));
}

void AddGeneralBoxes(std::vector<Journey>& all)
{
    all.push_back(Box("StartWithWindows", "1", &frmParlune::chkStartWithWindows,
                      [](Program& program) { return program.RunValue() == "C:\\Program Files\\Parlune\\Parlune.exe"; }));
    all.push_back(Box("ShowSplash", "1", &frmParlune::chkShowSplash, [](Program& program) { return program.splashSeen; }));
    all.push_back(Box("MinimizeOnClose", "1", &frmParlune::chkMinimizeOnClose, [](Program& program) {
        return !program.Window().Unload(ui::UnloadMode::ControlMenu) && !program.Window().Visible();
    }));
    all.push_back(Box("ReadClipboardOnDblClick", "0", &frmParlune::chkReadClipBoardOnDblClick, [](Program& program) {
        program.desktop.engine.events->DblClick("Bot", 1, 0, 10, 10);
        return program.LastSpoken().empty();
    }));
    all.push_back(Box("QueueReadCommands", "0", &frmParlune::chkQueueReadCommands, [](Program& program) {
        program.ReadClipboard();
        return program.Called("Character.StopAll -");
    }));
    all.push_back(Box("MonitorClipboard", "1", &frmParlune::chkMonitorClipboard, [](Program& program) {
        program.desktop.clipboard.Put("another copy");
        return program.LastSpoken() == "another copy" && program.Window().mnuPopAutoReadClipboard.Checked();
    }));
}

void AddVoice(std::vector<Journey>& all)
{
    all.push_back(Text<ui::CTextBox>(
        "TTSTestText", "One two", []() -> ui::CTextBox& { return MainWindow().txtTestText; },
        [](Program& program) {
            program.Window().tabMain.Select(2);
            program.Window().cmdTTSVoice[0].Click();
            return program.LastSpoken() == "One two";
        },
        "Three"));
}

void AddAnnouncements(std::vector<Journey>& all)
{
    all.push_back(Box("SayTime", "0", &frmParlune::chkSayTime, [](Program& program) {
        return !program.Window().tmrTimer.Enabled() && !program.Window().mnuPopSayTime.Checked();
    }));
    all.push_back(Text<ui::CComboBox>(
        "SayTimeText", "Now {Time}", []() -> ui::CComboBox& { return MainWindow().cboSayTime; },
        [](Program& program) {
            announcements::SayTime();
            return program.LastSpoken() == "Now 14:05";
        },
        "{Time}", {{"SayTimeFormat", "hh:nn"}}));
    all.push_back(Text<ui::CComboBox>(
        "SayTimeInterval", "5", []() -> ui::CComboBox& { return MainWindow().cboSayTimeInterval; },
        [](Program& program) {
            program.Window().tmrTimer.Tick();  // At 14:05.
            return program.LastSpoken() == "Cuckoo";
        },
        "20", {{"SayTimeText", "Cuckoo"}}));
    all.push_back(Text<ui::CComboBox>(
        "SayTimeFormat", "hh:nn", []() -> ui::CComboBox& { return MainWindow().cboSayTimeFormat; },
        [](Program& program) {
            announcements::SayTime();
            return program.LastSpoken() == "14:05";
        },
        "h:nn", {{"SayTimeText", "{Time}"}}));
    // Deliberate: kept, and asked by nobody.
    all.push_back(Box("SayTimeShowIfHidden", "0", &frmParlune::chkSayTimeShowIfHidden,
                      [](Program&) { return !generalTab::ShowIfHidden(); }));
}

std::vector<Journey> AllJourneys()
{
    std::vector<Journey> all;
    AddRecord(all);
    AddFolders(all);
    AddGreetings(all);
    AddCharacterBoxes(all);
    AddGeneralBoxes(all);
    AddVoice(all);
    AddAnnouncements(all);
    return all;
}

class OptionJourneys : public testing::TestWithParam<Journey> {};

TEST_P(OptionJourneys, AnOption_FromTheStoreThroughItsEffectIntoTheStore_Arrives)
{
    const Journey& journey = GetParam();
    Program program;
    for (const auto& [key, value] : journey.others)
        program.PutOption(key, value);
    program.PutOption(journey.key, journey.stored);
    program.Start();
    EXPECT_EQ(journey.shown(), journey.stored);
    EXPECT_TRUE(journey.works(program));
    journey.change(program);
    EXPECT_TRUE(MainWindow().Unload());
    EXPECT_EQ(program.Option(journey.key), journey.written);
    EXPECT_TRUE(program.desktop.messageBoxes.shown.empty());
}

// What is stored instead, so that the effect stays away; nothing for most, whose default is without it.
std::optional<std::string> WithoutEffect(const std::string& key)
{
    return key == "FirstTime" || key == "MinimizeOnClose" ? std::optional<std::string>("0") : std::nullopt;
}

TEST_P(OptionJourneys, AnOption_StoredOtherwise_DoesNotHaveTheEffect)
{
    const Journey& journey = GetParam();
    Program program;
    for (const auto& [key, value] : journey.others)
        if (key != journey.key)
            program.PutOption(key, value);
    if (const std::optional<std::string> other = WithoutEffect(journey.key))
        program.PutOption(journey.key, *other);
    program.Start();
    EXPECT_EQ(journey.works(program), journey.key == "ShowIfHidden") << "only that one has no effect at all";
}

INSTANTIATE_TEST_SUITE_P(All, OptionJourneys, testing::ValuesIn(AllJourneys()),
                         [](const auto& test) { return test.param.key; });

// The options that a procedure asks the store for.
std::set<std::string> KeysAskedBy(void (*procedure)())
{
    StartedProgram program;
    program.Start();
    for (ui::CTextBox& greeting : MainWindow().txtGreeting)
        greeting.SetText("Hello");
    program.desktop.journal.Clear();
    procedure();
    std::set<std::string> keys;
    const std::string call = "Registry.ValueSize ";
    for (const std::string& asked : program.desktop.journal.CallsOf(call))
        keys.insert(asked.substr(call.size()));
    keys.erase("*");  // A key's default value, not an option.
    return keys;
}

std::set<std::string> KeysOfJourneys(std::set<std::string> without)
{
    std::set<std::string> keys;
    for (const Journey& journey : AllJourneys())
        if (!without.contains(journey.key))
            keys.insert(journey.key);
    return keys;
}

TEST(OptionJourneysTable, EveryOptionThatIsLoaded_HasAJourney)
{
    EXPECT_EQ(KeysAskedBy(bOptions::GetOptions), KeysOfJourneys({}));
}

// The place is written by the button that saves it.
TEST(OptionJourneysTable, EveryOptionThatIsSaved_HasAJourney)
{
    EXPECT_EQ(KeysAskedBy(bOptions::SetOptions), KeysOfJourneys({"CharTop", "CharLeft"}));
}

TEST(OptionJourneysTable, BrowserEntry_FromTheStoreIntoTheStore_Arrives)
{
    constexpr char Entry[] = "Software\\Microsoft\\Internet Explorer\\MenuExt\\Read with Parlune";
    Program program;
    program.desktop.registry.Put(platform::Root::CurrentUser, Entry, "", "C:\\page.htm");
    program.Start();
    EXPECT_EQ(MainWindow().chkIEMenu.Value(), 1);
    MainWindow().chkIEMenu.SetValue(0);
    EXPECT_FALSE(program.desktop.registry.HasKey(platform::Root::CurrentUser, Entry));
    MainWindow().chkIEMenu.SetValue(1);
    EXPECT_EQ(program.desktop.registry.Text(platform::Root::CurrentUser, Entry, ""),
              "C:\\Program Files\\Parlune\\Parlune.htm");
}

}
