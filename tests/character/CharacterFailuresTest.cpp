#include "character/CTTSEngines.h"
#include "character/CharacterEvents.h"
#include "character/CharacterProperties.h"
#include "character/CharacterSession.h"
#include "character/CharacterState.h"
#include "character/Greeting.h"
#include "character/bParlune.h"
#include "settings/OptionsRecord.h"
#include "settings/Paths.h"
#include "support/FailEachCall.h"
#include "ui/frmParlune.h"
#include <map>

using character::State;
using support::FailEachCall;
using support::FailEachCallAndExpect;
using support::FailedRun;

namespace {

constexpr char SettingsFile[] = "C:\\Data\\Parlune.ini";

void LoadMerlin(CHeadlessDesktop&)
{
    settings::Paths().settingsFile = SettingsFile;
    character::CharLoad("Merlin", /*show*/ true);
}

// A character to be replaced, and a setting of every kind for the next one.
void PrepareReplacement(CHeadlessDesktop& desktop)
{
    LoadMerlin(desktop);
    desktop.profile.Put(SettingsFile, "Genie", "TTSModeID", "{BB}");
    desktop.profile.Put(SettingsFile, "Genie", "FontName", "Courier");
    desktop.profile.Put(SettingsFile, "Genie", "BalloonStyle", "&H0A280001");
    settings::Options().CharWidth = 64;
    settings::Options().CharHeight = 80;
    MainWindow().chkCustomSize.SetValue(1);
}

// The failed call, with its number among the calls of the same text: "Character.Name#2".
class CNumberedCalls {
public:
    std::string Number(const std::string& call) { return call + "#" + std::to_string(++m_count[call]); }

private:
    std::map<std::string, int> m_count;
};

// Who reports the failure of a call during CharLoad of a replacement; "" when nobody does.
std::string ReporterOf(const std::string& numberedCall)
{
    static const std::map<std::string, std::string> reporters{
        {"Character.StopAll -#1", "bParlune:CharUnload"},
        {"Engine.Characters#1", "bParlune:CharUnload"},
        {"Characters.Unload Bot#1", "bParlune:CharUnload"},
        {"Engine.Characters#2", ""},
        {"Characters.Load Bot Genie.acs#1", ""},
        {"Character.SetTTSModeID {BB}#1", ""},
        {"Balloon.SetFontName Courier#1", ""},
        {"Balloon.SetFontSize 10#1", ""},
        {"Character.AnimationNames#1", ""},
        {"Character.Pitch#1", "Parlune:CharLoad_AdvSpeechTags"},
        {"Character.Speed#1", "Parlune:CharLoad_AdvSpeechTags"},
        {"Character.TTSModeID#4", "Parlune:CharLoad_AdvSpeechTags"},
        {"Character.Name#3", "Parlune:CharLoad_AdvSpeechTags"},
        {"Character.Name#4", "Parlune:CharLoad_BalloonFont"},
        {"Character.Name#5", "Parlune:CharLoad_BalloonFont"},
        {"Character.Name#7", ""},  // The status bar.
        {"Character.Balloon#6", "Parlune:CharLoad_BalloonFont"},
        {"Character.Balloon#7", "Parlune:CharLoad_BalloonFont"},
        {"Balloon.FontName#2", "Parlune:CharLoad_BalloonFont"},
        {"Balloon.FontSize#2", "Parlune:CharLoad_BalloonFont"},
        {"Character.Balloon#8", ""},
        {"Character.Balloon#9", ""},
    };
    const auto found = reporters.find(numberedCall);
    if (found != reporters.end())
        return found->second;
    if (numberedCall.starts_with("Profile."))
        return "bProfile:GetProfile";
    if (numberedCall.starts_with("Registry."))
        return "bRegistry:GetReg";
    if (numberedCall.starts_with("Screen.Width") || numberedCall.starts_with("Screen.UnitsPerPixelX"))
        return "bGlobal:ScreenWidth";
    if (numberedCall.starts_with("Screen."))
        return "bGlobal:ScreenHeight";
    return "Parlune:CharLoad";
}

// Calls without which there is no character to go on with.
bool IsIndispensable(const std::string& numberedCall)
{
    return numberedCall == "Engine.Characters#3" || numberedCall == "Characters.Character Bot#1";
}

}

