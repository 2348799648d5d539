#include "windows/standins/TestClient.h"
#include <algorithm>

namespace standins {
namespace {

using Lines = std::vector<std::string>;

class StandIn : public CEngineTest {};

constexpr HRESULT Code(unsigned code) { return static_cast<HRESULT>(code); }

std::string FileIn(const char* folder, const char* name)
{
    CreateDirectoryW(Wide(folder).c_str(), nullptr);
    return std::string(folder) + "\\" + name;
}

// The type that a class gives as its default source of events; null when it names none.
CRef<ITypeInfo> DefaultSource(ITypeInfo& coclass)
{
    constexpr int wanted = IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE;
    CRef<ITypeInfo> found;
    for (UINT index = 0; index < 2 && !found; ++index) {
        int flags = 0;
        HREFTYPE reference = 0;
        if (SUCCEEDED(coclass.GetImplTypeFlags(index, &flags)) && (flags & wanted) == wanted &&
            SUCCEEDED(coclass.GetRefTypeOfImplType(index, &reference)))
            coclass.GetRefTypeInfo(reference, found.Receive());
    }
    return found;
}

template <class Interface> CRef<Interface> Query(IUnknown* object)
{
    CRef<Interface> found;
    object->QueryInterface(__uuidof(Interface), reinterpret_cast<void**>(found.Receive()));
    return found;
}

}

TEST_F(StandIn, GetIDsOfNames_OddCase_FindsTheDocumentedNumber)
{
    EXPECT_EQ(CCaller(NewControl(scene)).ID("raiseREQUESTerrors"), 21);
}

TEST_F(StandIn, GetIDsOfNames_Volume_IsUnknownAndRecorded)
{
    CCaller character = LoadDefault();

    EXPECT_EQ(character.ID("Volume"), DISPID_UNKNOWN);

    EXPECT_EQ(character.lastResult, DISP_E_UNKNOWNNAME);
    EXPECT_EQ(scene->log.LinesWith("unknown "), Lines{"unknown Character[Bot].Volume"});
}

TEST_F(StandIn, Invoke_BeforeConnected_FailsWithTheEnginesCodeAsAnException)
{
    CCaller unconnected(NewControl(scene));

    unconnected.Get("Characters");

    EXPECT_EQ(unconnected.lastResult, DISP_E_EXCEPTION);
    EXPECT_EQ(unconnected.exception.scode, Code(0x80042502));
}

TEST_F(StandIn, Invoke_ArgumentsOmittedAtTheEndAndInTheMiddle_AreRecordedApart)
{
    CCaller character = LoadDefault();

    character.Hold("Speak", {CValue::Omitted(), CValue("a.wav")});
    character.Hold("Speak", {CValue("Hello")});
    character.Hold("Speak", {CValue(""), CValue::Omitted()});

    EXPECT_EQ(Calls(), (Lines{"call Character[Bot].Speak(-, BSTR \"a.wav\")", "call Character[Bot].Speak(BSTR \"Hello\")",
                              "call Character[Bot].Speak(BSTR \"\", -)"}));
}

TEST_F(StandIn, Invoke_TextWithQuotesLinesAndForeignLetters_IsRecordedOnOneLine)
{
    CCaller character = LoadDefault();

    character.Hold("Speak", {CValue("\\Chr=\"Whisper\"\\a\r\nb \xC3\xA4")});

    EXPECT_EQ(Calls(), Lines{"call Character[Bot].Speak(BSTR \"\\\\Chr=\\\"Whisper\\\"\\\\a\\r\\nb \xC3\xA4\")"});
}

TEST_F(StandIn, Invoke_PutWithoutTheNamedArgument_IsRefused)
{
    CCaller character = LoadDefault();
    VARIANT value = CValue(std::int16_t{5}).Detach();
    DISPPARAMS parameters{&value, nullptr, 1, 0};

    const HRESULT result =
        character.Raw()->Invoke(3, IID_NULL, 0, DISPATCH_PROPERTYPUT, &parameters, nullptr, nullptr, nullptr);

    EXPECT_EQ(result, DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(character.Get("Left").Number(), 0);
}

TEST_F(StandIn, Invoke_TooManyArguments_IsRefused)
{
    CCaller character = LoadDefault();

    character.Call("Play", {CValue("Greet"), CValue("Wave")});

    EXPECT_EQ(character.lastResult, DISP_E_BADPARAMCOUNT);
}

TEST_F(StandIn, Invoke_NumberBeyondSixteenBits_IsRefused)
{
    CCaller character = LoadDefault();

    character.Put("Left", CValue(std::int32_t{40000}));

    EXPECT_EQ(character.lastResult, DISP_E_OVERFLOW);
}

TEST_F(StandIn, Properties_Written_AreReadBackInTheirType)
{
    CCaller character = LoadDefault();

    character.Put("Width", CValue(std::int32_t{200}));
    character.Object("Balloon").Put("FontName", CValue("Arial"));

    EXPECT_EQ(Describe(character.Get("Width").Get()), "I2 200");
    EXPECT_EQ(character.Object("Balloon").Get("FontName").Text(), "Arial");
}

TEST_F(StandIn, Properties_ReadOnlyOnesWritten_AreRefused)
{
    CCaller character = LoadDefault();

    character.Put("Visible", CValue(true));

    EXPECT_EQ(character.lastResult, DISP_E_MEMBERNOTFOUND);
}

TEST_F(StandIn, BalloonStyle_WithoutSizes_IsAnInvalidArgument)
{
    CCaller balloon = LoadDefault().Object("Balloon");

    balloon.Put("Style", CValue(std::int32_t{5}));

    EXPECT_EQ(balloon.exception.scode, E_INVALIDARG);
}

TEST_F(StandIn, BalloonStyle_WithSizes_TellsThem)
{
    CCaller balloon = LoadDefault().Object("Balloon");

    balloon.Put("Style", CValue(std::int32_t{0x0A280001}));

    EXPECT_EQ(balloon.Get("CharsPerLine").Number(), 40);
    EXPECT_EQ(balloon.Get("NumberOfLines").Number(), 10);
}

TEST_F(StandIn, TTSModeID_OfAnInstalledVoiceInOtherCase_IsKept)
{
    CCaller character = LoadDefault();

    character.Put("TTSModeID", CValue("{ca141fd0-ac7f-11d1-97a3-006008273000}"));

    EXPECT_EQ(character.lastResult, S_OK);
    EXPECT_EQ(character.Get("TTSModeID").Text(), "{ca141fd0-ac7f-11d1-97a3-006008273000}");
}

TEST_F(StandIn, TTSModeID_OfNoVoice_FailsAndKeepsTheOldOne)
{
    CCaller character = LoadDefault();

    character.Put("TTSModeID", CValue("{00000000-0000-0000-0000-000000000001}"));

    EXPECT_EQ(character.exception.scode, Code(0x80042013));
    EXPECT_EQ(character.Get("TTSModeID").Text(), "{CA141FD0-AC7F-11D1-97A3-006008273002}");
}

TEST_F(StandIn, Load_MissingFile_FailsAndLeavesAHalfMadeEntryBehind)
{
    CCaller characters = Characters();

    characters.Call("Load", {CValue("Bot"), CValue("nowhere.acs")});
    EXPECT_EQ(characters.exception.scode, Code(0x80070002));
    characters.Call("Load", {CValue("Bot")});
    EXPECT_EQ(characters.exception.scode, Code(0x8004200B));
    characters.Call("Character", {CValue("Bot")});
    EXPECT_EQ(characters.exception.scode, Code(0x80042002));
}

TEST_F(StandIn, Load_AfterUnloadingTheHalfMadeEntry_LoadsTheDefault)
{
    CCaller characters = Characters();
    characters.Call("Load", {CValue("Bot"), CValue("nowhere.acs")});
    characters.Call("Unload", {CValue("Bot")});

    const CRef<IDispatch> request = characters.Hold("Load", {CValue("Bot")});

    EXPECT_EQ(CCaller(request).Get("Status").Number(), 0);
    EXPECT_EQ(CCaller(characters.Hold("Character", {CValue("Bot")})).Get("Name").Text(), "Merlin");
}

TEST_F(StandIn, Load_RequestErrorsNotRaised_GivesAFailedRequest)
{
    CCaller caller = Connected();
    caller.Put("RaiseRequestErrors", CValue(false));
    CCaller characters = caller.Object("Characters");

    CCaller request(characters.Hold("Load", {CValue("Bot"), CValue("nowhere.acs")}));

    EXPECT_EQ(request.Get("Status").Number(), 1);
    EXPECT_EQ(request.Get("Number").Number(), Code(0x80070002));
}

TEST_F(StandIn, Load_FileThatIsNoCharacter_FailsWithItsCode)
{
    const std::string file = FileIn("C:\\standins", "text.acs");
    const HANDLE handle = CreateFileW(Wide(file).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    CloseHandle(handle);
    CCaller characters = Characters();

    characters.Call("Load", {CValue("Bot"), CValue(file)});

    EXPECT_EQ(characters.exception.scode, Code(0x80042204));
}

TEST_F(StandIn, Load_RelativeName_IsSoughtInTheEnginesFolder)
{
    CreateDirectoryW(L"C:\\windows\\MSAgent", nullptr);
    const std::string file = FileIn("C:\\windows\\MSAgent\\Chars", "Robby.acs");
    ASSERT_TRUE(WriteCharacterFile(Wide(file)));
    CCaller characters = Characters();

    characters.Hold("Load", {CValue("Bot"), CValue("Robby.acs")});

    EXPECT_EQ(CCaller(characters.Hold("Character", {CValue("Bot")})).Get("Name").Text(), "Robby");
    DeleteFileW(Wide(file).c_str());
}

TEST_F(StandIn, Load_FileBesideTheDefault_IsRefused)
{
    const std::string file = FileIn("C:\\standins", "own.acs");
    WriteCharacterFile(Wide(file));
    CCaller characters = Characters();
    characters.Call("Load", {CValue("Bot")});

    characters.Call("Load", {CValue("Other"), CValue(file)});

    EXPECT_EQ(characters.exception.scode, Code(0x80042018));
}

TEST_F(StandIn, Load_NoDefaultCharacter_FailsWithItsCode)
{
    Tell("no-default");
    CCaller characters = Characters();

    characters.Call("Load", {CValue("Bot")});

    EXPECT_EQ(characters.exception.scode, Code(0x80042017));
}

TEST_F(StandIn, Unload_CharacterStillHeld_RefusesItsCalls)
{
    CCaller character = LoadDefault();
    Characters().Call("Unload", {CValue("Bot")});

    character.Get("Name");

    EXPECT_EQ(character.exception.scode, Code(0x80042002));
}

TEST_F(StandIn, Play_UnknownAnimation_FailsAtTheCall)
{
    CCaller character = LoadDefault();

    character.Call("Play", {CValue("Somersault")});

    EXPECT_EQ(character.exception.scode, Code(0x80042003));
}

TEST_F(StandIn, AnimationNames_Enumerated_AreThoseThatWereSet)
{
    Tell("animations Greet \"Long Wave\"");
    CCaller names = LoadDefault().Object("AnimationNames");
    DISPPARAMS none{};
    CValue result;
    names.Raw()->Invoke(DISPID_NEWENUM, IID_NULL, 0, DISPATCH_METHOD | DISPATCH_PROPERTYGET, &none, &result.Raw(), nullptr,
                        nullptr);
    const auto enumeration = Query<IEnumVARIANT>(result.Get().punkVal);
    CValue first, second, third;
    enumeration->Next(1, &first.Raw(), nullptr);
    enumeration->Next(1, &second.Raw(), nullptr);

    EXPECT_EQ(enumeration->Next(1, &third.Raw(), nullptr), S_FALSE);
    EXPECT_EQ(first.Text(), "Greet");
    EXPECT_EQ(second.Text(), "Long Wave");
}

TEST_F(StandIn, Requests_Held_StartAndCompleteOneAfterAnother)
{
    CCaller character = LoadDefault();
    CSink& sink = Listening();
    Tell("pace 0");
    Tell("shown Bot 1");

    const CRef<IDispatch> first = character.Hold("Play", {CValue("Greet")});
    const CRef<IDispatch> second = character.Hold("Play", {CValue("Wave")});
    EXPECT_EQ(CCaller(first).Get("Status").Number(), 2);
    PumpMessages();

    EXPECT_EQ(sink.heard, (Lines{"9 DISPATCH object", "11 DISPATCH object", "9 DISPATCH object", "11 DISPATCH object"}));
    EXPECT_EQ(CCaller(second).Get("Status").Number(), 0);
}

TEST_F(StandIn, Requests_NotHeld_RaiseNothing)
{
    CCaller character = LoadDefault();
    CSink& sink = Listening();
    Tell("shown Bot 1");
    Tell("pace 0");

    character.Call("Play", {CValue("Greet")});
    PumpMessages();

    EXPECT_EQ(sink.heard, Lines{});
    EXPECT_EQ(scene->log.LinesWith("unheld "),
              (Lines{"unheld RequestStart Request[2] status 4", "unheld RequestComplete Request[2] status 0"}));
}

TEST_F(StandIn, Requests_OnHold_StayInProgressUntilCompleted)
{
    CCaller character = LoadDefault();
    Tell("shown Bot 1");
    Tell("hold on");
    CCaller first(character.Hold("Play", {CValue("Greet")}));
    CCaller second(character.Hold("Play", {CValue("Wave")}));
    PumpMessages();

    EXPECT_EQ(first.Get("Status").Number(), 4);
    EXPECT_EQ(second.Get("Status").Number(), 2);
    Tell("complete");
    PumpMessages();
    EXPECT_EQ(first.Get("Status").Number(), 0);
    EXPECT_EQ(second.Get("Status").Number(), 4);
}

TEST_F(StandIn, Speak_WhileHidden_FailsWithoutAnErrorAtTheCall)
{
    CCaller character = LoadDefault();
    Tell("pace 0");

    CCaller request(character.Hold("Speak", {CValue("Hello")}));
    PumpMessages();

    EXPECT_EQ(character.lastResult, S_OK);
    EXPECT_EQ(request.Get("Status").Number(), 1);
    EXPECT_EQ(request.Get("Number").Number(), Code(0x8004200A));
}

TEST_F(StandIn, StopAll_RunningAndQueuedRequests_AreInterruptedWithTheirCauses)
{
    CCaller character = LoadDefault();
    Tell("shown Bot 1");
    Tell("hold on");
    CCaller running(character.Hold("Play", {CValue("Greet")}));
    CCaller queued(character.Hold("Play", {CValue("Wave")}));
    PumpMessages();

    character.Call("StopAll");

    EXPECT_EQ(running.Get("Status").Number(), 3);
    EXPECT_EQ(running.Get("Number").Number(), Code(0x8004210C));
    EXPECT_EQ(queued.Get("Number").Number(), Code(0x80042108));
}

TEST_F(StandIn, Stop_OfOneRequest_LeavesTheOthers)
{
    CCaller character = LoadDefault();
    Tell("hold start");
    const CRef<IDispatch> first = character.Hold("Play", {CValue("Greet")});
    const CRef<IDispatch> second = character.Hold("Play", {CValue("Wave")});

    character.Call("Stop", {CValue(first.Get())});

    EXPECT_EQ(CCaller(first).Get("Status").Number(), 3);
    EXPECT_EQ(CCaller(second).Get("Status").Number(), 2);
}

TEST_F(StandIn, Stop_OfNoRequest_FailsWithItsCode)
{
    CCaller character = LoadDefault();

    character.Call("Stop", {CValue(character.Raw())});

    EXPECT_EQ(character.exception.scode, Code(0x80042102));
}

TEST_F(StandIn, ShowAndHide_WhenTheyRun_ChangeTheCharacterAndTellTheCause)
{
    CCaller character = LoadDefault();
    CSink& sink = Listening();
    Tell("pace 0");

    character.Call("Show", {CValue::Omitted()});
    PumpMessages();
    EXPECT_TRUE(character.Get("Visible").Truth());
    character.Call("Hide");
    PumpMessages();

    EXPECT_FALSE(character.Get("Visible").Truth());
    EXPECT_EQ(sink.heard, (Lines{"15 BSTR \"Bot\" I2 4", "7 BSTR \"Bot\" I2 3"}));
}

TEST_F(StandIn, Commands_Added_AreCountedAndRemoved)
{
    CCaller commands = LoadDefault().Object("Commands");

    commands.Call("Add", {CValue("Stop"), CValue("&Stop"), CValue("Stop")});
    commands.Call("Add", {CValue("stop")});

    EXPECT_EQ(commands.exception.scode, Code(0x80042007));
    EXPECT_EQ(commands.Get("Count").Number(), 1);
    commands.Call("RemoveAll");
    EXPECT_EQ(commands.Get("Count").Number(), 0);
}

TEST_F(StandIn, Events_DoubleClick_ReachesTheReceiverWithItsArgumentsInOrder)
{
    CSink& sink = Listening();

    Tell("event DblClick Bot 1 2 100 200");
    EXPECT_EQ(sink.heard, Lines{});
    PumpMessages();

    EXPECT_EQ(sink.heard, Lines{"4 BSTR \"Bot\" I2 1 I2 2 I2 100 I2 200"});
}

TEST_F(StandIn, Events_Command_CarriesWhatWasHeard)
{
    CSink& sink = Listening();

    Tell("during Name event Command Bot Stop -39 \"stop it\" ReadClipboard -48");
    LoadDefault().Get("Name");

    EXPECT_EQ(sink.heard, Lines{"17 DISPATCH object"});
}

TEST_F(StandIn, Events_ReceiverThatRefuses_IsWrittenDown)
{
    Listening().answer = E_FAIL;

    Tell("event Bookmark 7");
    PumpMessages();

    EXPECT_EQ(scene->log.Lines().back(), "refused Bookmark(I4 7) 0x80004005");
}

TEST_F(StandIn, Events_AfterUnadvise_AreHeardByNobody)
{
    DWORD cookie = 0;
    CSink& sink = Listening(&cookie);
    CCaller caller = Connected();

    EXPECT_EQ(PointOf(caller, EventInterface(*scene))->Unadvise(cookie), S_OK);
    Tell("event Bookmark 7");
    PumpMessages();

    EXPECT_EQ(sink.heard, Lines{});
    EXPECT_EQ(PointOf(caller, EventInterface(*scene))->Unadvise(cookie), CONNECT_E_NOCONNECTION);
}

TEST_F(StandIn, Advise_ReceiverWithoutTheEventInterface_IsRefused)
{
    CSink sink(IID_IDispatch);
    CCaller caller = Connected();
    DWORD cookie = 0;

    EXPECT_EQ(PointOf(caller, EventInterface(*scene))->Advise(&sink, &cookie), CONNECT_E_CANNOTCONNECT);
}

TEST_F(StandIn, ClassInfo_Both_GivesTheEventInterfaceAtOnce)
{
    GUID id{};

    EXPECT_EQ(Query<IProvideClassInfo2>(Connected().Raw())->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &id), S_OK);

    EXPECT_EQ(id, EventInterface(*scene));
}

TEST_F(StandIn, ClassInfo_One_LeadsToTheEventsByTheClass)
{
    Tell("class-info one");
    Tell("own-events on");
    const CCaller caller = Connected();
    CRef<ITypeInfo> coclass;

    EXPECT_FALSE(Query<IProvideClassInfo2>(caller.Raw()));
    ASSERT_EQ(Query<IProvideClassInfo>(caller.Raw())->GetClassInfo(coclass.Receive()), S_OK);
    const CRef<ITypeInfo> events = DefaultSource(*coclass.Get());
    ASSERT_TRUE(events);
    TYPEATTR* attributes = nullptr;
    events->GetTypeAttr(&attributes);
    EXPECT_EQ(attributes->guid, EventInterface(*scene));
    events->ReleaseTypeAttr(attributes);
}

TEST_F(StandIn, ClassInfo_Library_LeadsToTheEventsByTheLibrary)
{
    Tell("class-info library");
    const CCaller caller = Connected();
    CRef<ITypeInfo> members, coclass;
    CRef<ITypeLib> library;
    UINT index = 0;

    EXPECT_FALSE(Query<IProvideClassInfo>(caller.Raw()));
    ASSERT_EQ(caller.Raw()->GetTypeInfo(0, 0, members.Receive()), S_OK);
    ASSERT_EQ(members->GetContainingTypeLib(library.Receive(), &index), S_OK);
    ASSERT_EQ(library->GetTypeInfoOfGuid(EngineClass, coclass.Receive()), S_OK);
    EXPECT_TRUE(DefaultSource(*coclass.Get()));
}

TEST_F(StandIn, ClassInfo_None_LeavesTheConnectionPointAlone)
{
    Tell("class-info none");
    const CCaller caller = Connected();
    CRef<IEnumConnectionPoints> points;
    CRef<IConnectionPoint> point;
    IID id{};

    EXPECT_FALSE(Query<IProvideClassInfo>(caller.Raw()));
    Query<IConnectionPointContainer>(caller.Raw())->EnumConnectionPoints(points.Receive());
    ASSERT_EQ(points->Next(1, point.Receive(), nullptr), S_OK);
    point->GetConnectionInterface(&id);
    EXPECT_EQ(id, EventInterface(*scene));
}

TEST_F(StandIn, TypeInformation_OfTheEvents_NamesThoseThatAreRaised)
{
    CRef<ITypeInfo> coclass;
    Query<IProvideClassInfo>(Connected().Raw())->GetClassInfo(coclass.Receive());

    Lines names;
    ReadEventNames(*DefaultSource(*coclass.Get()).Get(), names);

    EXPECT_EQ(names.size(), 7U + 26U) << testing::PrintToString(names);
    for (const char* expected : {"1610612736 QueryInterface", "2 Click", "4 DblClick", "7 Hide", "9 RequestStart",
                                 "11 RequestComplete", "15 Show", "17 Command", "22 Move", "30 DefaultCharacterChange"})
        EXPECT_EQ(std::count(names.begin(), names.end(), expected), 1) << expected;
}

TEST_F(StandIn, TypeInformation_OwnEvents_HasOtherNumbersAndSoHaveTheEvents)
{
    Tell("own-events on");
    CSink& sink = Listening();
    CRef<ITypeInfo> coclass;
    Query<IProvideClassInfo>(Connected().Raw())->GetClassInfo(coclass.Receive());
    Lines names;
    ReadEventNames(*DefaultSource(*coclass.Get()).Get(), names);

    Tell("event Bookmark 7");
    PumpMessages();

    EXPECT_EQ(std::count(names.begin(), names.end(), "1016 Bookmark"), 1);
    EXPECT_EQ(sink.heard, Lines{"1016 I4 7"});
}

TEST_F(StandIn, TypeInformation_OfTheCharacter_NumbersItsMembersAsGetIDsOfNamesDoes)
{
    CCaller character = LoadDefault();
    CRef<ITypeInfo> members;
    ASSERT_EQ(character.Raw()->GetTypeInfo(0, 0, members.Receive()), S_OK);
    std::wstring name = L"Speak";
    LPOLESTR names = name.data();
    MEMBERID id = 0;

    EXPECT_EQ(members->GetIDsOfNames(&names, 1, &id), S_OK);

    EXPECT_EQ(id, 15);
    EXPECT_EQ(id, character.ID("Speak"));
}

TEST_F(StandIn, Fail_NextCall_FailsOnceAsAnExceptionWithItsTexts)
{
    CCaller character = LoadDefault();
    Tell("fail Speak 0x80042403 exception Engine \"No voice today.\"");

    character.Call("Speak", {CValue("a")});
    EXPECT_EQ(character.lastResult, DISP_E_EXCEPTION);
    EXPECT_EQ(character.exception.scode, Code(0x80042403));
    EXPECT_EQ(character.Description(), "No voice today.");
    character.Hold("Speak", {CValue("b")});
    EXPECT_EQ(character.lastResult, S_OK);
}

TEST_F(StandIn, Fail_Always_FailsEveryCallAsAResult)
{
    CCaller character = LoadDefault();
    Tell("fail always get:Character.Left 0x800706BA result");

    character.Get("Left");
    character.Get("Left");
    EXPECT_EQ(character.lastResult, Code(0x800706BA));
    character.Put("Left", CValue(std::int16_t{3}));
    EXPECT_EQ(character.lastResult, S_OK);
}

TEST_F(StandIn, Fail_Deferred_IsFilledInWhenAsked)
{
    CCaller character = LoadDefault();
    Tell("fail Speak 0x80042403 deferred Engine Later");

    character.Call("Speak", {CValue("a")});
    EXPECT_EQ(character.exception.scode, 0);
    ASSERT_NE(character.exception.pfnDeferredFillIn, nullptr);
    character.exception.pfnDeferredFillIn(&character.exception);

    EXPECT_EQ(character.exception.scode, Code(0x80042403));
    EXPECT_EQ(character.Description(), "Later");
}

TEST_F(StandIn, During_RaisesTheEventBeforeTheCallReturns)
{
    CCaller character = LoadDefault();
    CSink& sink = Listening();
    Tell("during Speak event Click Bot 2 0 10 10");

    character.Call("Speak", {CValue("a")});

    EXPECT_EQ(sink.heard, Lines{"2 BSTR \"Bot\" I2 2 I2 0 I2 10 I2 10"});
}

TEST_F(StandIn, Block_DelaysTheCall)
{
    CCaller character = LoadDefault();
    Tell("block Speak 30");
    const ULONGLONG begin = GetTickCount64();

    character.Call("Speak", {CValue("a")});

    EXPECT_GE(GetTickCount64() - begin, 20U);
}

TEST_F(StandIn, Disconnect_EveryCallAfterIt_IsDisconnected)
{
    CCaller character = LoadDefault();
    Tell("disconnect");

    EXPECT_EQ(character.ID("Speak"), DISPID_UNKNOWN);
    EXPECT_EQ(character.lastResult, RPC_E_DISCONNECTED);
    Tell("connect");
    EXPECT_EQ(character.ID("Speak"), 15);
}

TEST_F(StandIn, Disconnect_InsideACall_FailsThatCall)
{
    CCaller character = LoadDefault();
    Tell("during Speak disconnect");

    character.Call("Speak", {CValue("a")});

    EXPECT_EQ(character.lastResult, RPC_E_DISCONNECTED);
}

TEST_F(StandIn, Objects_AllReleased_LeaveNothingAlive)
{
    {
        CCaller character = LoadDefault();
        const CRef<IDispatch> request = character.Hold("Speak", {CValue("a")});
        character.Object("Balloon").Object("Nothing");
        PumpMessages();
    }
    control.Reset();
    PumpUntil([&] { return scene->livingObjects == 0; });

    EXPECT_EQ(scene->livingObjects, 0);
}

TEST_F(StandIn, Tell_NonsenseOfEveryKind_IsNotUnderstood)
{
    for (const char* nonsense : {"",
                                 "dance",
                                 "event",
                                 "event Clap Bot",
                                 "event Click Bot",
                                 "event Click Bot left 0 1 1",
                                 "event RequestStart 1",
                                 "hold",
                                 "hold maybe",
                                 "fail Speak",
                                 "fail Speak soon",
                                 "garbage Left soup",
                                 "block Speak",
                                 "shown Nobody 1",
                                 "set Bot Colour red",
                                 "class-info all",
                                 "quit",
                                 "excel cell 1 1 soup 2",
                                 "excel cell 1 1 number x",
                                 "event Bookmark 1 2"})
        EXPECT_FALSE(scene->Tell(nonsense)) << nonsense;
}

TEST_F(StandIn, Speech_EnginesCountedFromOne_TellTheirRecords)
{
    Tell("voices");
    Tell("voice CA141FD0-AC7F-11D1-97A3-006008273000 \"Voice One\" 0x0407");
    CCaller speech(NewSpeech(scene));

    EXPECT_EQ(speech.Get("CountEngines").Number(), 1);
    EXPECT_EQ(speech.Get("ModeID", {CValue(std::int32_t{1})}).Text(), "CA141FD0-AC7F-11D1-97A3-006008273000");
    EXPECT_EQ(speech.Get("ModeName", {CValue(std::int32_t{1})}).Text(), "Voice One");
    EXPECT_EQ(speech.Get("LanguageID", {CValue(std::int32_t{1})}).Number(), 0x0407);
    speech.Get("ModeID", {CValue(std::int32_t{0})});
    EXPECT_EQ(speech.exception.scode, E_INVALIDARG);
}

TEST_F(StandIn, Speech_AskedForItsOwnInterface_AnswersAsTheDocumentedClass)
{
    const CInProcess served(scene);
    CRef<IUnknown> speech;

    EXPECT_EQ(CoCreateInstance(SpeechClass, nullptr, CLSCTX_INPROC_SERVER, SpeechInterface,
                               reinterpret_cast<void**>(speech.Receive())),
              S_OK);
}

TEST_F(StandIn, InProcess_WhileServed_IsCreatedByTheProgramsName)
{
    const CInProcess served(scene);
    CLSID id{};
    CRef<IDispatch> created;

    ASSERT_EQ(CLSIDFromProgID(L"Agent.Control.2", &id), S_OK);
    EXPECT_EQ(CoCreateInstance(id, nullptr, CLSCTX_ALL, IID_IDispatch, reinterpret_cast<void**>(created.Receive())), S_OK);

    EXPECT_EQ(scene->log.Lines(), Lines{"made Control"});
}

TEST_F(StandIn, InProcess_Afterwards_IsNotThere)
{
    {
        const CInProcess served(scene);
    }
    CLSID id{};

    EXPECT_EQ(CLSIDFromProgID(L"Agent.Control.2", &id), CO_E_CLASSSTRING);
}

}
