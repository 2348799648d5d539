#include "platform/windows/com/EventQueue.h"
#include "platformwindows/com/EngineFixture.h"

using namespace comtest;
using platform::RequestRef;

namespace {

// Writes down every event with its arguments.
class CRecorder final : public platform::ICharacterEngineEvents {
public:
    std::vector<std::string> lines;
    std::vector<RequestRef> requests;
    std::function<void()> during;  // Runs inside each event.

    void Click(const std::string& id, std::int16_t button, std::int16_t shift, std::int16_t x, std::int16_t y) override
    {
        Mouse("Click", id, button, shift, x, y);
    }
    void DblClick(const std::string& id, std::int16_t button, std::int16_t shift, std::int16_t x, std::int16_t y) override
    {
        Mouse("DblClick", id, button, shift, x, y);
    }
    void DragStart(const std::string& id, std::int16_t button, std::int16_t shift, std::int16_t x, std::int16_t y) override
    {
        Mouse("DragStart", id, button, shift, x, y);
    }
    void DragComplete(const std::string& id, std::int16_t button, std::int16_t shift, std::int16_t x,
                      std::int16_t y) override
    {
        Mouse("DragComplete", id, button, shift, x, y);
    }
    void Show(const std::string& id, std::int16_t cause) override { Note("Show " + id, {cause}); }
    void Hide(const std::string& id, std::int16_t cause) override { Note("Hide " + id, {cause}); }
    void Move(const std::string& id, std::int16_t x, std::int16_t y, std::int16_t cause) override
    {
        Note("Move " + id, {x, y, cause});
    }
    void Size(const std::string& id, std::int16_t width, std::int16_t height) override
    {
        Note("Size " + id, {width, height});
    }
    void RequestStart(const RequestRef& request) override
    {
        requests.push_back(request);
        Note("RequestStart", {request->ID()});
    }
    void RequestComplete(const RequestRef& request) override
    {
        requests.push_back(request);
        Note("RequestComplete", {request->ID()});
    }
    void Command(const platform::IUserInput& input) override
    {
        Note("Command " + input.CharacterID() + " " + input.Name() + "/" + input.Voice() + " " + input.Alt1Name() + "/" +
                 input.Alt1Voice() + " " + input.Alt2Name() + "/" + input.Alt2Voice(),
             {input.Count(), input.Confidence(), input.Alt1Confidence(), input.Alt2Confidence()});
    }
    void Bookmark(std::int32_t number) override { Note("Bookmark", {number}); }
    void BalloonShow(const std::string& id) override { Note("BalloonShow " + id, {}); }
    void BalloonHide(const std::string& id) override { Note("BalloonHide " + id, {}); }
    void IdleStart(const std::string& id) override { Note("IdleStart " + id, {}); }
    void IdleComplete(const std::string& id) override { Note("IdleComplete " + id, {}); }
    void DefaultCharacterChange(const std::string& guid) override { Note("DefaultCharacterChange " + guid, {}); }

private:
    void Mouse(const std::string& what, const std::string& id, int button, int shift, int x, int y)
    {
        Note(what + " " + id, {button, shift, x, y});
    }
    void Note(std::string line, std::initializer_list<std::int32_t> numbers)
    {
        for (const std::int32_t number : numbers)
            line += " " + std::to_string(number);
        lines.push_back(line);
        if (during)
            during();
    }
};

constexpr DISPID ClickID = 2, DblClickID = 4, DragStartID = 5, DragCompleteID = 6, HideID = 7, RequestStartID = 9,
                 RequestCompleteID = 11, ShowID = 15, BookmarkID = 16, CommandID = 17, IdleStartID = 19, IdleCompleteID = 20,
                 MoveID = 22, SizeID = 23, BalloonShowID = 24, BalloonHideID = 25, DefaultCharacterChangeID = 30;

CVariant S(std::int16_t number) { return number; }
CVariant L(std::int32_t number) { return number; }
CVariant T(const char* text) { return std::string(text); }

// A value that stands somewhere else; `place` must outlive it.
template <class Value> CVariant Reference(VARTYPE type, Value* place)
{
    CVariant reference;
    V_VT(&reference.Raw()) = static_cast<VARTYPE>(type | VT_BYREF);
    V_BYREF(&reference.Raw()) = place;
    return reference;
}

class AgentEvents : public CEngineFixture {
protected:
    AgentEvents() { Listen(); }
    void Listen() { Create()->SetEvents(&recorder); }
    const std::vector<std::string>& Heard()
    {
        RunMessages();
        return recorder.lines;
    }
    CRecorder recorder;
};

using Lines = std::vector<std::string>;

}

