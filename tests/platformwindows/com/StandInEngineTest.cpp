#include "platform/windows/com/AgentControl.h"
#include "platform/windows/com/Apartment.h"
#include "platform/windows/com/SpeechEngines.h"
#include "platformwindows/com/EngineFixture.h"
#include "windows/standins/Engine.h"
#include <gtest/gtest.h>

using comtest::Code;
using comtest::FailureNumber;
using comtest::FailureText;
using platform::RequestRef;
using platform::RequestStatus;

namespace {

// Hears what a program listens for.
class CListener final : public platform::ICharacterEngineEvents {
public:
    std::vector<std::string> lines;
    std::vector<RequestRef> started, completed;
    void Click(const std::string& id, std::int16_t button, std::int16_t, std::int16_t, std::int16_t) override
    {
        lines.push_back("Click " + id + " " + std::to_string(button));
    }
    void Show(const std::string& id, std::int16_t cause) override
    {
        lines.push_back("Show " + id + " " + std::to_string(cause));
    }
    void Command(const platform::IUserInput& input) override
    {
        lines.push_back("Command " + input.Name() + " " + std::to_string(input.Confidence()) + " " + input.Alt2Name());
    }
    void RequestStart(const RequestRef& request) override { started.push_back(request); }
    void RequestComplete(const RequestRef& request) override { completed.push_back(request); }
};

class StandInEngine : public testing::Test {
protected:
    ~StandInEngine() override
    {
        bot.reset();
        engine.reset();
        listener = {};
        EXPECT_EQ(scene->livingObjects, 0);
    }
    void Connect()
    {
        engine = platform::windowsdesktop::CAgentFactory().Create();
        engine->SetConnected(true);
        engine->SetEvents(&listener);
    }
    void Load()
    {
        Connect();
        engine->Characters()->Load("Bot", std::nullopt);
        bot = engine->Characters()->Character("Bot");
    }
    // Whether the event arrives however the control tells of its event interface.
    bool HearsAClick(const std::string& classInfo, bool ownEvents)
    {
        scene->Tell("class-info " + classInfo);
        scene->Tell(ownEvents ? "own-events on" : "own-events off");
        Connect();
        scene->Tell("event Click Bot 1 0 5 6");
        const bool heard = standins::PumpUntil([&] { return !listener.lines.empty(); });
        engine.reset();
        return heard;
    }

    platform::windowsdesktop::CComApartment apartment;
    std::shared_ptr<standins::CScene> scene = std::make_shared<standins::CScene>();
    standins::CInProcess classes{scene};
    CListener listener;
    std::shared_ptr<platform::ICharacterEngine> engine;
    std::shared_ptr<platform::ICharacter> bot;
};

}

TEST_F(StandInEngine, Events_OfAControlThatDeclaresThem_AreHeard) { EXPECT_TRUE(HearsAClick("both", /*ownEvents*/ true)); }

TEST_F(StandInEngine, Events_OfAControlThatDescribesItsClass_AreHeard)
{
    EXPECT_TRUE(HearsAClick("one", /*ownEvents*/ true));
}

TEST_F(StandInEngine, Events_OfAControlWithATypeLibraryAlone_AreHeard)
{
    EXPECT_TRUE(HearsAClick("library", /*ownEvents*/ true));
}

TEST_F(StandInEngine, Events_OfAControlThatTellsNothing_AreHeardByTheirKnownNumbers)
{
    EXPECT_TRUE(HearsAClick("none", /*ownEvents*/ false));
}

TEST_F(StandInEngine, Speak_UpToItsEnd_ReportsTheReturnedRequest)
{
    Load();
    bot->Show(true);
    const RequestRef speech = bot->Speak("Hello", std::nullopt);
    ASSERT_TRUE(standins::PumpUntil([&] { return !listener.completed.empty() && listener.completed.back() == speech; }));
    EXPECT_EQ(listener.started.back(), speech);
    EXPECT_EQ(speech->Status(), RequestStatus::Completed);
    EXPECT_EQ(speech->Number(), 0);
}

