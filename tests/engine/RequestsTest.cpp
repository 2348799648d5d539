#include "EngineTest.h"
#include "engine/requests/Request.h"

using RequestsTest = EngineTest;

TEST_F(RequestsTest, Requests_GetRisingIds)
{
    LoadShown();
    const RequestRef first = bot->Play("Wave");
    const RequestRef second = bot->Play("Wave");
    EXPECT_GT(second->ID(), first->ID());
}

TEST_F(RequestsTest, TheFirstRequest_IsInProgressAtOnceAndTheNextPending)
{
    LoadShown();
    const RequestRef first = bot->Play("Wave");
    const RequestRef second = bot->Play("Wave");
    EXPECT_EQ(StatusOf(first), 4);
    EXPECT_EQ(StatusOf(second), 2);
}

TEST_F(RequestsTest, Events_ComeFromTheEventLoopOnly)
{
    LoadShown();
    Keep(bot->MoveTo(1, 2, 0));
    EXPECT_EQ(journal.lines, Lines{});
    host.Advance(0);
    EXPECT_EQ(journal.lines, (Lines{"RequestStart 3 status 4", "Move Bot 1 2 cause 2", "RequestComplete 3 status 0"}));
}

TEST_F(RequestsTest, ASecondRequest_StartsAfterTheFirstHasCompleted)
{
    LoadShown();
    Keep(bot->Play("Wave"));
    Keep(bot->Play("Greet"));
    host.RunUntilIdle();
    EXPECT_EQ(Requests(), (Lines{"RequestStart 3 status 4", "RequestComplete 3 status 0", "RequestStart 4 status 4",
                                 "RequestComplete 4 status 0"}));
}

TEST_F(RequestsTest, ADiscardedRequest_RaisesNoEvents)
{
    LoadShown();
    bot->Play("Wave");
    host.RunUntilIdle();
    EXPECT_EQ(Requests(), Lines{});
}

TEST_F(RequestsTest, ARequestDroppedWhileItRuns_RaisesNoCompletion)
{
    LoadShown();
    RequestRef request = bot->Play("Wave");
    host.Advance(50);
    request.reset();
    host.RunUntilIdle();
    EXPECT_EQ(Requests(), Lines{"RequestStart 3 status 4"});
}

TEST_F(RequestsTest, Description_OfACompletedRequest_IsEmpty)
{
    LoadShown();
    const RequestRef request = bot->MoveTo(1, 2, 0);
    host.Advance(0);
    EXPECT_EQ(request->Number(), 0);
    EXPECT_EQ(request->Description(), "");
}

TEST_F(RequestsTest, Play_OfAnUnknownAnimation_FailsAtTheCall)
{
    LoadShown();
    EXPECT_EQ(FailureOf([&] { bot->Play("Fly"); }), code::NoSuchAnimation);
}

TEST_F(RequestsTest, Play_IgnoresLetterCase)
{
    LoadShown();
    EXPECT_EQ(FailureOf([&] { bot->Play("wAVE"); }), 0);
}

TEST_F(RequestsTest, Speak_WithoutTextAndSound_FailsAtTheCall)
{
    LoadShown();
    EXPECT_EQ(FailureOf([&] { bot->Speak(std::nullopt, std::nullopt); }), code::InvalidArgument);
}

TEST_F(RequestsTest, StopAll_EndsTheRunningAndTheQueuedInOrder)
{
    LoadShown();
    const RequestRef running = Keep(bot->Play("Wave"));
    const RequestRef queued = Keep(Say("Hello"));
    Keep(bot->Play("Greet"));
    host.Advance(50);
    bot->StopAll(std::nullopt);
    EXPECT_EQ(StatusOf(running), 3);
    EXPECT_EQ(running->Number(), code::InterruptedByApplication);
    EXPECT_EQ(StatusOf(queued), 3);
    EXPECT_EQ(queued->Number(), code::RemovedFromQueue);
    host.RunUntilIdle();
    EXPECT_EQ(Requests(), (Lines{"RequestStart 3 status 4", "RequestComplete 3 status 3", "RequestComplete 4 status 3",
                                 "RequestComplete 5 status 3"}));
}

TEST_F(RequestsTest, StopAll_RaisesNothingInsideTheCall)
{
    LoadShown();
    Keep(bot->Play("Wave"));
    host.Advance(50);
    journal.Clear();
    bot->StopAll(std::nullopt);
    EXPECT_EQ(journal.lines, Lines{});
}