TEST_F(AgentEvents, EachEvent_Raised_ArrivesWithEveryArgument)
{
    control->Raise(ClickID, {T("Bot"), S(1), S(2), S(300), S(-4)});
    control->Raise(DblClickID, {T("Bot"), S(2), S(0), S(5), S(6)});
    control->Raise(DragStartID, {T("Bot"), S(1), S(4), S(7), S(8)});
    control->Raise(DragCompleteID, {T("Bot"), S(1), S(4), S(9), S(10)});
    control->Raise(ShowID, {T("Bot"), S(4)});
    control->Raise(HideID, {T("Bot"), S(7)});
    control->Raise(MoveID, {T("Bot"), S(-10), S(20), S(1)});
    control->Raise(SizeID, {T("Bot"), S(128), S(129)});
    control->Raise(BookmarkID, {L(2000000000)});
    control->Raise(BalloonShowID, {T("Bot")});
    control->Raise(BalloonHideID, {T("Bot")});
    control->Raise(IdleStartID, {T("Bot")});
    control->Raise(IdleCompleteID, {T("Bot")});
    control->Raise(DefaultCharacterChangeID, {T("{CA14}")});
    EXPECT_EQ(Heard(), (Lines{"Click Bot 1 2 300 -4", "DblClick Bot 2 0 5 6", "DragStart Bot 1 4 7 8",
                              "DragComplete Bot 1 4 9 10", "Show Bot 4", "Hide Bot 7", "Move Bot -10 20 1",
                              "Size Bot 128 129", "Bookmark 2000000000", "BalloonShow Bot", "BalloonHide Bot",
                              "IdleStart Bot", "IdleComplete Bot", "DefaultCharacterChange {CA14}"}));
}

TEST_F(AgentEvents, Command_Raised_GivesEveryMemberOfTheInput)
{
    const TestRef input = New("Input");
    input->answers = {{L"CharacterID", Giving(T("Bot"))},  {L"Count", Giving(S(3))},         {L"Name", Giving(T("Stop"))},
                      {L"Confidence", Giving(L(-39))},     {L"Voice", Giving(T("stop it"))}, {L"Alt1Name", Giving(T("a"))},
                      {L"Alt1Confidence", Giving(L(-50))}, {L"Alt1Voice", Giving(T("av"))},  {L"Alt2Name", Giving(T("b"))},
                      {L"Alt2Confidence", Giving(L(-60))}, {L"Alt2Voice", Giving(T("bv"))}};
    control->Raise(CommandID, {input->Value()});
    EXPECT_EQ(Heard(), Lines{"Command Bot Stop/stop it a/av b/bv 3 -39 -50 -60"});
}

TEST_F(AgentEvents, Command_OfAnInputThatAnswersOnlyDuringItsEvent_ArrivesWhole)
{
    const TestRef input = New("Input");
    for (const wchar_t* text : {L"CharacterID", L"Name", L"Voice", L"Alt1Name", L"Alt1Voice", L"Alt2Name", L"Alt2Voice"})
        input->answers[text] = Giving(T("x"));
    for (const wchar_t* number : {L"Count", L"Confidence", L"Alt1Confidence", L"Alt2Confidence"})
        input->answers[number] = Giving(L(7));
    control->Raise(CommandID, {input->Value()});
    for (auto& [member, answer] : input->answers)
        answer = Failing(RPC_E_DISCONNECTED);
    EXPECT_EQ(Heard(), Lines{"Command x x/x x/x x/x 7 7 7 7"});
}

