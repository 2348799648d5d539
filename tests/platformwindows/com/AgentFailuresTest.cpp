#include "platformwindows/com/EngineFixture.h"

using namespace comtest;

namespace {

class AgentFailures : public CEngineFixture {};

std::int32_t CreateFailure()
{
    return FailureNumber([] { platform::windowsdesktop::CAgentFactory().Create(); });
}

std::int32_t RequireFailure()
{
    return FailureNumber([] { platform::windowsdesktop::CAgentFactory().RequireForMainWindow(); });
}

CVariant ArrayValue()
{
    CVariant list;
    V_VT(&list.Raw()) = VT_ARRAY | VT_I4;
    V_ARRAY(&list.Raw()) = SafeArrayCreateVector(VT_I4, 0, 3);
    return list;
}

CVariant OfType(VARTYPE type)
{
    CVariant value;
    V_VT(&value.Raw()) = type;
    return value;
}

// The engine's documented codes, and those of a server that is gone.
const std::vector<std::uint32_t> Codes{
    0x80042001, 0x80042002, 0x80042003, 0x80042004, 0x80042006, 0x80042007, 0x80042008, 0x8004200A, 0x8004200B, 0x8004200C,
    0x8004200D, 0x8004200E, 0x8004200F, 0x80042010, 0x80042011, 0x80042012, 0x80042013, 0x80042014, 0x80042015, 0x80042016,
    0x80042017, 0x80042018, 0x80042101, 0x80042102, 0x80042103, 0x80042104, 0x80042105, 0x80042106, 0x80042108, 0x8004210A,
    0x8004210B, 0x8004210C, 0x8004210D, 0x8004210E, 0x80042201, 0x80042202, 0x80042203, 0x80042204, 0x80042205, 0x80042206,
    0x80042207, 0x80042208, 0x80042209, 0x80042301, 0x80042302, 0x80042304, 0x80042305, 0x80042306, 0x80042307, 0x80042308,
    0x80042309, 0x8004230A, 0x80042401, 0x80042402, 0x80042403, 0x80042404, 0x80042405, 0x80042406, 0x80042407, 0x80042408,
    0x80042502, 0x80070002, 0x8007000D, 0x80070057, 0x800705B4, 0x800C0002, 0x800C000E, 0x80004005, 0x8000FFFF, 0x80010001,
    0x8001010A, 0x8001010D, 0x80010108, 0x800706BA, 0x800706BE};

}

TEST_F(AgentFailures, Create_WithoutTheClass_Fails429)
{
    creatable = false;
    EXPECT_EQ(CreateFailure(), 429);
}

TEST_F(AgentFailures, Require_WithTheClass_CreatesAndLetsGo)
{
    platform::windowsdesktop::CAgentFactory().RequireForMainWindow();
    EXPECT_EQ(control->References(), 1u);
    EXPECT_EQ(*journal, Journal{});
}

TEST_F(AgentFailures, Require_WithoutTheClass_Fails339AndNamesTheControl)
{
    creatable = false;
    EXPECT_EQ(RequireFailure(), 339);
    const std::string text = FailureText([] { platform::windowsdesktop::CAgentFactory().RequireForMainWindow(); });
    EXPECT_NE(text.find("agentctl.dll"), std::string::npos) << text;
}

TEST(AgentNotRegistered, CreateAndRequire_WithoutTheName_Fail429And339)
{
    const platform::windowsdesktop::CComApartment apartment;
    EXPECT_EQ(CreateFailure(), 429);
    EXPECT_EQ(RequireFailure(), 339);
}

TEST(AgentNotRegistered, CreateAndRequire_WithANameOfNoClass_Fail429And339)
{
    const platform::windowsdesktop::CComApartment apartment;
    const CProgramName name(L"Agent.Control.2", EngineClass);
    EXPECT_EQ(CreateFailure(), 429);
    EXPECT_EQ(RequireFailure(), 339);
}

TEST_F(AgentFailures, Create_WhenTheControlRefusesOurReceiver_GivesItsCodeAndLeavesNothing)
{
    control->adviseResult = Code(0x80040201);
    EXPECT_EQ(CreateFailure(), Code(0x80040201));
    EXPECT_EQ(control->References(), 1u);
}

