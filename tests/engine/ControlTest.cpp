#include "EngineTest.h"

using ControlTest = EngineTest;

TEST_F(ControlTest, Characters_BeforeConnecting_FailsWithNotConnected)
{
    control = engine::CreateEngine(host, source);
    EXPECT_EQ(FailureOf([&] { control->Characters(); }), code::NotConnected);
}

TEST_F(ControlTest, SetPropertySheetVisible_BeforeConnecting_FailsWithNotConnected)
{
    control = engine::CreateEngine(host, source);
    EXPECT_EQ(FailureOf([&] { control->SetPropertySheetVisible(true); }), code::NotConnected);
}

TEST_F(ControlTest, SetConnected_BackToFalse_StaysConnected)
{
    Connect();
    control->SetConnected(false);
    EXPECT_TRUE(control->Connected());
}

TEST_F(ControlTest, SetPropertySheetVisible_WithAWindow_OpensIt)
{
    std::vector<bool> asked;
    engine::EngineSettings settings;
    settings.showPropertySheet = [&](bool visible) { asked.push_back(visible); };
    Connect(settings);
    control->SetPropertySheetVisible(true);
    EXPECT_EQ(asked, std::vector<bool>{true});
}

TEST_F(ControlTest, ShowDefaultCharacterProperties_WithAWindow_OpensIt)
{
    int opened = 0;
    engine::EngineSettings settings;
    settings.showDefaultCharacterProperties = [&] { ++opened; };
    Connect(settings);
    control->ShowDefaultCharacterProperties();
    EXPECT_EQ(opened, 1);
}

TEST_F(ControlTest, Load_OfAFile_LeavesTheCharacterHiddenWithoutCauses)
{
    Load();
    EXPECT_FALSE(bot->Visible());
    EXPECT_EQ(bot->VisibilityCause(), 0);
    EXPECT_EQ(bot->MoveCause(), 0);
    EXPECT_TRUE(host.windows.empty());
}

TEST_F(ControlTest, Load_OfAFile_GivesACompletedRequest)
{
    source.files["test.acs"] = std::make_shared<engine::Character>(testing_character::Make());
    Connect();
    const RequestRef request = control->Characters()->Load("Bot", "test.acs");
    EXPECT_EQ(request->Status(), RequestStatus::Completed);
    EXPECT_EQ(request->Number(), 0);
}

TEST_F(ControlTest, Load_OfAMissingFile_FailsWithTheSourcesError)
{
    Connect();
    EXPECT_EQ(FailureOf([&] { control->Characters()->Load("Bot", "none.acs"); }), code::FileNotFound);
}

TEST_F(ControlTest, Load_AfterAFailedLoadUnderTheSameId_Succeeds)
{
    source.standard = std::make_shared<engine::Character>(testing_character::Make());
    Connect();
    EXPECT_EQ(FailureOf([&] { control->Characters()->Load("Bot", "none.acs"); }), code::FileNotFound);
    EXPECT_EQ(FailureOf([&] { control->Characters()->Load("Bot", std::nullopt); }), 0);
}

TEST_F(ControlTest, Load_UnderALoadedId_FailsWithAlreadyLoaded)
{
    Load();
    EXPECT_EQ(FailureOf([&] { control->Characters()->Load("Bot", "test.acs"); }), code::AlreadyLoaded);
}

TEST_F(ControlTest, Load_OfTheSameCharacterTwice_FailsWithAlreadyLoaded)
{
    Load();
    EXPECT_EQ(FailureOf([&] { control->Characters()->Load("Other", "test.acs"); }), code::AlreadyLoaded);
}

TEST_F(ControlTest, Load_OfASecondCharacter_Succeeds)
{
    source.files["second.acs"] = std::make_shared<engine::Character>(testing_character::Make(2));
    Load();
    control->Characters()->Load("Other", "second.acs");
    EXPECT_EQ(control->Characters()->Character("Other")->Name(), "Tester");
}

TEST_F(ControlTest, Load_OfTheDefaultBesideAnother_FailsWithDefaultAndOther)
{
    source.standard = std::make_shared<engine::Character>(testing_character::Make(2));
    Load();
    EXPECT_EQ(FailureOf([&] { control->Characters()->Load("Other", std::nullopt); }), code::DefaultAndOther);
}

TEST_F(ControlTest, Load_OfAFileBesideTheDefault_FailsWithDefaultAndOther)
{
    source.standard = std::make_shared<engine::Character>(testing_character::Make(2));
    source.files["test.acs"] = std::make_shared<engine::Character>(testing_character::Make());
    Connect();
    control->Characters()->Load("Bot", std::nullopt);
    EXPECT_EQ(FailureOf([&] { control->Characters()->Load("Other", "test.acs"); }), code::DefaultAndOther);
}

