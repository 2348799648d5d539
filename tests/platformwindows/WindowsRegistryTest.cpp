#include "platform/windows/WindowsRegistry.h"
#include "Support.h"
#include <sddl.h>

namespace platform::windowsdesktop {
namespace {
// A key of the test's own in the place of the user's.
struct Registry : testing::Test {
    Registry()
    {
        RegCreateKeyExW(HKEY_CURRENT_USER, Name().c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr);
        RegOverridePredefKey(HKEY_CURRENT_USER, key);
    }
    ~Registry() override
    {
        RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
        RegCloseKey(key);
        RegDeleteTreeW(HKEY_CURRENT_USER, Name().c_str());
        RegDeleteKeyW(HKEY_CURRENT_USER, Name().c_str());
    }
    static std::wstring Name() { return L"Software\\ParluneTest" + std::to_wstring(GetCurrentProcessId()); }

    HKEY Sub(const wchar_t* path, REGSAM access = KEY_ALL_ACCESS) const
    {
        HKEY sub = nullptr;
        RegOpenKeyExW(key, path, 0, access, &sub);
        return sub;
    }
    // The value as the system has it, in UTF-16.
    std::wstring Stored(const wchar_t* path, const wchar_t* name) const
    {
        wchar_t data[256] = {};
        DWORD size = sizeof data;
        const HKEY sub = Sub(path);
        const LSTATUS status = RegQueryValueExW(sub, name, nullptr, nullptr, reinterpret_cast<BYTE*>(data), &size);
        RegCloseKey(sub);
        return status == ERROR_SUCCESS ? std::wstring(data, size / sizeof(wchar_t)) : L"(none)";
    }
    void Store(const wchar_t* path, const wchar_t* name, DWORD type, const void* data, std::size_t size) const
    {
        HKEY sub = nullptr;
        RegCreateKeyW(key, path, &sub);
        RegSetValueExW(sub, name, 0, type, static_cast<const BYTE*>(data), static_cast<DWORD>(size));
        RegCloseKey(sub);
    }
    bool Exists(const wchar_t* path) const
    {
        const HKEY sub = Sub(path);
        RegCloseKey(sub);
        return sub != nullptr;
    }
    std::string Value(const char* path, const ValueName& name)
    {
        const auto opened = registry.Open(Root::CurrentUser, path);
        const auto size = opened ? opened->ValueSize(name) : std::nullopt;
        return size ? opened->Value(name, *size).value_or("(refused)") : "(none)";
    }
    HKEY key = nullptr;
    CWindowsRegistry registry;
};
using namespace std::string_literals;
}

TEST_F(Registry, Open_AMissingKey_IsNull) { EXPECT_EQ(registry.Open(Root::CurrentUser, "No\\Such"), nullptr); }

TEST_F(Registry, Create_MakesEveryKeyOnTheWay)
{
    EXPECT_NE(registry.Create(Root::CurrentUser, "A\\B\\C"), nullptr);
    EXPECT_TRUE(Exists(L"A\\B\\C"));
}

TEST_F(Registry, Create_DoubledAndTrailingSeparators_AreIgnored)
{
    ASSERT_NE(registry.Create(Root::CurrentUser, "\\A\\\\B\\"), nullptr);
    EXPECT_TRUE(Exists(L"A\\B"));
    EXPECT_NE(registry.Open(Root::CurrentUser, "a\\\\b\\\\"), nullptr);
}

TEST_F(Registry, SetText_IsStoredWithItsTerminator)
{
    EXPECT_TRUE(registry.Create(Root::CurrentUser, "A")->SetText("Name", "abc"));
    EXPECT_EQ(Stored(L"A", L"Name"), L"abc\0"s);
}

TEST_F(Registry, SetText_Empty_ReadsBackAsEmpty)
{
    EXPECT_TRUE(registry.Create(Root::CurrentUser, "A")->SetText("Name", ""));
    EXPECT_EQ(Stored(L"A", L"Name"), L"\0"s);
    EXPECT_EQ(registry.Open(Root::CurrentUser, "A")->ValueSize("Name"), 1U);
    EXPECT_EQ(Value("A", "Name"), "\0"s);
}

TEST_F(Registry, SetText_UnderNoName_IsTheKeysDefaultValue)
{
    EXPECT_TRUE(registry.Create(Root::CurrentUser, "A")->SetText(std::nullopt, "abc"));
    EXPECT_EQ(Stored(L"A", nullptr), L"abc\0"s);
    EXPECT_EQ(Value("A", std::nullopt), "abc\0"s);
    EXPECT_EQ(Value("A", ""), "abc\0"s);
}

TEST_F(Registry, SetText_ALongText_ReadsBack)
{
    const std::string text(5000, 'x');
    EXPECT_TRUE(registry.Create(Root::CurrentUser, "A")->SetText("Name", text));
    EXPECT_EQ(Value("A", "Name"), text + '\0');
}

TEST_F(Registry, SetText_LettersOfTheCodePage_ReadBack)
{
    EXPECT_TRUE(registry.Create(Root::CurrentUser, "A")->SetText("Gr\xC3\xB6\xC3\x9F\x65", "\xC3\xBC"));
    EXPECT_EQ(Stored(L"A", L"Gr\xF6\xDF\x65"), L"\xFC\0"s);
    EXPECT_EQ(Value("A", "Gr\xC3\xB6\xC3\x9F\x65"), "\xC3\xBC\0"s);
    EXPECT_EQ(registry.Open(Root::CurrentUser, "A")->ValueSize("Gr\xC3\xB6\xC3\x9F\x65"), 3U);
}

TEST_F(Registry, SetText_LettersThatTheCodePageLacks_AreReplacedAndKeepTheRest)
{
    if (GetACP() == CP_UTF8)
        return;
    EXPECT_TRUE(registry.Create(Root::CurrentUser, "A")->SetText("Name", "a\xE6\x97\xA5z"));
    EXPECT_EQ(Value("A", "Name"), "a?z\0"s);
}

TEST_F(Registry, SetNumber_IsFourBytesLowestFirst)
{
    EXPECT_TRUE(registry.Create(Root::CurrentUser, "A")->SetNumber("Contexts", 17));
    EXPECT_EQ(Value("A", "Contexts"), "\x11\0\0\0"s);
}

TEST_F(Registry, SetNumber_Negative_IsItsTwosComplement)
{
    EXPECT_TRUE(registry.Create(Root::CurrentUser, "A")->SetNumber("N", -2));
    EXPECT_EQ(Value("A", "N"), "\xFE\xFF\xFF\xFF");
}

TEST_F(Registry, Value_OfAnotherType_IsGivenOutByteForByte)
{
    Store(L"A", L"Binary", REG_BINARY, "\x80\xFF\x01", 3);
    EXPECT_EQ(Value("A", "Binary"), "\x80\xFF\x01");
}

TEST_F(Registry, Value_BinaryOfNoBytes_HasSizeNull)
{
    Store(L"A", L"Binary", REG_BINARY, "", 0);
    EXPECT_EQ(registry.Open(Root::CurrentUser, "A")->ValueSize("Binary"), 0U);
    EXPECT_EQ(Value("A", "Binary"), "");
}

TEST_F(Registry, Value_ATextWithoutTerminator_IsNotReadBeyondItsEnd)
{
    Store(L"A", L"Open", REG_SZ, L"abc", 6);
    const std::string value = Value("A", "Open");
    EXPECT_EQ(value.substr(0, 3), "abc");
    EXPECT_LE(value.size(), 4U);
}

TEST_F(Registry, Value_ATextOfOddLength_DoesNoHarm)
{
    Store(L"A", L"Odd", REG_SZ, L"abc", 5);
    EXPECT_EQ(Value("A", "Odd").substr(0, 2), "ab");
}

TEST_F(Registry, Value_ALongerOneThanTheRoom_IsNothing)
{
    registry.Create(Root::CurrentUser, "A")->SetText("Name", "abc");
    const auto opened = registry.Open(Root::CurrentUser, "A");
    EXPECT_EQ(opened->Value("Name", 3), std::nullopt);
    EXPECT_EQ(opened->Value("Name", 4), "abc\0"s);
    EXPECT_EQ(opened->Value("Name", static_cast<std::size_t>(-1)), "abc\0"s);
}

TEST_F(Registry, ValueSize_OfAMissingValue_IsNothing)
{
    registry.Create(Root::CurrentUser, "A");
    EXPECT_EQ(registry.Open(Root::CurrentUser, "A")->ValueSize("None"), std::nullopt);
    EXPECT_EQ(registry.Open(Root::CurrentUser, "A")->ValueSize(std::nullopt), std::nullopt);
}

TEST_F(Registry, DeleteValue_LeavesTheOthers)
{
    const auto opened = registry.Create(Root::CurrentUser, "Run");
    opened->SetText("Parlune", "C:\\p.exe");
    opened->SetText("Other", "C:\\o.exe");
    EXPECT_TRUE(opened->DeleteValue("Parlune"));
    EXPECT_FALSE(opened->DeleteValue("Parlune"));
    EXPECT_EQ(Value("Run", "Parlune"), "(none)");
    EXPECT_EQ(Value("Run", "Other"), "C:\\o.exe\0"s);
}

TEST_F(Registry, DeleteValue_UnderNoName_DeletesTheDefaultValue)
{
    const auto opened = registry.Create(Root::CurrentUser, "A");
    opened->SetText(std::nullopt, "abc");
    EXPECT_TRUE(opened->DeleteValue(std::nullopt));
    EXPECT_EQ(Value("A", std::nullopt), "(none)");
}

TEST_F(Registry, DeleteKey_WithItsValues_IsGone)
{
    registry.Create(Root::CurrentUser, "A\\B")->SetText("Name", "abc");
    EXPECT_TRUE(registry.DeleteKey(Root::CurrentUser, "A\\\\B\\"));
    EXPECT_FALSE(Exists(L"A\\B"));
    EXPECT_FALSE(registry.DeleteKey(Root::CurrentUser, "A\\B"));
}

TEST_F(Registry, DeleteKey_WithKeysBelow_IsRefused)
{
    registry.Create(Root::CurrentUser, "A\\B");
    EXPECT_FALSE(registry.DeleteKey(Root::CurrentUser, "A"));
    EXPECT_TRUE(Exists(L"A\\B"));
}

TEST_F(Registry, DeleteKey_OfTheRoot_IsRefused)
{
    EXPECT_FALSE(registry.DeleteKey(Root::CurrentUser, ""));
    EXPECT_FALSE(registry.DeleteKey(Root::CurrentUser, "\\\\"));
    EXPECT_NE(registry.Open(Root::CurrentUser, ""), nullptr);
}

TEST_F(Registry, ANulInANameOrPath_IsNotTakenForAShorterOne)
{
    registry.Create(Root::CurrentUser, "A")->SetText("Name", "abc");
    EXPECT_EQ(registry.Open(Root::CurrentUser, "A\0B"s), nullptr);
    EXPECT_EQ(registry.Create(Root::CurrentUser, "A\0B"s), nullptr);
    EXPECT_FALSE(registry.DeleteKey(Root::CurrentUser, "A\0B"s));
    EXPECT_EQ(Value("A", "Name\0x"s), "(none)");
    EXPECT_FALSE(registry.Open(Root::CurrentUser, "A")->SetText("Name\0x"s, "z"));
    EXPECT_FALSE(registry.Open(Root::CurrentUser, "A")->DeleteValue("Name\0x"s));
    EXPECT_EQ(Value("A", "Name"), "abc\0"s);
}

TEST_F(Registry, Create_BelowAKeyThatOnlyLastsUntilTheRestart_IsRefused)
{
    HKEY brief = nullptr;
    RegCreateKeyExW(key, L"Brief", 0, nullptr, REG_OPTION_VOLATILE, KEY_ALL_ACCESS, nullptr, &brief, nullptr);
    EXPECT_EQ(registry.Create(Root::CurrentUser, "Brief\\Below"), nullptr);
    RegCloseKey(brief);
}

TEST_F(Registry, AKeyThatMayOnlyBeRead_IsRefusedWithFullAccess)
{
    registry.Create(Root::CurrentUser, "A")->SetText("Name", "abc");
    PSECURITY_DESCRIPTOR readOnly = nullptr;
    ASSERT_TRUE(
        ConvertStringSecurityDescriptorToSecurityDescriptorW(L"D:P(A;;KR;;;WD)", SDDL_REVISION_1, &readOnly, nullptr));
    const HKEY sub = Sub(L"A");
    ASSERT_EQ(RegSetKeySecurity(sub, DACL_SECURITY_INFORMATION, readOnly), ERROR_SUCCESS);
    RegCloseKey(sub);
    LocalFree(readOnly);
    HKEY reopened = nullptr;
    const bool systemGuards = RegOpenKeyExW(key, L"A", 0, KEY_ALL_ACCESS, &reopened) == ERROR_ACCESS_DENIED;
    RegCloseKey(reopened);
    EXPECT_EQ(registry.Open(Root::CurrentUser, "A") == nullptr, systemGuards);
    EXPECT_EQ(registry.Create(Root::CurrentUser, "A") == nullptr, systemGuards);
}

TEST_F(Registry, SetText_InAKeyThatIsDeletedMeanwhile_IsRefused)
{
    const auto opened = registry.Create(Root::CurrentUser, "A");
    RegDeleteKeyW(key, L"A");
    EXPECT_FALSE(opened->SetText("Name", "abc"));
    EXPECT_EQ(opened->ValueSize("Name"), std::nullopt);
    EXPECT_FALSE(opened->DeleteValue("Name"));
}

TEST_F(Registry, ClassesRoot_AClassThatIsThere_Opens)
{
    const auto opened = registry.Create(Root::ClassesRoot, "ParluneTest.Class\\CLSID");
    ASSERT_NE(opened, nullptr);
    EXPECT_TRUE(opened->SetText(std::nullopt, "{0}"));
    EXPECT_EQ(registry.Open(Root::ClassesRoot, "parlunetest.class\\clsid")->Value(std::nullopt, 4), "{0}\0"s);
    EXPECT_TRUE(registry.DeleteKey(Root::ClassesRoot, "ParluneTest.Class\\CLSID"));
    EXPECT_TRUE(registry.DeleteKey(Root::ClassesRoot, "ParluneTest.Class"));
}

}