TEST_F(AgentFailures, EveryCode_AsAnException_KeepsItsNumberAndTheServersText)
{
    const auto bot = Character();
    for (const std::uint32_t code : Codes) {
        character->answers[L"Play"] = Raising(Code(code), L"because");
        EXPECT_EQ(FailureNumber([&] { bot->Play("Wave"); }), Code(code));
        EXPECT_EQ(FailureText([&] { bot->Play("Wave"); }), "because");
    }
}

TEST_F(AgentFailures, EveryCode_AsAResult_KeepsItsNumber)
{
    const auto bot = Character();
    for (const std::uint32_t code : Codes) {
        character->answers[L"Play"] = Failing(Code(code));
        EXPECT_EQ(FailureNumber([&] { bot->Play("Wave"); }), Code(code));
    }
}

TEST_F(AgentFailures, Code_ThatTheSystemKnows_HasItsText)
{
    character->answers[L"Play"] = Failing(E_ACCESSDENIED);
    const auto bot = Character();
    EXPECT_NE(FailureText([&] { bot->Play("Wave"); }).find("denied"), std::string::npos);
}

TEST_F(AgentFailures, Code_ThatNobodyKnows_HasTheGeneralText)
{
    const auto bot = Character();
    character->answers[L"Play"] = Failing(Code(0x8004200F));
    EXPECT_EQ(FailureText([&] { bot->Play("Wave"); }), "Application-defined or object-defined error");
    character->answers[L"Play"] = Raising(Code(0x8004200F), L"");
    EXPECT_EQ(FailureText([&] { bot->Play("Wave"); }), "Application-defined or object-defined error");
}

TEST_F(AgentFailures, Exception_FilledInOnDemand_IsAskedForItsText)
{
    character->answers[L"Play"] = [](const CallOfMember& call) {
        call.exception->pfnDeferredFillIn = [](EXCEPINFO* info) CALLBACK -> HRESULT {
            info->scode = static_cast<SCODE>(0x8004200B);
            info->bstrDescription = SysAllocString(L"later");
            return S_OK;
        };
        return DISP_E_EXCEPTION;
    };
    const auto bot = Character();
    EXPECT_EQ(FailureNumber([&] { bot->Play("Wave"); }), Code(0x8004200B));
    EXPECT_EQ(FailureText([&] { bot->Play("Wave"); }), "later");
}

TEST_F(AgentFailures, Exception_WithAShortCode_GivesThat)
{
    character->answers[L"Play"] = [](const CallOfMember& call) {
        call.exception->wCode = 1004;
        return DISP_E_EXCEPTION;
    };
    const auto bot = Character();
    EXPECT_EQ(FailureNumber([&] { bot->Play("Wave"); }), 1004);
}

TEST_F(AgentFailures, Exception_WithoutAnyCode_IsStillAFailure)
{
    character->answers[L"Play"] = Failing(DISP_E_EXCEPTION);
    const auto bot = Character();
    EXPECT_EQ(FailureNumber([&] { bot->Play("Wave"); }), static_cast<std::int32_t>(DISP_E_EXCEPTION));
}

TEST_F(AgentFailures, ResultsOfCom_WithANumberOfTheirOwn_AreRuntimeFailures)
{
    const auto bot = Character();
    const auto numberOf = [&](HRESULT result) {
        character->answers[L"Play"] = Failing(result);
        return FailureNumber([&] { bot->Play("Wave"); });
    };
    EXPECT_EQ(numberOf(DISP_E_TYPEMISMATCH), 13);
    EXPECT_EQ(numberOf(DISP_E_OVERFLOW), 6);
    EXPECT_EQ(numberOf(DISP_E_MEMBERNOTFOUND), 438);
}

TEST_F(AgentFailures, Member_ThatIsMissing_Fails438AndIsAskedForAgain)
{
    character->missing.insert(L"Play");
    const auto bot = Character();
    EXPECT_EQ(FailureNumber([&] { bot->Play("Wave"); }), 438);
    EXPECT_EQ(FailureNumber([&] { bot->Play("Wave"); }), 438);
}