TEST_F(AgentEvents, Command_OfAnInputWithAMemberThatFails_FailsWhenThatIsAskedFor)
{
    struct CAsking final : platform::ICharacterEngineEvents {
        void Command(const platform::IUserInput& input) override
        {
            failure = FailureNumber([&] { input.Name(); });
            confidence = input.Confidence();
        }
        std::int32_t failure = 0, confidence = 0;
    } asking;
    const TestRef input = New("Input");
    input->answers = {{L"Name", Failing(E_OUTOFMEMORY)}, {L"Confidence", Giving(L(50))}};
    engine->SetEvents(&asking);
    control->Raise(CommandID, {input->Value()});
    RunMessages();
    EXPECT_NE(asking.failure, 0);
    EXPECT_EQ(asking.confidence, 50);
}

TEST_F(AgentEvents, Event_ThatComesWhileAnotherIsRead_ArrivesAfterIt)
{
    const TestRef input = New("Input");
    input->answers[L"Name"] = [&](const CallOfMember& call) {
        control->Raise(BookmarkID, {L(2)});
        RunMessages();
        return Giving(T("Stop"))(call);
    };
    control->Raise(BookmarkID, {L(1)});
    control->Raise(CommandID, {input->Value()});
    ASSERT_EQ(Heard().size(), 3u);
    EXPECT_EQ(recorder.lines[0], "Bookmark 1");
    EXPECT_EQ(recorder.lines[1].substr(0, 7), "Command");
    EXPECT_EQ(recorder.lines[2], "Bookmark 2");
}

TEST_F(AgentEvents, EngineThatGoesWhileAnEventIsRead_DeliversNothing)
{
    const TestRef input = New("Input");
    input->answers[L"Name"] = [&](const CallOfMember&) {
        engine.reset();
        return S_OK;
    };
    control->Raise(CommandID, {input->Value()});
    EXPECT_EQ(Heard(), Lines{});
}

TEST_F(AgentEvents, Arguments_ByReferenceAndOfOtherTypes_AreConverted)
{
    const CBstr id(std::string_view("Bot"));
    BSTR text = id.Raw();
    std::int32_t button = 1;
    std::int16_t shift = 2;
    VARIANT x;
    V_VT(&x) = VT_I4;
    V_I4(&x) = 300;
    control->Raise(ClickID, {Reference(VT_BSTR, &text), Reference(VT_I4, &button), Reference(VT_I2, &shift),
                             Reference(VT_VARIANT, &x), T("44")});
    EXPECT_EQ(Heard(), Lines{"Click Bot 1 2 300 44"});
}

TEST_F(AgentEvents, Arguments_OfGarbage_MakeNoEventAndNoCrash)
{
    CVariant nowhere;
    V_VT(&nowhere.Raw()) = VT_BSTR | VT_BYREF;
    CVariant unknownType;
    V_VT(&unknownType.Raw()) = 0x0FFF;
    CVariant list;
    V_VT(&list.Raw()) = VT_ARRAY | VT_I4;
    V_ARRAY(&list.Raw()) = SafeArrayCreateVector(VT_I4, 0, 3);
    control->Raise(ShowID, {});
    control->Raise(ShowID, {T("Bot")});
    control->Raise(ShowID, {T("Bot"), T("no number")});
    control->Raise(ShowID, {T("Bot"), L(70000)});
    control->Raise(ShowID, {nowhere, S(1)});
    control->Raise(ShowID, {list, S(1)});
    control->Raise(ShowID, {T("Bot"), CVariant::Omitted()});
    control->Raise(RequestCompleteID, {S(1)});
    control->Raise(RequestCompleteID, {CVariant(CInterface<IDispatch>())});
    control->Raise(CommandID, {T("Stop")});
    control->Raise(4711, {T("Bot"), S(1)});
    VARIANT odd = unknownType.Raw();
    DISPPARAMS parameters{&odd, nullptr, 1, 0};
    EXPECT_EQ(control->receiver->Invoke(BalloonShowID, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr),
              S_OK);
    EXPECT_EQ(control->receiver->Invoke(ClickID, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr), S_OK);
    EXPECT_EQ(Heard(), Lines{});
    V_VT(&unknownType.Raw()) = VT_EMPTY;
}

