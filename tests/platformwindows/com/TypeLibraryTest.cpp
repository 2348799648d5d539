#include "platform/windows/com/EventInterface.h"
#include "platformwindows/com/EngineFixture.h"

using namespace comtest;

namespace {

constexpr GUID Library = {0xF5BE8BC2, 0x7DE6, 0x11D0, {0x91, 0xFE, 0x00, 0xC0, 0x4F, 0xD7, 0x01, 0xA5}};
constexpr SYSKIND Kind = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;
constexpr DISPID OddClick = 777;

// The engine's type library in the registry, in which the one event has a number of its own.
class CRegisteredLibrary {
public:
    CRegisteredLibrary()
    {
        wchar_t folder[MAX_PATH];
        GetTempPathW(MAX_PATH, folder);
        m_file = std::wstring(folder) + L"parlune-events.tlb";
        Write();
        CInterface<ITypeLib> library;
        EXPECT_EQ(LoadTypeLibEx(m_file.c_str(), REGKIND_REGISTER, library.Receive()), S_OK);
    }
    ~CRegisteredLibrary()
    {
        UnRegisterTypeLib(Library, 2, 0, 0, Kind);
        DeleteFileW(m_file.c_str());
    }
    CRegisteredLibrary(const CRegisteredLibrary&) = delete;
    CRegisteredLibrary& operator=(const CRegisteredLibrary&) = delete;

private:
    void Write() const
    {
        CInterface<ICreateTypeLib2> library;
        ASSERT_EQ(CreateTypeLib2(Kind, m_file.c_str(), library.Receive()), S_OK);
        library->SetGuid(Library);
        library->SetVersion(2, 0);
        library->SetLcid(0);
        std::wstring libraryName = L"TestObjects";
        library->SetName(libraryName.data());
        const CInterface<ITypeInfo> events = AddEvents(*library).As<ITypeInfo>();
        AddClass(*library, events);
        ASSERT_EQ(library->SaveAllChanges(), S_OK);
    }
    static CInterface<ICreateTypeInfo> AddEvents(ICreateTypeLib2& library)
    {
        CInterface<ICreateTypeInfo> events;
        std::wstring name = L"Events";
        library.CreateTypeInfo(name.data(), TKIND_DISPATCH, events.Receive());
        events->SetGuid(CTestControl::Events);
        FUNCDESC function{};
        function.memid = OddClick;
        function.funckind = FUNC_DISPATCH;
        function.invkind = INVOKE_FUNC;
        function.callconv = CC_STDCALL;
        function.elemdescFunc.tdesc.vt = VT_VOID;
        EXPECT_EQ(events->AddFuncDesc(0, &function), S_OK);
        std::wstring click = L"click";
        LPOLESTR names = click.data();
        EXPECT_EQ(events->SetFuncAndParamNames(0, &names, 1), S_OK);
        EXPECT_EQ(events->LayOut(), S_OK);
        return events;
    }
    static void AddClass(ICreateTypeLib2& library, const CInterface<ITypeInfo>& events)
    {
        CInterface<ICreateTypeInfo> control;
        std::wstring name = L"Control";
        library.CreateTypeInfo(name.data(), TKIND_COCLASS, control.Receive());
        control->SetGuid(EngineClass);
        HREFTYPE reference = 0;
        EXPECT_EQ(control->AddRefTypeInfo(events.Raw(), &reference), S_OK);
        EXPECT_EQ(control->AddImplType(0, reference), S_OK);
        EXPECT_EQ(control->SetImplTypeFlags(0, IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE), S_OK);
        EXPECT_EQ(control->LayOut(), S_OK);
    }
    std::wstring m_file;
};

class TypeLibrary : public CEngineFixture {};

class CClicks final : public platform::ICharacterEngineEvents {
public:
    int count = 0;
    void Click(const std::string&, std::int16_t, std::int16_t, std::int16_t, std::int16_t) override { ++count; }
};

void RaiseClick(const CTestControl& control, DISPID id)
{
    control.Raise(id, {std::string("Bot"), std::int16_t{1}, std::int16_t{0}, std::int16_t{5}, std::int16_t{6}});
    RunMessages();
}

}

TEST_F(TypeLibrary, Registered_GivesTheNumbersOfTheEvents)
{
    const CRegisteredLibrary library;
    CClicks clicks;
    Create()->SetEvents(&clicks);
    RaiseClick(*control, OddClick);
    EXPECT_EQ(clicks.count, 1);
    RaiseClick(*control, 2);  // What the number means without the library.
    EXPECT_EQ(clicks.count, 1);
}

TEST_F(TypeLibrary, NotRegistered_LeavesTheKnownNumbers)
{
    CClicks clicks;
    Create()->SetEvents(&clicks);
    RaiseClick(*control, 2);
    EXPECT_EQ(clicks.count, 1);
}