TEST_F(RequestsTest, StopAll_OfSpeech_LetsTheAnimationsGoOn)
{
    LoadShown();
    const RequestRef wave = bot->Play("Wave");
    const RequestRef speech = Say("Hello");
    const RequestRef greet = bot->Play("Greet");
    bot->StopAll("Speak");
    host.RunUntilIdle();
    EXPECT_EQ(StatusOf(wave), 0);
    EXPECT_EQ(StatusOf(speech), 3);
    EXPECT_EQ(StatusOf(greet), 0);
}

TEST_F(RequestsTest, StopAll_OfPlayAndMove_LeavesSpeech)
{
    LoadShown();
    const RequestRef wave = bot->Play("Wave");
    const RequestRef move = bot->MoveTo(0, 0, 100);
    const RequestRef speech = Say("Hello");
    bot->StopAll("play , MOVE");
    host.RunUntilIdle();
    EXPECT_EQ(StatusOf(wave), 3);
    EXPECT_EQ(StatusOf(move), 3);
    EXPECT_EQ(StatusOf(speech), 0);
}

TEST_F(RequestsTest, StopAll_OfGet_StopsNothing)
{
    LoadShown();
    const RequestRef wave = bot->Play("Wave");
    bot->StopAll("Get, NonQueuedGet");
    host.RunUntilIdle();
    EXPECT_EQ(StatusOf(wave), 0);
}

TEST_F(RequestsTest, StopAll_OfAnUnknownType_FailsAndStopsNothing)
{
    LoadShown();
    const RequestRef wave = bot->Play("Wave");
    EXPECT_EQ(FailureOf([&] { bot->StopAll("Play, Dance"); }), code::InvalidArgument);
    EXPECT_EQ(StatusOf(wave), 4);
}

TEST_F(RequestsTest, StopRequest_WhileItRuns_StartsTheNextAtOnce)
{
    LoadShown();
    const RequestRef first = Say("One");
    const RequestRef second = Say("Two");
    host.Advance(50);
    bot->Stop(first);
    EXPECT_EQ(StatusOf(first), 3);
    EXPECT_EQ(StatusOf(second), 4);
    host.RunUntilIdle();
    EXPECT_EQ(StatusOf(second), 0);
}

TEST_F(RequestsTest, StopRequest_InTheQueue_RemovesJustThat)
{
    LoadShown();
    const RequestRef first = bot->Play("Wave");
    const RequestRef second = bot->Play("Wave");
    const RequestRef third = bot->Play("Wave");
    bot->Stop(second);
    host.RunUntilIdle();
    EXPECT_EQ(StatusOf(first), 0);
    EXPECT_EQ(second->Number(), code::RemovedFromQueue);
    EXPECT_EQ(StatusOf(third), 0);
}

TEST_F(RequestsTest, StopRequest_ThatHasEnded_FailsWithNotInQueue)
{
    LoadShown();
    const RequestRef request = bot->Play("Wave");
    host.RunUntilIdle();
    EXPECT_EQ(FailureOf([&] { bot->Stop(request); }), code::NotInQueue);
}

TEST_F(RequestsTest, StopRequest_OfAnotherCharacter_Fails)
{
    source.files["second.acs"] = std::make_shared<engine::Character>(testing_character::Make(2));
    LoadShown();
    control->Characters()->Load("Other", "second.acs");
    const RequestRef foreign = control->Characters()->Character("Other")->Play("Wave");
    EXPECT_EQ(FailureOf([&] { bot->Stop(foreign); }), code::OtherCharactersRequest);
}

TEST_F(RequestsTest, StopRequest_OfALoad_IsNoRequestOfACharacter)
{
    source.files["second.acs"] = std::make_shared<engine::Character>(testing_character::Make(2));
    LoadShown();
    const RequestRef load = control->Characters()->Load("Other", "second.acs");
    EXPECT_EQ(FailureOf([&] { bot->Stop(load); }), code::NotARequest);
}

TEST_F(RequestsTest, Stop_WithoutARequest_ClearsTheQueue)
{
    LoadShown();
    const RequestRef first = bot->Play("Wave");
    const RequestRef second = bot->Play("Wave");
    bot->Stop(nullptr);
    EXPECT_EQ(StatusOf(first), 3);
    EXPECT_EQ(StatusOf(second), 3);
}