TEST_F(AgentEvents, UnknownEvent_Raised_IsAnsweredWithSuccess)
{
    DISPPARAMS nothing{};
    EXPECT_EQ(control->receiver->Invoke(31, IID_NULL, 0, DISPATCH_METHOD, &nothing, nullptr, nullptr, nullptr), S_OK);
    EXPECT_EQ(control->receiver->Invoke(-99, IID_NULL, 0, DISPATCH_METHOD, &nothing, nullptr, nullptr, nullptr), S_OK);
}

TEST_F(AgentEvents, Receiver_Asked_IsTheEventInterfaceTooAndNothingElse)
{
    const auto& receiver = control->receiver;
    EXPECT_TRUE(receiver.As<IUnknown>());
    EXPECT_TRUE(receiver.As<IDispatch>());
    EXPECT_TRUE(receiver.As<IDispatch>(CTestControl::Events));
    EXPECT_FALSE(receiver.As<IPersist>());
}

TEST_F(AgentEvents, Event_RaisedInsideACall_ArrivesOnlyFromTheMessageLoop)
{
    const auto bot = engine->Characters()->Character("Bot");
    std::size_t insideCall = 99;
    character->answers[L"Visible"] = [&](const CallOfMember&) {
        control->Raise(ShowID, {T("Bot"), S(4)});
        RunMessages();  // As the system's own loop of a waiting call may do.
        insideCall = recorder.lines.size();
        return S_OK;
    };
    bot->Visible();
    EXPECT_EQ(insideCall, 0u);
    EXPECT_EQ(recorder.lines, Lines{});
    EXPECT_EQ(Heard(), Lines{"Show Bot 4"});
}

TEST_F(AgentEvents, Events_RaisedInsideCallsAndOutside_KeepTheirOrder)
{
    const auto bot = engine->Characters()->Character("Bot");
    character->answers[L"Visible"] = [&](const CallOfMember&) {
        control->Raise(BookmarkID, {L(2)});
        RunMessages();
        control->Raise(BookmarkID, {L(3)});
        return S_OK;
    };
    control->Raise(BookmarkID, {L(1)});
    bot->Visible();
    control->Raise(BookmarkID, {L(4)});
    EXPECT_EQ(Heard(), (Lines{"Bookmark 1", "Bookmark 2", "Bookmark 3", "Bookmark 4"}));
}

TEST_F(AgentEvents, Receiver_ThatRunsAMessageLoop_GetsTheLaterEventsThere)
{
    int depth = 0;
    int deepest = 0;
    recorder.during = [&] {
        deepest = std::max(deepest, ++depth);
        if (recorder.lines.size() == 1)
            RunMessages();
        --depth;
    };
    control->Raise(BookmarkID, {L(1)});
    control->Raise(BookmarkID, {L(2)});
    control->Raise(BookmarkID, {L(3)});
    EXPECT_EQ(Heard(), (Lines{"Bookmark 1", "Bookmark 2", "Bookmark 3"}));
    EXPECT_EQ(deepest, 2);
}

