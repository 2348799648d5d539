#include "platform/windows/com/AgentControl.h"
#include "platform/windows/com/Apartment.h"
#include "platformwindows/com/EngineFixture.h"
#include "platformwindows/com/TestProgram.h"
#include "windows/standins/Commands.h"
#include "windows/standins/Engine.h"
#include "windows/standins/Loop.h"

using comtest::CProgram;
using comtest::FailureNumber;
using platform::RequestRef;
using platform::RequestStatus;

namespace {

class CCompletions final : public platform::ICharacterEngineEvents {
public:
    std::vector<RequestRef> completed;
    std::vector<std::string> lines;
    void RequestComplete(const RequestRef& request) override { completed.push_back(request); }
    void Click(const std::string& id, std::int16_t button, std::int16_t, std::int16_t x, std::int16_t y) override
    {
        lines.push_back(id + " " + std::to_string(button) + " " + std::to_string(x) + " " + std::to_string(y));
    }
};

// The engine, in a process of its own.
class OtherProcess : public testing::Test {
protected:
    OtherProcess() { CProgram(L"agentstandin.exe", L"/regserver").Wait(); }
    // Starts it.
    void SetUp() override
    {
        ASSERT_EQ(FailureNumber([&] { engine = platform::windowsdesktop::CAgentFactory().Create(); }), 0);
        engine->SetEvents(&events);
        engine->SetConnected(true);
        engine->Characters()->Load("Bot", std::nullopt);
        bot = engine->Characters()->Character("Bot");
    }
    ~OtherProcess() override
    {
        bot.reset();
        events.completed.clear();
        engine.reset();
        EXPECT_TRUE(standins::PumpUntil([] { return !standins::WaitForStandIn(0, "engine"); }));
        standins::Unregister();
    }
    static void Tell(const std::string& command)
    {
        EXPECT_EQ(standins::AskStandIn(command, "engine"), standins::Answer::Understood) << command;
    }

    platform::windowsdesktop::CComApartment apartment;
    CCompletions events;
    std::shared_ptr<platform::ICharacterEngine> engine;
    std::shared_ptr<platform::ICharacter> bot;
};

}

TEST_F(OtherProcess, Session_UpToASpokenText_ReportsTheReturnedRequest)
{
    bot->Show(true);
    const RequestRef speech = bot->Speak("Hello \xE2\x82\xAC", std::nullopt);
    ASSERT_TRUE(standins::PumpUntil([&] { return !events.completed.empty() && events.completed.back() == speech; }));
    EXPECT_EQ(speech->Status(), RequestStatus::Completed);
}

TEST_F(OtherProcess, Event_OfTheServer_ArrivesWithItsArguments)
{
    Tell("event Click Bot 1 0 300 400");
    ASSERT_TRUE(standins::PumpUntil([&] { return !events.lines.empty(); }));
    EXPECT_EQ(events.lines.front(), "Bot 1 300 400");
}

TEST_F(OtherProcess, Failure_OfTheServer_KeepsItsCode)
{
    Tell("fail Character.Play 0x80042003");
    EXPECT_EQ(FailureNumber([&] { bot->Play("Wave"); }), comtest::Code(0x80042003));
}

TEST_F(OtherProcess, Server_ThatDiesInsideACall_FailsItAndEveryLaterOne)
{
    const RequestRef kept = bot->Play("Wave");
    Tell("during get:Character.Name die");
    EXPECT_LT(FailureNumber([&] { bot->Name(); }), 0);
    EXPECT_LT(FailureNumber([&] { bot->Speak("more", std::nullopt); }), 0);
    EXPECT_LT(FailureNumber([&] { kept->Status(); }), 0);
    EXPECT_LT(FailureNumber([&] { engine->Characters(); }), 0);
}

TEST_F(OtherProcess, ManyTexts_Queued_AreAllReported)
{
    Tell("pace 0");
    bot->Show(true);
    std::vector<RequestRef> spoken;
    for (int index = 0; index < 200; ++index)
        spoken.push_back(bot->Speak("line", std::nullopt));
    ASSERT_TRUE(standins::PumpUntil([&] { return !events.completed.empty() && events.completed.back() == spoken.back(); }));
    ASSERT_GE(events.completed.size(), 200u);
    EXPECT_TRUE(std::equal(spoken.begin(), spoken.end(), events.completed.end() - 200));
}