TEST_F(AgentFailures, Numbers_OfGarbage_FailByTypeOrSize)
{
    const auto bot = Character();
    const auto leftOf = [&](const CVariant& value) {
        character->answers[L"Left"] = Giving(value);
        return FailureNumber([&] { bot->Left(); });
    };
    EXPECT_EQ(leftOf(std::string("no number")), 13);
    EXPECT_EQ(leftOf(std::string()), 13);
    EXPECT_EQ(leftOf(ArrayValue()), 13);
    EXPECT_EQ(leftOf(OfType(VT_NULL)), 13);
    EXPECT_EQ(leftOf(OfType(VT_DISPATCH)), 13);
    EXPECT_EQ(leftOf(OfType(VT_UNKNOWN)), 13);
    EXPECT_EQ(leftOf(balloon->Value()), 13);
    EXPECT_EQ(leftOf(CVariant::Omitted()), 13);
    EXPECT_EQ(leftOf(std::int32_t{32768}), 6);
    EXPECT_EQ(leftOf(std::int32_t{-32769}), 6);
    EXPECT_EQ(leftOf(std::int32_t{32767}), 0);
    EXPECT_EQ(leftOf(std::int32_t{-32768}), 0);
    EXPECT_EQ(leftOf(std::string("12")), 0);
}

TEST_F(AgentFailures, LongNumbers_OutOfRange_Fail6)
{
    const auto bot = Character();
    CVariant large;
    V_VT(&large.Raw()) = VT_R8;
    V_R8(&large.Raw()) = 1e300;
    character->answers[L"Pitch"] = Giving(large);
    EXPECT_EQ(FailureNumber([&] { bot->Pitch(); }), 6);
}

TEST_F(AgentFailures, Texts_AndTruths_OfGarbage_Fail13)
{
    const auto bot = Character();
    for (const CVariant& garbage : {ArrayValue(), OfType(VT_NULL), balloon->Value(), CVariant::Omitted()}) {
        character->answers[L"Name"] = Giving(garbage);
        character->answers[L"Visible"] = Giving(garbage);
        EXPECT_EQ(FailureNumber([&] { bot->Name(); }), 13);
        EXPECT_EQ(FailureNumber([&] { bot->Visible(); }), 13);
    }
}

TEST_F(AgentFailures, Text_WithoutAString_IsEmpty)
{
    const auto bot = Character();
    VARIANT value;
    V_VT(&value) = VT_BSTR;
    V_BSTR(&value) = nullptr;
    character->answers[L"Name"] = GivingRaw(value);
    EXPECT_EQ(bot->Name(), "");
}

TEST_F(AgentFailures, TypesThatDoNotExist_Fail13)
{
    const auto bot = Character();
    VARIANT value{};
    V_VT(&value) = 0x0FFF;
    character->answers[L"Name"] = GivingRaw(value);
    character->answers[L"Left"] = GivingRaw(value);
    character->answers[L"Play"] = GivingRaw(value);
    EXPECT_EQ(FailureNumber([&] { bot->Name(); }), 13);
    EXPECT_EQ(FailureNumber([&] { bot->Left(); }), 13);
    EXPECT_EQ(FailureNumber([&] { bot->Play("Wave"); }), 13);
}

TEST_F(AgentFailures, Request_OfGarbage_Fails13AndOfNothing91)
{
    const auto bot = Character();
    const auto numberOf = [&](const CVariant& value) {
        character->answers[L"Play"] = Giving(value);
        return FailureNumber([&] { bot->Play("Wave"); });
    };
    EXPECT_EQ(numberOf(CVariant()), 13);
    EXPECT_EQ(numberOf(std::int32_t{5}), 13);
    EXPECT_EQ(numberOf(ArrayValue()), 13);
    EXPECT_EQ(numberOf(OfType(VT_DISPATCH)), 91);
}