TEST_F(ControlTest, Load_WithoutAnyDefault_FailsWithNoStandardCharacter)
{
    Connect();
    EXPECT_EQ(FailureOf([&] { control->Characters()->Load("Bot", std::nullopt); }), code::NoStandardCharacter);
}

TEST_F(ControlTest, Unload_OfAnUnknownId_FailsWithBadCharacterID)
{
    Connect();
    EXPECT_EQ(FailureOf([&] { control->Characters()->Unload("Bot"); }), code::BadCharacterID);
}

TEST_F(ControlTest, Character_OfAnUnknownId_FailsWithBadCharacterID)
{
    Connect();
    EXPECT_EQ(FailureOf([&] { control->Characters()->Character("Bot"); }), code::BadCharacterID);
}

TEST_F(ControlTest, Unload_OfAVisibleCharacter_TakesItsWindowsAway)
{
    LoadShown();
    Say("Hello");
    host.Advance(200);
    control->Characters()->Unload("Bot");
    EXPECT_TRUE(host.Window().destroyed);
    EXPECT_TRUE(host.Balloon().destroyed);
}

TEST_F(ControlTest, Unload_InTheMiddleOfSpeech_LeavesNoTimerAndNoSound)
{
    LoadShown();
    const RequestRef request = Say("Hello there");
    host.Advance(200);
    control->Characters()->Unload("Bot");
    host.Advance(0);
    EXPECT_EQ(host.time.Waiting(), 0u);
    EXPECT_TRUE(host.sound.streams.back().stopped);
    EXPECT_EQ(request->Status(), RequestStatus::Interrupted);
}

TEST_F(ControlTest, Unload_WithQueuedRequests_MarksThemButRaisesNothing)
{
    LoadShown();
    const RequestRef running = Say("One");
    const RequestRef queued = Say("Two");
    host.Advance(100);
    journal.Clear();
    control->Characters()->Unload("Bot");
    host.RunUntilIdle();
    EXPECT_EQ(running->Number(), code::InterruptedByApplication);
    EXPECT_EQ(queued->Number(), code::RemovedFromQueue);
    EXPECT_EQ(Requests(), Lines{});
}

TEST_F(ControlTest, CharacterCalls_AfterUnload_FailWithBadCharacterID)
{
    Load();
    const auto balloon = bot->Balloon();
    control->Characters()->Unload("Bot");
    EXPECT_EQ(FailureOf([&] { bot->Show(std::nullopt); }), code::BadCharacterID);
    EXPECT_EQ(FailureOf([&] { balloon->Style(); }), code::BadCharacterID);
}

TEST_F(ControlTest, Unload_InsideAnEvent_IsSafe)
{
    LoadShown();
    journal.onEvent = [&](const std::string& line) {
        if (line.rfind("RequestComplete", 0) == 0)
            control->Characters()->Unload("Bot");
    };
    Keep(Say("One"));
    Keep(Say("Two"));
    host.RunUntilIdle();
    EXPECT_EQ(journal.Count("RequestComplete"), 1u);
    EXPECT_EQ(host.time.Waiting(), 0u);
}

TEST_F(ControlTest, Destroying_WithQueuedWork_LeavesNoTimers)
{
    LoadShown();
    Keep(bot->Play("Wave"));
    Keep(Say("One"));
    Keep(bot->MoveTo(10, 10, 500));
    host.Advance(50);
    control.reset();
    EXPECT_EQ(host.time.Waiting(), 0u);
    EXPECT_EQ(host.desktop.Watchers(), 0u);
}

TEST_F(ControlTest, Destroying_InsideAnEvent_IsSafe)
{
    LoadShown();
    journal.onEvent = [&](const std::string&) { control.reset(); };
    Keep(Say("One"));
    host.RunUntilIdle();
    EXPECT_EQ(journal.lines.size(), 1u);
    EXPECT_EQ(host.time.Waiting(), 0u);
}

TEST_F(ControlTest, SetEvents_ToNull_SilencesWhatWasPostedBefore)
{
    Load();
    Keep(bot->Show(true));
    control->SetEvents(nullptr);
    host.RunUntilIdle();
    EXPECT_EQ(journal.lines, Lines{});
}

TEST_F(ControlTest, Characters_WhenTheEngineHasGone_Fail)
{
    Load();
    const auto characters = control->Characters();
    bot.reset();
    control.reset();
    EXPECT_EQ(FailureOf([&] { characters->Character("Bot"); }), code::NotConnected);
    EXPECT_EQ(FailureOf([&] { characters->Unload("Bot"); }), code::NotConnected);
}
