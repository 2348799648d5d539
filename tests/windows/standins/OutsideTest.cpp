#include "windows/standins/Commands.h"
#include "windows/standins/Office.h"
#include "windows/standins/TestClient.h"
#include <algorithm>
#include <array>

// The stand-ins as other programs meet them: registered, in a process of their own, in the running-object table.
namespace standins {
namespace {

using Lines = std::vector<std::string>;

constexpr wchar_t LogFile[] = L"C:\\standins.log";
constexpr wchar_t SetupFile[] = L"C:\\standins.txt";
constexpr unsigned PatienceMilliseconds = 60000;

std::wstring ProgramFolder()
{
    std::array<wchar_t, MAX_PATH> file{};
    GetModuleFileNameW(nullptr, file.data(), static_cast<DWORD>(file.size()));
    const std::wstring path = file.data();
    return path.substr(0, path.rfind(L'\\') + 1);
}

// A program that the test starts.
class CStarted {
public:
    explicit CStarted(std::wstring commandLine)
    {
        STARTUPINFOW startup{};
        startup.cb = sizeof(startup);
        CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &m_process);
    }
    CStarted(const CStarted&) = delete;
    CStarted& operator=(const CStarted&) = delete;
    ~CStarted()
    {
        CloseHandle(m_process.hThread);
        CloseHandle(m_process.hProcess);
    }
    // The exit code; 999 when it does not end in time.
    DWORD Wait() const
    {
        DWORD code = 999;
        if (WaitForSingleObject(m_process.hProcess, PatienceMilliseconds) == WAIT_OBJECT_0)
            GetExitCodeProcess(m_process.hProcess, &code);
        return code;
    }
    void Kill() const { TerminateProcess(m_process.hProcess, 9); }
    std::uint32_t Id() const { return m_process.dwProcessId; }

private:
    PROCESS_INFORMATION m_process{};
};

DWORD RunProgram(const std::wstring& commandLine) { return CStarted(commandLine).Wait(); }

DWORD RunOwn(const std::wstring& program, const std::wstring& arguments)
{
    return RunProgram(L"\"" + ProgramFolder() + program + L"\" " + arguments);
}

std::string RegistryDefault(const std::wstring& key)
{
    std::array<wchar_t, 512> text{};
    LONG bytes = sizeof(text);
    return RegQueryValueW(HKEY_CLASSES_ROOT, key.c_str(), text.data(), &bytes) == ERROR_SUCCESS ? Narrow(text.data()) : "";
}

void Write(const wchar_t* file, const std::string& bytes)
{
    const HANDLE handle = CreateFileW(file, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    WriteFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    CloseHandle(handle);
}

HRESULT Create(CRef<IDispatch>& object)
{
    CLSID id{};
    const HRESULT known = CLSIDFromProgID(L"Agent.Control.2", &id);
    return FAILED(known)
               ? known
               : CoCreateInstance(id, nullptr, CLSCTX_ALL, IID_IDispatch, reinterpret_cast<void**>(object.Receive()));
}

class Outside : public CApartmentTest {
protected:
    Outside()
    {
        DeleteFileW(LogFile);
        SetEnvironmentVariableW(L"PARLUNE_STANDIN_LOG", LogFile);
        SetEnvironmentVariableW(L"PARLUNE_STANDIN_SETUP", nullptr);
    }
    bool LogHas(const std::string& line)
    {
        const Lines lines = ReadLog(LogFile);
        return std::count(lines.begin(), lines.end(), line) > 0;
    }
};

// The engine in a process of its own, started by the system when it is asked for.
class Server : public Outside {
protected:
    Server() { RunOwn(L"agentstandin.exe", L"/regserver"); }
    ~Server() override
    {
        m_control.Reset();
        SendCommand("quit");
        PumpUntil([] { return !StandInIsThere(); }, PatienceMilliseconds);
        Unregister();
    }
    CCaller Connected()
    {
        EXPECT_EQ(Create(m_control), S_OK);
        CCaller control(m_control);
        control.Put("Connected", CValue(true));
        return control;
    }
    CCaller LoadDefault()
    {
        CCaller characters = Connected().Object("Characters");
        characters.Call("Load", {CValue("Bot")});
        return CCaller(characters.Hold("Character", {CValue("Bot")}));
    }
    CRef<IDispatch> m_control;
};

class Office : public Outside {
protected:
    Office() : m_program(L"\"" + ProgramFolder() + L"office.exe\"")
    {
        RunOwn(L"office.exe", L"/regserver");
        EXPECT_TRUE(WaitForStandIn(PatienceMilliseconds, "office"));
        EXPECT_TRUE(PumpUntil([&] { return SUCCEEDED(Running(L"Excel.Application")); }));
    }
    ~Office() override
    {
        m_program.Kill();
        m_program.Wait();
        UnregisterOffice();
    }
    static bool Tell(const std::string& command) { return SendCommand(command, "office"); }
    HRESULT Running(const wchar_t* name)
    {
        CLSID id{};
        CRef<IUnknown> found;
        HRESULT result = CLSIDFromProgID(name, &id);
        if (SUCCEEDED(result))
            result = GetActiveObject(id, nullptr, found.Receive());
        if (SUCCEEDED(result))
            found->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(m_found.Receive()));
        return result;
    }
    CCaller Find(const wchar_t* name)
    {
        EXPECT_EQ(Running(name), S_OK);
        return CCaller(m_found);
    }
    CRef<IDispatch> m_found;
    CStarted m_program;
};

std::string CellText(CCaller& selection, std::int32_t row, std::int32_t column)
{
    CCaller cell = selection.Object("Cells", {CValue(row), CValue(column)});
    const CValue value = cell.Get("Value");
    return Describe(value.Get());
}

}