TEST_F(AgentFailures, PartOfTheEngine_OfGarbage_Fails13AndOfNothing91)
{
    const auto bot = Character();
    const auto numberOf = [&](const CVariant& value) {
        character->answers[L"Balloon"] = Giving(value);
        return FailureNumber([&] { bot->Balloon(); });
    };
    EXPECT_EQ(numberOf(std::string("balloon")), 13);
    EXPECT_EQ(numberOf(OfType(VT_DISPATCH)), 91);
}

TEST_F(AgentFailures, PartThatCannotBeCalledByName_Fails13)
{
    balloon->callableByName = false;
    VARIANT value;
    V_VT(&value) = VT_UNKNOWN;
    V_UNKNOWN(&value) = balloon.As<IUnknown>().Forget();
    character->answers[L"Balloon"] = GivingRaw(value);
    const auto bot = Character();
    EXPECT_EQ(FailureNumber([&] { bot->Balloon(); }), 13);
}

TEST_F(AgentFailures, AnimationNames_OfGarbage_Fail13)
{
    const TestRef names = New("Names");
    character->answers[L"AnimationNames"] = Giving(names->Value());
    const auto bot = Character();
    for (const CVariant& garbage : {CVariant(), CVariant(std::string("Wave")), OfType(VT_UNKNOWN), balloon->Value()}) {
        names->answers[L"_NewEnum"] = Giving(garbage);
        EXPECT_EQ(FailureNumber([&] { bot->AnimationNames(); }), 13);
    }
}

TEST_F(AgentFailures, Server_ThatIsGone_FailsEveryCallAndEndsQuietly)
{
    const auto bot = Character();
    const TestRef request = NewRequest(1);
    character->answers[L"Speak"] = Giving(request->Value());
    const platform::RequestRef kept = bot->Speak("Hi", std::nullopt);
    for (const wchar_t* member : {L"Status", L"ID", L"Number", L"Description"})
        request->answers[member] = Failing(Code(0x80010108));
    control->answers[L"Characters"] = Failing(Code(0x800706BA));
    EXPECT_EQ(FailureNumber([&] { kept->Status(); }), Code(0x80010108));
    EXPECT_EQ(FailureNumber([&] { kept->ID(); }), Code(0x80010108));
    EXPECT_EQ(FailureNumber([&] { engine->Characters(); }), Code(0x800706BA));
}

TEST_F(AgentFailures, ThousandOperations_OfEachKind_LeaveNoObjectAndNoHandle)
{
    const auto bot = Character();
    character->answers[L"Play"] = [&](const CallOfMember& call) { return Giving(NewRequest(9)->Value())(call); };
    const auto each = [&] {
        bot->Name();
        bot->SetName("Merlin");
        bot->Balloon()->FontName();
        bot->Commands()->Add("a", "b", "c", true, false);
        FailureNumber([&] { bot->NamedNumber("Volume"); });
        const platform::RequestRef request = bot->Play("Wave");
        const auto own = CVariant(character->Value());
        control->Raise(15, {std::string("Bot"), std::int16_t{4}});
        RunMessages();
        FailureNumber([&] { bot->Speak("fails", std::nullopt); });
    };
    each();
    DWORD handlesBefore = 0;
    GetProcessHandleCount(GetCurrentProcess(), &handlesBefore);
    const DWORD windowsBefore = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
    for (int index = 0; index < 1000; ++index)
        each();
    DWORD handlesAfter = 0;
    GetProcessHandleCount(GetCurrentProcess(), &handlesAfter);
    EXPECT_EQ(handlesAfter, handlesBefore);
    EXPECT_EQ(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS), windowsBefore);
}

TEST_F(AgentFailures, ThousandControls_OneAfterAnother_LeaveNoObjectAndNoHandle)
{
    Create();
    engine.reset();
    DWORD handlesBefore = 0;
    GetProcessHandleCount(GetCurrentProcess(), &handlesBefore);
    for (int index = 0; index < 1000; ++index) {
        Create()->SetConnected(true);
        engine.reset();
    }
    DWORD handlesAfter = 0;
    GetProcessHandleCount(GetCurrentProcess(), &handlesAfter);
    EXPECT_EQ(handlesAfter, handlesBefore);
    EXPECT_EQ(control->References(), 1u);
}