TEST(CharacterFailures, CharLoad_WhicheverCallFails_IsReportedByItsProcedureAndGoesOn)
{
    CNumberedCalls calls;
    FailEachCall(
        PrepareReplacement, [](CHeadlessDesktop&) { character::CharLoad("Genie", /*show*/ true); },
        [&](const FailedRun& run) {
            const std::string call = calls.Number(run.call);
            support::ExpectReport(run, {{"", ReporterOf(call)}});
            if (IsIndispensable(call))
                return;
            EXPECT_TRUE(State().loaded);
            EXPECT_EQ(run.desktop.journal.Count("Events.RunPendingEvents"), 1U);
        });
}

TEST(CharacterFailures, CharLoad_WithoutTheLoadedCharacter_ReturnsFalse)
{
    CHeadlessDesktop desktop;
    desktop.journal.FailNext("Characters.Character", {57, "Device I/O error"});
    EXPECT_FALSE(character::CharLoad("Merlin", true));
    EXPECT_FALSE(State().loaded);
    EXPECT_EQ(desktop.messageBoxes.shown.size(), 1U);
}

TEST(CharacterFailures, CharLoad_TheFirstTime_ReportsTheEnginesFailures)
{
    FailEachCall([](CHeadlessDesktop&) { settings::Paths().settingsFile = SettingsFile; },
                 [](CHeadlessDesktop&) { character::CharLoad("Merlin", /*show*/ true); },
                 [](const FailedRun& run) {
                     if (run.FailedIn("Engine.Create") || run.FailedIn("Engine.Set"))
                         support::ExpectReport(run, {{"", "Parlune:CharLoad"}});
                 });
}

TEST(CharacterFailures, CharSpeak_WhicheverCallFails_IsReported)
{
    FailEachCallAndExpect(
        {{"Clock.", "bGlobal:GetTime"}, {"Locale.", "bGlobal:GetTime"}, {"", "bParlune:CharSpeak"}},
        [](CHeadlessDesktop& desktop) {
            LoadMerlin(desktop);
            MainWindow().cboSayTimeFormat.SetText("h:nn");
        },
        [](CHeadlessDesktop&) { bParlune::CharSpeak("It is {Time}\r\nA|B", "bell.wav"); });
}

TEST(CharacterFailures, CharSpeak_OfASoundOnly_IsReported)
{
    FailEachCallAndExpect({{"", "bParlune:CharSpeak"}}, LoadMerlin,
                          [](CHeadlessDesktop&) { bParlune::CharSpeak("", "bell.wav"); });
}

TEST(CharacterFailures, CharUnload_WhicheverCallFails_IsReported)
{
    FailEachCallAndExpect(
        {{"", "bParlune:CharUnload"}},
        [](CHeadlessDesktop& desktop) {
            LoadMerlin(desktop);
            desktop.events.After(
                60, [&desktop] { desktop.engine.requests.back()->status = platform::RequestStatus::Completed; });
        },
        [](CHeadlessDesktop&) { bParlune::CharUnload(/*waitForHide*/ true); });
}

TEST(CharacterFailures, SetTTSModeID_WhicheverCallFails_IsReported)
{
    FailEachCallAndExpect({{"", "bParlune:SetTTSModeID"}}, LoadMerlin, [](CHeadlessDesktop&) { bParlune::SetTTSModeID(); });
}