TEST_F(AgentEvents, Flood_OfEvents_LosesNoneAndDoesNotNest)
{
    int depth = 0;
    int deepest = 0;
    recorder.during = [&] {
        deepest = std::max(deepest, ++depth);
        --depth;
    };
    for (std::int32_t number = 1; number <= 20000; ++number)
        control->Raise(BookmarkID, {L(number)});
    ASSERT_EQ(Heard().size(), 20000u);
    EXPECT_EQ(recorder.lines.back(), "Bookmark 20000");
    EXPECT_EQ(deepest, 1);
}

// What comes in place of the message when the thread's queue of messages is full.
TEST_F(AgentEvents, Timer_InPlaceOfTheMessage_DeliversTheNextEvent)
{
    const auto queue = std::make_shared<platform::windowsdesktop::com::CEventQueue>();
    queue->SetReceiver(&recorder);
    for (const std::int32_t number : {1, 2})
        queue->Add([number](platform::ICharacterEngineEvents& receiver) { receiver.Bookmark(number); });
    EXPECT_TRUE(queue->Receive(WM_TIMER, WM_APP));
    EXPECT_EQ(recorder.lines, Lines{"Bookmark 1"});
    EXPECT_EQ(Heard(), (Lines{"Bookmark 1", "Bookmark 2"}));
    EXPECT_FALSE(queue->Receive(WM_TIMER, 3));
}

TEST_F(AgentEvents, SetEvents_ToNobody_EndsTheWaitingOnesToo)
{
    control->Raise(BookmarkID, {L(1)});
    engine->SetEvents(nullptr);
    EXPECT_EQ(Heard(), Lines{});
    engine->SetEvents(&recorder);
    control->Raise(BookmarkID, {L(2)});
    EXPECT_EQ(Heard(), Lines{"Bookmark 2"});
}

TEST_F(AgentEvents, Control_Destroyed_DeliversNoEventAnyMore)
{
    const CInterface<IDispatch> kept = control->receiver;
    control->Raise(BookmarkID, {L(1)});
    engine.reset();
    VARIANT number = L(2).Raw();
    DISPPARAMS parameters{&number, nullptr, 1, 0};
    EXPECT_EQ(kept->Invoke(BookmarkID, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr), S_OK);
    EXPECT_EQ(Heard(), Lines{});
}

TEST_F(AgentEvents, Receiver_ThatDestroysTheControl_IsNotCalledAgain)
{
    recorder.during = [&] { engine.reset(); };
    control->Raise(BookmarkID, {L(1)});
    control->Raise(BookmarkID, {L(2)});
    EXPECT_EQ(Heard(), Lines{"Bookmark 1"});
}

TEST_F(AgentEvents, Receiver_ThatThrows_StopsNoLaterEvent)
{
    recorder.during = [] { throw platform::failure::InvalidCall(); };
    control->Raise(BookmarkID, {L(1)});
    control->Raise(BookmarkID, {L(2)});
    EXPECT_EQ(Heard(), (Lines{"Bookmark 1", "Bookmark 2"}));
}

TEST_F(AgentEvents, Request_Completed_IsTheOneThatTheCallReturned)
{
    const TestRef request = NewRequest(5);
    character->answers[L"Speak"] = Giving(request->Value());
    const auto bot = engine->Characters()->Character("Bot");
    const RequestRef returned = bot->Speak("Hi", std::nullopt);
    control->Raise(RequestStartID, {request->Value()});
    control->Raise(RequestCompleteID, {request->Value()});
    EXPECT_EQ(Heard(), (Lines{"RequestStart 5", "RequestComplete 5"}));
    ASSERT_EQ(recorder.requests.size(), 2u);
    EXPECT_EQ(recorder.requests[0].get(), returned.get());
    EXPECT_EQ(recorder.requests[1].get(), returned.get());
}

TEST_F(AgentEvents, Request_InAnotherObjectOfTheSameNumber_IsTheReturnedOne)
{
    const TestRef request = NewRequest(5);
    const TestRef twin = NewRequest(5);
    character->answers[L"Speak"] = Giving(request->Value());
    const RequestRef returned = engine->Characters()->Character("Bot")->Speak("Hi", std::nullopt);
    control->Raise(RequestCompleteID, {twin->Value()});
    RunMessages();
    ASSERT_EQ(recorder.requests.size(), 1u);
    EXPECT_EQ(recorder.requests[0].get(), returned.get());
}