TEST_F(StandInEngine, Speak_WhoseRequestNobodyKeeps_IsReportedAllTheSame)
{
    Load();
    bot->Show(true);
    bot->Speak("Hello", std::nullopt);
    bot->Play("Wave");
    EXPECT_TRUE(standins::PumpUntil([&] { return listener.completed.size() >= 3; }));
}

TEST_F(StandInEngine, Requests_OneAfterAnother_StartAndEndInTheirOrder)
{
    Load();
    bot->Show(true);
    const std::vector<RequestRef> made{bot->Play("Greet"), bot->Speak("Hello", std::nullopt), bot->Play("RestPose")};
    ASSERT_TRUE(standins::PumpUntil([&] { return !listener.completed.empty() && listener.completed.back() == made[2]; }));
    const std::vector<RequestRef> ended(listener.completed.end() - 3, listener.completed.end());
    EXPECT_EQ(ended, made);
}

TEST_F(StandInEngine, StopAll_WhileOneRuns_InterruptsEveryRequest)
{
    Load();
    const RequestRef shown = bot->Show(true);
    ASSERT_TRUE(standins::PumpUntil([&] { return shown->Status() == RequestStatus::Completed; }));
    scene->Tell("hold on");
    const RequestRef first = bot->Speak("One", std::nullopt);
    const RequestRef second = bot->Speak("Two", std::nullopt);
    ASSERT_TRUE(standins::PumpUntil([&] { return first->Status() == RequestStatus::InProgress; }));
    EXPECT_EQ(second->Status(), RequestStatus::Pending);
    bot->StopAll(std::nullopt);
    ASSERT_TRUE(standins::PumpUntil([&] { return !listener.completed.empty() && listener.completed.back() == second; }));
    EXPECT_EQ(first->Status(), RequestStatus::Interrupted);
    EXPECT_EQ(first->Number(), Code(0x8004210C));
}

TEST_F(StandInEngine, Stop_OfOneRequest_LetsTheOthersGoOn)
{
    Load();
    bot->Show(true);
    scene->Tell("hold start");
    const RequestRef first = bot->Speak("One", std::nullopt);
    const RequestRef second = bot->Speak("Two", std::nullopt);
    bot->Stop(second);
    scene->Tell("hold off");
    ASSERT_TRUE(standins::PumpUntil([&] { return first->Status() == RequestStatus::Completed; }));
    EXPECT_NE(second->Status(), RequestStatus::Completed);
}

TEST_F(StandInEngine, Load_OfAMissingFile_KeepsTheCode)
{
    Connect();
    EXPECT_EQ(FailureNumber([&] { engine->Characters()->Load("Bot", "C:\\missing.acs"); }), Code(0x80070002));
    EXPECT_EQ(FailureNumber([&] { engine->Characters()->Load("Bot", std::nullopt); }), Code(0x8004200B));
}

TEST_F(StandInEngine, Members_BeforeItIsConnected_Fail)
{
    engine = platform::windowsdesktop::CAgentFactory().Create();
    EXPECT_FALSE(engine->Connected());
    EXPECT_EQ(FailureNumber([&] { engine->Characters(); }), Code(0x80042502));
}

TEST_F(StandInEngine, Exception_HeldBackByTheServer_IsAskedFor)
{
    Load();
    scene->Tell("fail Character.Play 0x80042003 deferred Agent \"no such animation\"");
    EXPECT_EQ(FailureText([&] { bot->Play("Wave"); }), "no such animation");
}

