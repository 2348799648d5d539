#include "driver/Companion.h"

// The General page: what its controls do, and what is stored of them.
using namespace driver;

namespace {

// A box, its option, and whether it is ticked on a fresh machine.
struct Tick {
    const char* box;
    const char* option;
    bool first;
};

class Boxes : public CCompanion, public ::testing::WithParamInterface<Tick> {};

TEST_P(Boxes, Clicked_IsStoredAtTheEnd)
{
    const Tick& tick = GetParam();
    registry::RemoveValue(HKEY_CURRENT_USER, registry::OptionKey, tick.option);
    Begin();
    EXPECT_EQ(parlune.IsTicked(tick.box), tick.first);
    parlune.Click(tick.box);
    EXPECT_TRUE(Eventually([&] { return parlune.IsTicked(tick.box) != tick.first; }));
    parlune.End();

    EXPECT_EQ(registry::Option(tick.option), tick.first ? "0" : "1");
}

TEST_P(Boxes, Stored_IsSeenAtTheStart)
{
    const Tick& tick = GetParam();
    registry::PutOption(tick.option, tick.first ? "0" : "1");
    BeginWithoutCharacter();

    EXPECT_EQ(parlune.IsTicked(tick.box), !tick.first);
}

INSTANTIATE_TEST_SUITE_P(
    OfTheOptions, Boxes,
    ::testing::Values(Tick{"chkShowSplash", "ShowSplash", false}, Tick{"chkStartWithWindows", "StartWithWindows", false},
                      Tick{"chkMinimizeOnClose", "MinimizeOnClose", true},
                      Tick{"chkMonitorClipboard", "MonitorClipboard", false},
                      Tick{"chkReadClipBoardOnDblClick", "ReadClipboardOnDblClick", true},
                      Tick{"chkQueueReadCommands", "QueueReadCommands", true}, Tick{"chkSayTime", "SayTime", true},
                      Tick{"chkSayTimeShowIfHidden", "SayTimeShowIfHidden", true}, Tick{"chkCustomSize", "CharSize", false},
                      Tick{"chkPlayReadAnimation", "PlayReadAnimation", true}, Tick{"chkIdleOn", "IdleOn", true},
                      Tick{"chkSoundEffectsOn", "SoundEffectsOn", true},
                      Tick{"chkStartUpHideInTray", "StartUpHideInTray", false},
                      Tick{"chkSavePosOnClose", "SavePosOnClose", true}, Tick{"chkReadGreeting", "ReadGreeting", true}),
    [](const auto& test) { return test.param.option; });

class GeneralPage : public CCompanion {};

TEST_F(GeneralPage, StartWithWindows_Ticked_WritesTheRunValueAtOnce)
{
    Begin();
    parlune.Click("chkStartWithWindows");

    EXPECT_TRUE(Eventually([] {
        return registry::Text(HKEY_CURRENT_USER, registry::RunKey, "Parlune") == CParlune::Folder() + "Parlune.exe";
    }));
}

TEST_F(GeneralPage, StartWithWindows_Cleared_RemovesItsValueAndNoOther)
{
    registry::PutText(HKEY_CURRENT_USER, registry::RunKey, "Another", "stays");
    registry::PutText(HKEY_CURRENT_USER, registry::RunKey, "Parlune", "C:\\parlune\\program\\Parlune.exe");
    registry::PutOption("StartWithWindows", "1");
    Begin();
    parlune.Click("chkStartWithWindows");

    EXPECT_TRUE(Eventually([] { return registry::Text(HKEY_CURRENT_USER, registry::RunKey, "Parlune") == "(none)"; }));
    EXPECT_EQ(registry::Text(HKEY_CURRENT_USER, registry::RunKey, "Another"), "stays");
    registry::RemoveValue(HKEY_CURRENT_USER, registry::RunKey, "Another");
}

TEST_F(GeneralPage, BrowserMenu_Ticked_WritesBothValues)
{
    Begin();
    parlune.Click("chkIEMenu");

    ASSERT_TRUE(Eventually([] { return registry::Find(HKEY_CURRENT_USER, registry::BrowserKey, "Contexts").has_value(); }));
    EXPECT_EQ(registry::Text(HKEY_CURRENT_USER, registry::BrowserKey, ""), CParlune::Folder() + "Parlune.htm");
    const auto contexts = *registry::Find(HKEY_CURRENT_USER, registry::BrowserKey, "Contexts");
    EXPECT_EQ(contexts.type, static_cast<DWORD>(REG_DWORD));
    EXPECT_EQ(contexts.bytes, std::string("\x11\0\0\0", 4));
}

TEST_F(GeneralPage, BrowserMenu_Cleared_RemovesTheKey)
{
    registry::PutText(HKEY_CURRENT_USER, registry::BrowserKey, "", "C:\\parlune\\program\\Parlune.htm");
    Begin();
    EXPECT_TRUE(parlune.IsTicked("chkIEMenu"));
    parlune.Click("chkIEMenu");

    EXPECT_TRUE(Eventually([] { return !registry::HasKey(HKEY_CURRENT_USER, registry::BrowserKey); }));
}

TEST_F(GeneralPage, ReadClipboardNow_ShowsTheCharacterAndReads)
{
    clipboard::CopyText("The copied text.");
    BeginShown();
    agent.Forget();
    hand::Click(parlune.Control("cmdReadClipboard"));

    EXPECT_TRUE(agent.Speaks("The copied text."));
    EXPECT_TRUE(agent.Sees("call Character[Bot].Show"));
}

TEST_F(GeneralPage, QueueReadCommandsCleared_AReadCutsOffTheSpeechBefore)
{
    registry::PutOption("QueueReadCommands", "0");
    clipboard::CopyText("The copied text.");
    Begin();
    agent.Forget();
    agent.DoubleClick(1);
    ASSERT_TRUE(agent.Speaks("The copied text."));

    EXPECT_EQ(agent.LinesWith("call Character[Bot].StopAll").size(), 1U);
}

TEST_F(GeneralPage, QueueReadCommands_AReadWaitsItsTurn)
{
    clipboard::CopyText("The copied text.");
    Begin();
    agent.Forget();
    agent.DoubleClick(1);
    ASSERT_TRUE(agent.Speaks("The copied text."));

    EXPECT_TRUE(agent.LinesWith("call Character[Bot].StopAll").empty());
}

TEST_F(GeneralPage, SayTimeLists_OfferWhatTheyShould)
{
    Begin();

    EXPECT_EQ(parlune.Entries("cboSayTime"),
              (std::vector<std::string>{"The time is now {Time}.", "Good {TimeOfDay}!  It is now {Time}.",
                                        "It is now {Time} on {Date}."}));
    EXPECT_EQ(parlune.Entries("cboSayTimeFormat"), (std::vector<std::string>{"h:nn AM/PM", "h:nn", "hh:nn"}));
    EXPECT_EQ(parlune.Text("cboSayTime"), "The time is now {Time}");
    EXPECT_EQ(parlune.Text("cboSayTimeInterval"), "30");
}

TEST_F(GeneralPage, SayTimeEveryMinute_SpeaksTheSentence)
{
    registry::PutOption("SayTime", "1");
    registry::PutOption("SayTimeInterval", "1");
    registry::PutOption("SayTimeText", "Time for tea");
    Begin();

    EXPECT_TRUE(agent.Speaks("Time for tea"));
}

TEST_F(GeneralPage, SayTimeTyped_IsStored)
{
    BeginShown();
    parlune.SetText("cboSayTimeInterval", "7");
    parlune.SetText("cboSayTimeFormat", "hh:nn");
    parlune.SetText("cboSayTime", "Now {Time}");
    parlune.End();

    EXPECT_EQ(registry::Option("SayTimeInterval"), "7");
    EXPECT_EQ(registry::Option("SayTimeFormat"), "hh:nn");
    EXPECT_EQ(registry::Option("SayTimeText"), "Now {Time}");
}

TEST_F(GeneralPage, IntervalOfNoNumber_IsShownAsThirty)
{
    registry::PutOption("SayTimeInterval", "abc");
    Begin();

    EXPECT_EQ(parlune.Text("cboSayTimeInterval"), "30");
}

TEST_F(GeneralPage, BoxesClickedByMouse_AreTicked)
{
    BeginShown();
    const bool before = parlune.IsTicked("chkShowSplash");
    const RECT place = PlaceOf(parlune.Control("chkShowSplash"));
    hand::Click(POINT{place.left + 6, (place.top + place.bottom) / 2});

    EXPECT_TRUE(Eventually([&] { return parlune.IsTicked("chkShowSplash") != before; }));
}

TEST_F(GeneralPage, TabKeyAndBlank_TickTheNextBox)
{
    BeginShown();
    ShowPage(Page::Character);
    ShowPage(Page::General);  // Gives the focus to the second box.
    const bool before = parlune.IsTicked("chkMinimizeOnClose");
    hand::Press({VK_TAB});
    hand::Press({VK_SPACE});

    EXPECT_TRUE(Eventually([&] { return parlune.IsTicked("chkMinimizeOnClose") != before; }));
}

TEST_F(GeneralPage, ControlAndPageDown_TurnsThePage)
{
    BeginShown();
    hand::Press({VK_CONTROL, VK_NEXT});

    EXPECT_TRUE(Eventually([&] { return parlune.TabOf("tabMain") == 1; }));
}

TEST_F(GeneralPage, EscapeKey_LeavesTheProgramRunning)
{
    BeginShown();
    hand::Press({VK_ESCAPE});

    EXPECT_TRUE(Answers(parlune.Main()));
    EXPECT_TRUE(parlune.IsRunning());
}

}