TEST(CharacterFailures, TheSmallRequests_WhicheverCallFails_AreSilent)
{
    FailEachCallAndExpect({{"", ""}}, LoadMerlin, [](CHeadlessDesktop&) {
        bParlune::CharPlay("Wave");
        bParlune::CharStop();
        bParlune::CharHide();
        bParlune::CharVisible();
        bParlune::CharSetTTSModeID("{BB}");
        bParlune::CharShow();
    });
}

TEST(CharacterFailures, SaveCharProperties_WhicheverCallFails_IsReportedAndGoesOn)
{
    FailEachCall(
        LoadMerlin, [](CHeadlessDesktop&) { character::SaveCharProperties(); },
        [](const FailedRun& run) {
            support::ExpectReport(run, {{"", "Parlune:SaveCharProperties"}});
            EXPECT_EQ(run.desktop.journal.Count("Character.TTSModeID"), 1U);
        });
}

TEST(CharacterFailures, RestoreCharProperties_WhicheverCallFails_IsReportedAndGoesOn)
{
    FailEachCall(
        [](CHeadlessDesktop& desktop) {
            desktop.engine.character.ttsModeID = "{AA}";
            LoadMerlin(desktop);
            character::SaveCharProperties();
        },
        [](CHeadlessDesktop&) { character::RestoreCharProperties(); },
        [](const FailedRun& run) {
            support::ExpectReport(run, {{"", "Parlune:RestoreCharProperties"}});
            EXPECT_EQ(run.desktop.journal.Count("Character.SetTTSModeID {AA}"), 1U);
        });
}

TEST(CharacterFailures, Greet_WhicheverCallFails_ReportsTheSpeechOnlyAndGoesOn)
{
    FailEachCall(
        [](CHeadlessDesktop& desktop) {
            LoadMerlin(desktop);
            MainWindow().txtGreeting[0].SetText("Hello");
        },
        [](CHeadlessDesktop&) { character::Greet(0, /*check*/ false); },
        [](const FailedRun& run) {
            support::ExpectReport(run, {{"Character.Speak", "bParlune:CharSpeak"}, {"", ""}});
            EXPECT_EQ(run.desktop.journal.Count("Character.Play RestPose"), 1U);
        });
}

TEST(CharacterFailures, RequestComplete_WhicheverCallFails_IsReportedByTheRestore)
{
    FailEachCallAndExpect(
        {{"", "Parlune:RestoreCharProperties"}},
        [](CHeadlessDesktop& desktop) {
            LoadMerlin(desktop);
            character::SaveCharProperties();
            bParlune::CharSpeak("Test", "", /*isTest*/ true);
        },
        [](CHeadlessDesktop& desktop) { desktop.engine.Complete(desktop.engine.requests.size() - 1); });
}

TEST(CharacterFailures, CTTSEngines_WhicheverCallFails_ReachesTheCreator)
{
    FailEachCall(
        [](CHeadlessDesktop& desktop) {
            desktop.speechEngines.engines = {{"{AA}", "Ann", 0x0409}};
        },
        [](CHeadlessDesktop& desktop) {
            try {
                SpeechCatalogue() = CTTSEngines();
            } catch (const platform::CFailure& failure) {
                desktop.messageBoxes.Show({.text = failure.Description(), .title = "Caught"});
            }
        },
        [](const FailedRun& run) {
            EXPECT_EQ(run.desktop.messageBoxes.Last().text, "Device I/O error");
            EXPECT_EQ(SpeechCatalogue().TTSCount(), 0);
        });
}

TEST(CharacterFailures, CharSpeak_WhenTheUserEndsTheProgram_Ends)
{
    CHeadlessDesktop desktop;
    LoadMerlin(desktop);
    desktop.journal.FailNext("Character.Speak", {57, "Device I/O error"});
    desktop.messageBoxes.answers = {platform::BoxAnswer::Cancel};
    EXPECT_THROW(bParlune::CharSpeak("A"), platform::CProgramEnded);
    EXPECT_TRUE(desktop.program.ended);
}