TEST_F(Outside, Dll_RegisteredByTheSystemsTool_IsNamedInTheRegistryAndForgottenAgain)
{
    const std::wstring dll = ProgramFolder() + L"agentstandin.dll";

    EXPECT_EQ(RunProgram(L"regsvr32 /s \"" + dll + L"\""), 0U);
    EXPECT_EQ(RegistryDefault(L"Agent.Control.2\\CLSID"), "{D45FD31B-5C6E-11D1-9EC1-00C04FD7081F}");
    EXPECT_EQ(RegistryDefault(L"CLSID\\{D45FD31B-5C6E-11D1-9EC1-00C04FD7081F}\\InprocServer32"), Narrow(dll));
    EXPECT_EQ(RegistryDefault(L"CLSID\\{EEE78591-FE22-11D0-8BEF-0060081841DE}\\InprocServer32"), Narrow(dll));
    EXPECT_EQ(RunProgram(L"regsvr32 /s /u \"" + dll + L"\""), 0U);
    EXPECT_EQ(RegistryDefault(L"Agent.Control.2\\CLSID"), "");
    EXPECT_EQ(RegistryDefault(L"CLSID\\{D45FD31B-5C6E-11D1-9EC1-00C04FD7081F}\\InprocServer32"), "");
}

TEST_F(Outside, Dll_LoadedByItsClient_ObeysItsSetupAndItsWindowAndWritesItsLog)
{
    Write(SetupFile, "# a remark\r\ndefault Nibbin\r\nanimations Greet\r\n");
    SetEnvironmentVariableW(L"PARLUNE_STANDIN_SETUP", SetupFile);
    Register("InprocServer32", ProgramFolder() + L"agentstandin.dll");
    CRef<IDispatch> object;
    ASSERT_EQ(Create(object), S_OK);
    Unregister();

    CCaller control(object);
    control.Put("Connected", CValue(true));
    CCaller characters = control.Object("Characters");
    characters.Call("Load", {CValue("Bot")});
    EXPECT_EQ(AskStandIn("set Bot Pitch 77", "engine", GetCurrentProcessId()), Answer::Understood);
    EXPECT_EQ(AskStandIn("sing", "engine", GetCurrentProcessId()), Answer::NotUnderstood);

    CCaller character(characters.Hold("Character", {CValue("Bot")}));
    EXPECT_EQ(character.Get("Name").Text(), "Nibbin");
    EXPECT_EQ(character.Get("Pitch").Number(), 77);
    EXPECT_EQ(OnlyCalls(ReadLog(LogFile)),
              (Lines{"put Control.Connected(BOOL True)", "get Control.Characters", "call Characters.Load(BSTR \"Bot\")",
                     "call Characters.Character(BSTR \"Bot\")", "get Character[Bot].Name", "get Character[Bot].Pitch"}));
    EXPECT_TRUE(LogHas("not understood sing"));
}