TEST_F(RequestsTest, Stop_WhileShowing_LetsTheShowingAnimationEnd)
{
    Load();
    const RequestRef show = bot->Show(std::nullopt);
    const RequestRef wave = bot->Play("Wave");
    host.Advance(50);
    bot->Stop(nullptr);
    EXPECT_EQ(StatusOf(show), 4);
    EXPECT_EQ(StatusOf(wave), 3);
    host.Advance(300);
    EXPECT_EQ(StatusOf(show), 0);
}

TEST_F(RequestsTest, Characters_WorkInParallel)
{
    source.files["second.acs"] = std::make_shared<engine::Character>(testing_character::Make(2));
    LoadShown();
    control->Characters()->Load("Other", "second.acs");
    const auto other = control->Characters()->Character("Other");
    other->SetIdleOn(false);
    const RequestRef mine = bot->Play("Wave");
    const RequestRef theirs = other->Show(std::nullopt);
    EXPECT_EQ(StatusOf(mine), 4);
    EXPECT_EQ(StatusOf(theirs), 4);
}

TEST_F(RequestsTest, AnEventHandler_MayQueueMore)
{
    LoadShown();
    bool queued = false;
    journal.onEvent = [&](const std::string& line) {
        if (!queued && line.rfind("RequestComplete", 0) == 0) {
            queued = true;
            Keep(bot->Play("Wave"));
        }
    };
    Keep(bot->Play("Greet"));
    host.RunUntilIdle();
    EXPECT_EQ(journal.Count("RequestComplete"), 2u);
}

TEST_F(RequestsTest, AnEventHandler_ThatPumpsEvents_GetsTheNextOnesNested)
{
    LoadShown();
    bool pumping = false;
    journal.onEvent = [&](const std::string&) {
        if (!pumping) {
            pumping = true;
            host.Advance(1000);
        }
    };
    Keep(bot->Play("Wave"));
    Keep(bot->Play("Greet"));
    host.RunUntilIdle();
    EXPECT_EQ(Requests(), (Lines{"RequestStart 3 status 4", "RequestComplete 3 status 0", "RequestStart 4 status 4",
                                 "RequestComplete 4 status 0"}));
}

TEST_F(RequestsTest, TenThousandEmptyAnimations_EndOneAfterAnother)
{
    LoadShown();
    RequestRef last;
    for (int index = 0; index < 10000; ++index)
        last = bot->Play("Nothing");
    host.RunUntilIdle();
    EXPECT_EQ(StatusOf(last), 0);
}

TEST_F(RequestsTest, Stop_WhileHiding_LetsTheHidingAnimationEnd)
{
    LoadShown();
    const RequestRef hide = bot->Hide(std::nullopt);
    const RequestRef wave = bot->Play("Wave");
    host.Advance(50);
    bot->Stop(nullptr);
    EXPECT_EQ(StatusOf(hide), 4);
    EXPECT_EQ(StatusOf(wave), 3);
    host.Advance(300);
    EXPECT_EQ(StatusOf(hide), 0);
    EXPECT_FALSE(host.Window().shown);
}

TEST_F(RequestsTest, Stop_WithAHideThatWaits_RemovesIt)
{
    LoadShown();
    const RequestRef wave = bot->Play("Wave");
    const RequestRef hide = bot->Hide(std::nullopt);
    bot->Stop(nullptr);
    EXPECT_EQ(StatusOf(wave), 3);
    EXPECT_EQ(StatusOf(hide), 3);
    host.RunUntilIdle();
    EXPECT_TRUE(host.Window().shown);
}

TEST(RequestDescription, OfEachCause_SaysItInASentence)
{
    const std::vector<std::pair<std::int32_t, std::string>> expected{
        {0, ""},
        {code::FileNotFound, "The file was not found."},
        {code::CharacterHidden, "The character is hidden."},
        {code::MoveWhileDragging, "The character cannot move while it is dragged."},
        {code::BadBookmark, "The bookmark number is not valid."},
        {code::RemovedFromQueue, "The request was removed from the queue."},
        {code::InterruptedByApplication, "The request was interrupted by the application."},
        {code::InterruptedByHiding, "The request was interrupted because the character was hidden."},
        {code::LastTagNotAlone, "The tag that repeats the last statement must stand alone."},
        {code::NotASoundFile, "The file is not a sound file."},
        {12345, "Application-defined or object-defined error"}};
    for (const auto& [number, text] : expected)
        EXPECT_EQ(engine::RequestDescription(number), text);
}