TEST_F(StandInEngine, Garbage_OfEachKind_IsAFailureOrAValue)
{
    Load();
    const auto left = [&](const char* kind) {
        scene->Tell(std::string("garbage get:Character.Left ") + kind);
        return FailureNumber([&] { bot->Left(); });
    };
    EXPECT_EQ(left("text"), 13);
    EXPECT_EQ(left("array"), 13);
    EXPECT_EQ(left("nothing"), 13);
    EXPECT_EQ(left("null"), 13);
    EXPECT_EQ(left("error"), 13);
    EXPECT_EQ(left("huge"), 6);
    EXPECT_EQ(left("empty"), 0);
    scene->Tell("garbage get:Character.Left number");
    EXPECT_EQ(bot->Left(), 12345);
}

TEST_F(StandInEngine, Server_Disconnected_FailsEveryCall)
{
    Load();
    bot->Show(true);
    const RequestRef speech = bot->Speak("Hello", std::nullopt);
    scene->Tell("disconnect");
    EXPECT_EQ(FailureNumber([&] { bot->Name(); }), Code(0x80010108));
    EXPECT_EQ(FailureNumber([&] { bot->Speak("More", std::nullopt); }), Code(0x80010108));
    EXPECT_EQ(FailureNumber([&] { speech->Status(); }), Code(0x80010108));
    EXPECT_EQ(FailureNumber([&] { engine->Characters(); }), Code(0x80010108));
}

TEST_F(StandInEngine, Event_InsideACall_ArrivesAfterIt)
{
    Load();
    scene->Tell("during get:Character.Name event Click Bot 1 0 5 6");
    bot->Name();
    EXPECT_EQ(listener.lines, std::vector<std::string>{});
    standins::PumpMessages();
    EXPECT_EQ(listener.lines, std::vector<std::string>{"Click Bot 1"});
}

TEST_F(StandInEngine, Command_FromTheEngine_GivesWhatWasHeard)
{
    Load();
    scene->Tell("event Command Bot Stop -39 stop First -50 first Second -60 second");
    ASSERT_TRUE(standins::PumpUntil([&] { return !listener.lines.empty(); }));
    EXPECT_EQ(listener.lines.front(), "Command Stop -39 Second");
}

TEST_F(StandInEngine, Flood_OfEvents_ArrivesWhole)
{
    Load();
    scene->Tell("repeat 1000 event Click Bot 2 0 5 6");
    EXPECT_TRUE(standins::PumpUntil([&] { return listener.lines.size() == 1000; }));
}

TEST_F(StandInEngine, AnimationNames_OfTheCharacter_AreListed)
{
    scene->Tell("animations Wave Greet RestPose");
    Load();
    EXPECT_EQ(bot->AnimationNames(), (std::vector<std::string>{"Wave", "Greet", "RestPose"}));
}

TEST_F(StandInEngine, NamedNumber_OfTheVolume_Fails438)
{
    Load();
    EXPECT_EQ(FailureNumber([&] { bot->NamedNumber("Volume"); }), 438);
}

TEST_F(StandInEngine, Unload_AfterRequestsThatNeverEnd_LeavesNone)
{
    Load();
    scene->Tell("hold on");
    bot->Speak("One", std::nullopt);
    bot->Speak("Two", std::nullopt);
    bot->StopAll(std::nullopt);
    bot.reset();
    engine->Characters()->Unload("Bot");
    standins::PumpMessages();
    EXPECT_EQ(FailureNumber([&] { engine->Characters()->Character("Bot")->Name(); }) == 0, false);
}

TEST_F(StandInEngine, SpeechList_OfTheService_IsReadWhole)
{
    const auto list = platform::windowsdesktop::CSapiSpeechEngines().Open();
    ASSERT_EQ(list->Count(), 3);
    EXPECT_EQ(list->ModeID(1), "{CA141FD0-AC7F-11D1-97A3-006008273000}");
    EXPECT_EQ(list->ModeName(3), "Voice Three");
    EXPECT_EQ(list->LanguageID(3), 0x0809);
    EXPECT_NE(FailureNumber([&] { list->ModeName(4); }), 0);
}