TEST_F(Server, Started_ByTheSystem_CarriesCallsBetweenTheProcesses)
{
    CCaller character = LoadDefault();

    character.Put("Left", CValue(std::int16_t{12}));
    character.Hold("Speak", {CValue("Hello"), CValue::Omitted()});

    EXPECT_EQ(character.Get("Left").Number(), 12);
    EXPECT_TRUE(LogHas("call Character[Bot].Speak(BSTR \"Hello\", -)"));
}

TEST_F(Server, Events_FromTheOtherProcess_ReachTheReceiver)
{
    CCaller control = Connected();
    CScene documented;
    CSink sink(EventInterface(documented));
    DWORD cookie = 0;
    const CRef<IConnectionPoint> point = PointOf(control, EventInterface(documented));
    ASSERT_TRUE(point);
    ASSERT_EQ(point->Advise(&sink, &cookie), S_OK);

    EXPECT_TRUE(SendCommand("event DblClick Bot 1 0 5 6"));
    PumpUntil([&] { return !sink.heard.empty(); });

    EXPECT_EQ(sink.heard, Lines{"4 BSTR \"Bot\" I2 1 I2 0 I2 5 I2 6"});
    point->Unadvise(cookie);
}

TEST_F(Server, TypeInformation_FromTheOtherProcess_NamesTheEvents)
{
    const CCaller control = Connected();
    CRef<IProvideClassInfo> provider;
    CRef<ITypeInfo> coclass, events;
    HREFTYPE reference = 0;
    Lines names;

    ASSERT_EQ(control.Raw()->QueryInterface(IID_IProvideClassInfo, reinterpret_cast<void**>(provider.Receive())), S_OK);
    ASSERT_EQ(provider->GetClassInfo(coclass.Receive()), S_OK);
    ASSERT_EQ(coclass->GetRefTypeOfImplType(1, &reference), S_OK);
    ASSERT_EQ(coclass->GetRefTypeInfo(reference, events.Receive()), S_OK);
    ReadEventNames(*events.Get(), names);
    EXPECT_EQ(std::count(names.begin(), names.end(), "11 RequestComplete"), 1);
}

TEST_F(Server, Failure_AsAnException_ArrivesWithItsCodeAndText)
{
    CCaller character = LoadDefault();
    EXPECT_TRUE(SendCommand("fail Speak 0x80042403 exception Engine \"No voice today.\""));

    character.Call("Speak", {CValue("a")});

    EXPECT_EQ(character.lastResult, DISP_E_EXCEPTION);
    EXPECT_EQ(character.exception.scode, static_cast<HRESULT>(0x80042403));
    EXPECT_EQ(character.Description(), "No voice today.");
}

TEST_F(Server, Die_InsideACall_FailsThatCallAndEveryLaterOne)
{
    CCaller character = LoadDefault();
    EXPECT_TRUE(SendCommand("during Speak die"));

    character.Call("Speak", {CValue("a")});
    EXPECT_TRUE(FAILED(character.lastResult));
    EXPECT_NE(character.lastResult, DISP_E_EXCEPTION);
    character.Get("Left");
    EXPECT_TRUE(FAILED(character.lastResult));
}

TEST_F(Server, Die_BetweenCalls_FailsTheNextOne)
{
    CCaller character = LoadDefault();
    EXPECT_TRUE(SendCommand("die"));
    ASSERT_TRUE(PumpUntil([] { return !StandInIsThere(); }));

    character.Get("Left");

    EXPECT_TRUE(FAILED(character.lastResult));
}

TEST_F(Server, Hang_TheNextCall_WaitsForItsEnd)
{
    CCaller character = LoadDefault();
    EXPECT_TRUE(SendCommand("hang 300"));
    const ULONGLONG begin = GetTickCount64();

    character.Get("Left");

    EXPECT_EQ(character.lastResult, S_OK);
    EXPECT_GE(GetTickCount64() - begin, 150U);
}

TEST_F(Server, LastObjectReleased_EndsTheProcess)
{
    LoadDefault();

    m_control.Reset();

    EXPECT_TRUE(PumpUntil([] { return !StandInIsThere(); }, PatienceMilliseconds));
    EXPECT_TRUE(LogHas("gone Control"));
}