TEST_F(AgentEvents, Request_ThatCompletesBeforeTheCallReturns_IsTheReturnedOne)
{
    const TestRef request = NewRequest(5);
    character->answers[L"Speak"] = [&](const CallOfMember& call) {
        control->Raise(RequestCompleteID, {request->Value()});
        RunMessages();
        return Giving(request->Value())(call);
    };
    const RequestRef returned = engine->Characters()->Character("Bot")->Speak("Hi", std::nullopt);
    RunMessages();
    ASSERT_EQ(recorder.requests.size(), 1u);
    EXPECT_EQ(recorder.requests[0].get(), returned.get());
}

TEST_F(AgentEvents, Request_ThatAnswersOnlyDuringItsEvent_KeepsItsNumberAndOutcome)
{
    const TestRef request = NewRequest(5);
    character->answers[L"Speak"] = Giving(request->Value());
    const RequestRef returned = engine->Characters()->Character("Bot")->Speak("Hi", std::nullopt);
    request->answers[L"Status"] = Giving(L(1));
    control->Raise(RequestCompleteID, {request->Value()});
    for (auto& [member, answer] : request->answers)
        answer = Failing(RPC_E_DISCONNECTED);
    EXPECT_EQ(Heard(), Lines{"RequestComplete 5"});
    EXPECT_EQ(returned->Status(), platform::RequestStatus::Failed);
}

TEST_F(AgentEvents, Request_InAnotherObjectThatAnswersOnlyDuringItsEvent_GivesItsOutcomeToTheReturnedOne)
{
    const TestRef request = NewRequest(5);
    const TestRef twin = NewRequest(5);
    twin->answers[L"Status"] = Giving(L(3));
    character->answers[L"Speak"] = Giving(request->Value());
    const RequestRef returned = engine->Characters()->Character("Bot")->Speak("Hi", std::nullopt);
    control->Raise(RequestCompleteID, {twin->Value()});
    for (auto& [member, answer] : twin->answers)
        answer = Failing(RPC_E_DISCONNECTED);
    RunMessages();
    ASSERT_EQ(recorder.requests.size(), 1u);
    EXPECT_EQ(recorder.requests[0]->Status(), platform::RequestStatus::Interrupted);
    EXPECT_EQ(recorder.requests[0].get(), returned.get());
}

TEST_F(AgentEvents, Request_StillRunningAtItsEvent_IsAskedAnew)
{
    const TestRef request = NewRequest(5);
    control->Raise(RequestCompleteID, {request->Value()});
    RunMessages();
    request->answers[L"Status"] = Giving(L(0));
    ASSERT_EQ(recorder.requests.size(), 1u);
    EXPECT_EQ(recorder.requests[0]->Status(), platform::RequestStatus::Completed);
}

TEST_F(AgentEvents, Request_ThatNobodyKeeps_IsHeldUntilItHasCompleted)
{
    const TestRef request = NewRequest(5);
    character->answers[L"Speak"] = [&](const CallOfMember& call) { return Giving(request->Value())(call); };
    engine->Characters()->Character("Bot")->Speak("Hi", std::nullopt);
    character->answers.erase(L"Speak");
    EXPECT_EQ(request->References(), 2u);  // The test's and the client's.
    control->Raise(RequestCompleteID, {request->Value()});
    EXPECT_EQ(Heard(), Lines{"RequestComplete 5"});
    recorder.requests.clear();
    EXPECT_EQ(request->References(), 1u);
}

