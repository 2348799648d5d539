#include "platform/windows/com/MessageFilter.h"
#include "platform/windows/com/MessageWindow.h"
#include "platformwindows/com/EngineFixture.h"
#include "platformwindows/com/ServerThread.h"

using namespace comtest;
using platform::windowsdesktop::com::CMessageFilter;
using platform::windowsdesktop::com::CMessageWindow;

namespace {

// Something that one thread tells another.
class CSignal {
public:
    CSignal() : m_event(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {}
    ~CSignal() { CloseHandle(m_event); }
    CSignal(const CSignal&) = delete;
    CSignal& operator=(const CSignal&) = delete;
    void Set() const { SetEvent(m_event); }
    bool Wait(DWORD milliseconds = 20000) const { return WaitForSingleObject(m_event, milliseconds) == WAIT_OBJECT_0; }

private:
    HANDLE m_event;
};

// Does something when it gets a message.
class CActor final : public platform::windowsdesktop::com::IMessageReceiver {
public:
    explicit CActor(std::function<void()> act) : m_act(std::move(act)), m_window(*this) {}
    bool Receive(UINT message, WPARAM) override
    {
        if (message != WM_APP)
            return false;
        m_act();
        return true;
    }
    HWND Window() const { return m_window.Handle(); }

private:
    std::function<void()> m_act;
    CMessageWindow m_window;
};

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
// Tells when a waiting call is looked after.
class CAskedFilter final : public IMessageFilter {
public:
    explicit CAskedFilter(std::function<void()> asked) : m_asked(std::move(asked)) {}
    virtual ~CAskedFilter() = default;
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    DWORD STDMETHODCALLTYPE HandleInComingCall(DWORD, HTASK, DWORD, LPINTERFACEINFO) override
    {
        return SERVERCALL_ISHANDLED;
    }
    DWORD STDMETHODCALLTYPE RetryRejectedCall(HTASK, DWORD, DWORD) override { return static_cast<DWORD>(-1); }
    DWORD STDMETHODCALLTYPE MessagePending(HTASK, DWORD, DWORD) override
    {
        m_asked();
        return PENDINGMSG_WAITDEFPROCESS;
    }

private:
    std::function<void()> m_asked;
};
#pragma GCC diagnostic pop

class CBookmarks final : public platform::ICharacterEngineEvents {
public:
    std::vector<std::int32_t> numbers;
    void Bookmark(std::int32_t number) override { numbers.push_back(number); }
};

// The character lives in another apartment.
class OtherServer : public CEngineFixture {
protected:
    std::shared_ptr<platform::ICharacter> Remote(const CServerThread& server)
    {
        characters->answers[L"Character"] = Giving(CVariant(server.Proxy()));
        return Create()->Characters()->Character("Bot");
    }
    // A server whose object answers one member like that.
    CServerThread::Maker Answering(const std::wstring& member, Answer answer)
    {
        return [=, this] {
            TestRef remote = New("Remote");
            remote->answers[member] = answer;
            return remote;
        };
    }
    ~OtherServer() override
    {
        engine.reset();
        characters->answers.clear();
    }
};

bool MeansGone(std::int32_t number)
{
    for (const std::uint32_t code : {0x80010108U, 0x800706BAU, 0x800706BEU, 0x80010007U, 0x80010012U, 0x800706B5U})
        if (number == Code(code))
            return true;
    return false;
}

}

TEST_F(OtherServer, Member_OfAnObjectElsewhere_IsCalled)
{
    CServerThread server(Answering(L"Name", Giving(CVariant(std::string("Merlin")))));
    const auto bot = Remote(server);
    EXPECT_EQ(bot->Name(), "Merlin");
    bot->SetLeft(7);
    EXPECT_EQ(journal->back(), "put Remote.Left I2 7");
    server.ForgetProxy();
}

TEST_F(OtherServer, Failure_OfAnObjectElsewhere_KeepsItsCodeAndText)
{
    CServerThread server(Answering(L"Name", Raising(Code(0x8004200C), L"no balloon")));
    const auto bot = Remote(server);
    EXPECT_EQ(FailureNumber([&] { bot->Name(); }), Code(0x8004200C));
    EXPECT_EQ(FailureText([&] { bot->Name(); }), "no balloon");
}

TEST_F(OtherServer, Procedure_OfAServerElsewhere_IsNotCalledHere)
{
    static DWORD caller = 0;
    caller = 0;
    CServerThread server(Answering(L"Name", [](const CallOfMember& call) {
        call.exception->scode = static_cast<SCODE>(0x8004200C);
        call.exception->pfnDeferredFillIn = [](EXCEPINFO*) CALLBACK -> HRESULT {
            caller = GetCurrentThreadId();
            return S_OK;
        };
        return DISP_E_EXCEPTION;
    }));
    const auto bot = Remote(server);
    EXPECT_EQ(FailureNumber([&] { bot->Name(); }), Code(0x8004200C));
    EXPECT_NE(caller, GetCurrentThreadId());
}

TEST_F(OtherServer, Event_RaisedWhileACallWaits_ArrivesAfterTheCall)
{
    const CSignal raised;
    bool insideCall = false;
    const CActor actor([&] {
        control->Raise(16, {std::int32_t{1}});
        raised.Set();
    });
    CServerThread server(Answering(L"Name", [&](const CallOfMember& call) {
        SendNotifyMessageW(actor.Window(), WM_APP, 0, 0);  // Waiting calls take sent ones only.
        insideCall = raised.Wait();
        return Giving(CVariant(std::string("Merlin")))(call);
    }));
    CBookmarks events;
    const auto bot = Remote(server);
    engine->SetEvents(&events);
    EXPECT_EQ(bot->Name(), "Merlin");
    EXPECT_TRUE(insideCall);
    EXPECT_EQ(events.numbers, std::vector<std::int32_t>{});
    RunMessages();
    EXPECT_EQ(events.numbers, std::vector<std::int32_t>{1});
}

TEST_F(OtherServer, Server_ThatDies_FailsTheNextCallAndLetsEverythingEnd)
{
    CServerThread server(Answering(L"Name", Giving(CVariant(std::string("Merlin")))));
    const auto bot = Remote(server);
    EXPECT_EQ(bot->Name(), "Merlin");
    server.Die();
    const std::int32_t number = FailureNumber([&] { bot->Name(); });
    EXPECT_TRUE(MeansGone(number)) << std::hex << number;
    EXPECT_NE(FailureNumber([&] { bot->Play("Wave"); }), 0);
}

TEST_F(OtherServer, CallThatTakesLong_IsLookedAfter)
{
    const CSignal asked;
    CAskedFilter filter([&] { asked.Set(); });
    IMessageFilter* own = nullptr;
    CoRegisterMessageFilter(&filter, &own);
    bool lookedAfter = false;
    {
        CServerThread server(Answering(L"Name", [&](const CallOfMember&) {
            lookedAfter = asked.Wait();
            return S_OK;
        }));
        Remote(server)->Name();
    }
    CoRegisterMessageFilter(own, nullptr);
    EXPECT_TRUE(lookedAfter);
}

TEST(Apartment, Filter_OfItsCalls_IsOurs)
{
    const platform::windowsdesktop::CComApartment apartment;
    IMessageFilter* own = nullptr;
    CoRegisterMessageFilter(nullptr, &own);
    ASSERT_NE(own, nullptr);
    EXPECT_EQ(own->MessagePending(nullptr, 29999, PENDINGTYPE_TOPLEVEL), static_cast<DWORD>(PENDINGMSG_WAITDEFPROCESS));
    EXPECT_EQ(own->MessagePending(nullptr, 30000, PENDINGTYPE_TOPLEVEL), static_cast<DWORD>(PENDINGMSG_CANCELCALL));
}

TEST(MessageFilter, BusyServer_IsAskedAgainForAWhile)
{
    CMessageFilter filter;
    EXPECT_EQ(filter.RetryRejectedCall(nullptr, 0, SERVERCALL_RETRYLATER), 250u);
    EXPECT_EQ(filter.RetryRejectedCall(nullptr, 4999, SERVERCALL_RETRYLATER), 250u);
    EXPECT_EQ(filter.RetryRejectedCall(nullptr, 5000, SERVERCALL_RETRYLATER), static_cast<DWORD>(-1));
}

TEST(MessageFilter, ServerThatRefuses_IsNotAskedAgain)
{
    CMessageFilter filter;
    EXPECT_EQ(filter.RetryRejectedCall(nullptr, 0, SERVERCALL_REJECTED), static_cast<DWORD>(-1));
}

TEST(MessageFilter, SilentServer_IsGivenUpAfterHalfAMinute)
{
    CMessageFilter filter;
    EXPECT_EQ(filter.MessagePending(nullptr, 29999, PENDINGTYPE_TOPLEVEL), static_cast<DWORD>(PENDINGMSG_WAITDEFPROCESS));
    EXPECT_EQ(filter.MessagePending(nullptr, 30000, PENDINGTYPE_TOPLEVEL), static_cast<DWORD>(PENDINGMSG_CANCELCALL));
}

TEST(MessageFilter, CallsOfOthers_AreTaken)
{
    CMessageFilter filter;
    EXPECT_EQ(filter.HandleInComingCall(CALLTYPE_TOPLEVEL, nullptr, 0, nullptr), static_cast<DWORD>(SERVERCALL_ISHANDLED));
}

TEST(Apartment, Object_ReleasedAfterItsEnd_IsLeftAlone)
{
    const auto journal = std::make_shared<Journal>();
    TestRef object(new CTestObject("Object", journal));
    {
        const platform::windowsdesktop::CComApartment apartment;
    }
    IDispatch* raw = object.Raw();
    object = {};
    const ULONG references = raw->AddRef();
    EXPECT_EQ(references, 2u);
    raw->Release();
    raw->Release();
}

TEST(Apartment, Message_ForAfterTheCalls_IsPostedWhenTheOutermostEnds)
{
    int got = 0;
    const CActor actor([&] { ++got; });
    {
        const platform::windowsdesktop::com::COutgoingCall outer;
        {
            const platform::windowsdesktop::com::COutgoingCall inner;
            platform::windowsdesktop::com::PostAfterCalls(actor.Window(), WM_APP);
        }
        RunMessages();
        EXPECT_EQ(got, 0);
    }
    RunMessages();
    EXPECT_EQ(got, 1);
    EXPECT_FALSE(platform::windowsdesktop::com::COutgoingCall::InProgress());
}