TEST_F(Server, Speech_AskedForItsOwnInterface_IsInTheClientsProcess)
{
    CRef<IDispatch> speech;

    ASSERT_EQ(
        CoCreateInstance(SpeechClass, nullptr, CLSCTX_ALL, SpeechInterface, reinterpret_cast<void**>(speech.Receive())),
        S_OK);

    EXPECT_EQ(CCaller(speech).Get("ModeName", {CValue(std::int32_t{3})}).Text(), "Voice Three");
}

TEST_F(Office, Word_FromTheOtherProcess_GivesItsTexts)
{
    EXPECT_TRUE(Tell("word document \"One\\rTwo\\r\""));
    EXPECT_TRUE(Tell("word selection \"T\""));
    CCaller word = Find(L"Word.Application");

    EXPECT_EQ(word.Object("ActiveDocument").Object("Content").Get("Text").Text(), "One\rTwo\r");
    EXPECT_EQ(word.Object("Selection").Get("Text").Text(), "T");
}

TEST_F(Office, Excel_CellsOfEveryKind_ArriveInTheirTypes)
{
    EXPECT_TRUE(Tell("excel size 5 2"));
    EXPECT_TRUE(Tell("excel cell 1 1 text \"a\\0b\""));
    EXPECT_TRUE(Tell("excel cell 2 1 number 1.5"));
    EXPECT_TRUE(Tell("excel cell 3 1 date 45000.5"));
    EXPECT_TRUE(Tell("excel cell 4 1 money 12.34"));
    EXPECT_TRUE(Tell("excel cell 5 1 truth True"));
    EXPECT_TRUE(Tell("excel cell 1 2 error 2042"));
    EXPECT_TRUE(Tell("excel cell 2 2 short 7"));
    CCaller selection = Find(L"Excel.Application").Object("Selection");

    EXPECT_EQ(selection.Object("Rows").Get("Count").Number(), 5);
    EXPECT_EQ(selection.Object("Columns").Get("Count").Number(), 2);
    EXPECT_EQ(CellText(selection, 1, 1), std::string("BSTR \"a\\x00b\""));
    EXPECT_EQ(CellText(selection, 2, 1), "R8 1.5");
    EXPECT_EQ(CellText(selection, 3, 1).substr(0, 5), "DATE ");
    EXPECT_EQ(CellText(selection, 4, 1), "CY 12.34");
    EXPECT_EQ(CellText(selection, 5, 1), "BOOL True");
    EXPECT_EQ(CellText(selection, 1, 2), "ERROR 0x800A07FA");
    EXPECT_EQ(CellText(selection, 2, 2), "I2 7");
    EXPECT_EQ(CellText(selection, 3, 2), "EMPTY");
}

TEST_F(Office, Excel_SelectionThatIsNoRange_HasNoCells)
{
    CCaller excel = Find(L"Excel.Application");

    EXPECT_TRUE(Tell("excel selection nothing"));
    EXPECT_EQ(Describe(excel.Get("Selection").Get()), "DISPATCH nothing");
    EXPECT_TRUE(Tell("excel selection chart"));
    CCaller chart = excel.Object("Selection");
    EXPECT_EQ(chart.ID("Columns"), DISPID_UNKNOWN);
}

TEST_F(Office, Word_Gone_IsNoLongerFound)
{
    EXPECT_EQ(Running(L"Word.Application"), S_OK);

    EXPECT_TRUE(Tell("word gone"));

    EXPECT_EQ(Running(L"Word.Application"), MK_E_UNAVAILABLE);
}

TEST_F(Office, Tell_ByTheTool_AnswersByItsExitCode)
{
    EXPECT_EQ(RunOwn(L"tell.exe", L"--wait 5000 --to office word selection \"\\\"said by hand\\\"\""), 0U);
    EXPECT_EQ(Find(L"Word.Application").Object("Selection").Get("Text").Text(), "said by hand");
    EXPECT_EQ(RunOwn(L"tell.exe", L"--to office sing"), 1U);
    EXPECT_EQ(RunOwn(L"tell.exe", L"--to nobody forget"), 2U);
}

}