TEST_F(AgentEvents, Request_CompletedWhileNobodyListens_IsLetGo)
{
    const TestRef request = NewRequest(5);
    character->answers[L"Speak"] = [&](const CallOfMember& call) { return Giving(request->Value())(call); };
    engine->Characters()->Character("Bot")->Speak("Hi", std::nullopt);
    character->answers.erase(L"Speak");
    engine->SetEvents(nullptr);
    control->Raise(RequestCompleteID, {request->Value()});
    RunMessages();
    EXPECT_EQ(request->References(), 1u);
}

TEST_F(AgentEvents, Request_ThatStarts_LetsFormerOnesOfItsCharacterGo)
{
    const TestRef other = New("Other");
    const auto answering = [](const TestRef& request) {
        return [&](const CallOfMember& call) { return Giving(request->Value())(call); };
    };
    const TestRef first = NewRequest(1), elsewhere = NewRequest(2), second = NewRequest(3), third = NewRequest(4);
    const auto bot = engine->Characters()->Character("Bot");
    characters->answers[L"Character"] = Giving(other->Value());
    other->answers[L"Play"] = answering(elsewhere);
    const auto neighbour = engine->Characters()->Character("Neighbour");
    for (const TestRef* request : {&first, &second, &third}) {
        character->answers[L"Play"] = answering(*request);
        bot->Play("Wave");
        if (request == &first)
            neighbour->Play("Wave");
    }
    control->Raise(RequestStartID, {second->Value()});
    RunMessages();
    recorder.requests.clear();
    EXPECT_EQ(first->References(), 1u);
    EXPECT_EQ(elsewhere->References(), 2u);
    EXPECT_EQ(second->References(), 2u);
    EXPECT_EQ(third->References(), 2u);
    other->answers.clear();
}

TEST_F(AgentEvents, Requests_OfAnUnloadedCharacter_AreHeldForTheirLastEvents)
{
    const TestRef request = NewRequest(1);
    character->answers[L"Play"] = [&](const CallOfMember& call) { return Giving(request->Value())(call); };
    const auto list = engine->Characters();
    list->Character("Bot")->Play("Wave");
    list->Unload("Bot");
    EXPECT_EQ(request->References(), 2u);
    list->Unload("Bot");
    EXPECT_EQ(request->References(), 1u);
}

TEST_F(AgentEvents, TenThousandRequests_AtATime_AreNeverAskedForTheirState)
{
    std::vector<TestRef> made;
    character->answers[L"Speak"] = [&](const CallOfMember& call) {
        made.push_back(NewRequest(static_cast<std::int32_t>(made.size())));
        return Giving(made.back()->Value())(call);
    };
    const auto bot = engine->Characters()->Character("Bot");
    journal->clear();
    for (int index = 0; index < 10000; ++index)
        bot->Speak("line", std::nullopt);
    EXPECT_EQ(journal->size(), 10000u);
    for (const TestRef& request : made)
        control->Raise(RequestCompleteID, {request->Value()});
    RunMessages();
    recorder.requests.clear();
    for (const TestRef& request : made)
        ASSERT_EQ(request->References(), 1u);
}

TEST_F(AgentEvents, Request_Asked_AnswersAnewEachTime)
{
    const TestRef request = NewRequest(5);
    character->answers[L"Speak"] = Giving(request->Value());
    const RequestRef returned = engine->Characters()->Character("Bot")->Speak("Hi", std::nullopt);
    EXPECT_EQ(returned->Status(), platform::RequestStatus::Pending);
    request->answers[L"Status"] = Giving(L(3));
    request->answers[L"Number"] = Giving(L(Code(0x8004210C)));
    request->answers[L"Description"] = Giving(T("stopped"));
    EXPECT_EQ(returned->Status(), platform::RequestStatus::Interrupted);
    EXPECT_EQ(returned->Number(), Code(0x8004210C));
    EXPECT_EQ(returned->Description(), "stopped");
    request->answers[L"Status"] = Giving(L(77));
    EXPECT_EQ(FailureNumber([&] { returned->Status(); }), 380);
}
